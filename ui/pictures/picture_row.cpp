// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/pictures/picture_row.h"

#include "application/sensitivity.h"
#include "ui/field_card.h"
#include "ui/pictures/plot_view.h"
#include "ui/pictures/section_view.h"
#include "ui/theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>

namespace kaloria {

namespace {

constexpr int pictureHeight = 170;
constexpr int sectionStretch = 10;
constexpr int plotStretch = 11;

struct Choice {
    PictureRow::Kind kind;
    const char* name;
    const char* text;
    const char* tip;
};
constexpr std::array<Choice, 5> allChoices{{
    {PictureRow::Kind::thickness, "cmdPlotThickness", QT_TRANSLATE_NOOP("PictureRow", "Thickness"),
     QT_TRANSLATE_NOOP("PictureRow", "Heat flow and surface temperature against thickness")},
    {PictureRow::Kind::profile, "cmdPlotProfile", QT_TRANSLATE_NOOP("PictureRow", "Profile"),
     QT_TRANSLATE_NOOP("PictureRow", "Temperature through the layers")},
    {PictureRow::Kind::yearlyCost, "cmdPlotCost", QT_TRANSLATE_NOOP("PictureRow", "Cost"),
     QT_TRANSLATE_NOOP("PictureRow", "Yearly cost and savings against thickness")},
    {PictureRow::Kind::emissions, "cmdPlotEmissions", QT_TRANSLATE_NOOP("PictureRow", "Emissions"),
     QT_TRANSLATE_NOOP("PictureRow", "Yearly emissions against thickness")},
    {PictureRow::Kind::sensitivity, "cmdPlotSensitivity", QT_TRANSLATE_NOOP("PictureRow", "±10 %"),
     QT_TRANSLATE_NOOP("PictureRow", "What 10 % more or less of each input does to the answer")},
}};

} // namespace

PictureRow::PictureRow(Session& session, QWidget* parent) : QWidget(parent), session_(session) {
    setObjectName(QStringLiteral("fraPictureRow"));
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(theme::cardGap);
    auto* const card = new Card(tr("Section"), this);
    sectionTitle_ = card->Title();
    section_ = new SectionView(card);
    section_->setFixedHeight(pictureHeight);
    card->Content()->addWidget(section_);
    layout->addWidget(card, sectionStretch);
    layout->addWidget(BuildPlotCard(), plotStretch);
    connect(plot_, &PlotView::RowPointedAt, this, [this](int row) {
        PointAt(row);
        Q_EMIT RowPointedAt(row);
    });
    connect(plot_, &PlotView::RowLeft, this, [this] {
        PointAway();
        Q_EMIT RowLeft();
    });
    connect(plot_, &PlotView::RowChosen, this, &PictureRow::RowChosen);
}

QWidget* PictureRow::BuildPlotCard() {
    auto* const card = new Card({}, this);
    auto* const head = new QHBoxLayout;
    head->setSpacing(2);
    plotTitle_ = new QLabel(card);
    plotTitle_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    theme::SetRole(*plotTitle_, "cardTitle");
    head->addWidget(plotTitle_, 1);
    for (std::size_t i = 0; i < kindCount; ++i) {
        const Choice& choice = allChoices.at(i);
        auto* const button = new QPushButton(tr(choice.text), card);
        button->setObjectName(QLatin1String(choice.name));
        button->setCheckable(true);
        button->setAutoExclusive(true);
        button->setFont(theme::CaptionFont());
        button->setToolTip(tr(choice.tip));
        button->setAccessibleName(tr(choice.tip));
        theme::SetRole(*button, "segment");
        connect(button, &QPushButton::clicked, this, [this, kind = choice.kind] { Choose(kind); });
        head->addWidget(button);
        choices_.at(i) = button;
    }
    card->Content()->addLayout(head);
    plot_ = new PlotView(card);
    plot_->setFixedHeight(pictureHeight);
    card->Content()->addWidget(plot_);
    return card;
}

void PictureRow::Choose(Kind kind) {
    wanted_ = kind;
    if (session_.IsCurrent() && session_.Result().done) {
        ShowNow(row_);
    }
}

bool PictureRow::Fits(Kind kind) const {
    const CalculationResult& result = session_.Result();
    const bool varies = std::count_if(result.grid.rows.begin(), result.grid.rows.end(),
                                      [](const ResultRow& row) { return row.thickness.has_value(); }) > 1;
    switch (kind) {
    case Kind::thickness:
        return varies;
    case Kind::yearlyCost:
    case Kind::emissions:
        return varies && result.calculationType == calculation_type::heatLossPerYear;
    default:
        return true;
    }
}

PlotModel PictureRow::ModelOf(Kind kind, std::size_t row) const {
    const CalculationResult& result = session_.Result();
    const CaseInputs& inputs = *session_.App().CalculatedCase();
    switch (kind) {
    case Kind::thickness:
        return ThicknessPlot(result, inputs, row);
    case Kind::yearlyCost:
        return YearlyCostPlot(result, row);
    case Kind::emissions:
        return EmissionPlot(result, row);
    case Kind::sensitivity:
        return SensitivityPlot(result, inputs, row);
    case Kind::profile:
        break;
    }
    return ProfilePlot(section_->Model());
}

void PictureRow::ShowRow(int row) {
    row_ = row;
    ShowNow(row);
}

void PictureRow::PointAt(int row) { ShowNow(row); }
void PictureRow::PointAway() { ShowNow(row_); }

void PictureRow::ShowNow(int row) {
    const CalculationResult& result = session_.Result();
    if (!session_.IsCurrent() || !result.done || row < 0 || row >= static_cast<int>(result.solved.size())) {
        return;
    }
    const auto index = static_cast<std::size_t>(row);
    section_->Show(MakeSection(result, *session_.App().CalculatedCase(), index));
    sectionTitle_->setText(ToQt(section_->Model().title));
    const Kind kind = Fits(wanted_) ? wanted_ : Fits(Kind::thickness) ? Kind::thickness : Kind::profile;
    int shown = 0;
    for (std::size_t i = 0; i < kindCount; ++i) {
        const Kind each = allChoices.at(i).kind;
        choices_.at(i)->setVisible(Fits(each));
        choices_.at(i)->setChecked(each == kind);
        shown += Fits(each) ? 1 : 0;
    }
    PlotModel model = ModelOf(kind, index);
    // Five choices leave no room for a title; the one that is pressed says it.
    constexpr int crowd = 3;
    plotTitle_->setText(shown > crowd ? QString() : ToQt(model.title));
    plot_->Show(std::move(model));
}

void PictureRow::SetStale() {
    section_->SetStale(true);
    plot_->SetStale(true);
    sectionTitle_->setText(tr("Section"));
}

} // namespace kaloria
