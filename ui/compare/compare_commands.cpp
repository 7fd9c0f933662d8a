// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/compare/compare_commands.h"

#include "application/comparison_export.h"
#include "application/grid_export.h"
#include "data/atomic_file.h"
#include "ui/compare/compare_window.h"
#include "ui/file_dialogs.h"
#include "ui/job_commands.h"
#include "ui/results_view.h"
#include "ui/theme.h"

#include <QApplication>
#include <QClipboard>

namespace kaloria {

CompareCommands::CompareCommands(Session& session, JobCommands& jobs, ResultsView& results, QWidget& window)
    : QObject(&window), session_(session), jobs_(jobs), results_(results), window_(window) {
    connect(&session_, &Session::JobReplaced, this, &CompareCommands::FollowUnits);
    connect(&session_, &Session::CatalogueChanged, this, &CompareCommands::Touch);
    connect(this, &CompareCommands::Changed, &results_,
            [this] { results_.ShowKept(static_cast<int>(comparison_.Cases().size())); });
}

void CompareCommands::Keep() {
    if (!session_.IsCurrent()) {
        session_.Calculate();
    }
    KeptCase kept{{}, session_.TheJob(), session_.Memory(), {}};
    const CalculationResult& result = session_.Result();
    if (const auto row = results_.ChosenRow(); row && *row < result.solved.size()) {
        if (const auto& nominal = result.solved[*row].nominal) {
            kept.chosen = ChosenThickness{*nominal, result.units};
        }
    }
    const std::string refusal = comparison_.Add(std::move(kept));
    if (!refusal.empty()) {
        session_.Messages().Show(refusal);
        return;
    }
    Touch();
    Q_EMIT Said(tr("Kept as \"%1\", %2 of %3. Ctrl+Shift+K compares.")
                    .arg(ToQt(comparison_.Cases().back().name))
                    .arg(comparison_.Cases().size())
                    .arg(mostKeptCases));
}

void CompareCommands::ShowWindow() {
    if (shown_ == nullptr) {
        shown_ = new CompareWindow(*this, &window_);
    }
    shown_->show();
    shown_->raise();
    shown_->activateWindow();
}

void CompareCommands::Open(std::size_t index) {
    if (index >= comparison_.Cases().size() || !jobs_.MayLeave()) {
        return;
    }
    const KeptCase& kept = comparison_.Cases()[index];
    Job job = kept.job;
    FollowMaterials(job, session_.Records());
    session_.TakeCase(job, kept.memory);
    Q_EMIT Said(tr("\"%1\" is open, as a job that has no file yet.").arg(ToQt(kept.name)));
    window_.raise();
    window_.activateWindow();
}

QString CompareCommands::Rename(std::size_t index, const QString& name) {
    const std::string refusal = comparison_.Rename(index, FromQt(name));
    Touch();
    return ToQt(refusal);
}

void CompareCommands::Remove(std::size_t index) {
    comparison_.Remove(index);
    Touch();
}

void CompareCommands::Move(std::size_t from, std::size_t to) {
    comparison_.Move(from, to);
    Touch();
}

bool CompareCommands::Export(const QString& path) {
    try {
        WriteComparison(files::FromQt(path), Table());
        Q_EMIT Said(tr("Exported to %1").arg(path));
        return true;
    } catch (const FileError& error) {
        session_.Messages().Show("The comparison could not be exported. " + std::string(error.what()));
        return false;
    }
}

void CompareCommands::Copy() {
    QApplication::clipboard()->setText(ToQt(GridAsTabText(ComparisonGrid(Table()))));
    Q_EMIT Said(tr("Comparison copied"));
}

const std::vector<ComparedCase>& CompareCommands::Answers() {
    if (!areCurrent_) {
        comparison_.SwitchUnits(session_.Records(), session_.TheJob().UnitsInForce());
        answers_ = SolveCases(comparison_.Cases(), session_.Records());
        areCurrent_ = true;
    }
    return answers_;
}

ComparisonTable CompareCommands::Table() { return MakeComparisonTable(Answers(), session_.Records()); }

void CompareCommands::Touch() {
    areCurrent_ = false;
    Q_EMIT Changed();
}

void CompareCommands::FollowUnits() {
    const auto& cases = comparison_.Cases();
    if (!cases.empty() && cases.front().job.UnitsInForce() != session_.TheJob().UnitsInForce()) {
        Touch();
    }
}

} // namespace kaloria
