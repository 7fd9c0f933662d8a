// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/comparison_table.h"
#include "ui/session.h"

#include <QObject>

class QWidget;

namespace kaloria {

class CompareWindow;
class JobCommands;
class ResultsView;

/// The cases that are kept in this session, and what a person does with them. The window that shows them is
/// made when it is first asked for.
class CompareCommands final : public QObject {
    Q_OBJECT

public:
    /// All must outlive this object, which belongs to @p window.
    CompareCommands(Session& session, JobCommands& jobs, ResultsView& results, QWidget& window);

    /// Keeps the job in hand with the row that was chosen in its results.
    void Keep();
    void ShowWindow();
    /// Makes a kept case the job in hand; asks about unsaved changes first.
    void Open(std::size_t index);
    /// @returns why not; empty when it is renamed
    QString Rename(std::size_t index, const QString& name);
    void Remove(std::size_t index);
    void Move(std::size_t from, std::size_t to);
    /// @param path  .xlsx or .csv
    bool Export(const QString& path);
    void Copy();

    [[nodiscard]] const Comparison& Kept() const { return comparison_; }
    /// The kept cases with their answers as they are now, in the units in force.
    [[nodiscard]] const std::vector<ComparedCase>& Answers();
    [[nodiscard]] ComparisonTable Table();
    [[nodiscard]] Session& TheSession() const { return session_; }

Q_SIGNALS:
    void Changed(); ///< Answers() are new
    void Said(const QString& message);

private:
    void Touch();
    void FollowUnits();

    Session& session_;
    JobCommands& jobs_;
    ResultsView& results_;
    QWidget& window_;
    Comparison comparison_;
    std::vector<ComparedCase> answers_;
    bool areCurrent_ = false;
    CompareWindow* shown_ = nullptr;
};

} // namespace kaloria
