// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/report_panels.h"

#include "application/choice_rules.h"
#include "ui/file_dialogs.h"
#include "ui/option_pair.h"
#include "ui/theme.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace kaloria {

namespace {

constexpr int boxColumns = 4;
constexpr std::array<Field, 3> costSources{Field::FEA, Field::PreviousCostData, Field::UserSuppliedCostData};

QPushButton* SmallButton(const QString& text, const char* name, const QString& tip, QWidget* parent) {
    auto* const button = new QPushButton(text, parent);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    return button;
}

} // namespace

// Project
// ---------------------------------------------------------------------------------------------------------------

ProjectPanel::ProjectPanel(Session& session, const QString& objectName, const QString& title)
    : PanelPage(session, objectName, title) {
    AddFields(tr("Project"), {Field::ProjectNumber, Field::Date, Field::ReportName, Field::JobName,
                              Field::System, Field::Location});
    AddFields(tr("People"), {Field::Engineer, Field::Contact, Field::Phone});
    AddFields(tr("Report"), {Field::ReportUnits, Field::Path});
    AddStretch();
    auto* const date = qobject_cast<QLineEdit*>(EditorOf(Field::Date)->Control());
    date->setPlaceholderText(QStringLiteral("mm/dd/yyyy"));
    connect(date, &QLineEdit::editingFinished, this, [this, date] {
        // Leaving the field says it once; editingFinished also comes for a field that nobody touched.
        if (date->isModified()) {
            date->setModified(false);
            const std::string_view problem = DateProblem(TheSession().TheJob()[Field::Date]);
            CheckDate();
            if (!problem.empty()) {
                TheSession().Messages().Show(problem);
            }
        }
    });
}

void ProjectPanel::Refresh() {
    PanelPage::Refresh();
    CheckDate();
}

void ProjectPanel::CheckDate() {
    EditorOf(Field::Date)->SetError(ToQt(DateProblem(TheSession().TheJob()[Field::Date])));
}

// Economics
// ---------------------------------------------------------------------------------------------------------------

EconomicsPanel::EconomicsPanel(Session& session, const QString& objectName, const QString& title)
    : PanelPage(session, objectName, title) {
    auto* const service = new Card(tr("Service"), this);
    options_[0] = new OptionPair(Field::HotSurface, {"optHotSurface", tr("Hot &surface")},
                                 {"optColdSurface", tr("Co&ld surface")}, session, service);
    options_[1] = new OptionPair(Field::NewApplication, {"optNewApplication", tr("Ne&w application")},
                                 {"optRetrofit", tr("Re&trofit")}, session, service);
    for (OptionPair* const pair : options_) {
        service->Content()->addWidget(pair);
    }
    AddWidget(service);
    AddFields(tr("Fuel"),
              {Field::ReportFuel, Field::ReportFuelCost, Field::ReportHeatingValue, Field::ReportEfficiency});
    AddFields(tr("Cooling plant"), {Field::ChillerCoefficientOfPerformance, Field::ChillerCondensorFactor,
                                    Field::ChillerWetBulbTemperature, Field::ChillerRelativeHumidity,
                                    Field::ChillerMakeUpWaterCost, Field::ChillerMakeUpWaterInflationRate});
    AddFields(tr("Operation"), {Field::AnnualOperation, Field::AnnualAverageTemp,
                                Field::AnnualAverageWindSpeed, Field::PaybackReferenceThickness});
    AddFields(tr("Money"),
              {Field::ReportAnnualInflationRate, Field::InterestRate, Field::TaxRate,
               Field::PlantDepreciationPeriod, Field::NewInsulationDepreciationPeriod, Field::InvestmentRate,
               Field::InsulationMaintenancePercent, Field::FuelMaintenancePercent});
    AddStretch();
}

void EconomicsPanel::Refresh() {
    PanelPage::Refresh();
    for (OptionPair* const pair : options_) {
        pair->Refresh();
    }
}

// Installed cost
// ---------------------------------------------------------------------------------------------------------------

InstalledCostPanel::InstalledCostPanel(Session& session, const QString& objectName, const QString& title)
    : PanelPage(session, objectName, title) {
    AddWidget(BuildSurfaces());
    AddWidget(BuildSource());
    AddFields(tr("Insulation"),
              {Field::ReportInsulationMaterial, Field::ReportJacketMaterial,
               Field::ReportInstallationComplexity, Field::ReportPipeInsulationPrice,
               Field::ReportBoardInsulationPrice, Field::ReportLaborRate, Field::ReportRegionalProductivity});
    AddFields(tr("There already"),
              {Field::ReportExistingInsulationMaterial, Field::ReportExistingInsulationThickness});
    AddStretch();
}

QWidget* InstalledCostPanel::BuildSurfaces() {
    auto* const card = new Card(tr("Sizes and surfaces of the report"), this);
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(theme::gap);
    grid->setVerticalSpacing(3);
    for (int position = 1; position <= reportItemCount; ++position) {
        auto* const box = new QCheckBox(card);
        box->setObjectName(QStringLiteral("chkSurface%1").arg(position - 1));
        boxes_.at(static_cast<std::size_t>(position - 1)) = box;
        connect(box, &QCheckBox::clicked, this, [this, position](bool on) {
            ticks_.Tick(position, on);
            Ticked();
        });
        const bool isFlat = position >= firstFlatItem;
        const int pipes = firstFlatItem - 1;
        const int rows = (pipes + boxColumns - 1) / boxColumns;
        const int place = position - 1;
        if (isFlat) {
            grid->addWidget(box, rows + position - firstFlatItem, 0, 1, boxColumns);
        } else {
            grid->addWidget(box, place % rows, place / rows);
        }
    }
    card->Content()->addLayout(grid);
    const JobField& everything = InfoOf(Field::ReportAllSurfaces);
    all_ = new QCheckBox(ToQt(everything.label), card);
    all_->setObjectName(ToQt(everything.control));
    all_->setProperty("field", static_cast<int>(everything.id));
    all_->setToolTip(ToQt(everything.help));
    all_->setAccessibleName(ToQt(everything.label));
    card->Content()->addWidget(all_);
    connect(all_, &QCheckBox::clicked, this, [this](bool on) {
        if (on) {
            ticks_.SelectAll();
        } else {
            ticks_.SelectNone();
        }
        Ticked();
    });
    auto* const row = new QHBoxLayout;
    QPushButton* const all = SmallButton(tr("&All"), "cmdSelectAll", tr("Tick all sizes and surfaces"), card);
    QPushButton* const none = SmallButton(tr("None"), "cmdSelectNone", tr("Tick none"), card);
    range_ = new QLineEdit(card);
    range_->setObjectName(QStringLiteral("txtSurfaceRange"));
    range_->setAccessibleName(tr("Positions to tick"));
    range_->setPlaceholderText(QStringLiteral("6, 12-15, 27"));
    range_->setToolTip(
        tr("Positions counted through the list above: 1 to 26 the pipe sizes, 27 to 29 the flat "
           "surfaces"));
    QPushButton* const select =
        SmallButton(tr("&Tick range"), "cmdSelectRange", tr("Tick these positions and no others"), card);
    row->addWidget(all);
    row->addWidget(none);
    range_->setMinimumWidth(80);
    row->addWidget(range_, 1);
    row->addWidget(select);
    card->Content()->addLayout(row);
    rangeError_ = new QLabel(card);
    rangeError_->setWordWrap(true);
    theme::SetRole(*rangeError_, "error");
    rangeError_->hide();
    card->Content()->addWidget(rangeError_);
    connect(all, &QPushButton::clicked, this, [this] {
        ticks_.SelectAll();
        Ticked();
    });
    connect(none, &QPushButton::clicked, this, [this] {
        ticks_.SelectNone();
        Ticked();
    });
    connect(select, &QPushButton::clicked, this, &InstalledCostPanel::SelectRange);
    connect(range_, &QLineEdit::returnPressed, this, &InstalledCostPanel::SelectRange);
    return card;
}

QWidget* InstalledCostPanel::BuildSource() {
    auto* const card = new Card(tr("Installed costs"), this);
    const std::array<const char*, 3> names{"optFEA", "optPreviousCostData", "optUserSuppliedCostData"};
    for (std::size_t i = 0; i < sources_.size(); ++i) {
        const JobField& field = InfoOf(costSources.at(i));
        auto* const button = new QRadioButton(ToQt(field.label), card);
        button->setObjectName(QLatin1String(names.at(i)));
        button->setProperty("field", static_cast<int>(field.id));
        button->setToolTip(ToQt(field.help));
        button->setAccessibleName(ToQt(field.label));
        connect(button, &QRadioButton::clicked, this, [this, i] {
            TheSession().Edit([&](Job& job) { ChooseCostSource(job, costSources.at(i)); });
        });
        card->Content()->addWidget(button);
        sources_.at(i) = button;
    }
    costFileRow_ = new QWidget(card);
    auto* const row = new QHBoxLayout(costFileRow_);
    row->setContentsMargins(22, 0, 0, 0);
    costFile_ = new QLineEdit(costFileRow_);
    costFile_->setObjectName(QStringLiteral("txtCostFile"));
    costFile_->setAccessibleName(tr("File of your own installed costs"));
    costFile_->setPlaceholderText(tr("File of installed costs (.costs.csv)"));
    QPushButton* const browse = SmallButton(tr("Bro&wse..."), "cmdBrowseCosts",
                                            tr("Choose the file of installed costs"), costFileRow_);
    row->addWidget(costFile_, 1);
    row->addWidget(browse);
    card->Content()->addWidget(costFileRow_);
    connect(browse, &QPushButton::clicked, this, &InstalledCostPanel::BrowseCosts);
    return card;
}

QString InstalledCostPanel::CostFile() const {
    return TheSession().TheJob().IsTrue(Field::UserSuppliedCostData) ? costFile_->text() : QString();
}

void InstalledCostPanel::BrowseCosts() {
    const QString path = files::AskOpen(this, tr("Installed costs"), costFile_->text(),
                                        tr("Installed costs (*.csv);;All files (*)"));
    if (!path.isEmpty()) {
        costFile_->setText(path);
    }
}

void InstalledCostPanel::Refresh() {
    PanelPage::Refresh();
    Session& session = TheSession();
    const Job& job = session.TheJob();
    // Ticks stay while one edits other things; another surface or another job starts them anew.
    const std::string source = job[Field::SurfaceGeometry] + '\n' + job[Field::PipeSize] + '\n' +
                               job[Field::ReportAllSurfaces] + '\n' + session.Path().string();
    if (source != ticksOf_) {
        ticksOf_ = source;
        ticks_ = ItemTicks::Of(job, session.Records());
    }
    for (int position = 1; position <= reportItemCount; ++position) {
        QCheckBox& box = *boxes_.at(static_cast<std::size_t>(position - 1));
        const QString name = ToQt(ItemName(position, session.Records(), job.UnitsInForce()));
        box.setText(position < firstFlatItem ? QString(name).remove(QStringLiteral("Pipe ")) : name);
        box.setAccessibleName(name);
        box.setToolTip(tr("%1: %2").arg(position).arg(name));
    }
    ShowTicks();
    for (std::size_t i = 0; i < sources_.size(); ++i) {
        sources_.at(i)->setChecked(job.IsTrue(costSources.at(i)));
    }
    costFileRow_->setVisible(job.IsTrue(Field::UserSuppliedCostData));
}

void InstalledCostPanel::ShowTicks() {
    for (int position = 1; position <= reportItemCount; ++position) {
        boxes_.at(static_cast<std::size_t>(position - 1))->setChecked(ticks_.IsTicked(position));
    }
    all_->setChecked(static_cast<int>(ticks_.Positions().size()) == reportItemCount);
    rangeError_->hide();
}

void InstalledCostPanel::Ticked() {
    ShowTicks();
    Job kept = TheSession().TheJob();
    ticks_.KeepIn(kept);
    const std::string& all = kept[Field::ReportAllSurfaces];
    ticksOf_ = kept[Field::SurfaceGeometry] + '\n' + kept[Field::PipeSize] + '\n' + all + '\n' +
               TheSession().Path().string();
    TheSession().SetText(Field::ReportAllSurfaces, all);
}

void InstalledCostPanel::SelectRange() {
    const std::string problem = ticks_.SelectRange(FromQt(range_->text()));
    if (problem.empty()) {
        Ticked();
        return;
    }
    rangeError_->setText(ToQt(problem));
    rangeError_->show();
}

// Report
// ---------------------------------------------------------------------------------------------------------------

ReportPanel::ReportPanel(Session& session, const QString& objectName, const QString& title)
    : PanelPage(session, objectName, title) {
    auto* const kind = new Card(tr("Kind of report"), this);
    layout_ = new OptionPair(Field::EngineeringReport, {"optEngineeringReport", tr("En&gineering report")},
                             {"optTablesReport", tr("&Tables report")}, session, kind);
    kind->Content()->addWidget(layout_);
    auto* const note =
        new QLabel(tr("Tables show the economic thickness at six temperatures; the engineering report shows "
                      "every thickness at the first of them."),
                   kind);
    note->setWordWrap(true);
    theme::SetRole(*note, "quiet");
    kind->Content()->addWidget(note);
    AddWidget(kind);
    AddFields(tr("Afterwards"), {Field::PrintReport});
    temperatures_ =
        AddFields(tr("Temperatures"), {Field::ReportStartingTemperature, Field::ReportTemperatureIncrement});
    AddStretch();
}

void ReportPanel::Refresh() {
    PanelPage::Refresh();
    layout_->Refresh();
}

} // namespace kaloria
