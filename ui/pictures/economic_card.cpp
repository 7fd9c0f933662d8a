// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/pictures/economic_card.h"

#include "application/plot_series.h"
#include "ui/field_card.h"
#include "ui/pictures/plot_view.h"
#include "ui/theme.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace kaloria {

namespace {
constexpr int plotHeight = 240;
}

EconomicCard::EconomicCard(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("fraEconomicCurve"));
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* const card = new Card(tr("Economic thickness of the last report"), this);
    layout->addWidget(card);
    auto* const choices = new QHBoxLayout;
    card->Content()->addLayout(choices);
    surface_ = AddChoice("cboCurveSurface", tr("Surface"));
    temperature_ = AddChoice("cboCurveTemperature", tr("Temperature"));
    choices->addWidget(surface_, 2);
    choices->addWidget(temperature_, 1);
    plot_ = new PlotView(card);
    plot_->setFixedHeight(plotHeight);
    card->Content()->addWidget(plot_);
    connect(surface_, &QComboBox::currentIndexChanged, this, &EconomicCard::ShowTemperatures);
    connect(temperature_, &QComboBox::currentIndexChanged, this, &EconomicCard::ShowCurve);
    hide();
}

QComboBox* EconomicCard::AddChoice(const char* name, const QString& what) {
    auto* const choice = new QComboBox(this);
    choice->setObjectName(QLatin1String(name));
    choice->setAccessibleName(what);
    choice->setToolTip(what);
    return choice;
}

void EconomicCard::Show(const EconomicAnalysis& analysis, Units units) {
    surfaces_ = analysis.surfaces;
    units_ = units;
    {
        const QSignalBlocker quiet(surface_);
        surface_->clear();
        for (const SurfaceResult& surface : surfaces_) {
            surface_->addItem(ToQt(surface.name));
        }
    }
    surface_->setEnabled(true);
    temperature_->setEnabled(true);
    ShowTemperatures();
    setVisible(!surfaces_.empty());
}

void EconomicCard::ShowTemperatures() {
    const int index = surface_->currentIndex();
    if (index < 0) {
        return;
    }
    {
        const QSignalBlocker quiet(temperature_);
        temperature_->clear();
        for (const TemperatureResult& result : surfaces_.at(static_cast<std::size_t>(index)).temperatures) {
            temperature_->addItem(ToQt(ShortTempText(result.temperature, units_)));
        }
    }
    ShowCurve();
}

void EconomicCard::ShowCurve() {
    const int surface = surface_->currentIndex();
    const int temperature = temperature_->currentIndex();
    if (surface >= 0 && temperature >= 0) {
        const SurfaceResult& shown = surfaces_.at(static_cast<std::size_t>(surface));
        plot_->Show(
            EconomicPlot(shown, shown.temperatures.at(static_cast<std::size_t>(temperature)), units_));
    }
}

void EconomicCard::SetStale() {
    // The choices would draw the old curve as if it were a new one.
    surface_->setEnabled(false);
    temperature_->setEnabled(false);
    plot_->SetStale(true);
}

} // namespace kaloria
