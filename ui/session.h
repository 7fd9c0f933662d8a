// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/application.h"
#include "application/settings.h"
#include "application/units_memory.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <cstdint>
#include <optional>
#include <string>

namespace kaloria {

/// The current job and its answer, as all windows see them: who changes something does it here, and here
/// everyone hears of it. Holds no widget.
class Session final : public QObject {
    Q_OBJECT

public:
    /// @param sink, @param settings  must outlive this object
    Session(std::filesystem::path programFolder, MessageSink& sink, SettingsStore& settings);

    [[nodiscard]] CApplication& App() { return application_; }
    [[nodiscard]] const Catalogue& Records() { return application_.Records(); }
    [[nodiscard]] const Job& TheJob() { return application_.CurrentJob(); }
    /// What the entries were before the units were switched.
    [[nodiscard]] const UnitsMemory& Memory() const { return memory_; }
    [[nodiscard]] SettingsStore& Settings() { return settings_; }
    [[nodiscard]] MessageSink& Messages() { return sink_; }

    // Changes
    // -------------------------------------------------------------------------------------------------------
    /// What was typed or chosen; texts that are no numbers are kept as they stand.
    void SetText(Field field, const std::string& text);
    /// A choice from a list, with what its rules change besides.
    void Choose(Field field, const std::string& text);
    /// An entry was left after it was changed: what the rules have to say about it is said now, not at every
    /// key.
    void Committed(Field field);
    /// Says warnings and information, each text once.
    void Note(const std::vector<Finding>& notes);
    /// Puts one of the three moisture entries in use.
    void SetMoisture(Field field);
    /// Any other change of the job: layers, several fields at once by a rule.
    template <class Change>
    void Edit(const Change& change) {
        change(application_.CurrentJob());
        Touched();
        Q_EMIT JobReplaced();
    }
    /// The navigation position travels in the job but is no change that asks for saving.
    void SetPosition(int category, int menuItem);
    void SwitchUnits(Units units);
    /// Writes the user's records to the configuration file when they have changed since; what prevented it is
    /// logged. The end of the program asks anew.
    void KeepRecords();
    /// Any change of the catalogue; the job may have to follow it.
    template <class Change>
    void EditRecords(const Change& change) {
        change(application_.Records(), application_.CurrentJob());
        RecordsChanged();
    }

    // Files
    // ---------------------------------------------------------------------------------------------------------
    bool Open(const std::filesystem::path& path);
    bool Save(const std::filesystem::path& path);
    /// A new job from the default job file; the job has no file of its own then.
    void StartNew();
    /// Takes a job that was recovered after a crash.
    void TakeRecovered(const Job& job, const std::filesystem::path& path);
    /// Takes a job that was kept for comparison; it has no file of its own.
    void TakeCase(const Job& job, const UnitsMemory& memory);
    /// Puts the inputs of the default job into the current one, which keeps its file.
    void LoadDefaults();
    bool SaveAsDefault();
    [[nodiscard]] const std::filesystem::path& Path() const { return path_; } ///< empty: not saved yet
    [[nodiscard]] bool IsDirty() const { return isDirty_; }
    /// Whether records were added, changed or deleted in this run.
    [[nodiscard]] bool RecordsEdited() const { return recordsEdited_; }

    // Answer
    // --------------------------------------------------------------------------------------------------------
    /// Calculates now.
    const CalculationResult& Calculate();
    [[nodiscard]] const CalculationResult& Result() const { return result_; }
    /// Whether the answer belongs to the inputs as they stand.
    [[nodiscard]] bool IsCurrent() const { return isCurrent_; }
    /// Live: every change is followed by a calculation.
    void SetLive(bool live);
    [[nodiscard]] bool IsLive() const { return isLive_; }
    [[nodiscard]] double CalculationMilliseconds() const { return milliseconds_; }

Q_SIGNALS:
    void FieldChanged(kaloria::Field field); ///< one text; not sent for JobReplaced
    void JobReplaced();                      ///< show everything anew
    void JobOpened();                        ///< another job: go to where it was left
    void CatalogueChanged();                 ///< lists of choices are out of date
    void FileChanged();                      ///< path or dirty mark
    void Calculated();                       ///< Result() is new
    void Noted(const QString& text);         ///< what a choice has changed besides
    void Stale();                            ///< Result() no longer belongs to the inputs
    void Analysed();                         ///< App().Report() has a new economic analysis

private:
    void Touched();
    void Became(const std::filesystem::path& path, bool isDirty);
    void AnswerNeeded();
    void RecordsChanged();

    MessageSink& sink_;
    SettingsStore& settings_;
    CApplication application_;
    UnitsMemory memory_;
    CalculationResult result_;
    std::filesystem::path path_;
    std::string checkedProcessTemp_; ///< what the service limits were last held against
    QTimer live_;
    double milliseconds_ = 0;
    bool isDirty_ = false;
    bool recordsEdited_ = false;
    bool haveRecordsChanged_ = false;
    bool isCurrent_ = false;
    bool isLive_ = true;
};

} // namespace kaloria
