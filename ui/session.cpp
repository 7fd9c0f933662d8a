// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/session.h"

#include "application/choice_rules.h"
#include "application/layer_rules.h"
#include "application/wizard_rules.h"
#include "data/atomic_file.h"
#include "data/job_file.h"

#include <QElapsedTimer>

#include <algorithm>

namespace kaloria {

Session::Session(std::filesystem::path programFolder, MessageSink& sink, SettingsStore& settings)
    : sink_(sink), settings_(settings), application_(std::move(programFolder), sink) {
    live_.setSingleShot(true);
    live_.setInterval(0); // several changes of one event are one change
    connect(&live_, &QTimer::timeout, this, [this] { Calculate(); });
}

void Session::SetText(Field field, const std::string& text) {
    Job& job = application_.CurrentJob();
    if (job[field] == text) {
        return;
    }
    job[field] = text;
    Touched();
    Q_EMIT FieldChanged(field);
}

void Session::Choose(Field field, const std::string& text) {
    Job& job = application_.CurrentJob();
    if (job[field] == text) {
        return;
    }
    ChoiceOutcome outcome;
    switch (field) {
    case Field::InsulationThicknessCalculationType:
        outcome = ChooseCalculationType(job, Records(), CalculationTypeFrom(text).value_or(0));
        break;
    case Field::SurfaceGeometry:
        outcome = ChooseGeometry(job, Records(), text);
        break;
    case Field::Fuel:
    case Field::ReportFuel:
        outcome = ChooseFuel(job, Records(), field, text);
        break;
    default:
        job[field] = text;
        break;
    }
    Touched();
    Q_EMIT JobReplaced();
    for (const std::string& note : outcome.notes) {
        Q_EMIT Noted(QString::fromStdString(note));
    }
    if (!outcome.message.empty()) {
        sink_.Show(outcome.message);
    }
}

void Session::Committed(Field field) {
    const std::string& processTemp = TheJob()[Field::ProcessTemp];
    if (field == Field::ProcessTemp && processTemp != checkedProcessTemp_) {
        checkedProcessTemp_ = processTemp;
        Note(ProcessTemperatureNotes(TheJob(), Records()));
    }
}

void Session::Note(const std::vector<Finding>& notes) {
    std::vector<std::string> said; // several layers may give the same caution
    for (const Finding& note : notes) {
        if (note.severity != Severity::error &&
            std::find(said.begin(), said.end(), note.text) == said.end()) {
            said.push_back(note.text);
            sink_.Show(note.text);
        }
    }
}

void Session::SetMoisture(Field field) {
    Job& job = application_.CurrentJob();
    if (job.moisture == field) {
        return;
    }
    job.moisture = field;
    Touched();
    Q_EMIT JobReplaced();
}

void Session::SetPosition(int category, int menuItem) {
    Job& job = application_.CurrentJob();
    job[Field::CurrentCategory] = std::to_string(category);
    job[Field::CurrentMenuItem] = std::to_string(menuItem);
}

void Session::SwitchUnits(Units units) {
    Job& job = application_.CurrentJob();
    if (job.UnitsInForce() == units) {
        return;
    }
    const bool wasChecked = checkedProcessTemp_ == job[Field::ProcessTemp];
    memory_.Switch(job, application_.Records(), units);
    if (wasChecked) {
        checkedProcessTemp_ = job[Field::ProcessTemp]; // the same temperature
    }
    application_.SI = units == Units::si;
    application_.SystemUnits = application_.SI ? 1 : 0;
    Touched();
    Q_EMIT JobReplaced();
}

void Session::KeepRecords() {
    if (!haveRecordsChanged_) {
        return;
    }
    if (const auto problem = application_.SaveConfigurationFile()) {
        sink_.Log(problem->text);
    } else {
        haveRecordsChanged_ = false;
    }
}

void Session::RecordsChanged() {
    recordsEdited_ = true;
    haveRecordsChanged_ = true;
    application_.NameMaterials(application_.CurrentJob());
    Q_EMIT CatalogueChanged();
    AnswerNeeded();
}

void Session::Touched() {
    if (!isDirty_) {
        isDirty_ = true;
        Q_EMIT FileChanged();
    }
    AnswerNeeded();
}

void Session::AnswerNeeded() {
    isCurrent_ = false;
    if (isLive_) {
        live_.start();
    } else {
        Q_EMIT Stale();
    }
}

void Session::Became(const std::filesystem::path& path, bool isDirty) {
    path_ = path;
    isDirty_ = isDirty;
    memory_.Forget();
    checkedProcessTemp_ = TheJob()[Field::ProcessTemp];
    Q_EMIT JobReplaced();
    Q_EMIT FileChanged();
    AnswerNeeded();
}

bool Session::Open(const std::filesystem::path& path) {
    const std::filesystem::path pathBefore = application_.JobPath;
    const std::string jobBefore = JobText(application_.CurrentJob(), application_.Records());
    application_.JobPath = path;
    if (application_.OpenJob()) {
        Became(path, false);
        Q_EMIT JobOpened();
        return true;
    }
    application_.JobPath = pathBefore;
    if (JobText(application_.CurrentJob(), application_.Records()) != jobBefore) {
        // What stood before the place where the file breaks off is in the job now; it has no file yet.
        Became({}, true);
        Q_EMIT JobOpened();
    }
    return false;
}

bool Session::Save(const std::filesystem::path& path) {
    const std::filesystem::path before = application_.JobPath;
    application_.JobPath = path;
    if (!application_.SaveJob()) {
        application_.JobPath = before;
        return false;
    }
    path_ = path;
    isDirty_ = false;
    Q_EMIT FileChanged();
    return true;
}

void Session::StartNew() {
    application_.JobPath = application_.DefaultJobPath();
    application_.OpenJob();
    Job& job = application_.CurrentJob();
    job[Field::Path] = (application_.ProgramFolder() / "NewJob.rtf").string();
    job[Field::Date] = Today();
    Became({}, false);
    Q_EMIT JobOpened();
}

void Session::TakeRecovered(const Job& job, const std::filesystem::path& path) {
    application_.CurrentJob() = job;
    application_.NameMaterials(application_.CurrentJob());
    application_.SI = job.UnitsInForce() == Units::si;
    application_.JobPath = path.empty() ? application_.DefaultJobPath() : path;
    Became(path, true);
    Q_EMIT JobOpened();
}

void Session::TakeCase(const Job& job, const UnitsMemory& memory) {
    TakeRecovered(job, {});
    memory_ = memory;
}

void Session::LoadDefaults() {
    const std::filesystem::path before = application_.JobPath;
    const std::string category = TheJob()[Field::CurrentCategory];
    const std::string menuItem = TheJob()[Field::CurrentMenuItem];
    application_.JobPath = application_.DefaultJobPath();
    application_.OpenJob();
    application_.JobPath = before;
    application_.CurrentJob()[Field::CurrentCategory] = category; // one stays where one is
    application_.CurrentJob()[Field::CurrentMenuItem] = menuItem;
    Became(path_, true);
}

bool Session::SaveAsDefault() {
    try {
        SaveJob(application_.DefaultJobPath(), application_.CurrentJob(), application_.Records());
        return true;
    } catch (const FileError& error) {
        sink_.Show(message::savingJob);
        sink_.Log(error.what());
        return false;
    }
}

const CalculationResult& Session::Calculate() {
    live_.stop();
    QElapsedTimer clock;
    clock.start();
    result_ = application_.Calculate();
    milliseconds_ = static_cast<double>(clock.nsecsElapsed()) / 1e6;
    isCurrent_ = true;
    Q_EMIT Calculated();
    return result_;
}

void Session::SetLive(bool live) {
    isLive_ = live;
    if (live && !isCurrent_) {
        live_.start();
    }
}

} // namespace kaloria
