// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/insulation_dialog.h"

#include "application/conductivity_check.h"
#include "application/material_rules.h"
#include "application/record_entry.h"
#include "ui/dialogs/points_grid.h"
#include "ui/pictures/plot_view.h"
#include "ui/theme.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QVBoxLayout>

#include <algorithm>
#include <string>

namespace kaloria {

namespace {

constexpr const char* pointsSubject = "TemperaturePoints";
constexpr int conductivityDecimals = 4;

/// The text of the type's code when the catalogue has one that no name is known for stays to be seen.
void FillTypes(QComboBox& box, std::int32_t type) {
    std::int32_t code = 0;
    for (const std::string_view name : InsulationTypeNames()) {
        ++code;
        box.addItem(QStringLiteral("%1  %2").arg(code).arg(ToQt(name)), code);
    }
    if (box.findData(type) < 0 && type != 0) {
        box.addItem(QString::number(type), type);
    }
    box.setCurrentIndex(box.findData(type));
}

} // namespace

InsulationDialog::InsulationDialog(const Catalogue& catalogue, const CInsulation& record, Units units,
                                   QWidget* parent)
    : RecordDialog(QStringLiteral("frmInsulation"), tr("Insulation material"), record.Name.empty(), units,
                   parent),
      catalogue_(catalogue),
      record_(record) {
    BuildMaterial();
    BuildConductivity();
    BuildCheck();
    resize(920, 0);
    ShowForm();
    name_->Control()->setFocus();
}

void InsulationDialog::BuildMaterial() {
    QGridLayout& grid = AddCard(tr("Material"));
    name_ = &AddText(grid, QStringLiteral("Name"), tr("&Name:"), ToQt(record_.Name));
    type_ = &AddChoice(grid, QStringLiteral("InsulationType"), tr("&Type:"));
    FillTypes(*type_, record_.InsulationType);
    minTemp_ = &AddNumber(grid, QStringLiteral("MinTemp"), tr("M&inimum temperature:"));
    maxTemp_ = &AddNumber(grid, QStringLiteral("MaxTemp"), tr("Ma&ximum temperature:"));
    for (NumberEntry* const entry : {minTemp_, maxTemp_}) {
        entry->SetUnit(ToQt(InfoOf(Quantity::temperature).Text(InUnits())));
    }
    if (!record_.Name.empty()) {
        SetTemperature(*minTemp_, record_.MinTemp);
        SetTemperature(*maxTemp_, record_.MaxTemp);
    }
    active_ = &AddActive(grid, record_.Active);
}

void InsulationDialog::BuildConductivity() {
    QGridLayout& grid = AddCard(tr("Conductivity at mean temperature T"));
    points_ = new QRadioButton(tr("&Paired points"));
    points_->setObjectName(QStringLiteral("optTemperaturePoints"));
    polynomial_ = new QRadioButton(tr("Pol&ynomial  k = A + B·T + C·T²"));
    polynomial_->setObjectName(QStringLiteral("optPolynomial"));
    auto* const forms = new QButtonGroup(this);
    auto* const row = new QHBoxLayout;
    for (QRadioButton* const button : {points_, polynomial_}) {
        button->setAccessibleName(button->text().remove(u'&'));
        forms->addButton(button);
        row->addWidget(button);
        connect(button, &QRadioButton::clicked, this, [this] {
            UseFittedCurve();
            ShowForm();
            Changed();
        });
    }
    row->addStretch(1);
    grid.addLayout(row, 1, 0, 1, 3);
    // What the record has decides; a new one is a curve by measured points, as makers publish them.
    const bool hasPolynomial = record_.TemperaturePoints.empty() && !record_.Name.empty();
    (hasPolynomial ? polynomial_ : points_)->setChecked(true);
    BuildPolynomial(grid);
    grid_ = new PointsGrid(record_.TemperaturePoints, InUnits());
    connect(grid_, &PointsGrid::Changed, this, &InsulationDialog::Changed);
    const int last = grid.rowCount();
    grid.addWidget(grid_, last, 0, 1, 3);
    grid.setRowStretch(last, 1);
}

void InsulationDialog::BuildPolynomial(QGridLayout& grid) {
    const QString k = ToQt(InfoOf(Quantity::conductivity).Text(InUnits()));
    const QString t = ToQt(InfoOf(Quantity::temperature).Text(InUnits()));
    a_ = &AddNumber(grid, QStringLiteral("A"), tr("&A:"));
    b_ = &AddNumber(grid, QStringLiteral("B"), tr("&B:"));
    c_ = &AddNumber(grid, QStringLiteral("C"), tr("&C:"));
    // A coefficient whose first zeros are out of sight reads as another one.
    const int width =
        fontMetrics().horizontalAdvance(QStringLiteral("-0.00000000000000000")) + 3 * theme::gap;
    for (NumberEntry* const entry : {a_, b_, c_}) {
        entry->Line()->setFixedWidth(width);
    }
    a_->SetUnit(k);
    b_->SetUnit(tr("%1 per %2").arg(k, t));
    c_->SetUnit(tr("%1 per %2²").arg(k, t));
    if (polynomial_->isChecked()) {
        SetPolynomial(record_);
    }
    pointsNote_ = new QLabel;
    pointsNote_->setWordWrap(true);
    theme::SetRole(*pointsNote_, "quiet");
    grid.addWidget(pointsNote_, grid.rowCount(), 0, 1, 3);
}

void InsulationDialog::SetPolynomial(const CInsulation& record) {
    const auto shown = PolynomialIn(InUnits(), {record.A, record.B, record.C});
    a_->SetValue(shown.a, ShortText(shown.a));
    b_->SetValue(shown.b, ShortText(shown.b));
    c_->SetValue(shown.c, ShortText(shown.c));
}

void InsulationDialog::BuildCheck() {
    auto* const column = new QVBoxLayout;
    Columns().addLayout(column, 5);
    QGridLayout& grid = AddCard(tr("Curve as the calculation uses it"), column);
    plot_ = new PlotView;
    plot_->setObjectName(QStringLiteral("picConductivity"));
    plot_->setMinimumSize(320, 240);
    grid.addWidget(plot_, 1, 0, 1, 3);
    grid.setRowStretch(1, 1);
    summary_ = new QLabel;
    summary_->setObjectName(QStringLiteral("lblCurveCheck"));
    summary_->setWordWrap(true);
    summary_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    grid.addWidget(summary_, 2, 0, 1, 3);
}

void InsulationDialog::ShowForm() {
    const bool isPolynomial = polynomial_->isChecked();
    for (NumberEntry* const entry : {a_, b_, c_}) {
        entry->SetShown(isPolynomial);
    }
    pointsNote_->setVisible(isPolynomial);
    Recheck();
}

/// Coefficients that nobody has entered start from the curve of the points.
void InsulationDialog::UseFittedCurve() {
    const bool isUntouched = !a_->IsTouched() && !b_->IsTouched() && !c_->IsTouched();
    if (!polynomial_->isChecked() || !isUntouched || grid_->Points().empty()) {
        return;
    }
    CInsulation record = record_;
    record.TemperaturePoints = grid_->Points();
    const ConductivityCheck check = CheckConductivity(record);
    if (check.hasCurve) {
        SetPolynomial(check.curve);
    }
}

QString InsulationDialog::UnreadableElsewhere() {
    const QString fault = grid_->Unreadable();
    return polynomial_->isChecked() ? QString() : fault;
}

CInsulation InsulationDialog::Edited() const {
    CInsulation record = record_;
    record.Name = FromQt(name_->Text());
    record.InsulationType = type_->currentData().toInt();
    record.MinTemp = English(*minTemp_, Quantity::temperature, record_.MinTemp);
    record.MaxTemp = English(*maxTemp_, Quantity::temperature, record_.MaxTemp);
    record.Active = active_->isChecked();
    if (points_->isChecked()) {
        record.TemperaturePoints = grid_->Points();
        SortPoints(record.TemperaturePoints);
        record = CheckConductivity(record).curve;
        return record;
    }
    record.TemperaturePoints.clear();
    const bool isAsItWas =
        record_.TemperaturePoints.empty() && !a_->IsEdited() && !b_->IsEdited() && !c_->IsEdited();
    if (!isAsItWas) {
        const auto english = PolynomialToEnglish(
            InUnits(), {a_->Value().value_or(0), b_->Value().value_or(0), c_->Value().value_or(0)});
        record.A = static_cast<float>(english.a);
        record.B = static_cast<float>(english.b);
        record.C = static_cast<float>(english.c);
    }
    return record;
}

std::vector<Finding> InsulationDialog::Findings() {
    const CInsulation record = Edited();
    const std::vector<CTemperaturePoint> points = grid_->Points();
    std::vector<Finding> findings = CheckRecord(catalogue_, record, InUnits());
    ConductivityCheck check = polynomial_->isChecked() ? CheckPolynomial(record, points, InUnits())
                                                       : CheckConductivity(record, InUnits());
    // Points that are held against a polynomial do not stand in its way.
    if (polynomial_->isChecked()) {
        for (Finding finding : check.findings) {
            if (finding.subject == pointsSubject) {
                finding.severity = std::min(finding.severity, Severity::warning);
                findings.push_back(finding);
            }
        }
    }
    plot_->Show(ConductivityCurve(check, points, InUnits()));
    pointsNote_->setText(points.empty() ? tr("Points entered below are held against the polynomial.")
                                        : tr("The points below are held against the polynomial; they are not "
                                             "kept with it."));
    Summarize(check, points);
    return findings;
}

void InsulationDialog::Blank() {
    plot_->Show(ConductivityCurve({}, {}, InUnits()));
    Summarize({}, {});
}

void InsulationDialog::Summarize(const ConductivityCheck& check,
                                 const std::vector<CTemperaturePoint>& points) {
    summary_->setVisible(check.hasCurve);
    if (!check.hasCurve) {
        summary_->setText(tr("No curve yet."));
        theme::SetRole(*summary_, "quiet");
        return;
    }
    const auto k = [this](double english) {
        return RoundedText(FromEnglish(Quantity::conductivity, InUnits(), english), conductivityDecimals);
    };
    QString text = tr("k from %1 to %2 over %3 to %4.")
                       .arg(k(check.lowestK), k(check.highestK), TemperatureText(check.lowTemp),
                            TemperatureText(check.highTemp));
    const auto worst = std::find_if(points.begin(), points.end(), [&](const CTemperaturePoint& point) {
        return point.Temperature == check.deviationTemp;
    });
    if (worst != points.end() && check.largestDeviation > 0) {
        const double percent = 100 * check.largestDeviation / double{worst->Conductivity};
        text += u'\n' + tr("Largest deviation from a point: %1 (%2 %) at %3.")
                            .arg(k(check.largestDeviation), RoundedText(percent, 1),
                                 TemperatureText(check.deviationTemp));
    } else if (!points.empty()) {
        text += u'\n' + tr("The curve passes through every point.");
    }
    summary_->setText(text);
    theme::SetRole(*summary_, HasErrors(check.findings) ? "error" : "plain");
}

QString InsulationDialog::Summary() const { return summary_->text(); }

} // namespace kaloria
