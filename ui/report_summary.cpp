// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/report_summary.h"

#include "application/wizard_rules.h"
#include "ui/field_card.h"
#include "ui/notice.h"
#include "ui/pictures/economic_card.h"
#include "ui/theme.h"

#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace kaloria {

ReportSummary::ReportSummary(Session& session, std::function<ReportChoice()> choice, QWidget* parent)
    : QWidget(parent), session_(session), choice_(std::move(choice)) {
    setObjectName(QStringLiteral("fraReportSummary"));
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    curve_ = new EconomicCard(this);
    layout->addWidget(curve_);
    layout->addStretch(1);
    FollowAnalysis();
    connect(&session_, &Session::FieldChanged, this, [this] {
        if (isVisible()) {
            Refresh();
        }
    });
}

/// The curve belongs to the inputs that it was reckoned with; where the report is saved is none of them.
void ReportSummary::FollowAnalysis() {
    connect(&session_, &Session::Analysed, this, [this] {
        if (const auto& analysis = session_.App().Report().Analysis()) {
            curve_->Show(*analysis, session_.TheJob().UnitsInForce());
        }
    });
    connect(&session_, &Session::FieldChanged, curve_, [this](Field field) {
        if (field != Field::Path) {
            curve_->SetStale();
        }
    });
    connect(&session_, &Session::JobReplaced, curve_, &EconomicCard::SetStale);
    connect(&session_, &Session::CatalogueChanged, curve_, &EconomicCard::SetStale);
}

void ReportSummary::SetKind(const QString& kind) { kind_ = kind; }

void ReportSummary::AddLine(const QString& caption, const QString& text) {
    auto* const grid = content_->findChild<QGridLayout*>();
    auto* const label = new QLabel(caption, content_);
    theme::SetRole(*label, "quiet");
    auto* const value = new QLabel(text, content_);
    value->setWordWrap(true);
    const int row = grid->rowCount();
    grid->addWidget(label, row, 0, Qt::AlignTop);
    grid->addWidget(value, row, 1);
}

void ReportSummary::Refresh() {
    const Job& job = session_.TheJob();
    const ReportReading reading = ReadReport(job, session_.Records(), choice_());
    delete content_;
    content_ = new QWidget(this);
    auto* const column = new QVBoxLayout(content_);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(6);
    auto* const card = new Card(tr("The report"), content_);
    auto* const grid = new QGridLayout;
    grid->setColumnStretch(1, 1);
    grid->setHorizontalSpacing(14);
    card->Content()->addLayout(grid);
    column->addWidget(card);
    AddLine(tr("Kind"), QStringLiteral("%1, %2").arg(kind_, job.IsTrue(Field::EngineeringReport)
                                                                ? tr("every thickness at one temperature")
                                                                : tr("tables of six temperatures")));
    const ReportChoice choice = choice_();
    QStringList items;
    for (const int position : choice.items.value_or(std::vector<int>())) {
        items << ToQt(ItemName(position, session_.Records(), job.UnitsInForce()));
    }
    AddLine(tr("Surfaces"), items.isEmpty()    ? tr("none ticked")
                            : items.size() > 8 ? tr("%1 sizes and surfaces").arg(items.size())
                                               : items.join(QStringLiteral(", ")));
    AddLine(tr("Insulation"), ToQt(job[Field::ReportInsulationMaterial]));
    AddLine(tr("Service"),
            QStringLiteral("%1, %2").arg(job.IsTrue(Field::HotSurface) ? tr("hot") : tr("cold"),
                                         job.IsTrue(Field::NewApplication) ? tr("new") : tr("retrofit")));
    const std::string_view problem = ProjectProblem(job);
    if (!problem.empty()) {
        column->addWidget(NewNotice(Severity::error, ToQt(problem), content_));
    }
    for (const Finding& finding : reading.findings) {
        column->addWidget(NewNotice(finding, content_));
    }
    if (problem.empty() && !HasErrors(reading.findings)) {
        column->addWidget(NewGoodNotice(tr("Everything that the report needs is there."), content_));
    }
    qobject_cast<QVBoxLayout*>(layout())->insertWidget(0, content_);
}

} // namespace kaloria
