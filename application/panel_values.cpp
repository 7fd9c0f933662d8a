// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/panel_values.h"

#include <algorithm>
#include <utility>

namespace kaloria {

namespace {

constexpr std::pair<const char*, const char*> labels[] = {
    {"<ItemDescription/>", "lblDescription"},
    {"<SystemUnits/>", "lblSystemUnits"},
    {"<BareSurfaceEmittance/>", "lblBareSurfaceEmittance"},
    {"<PipeSize/>", "lblPipeSize"},
    {"<ProcessTemp/>", "lblProcessTemp"},
    {"<AverageAmbientTemp/>", "lblAmbientTemp"},
    {"<AverageWindSpeed/>", "lblWindSpeed"},
    {"<RelativeHumidity/>", "lblRelativeHumidity"},
    {"<DewPoint/>", "lblDewPoint"},
    {"<MaxSurfaceTemperature/>", "lblMaxSurfaceTemp"},
    {"<OuterJacketMaterial/>", "lblOuterJacketMaterial"},
    {"<OuterSurfaceEmittance/>", "lblOuterSurfaceEmittance"},
    {"<CondensationControlThickness/>", "lblCondensationControlThickness"},
};

/// The geometry with what only its label says of ducts and tanks.
std::string GeometryText(const std::vector<PanelLine>& panel) {
    std::string text = PanelText(panel, "lblGeometry").value_or("");
    const auto width = PanelText(panel, "lblDuctWidth");
    const auto depth = PanelText(panel, "lblDuctDepth");
    if (width && depth) {
        text += ", " + *width + " x " + *depth;
    }
    if (const auto note = PanelText(panel, "lblTankNote")) {
        text += ". " + *note;
    }
    return text;
}

} // namespace

std::optional<std::string> PanelText(const std::vector<PanelLine>& panel, std::string_view control) {
    const auto found =
        std::find_if(panel.begin(), panel.end(), [&](const PanelLine& l) { return l.control == control; });
    return found == panel.end() ? std::nullopt : std::optional(found->text);
}

rtf::TagValues PanelValues(const std::vector<PanelLine>& panel, std::string_view title, const Job& job) {
    rtf::TagValues values{
        {"<CompanyName/>", job[Field::CompanyName]},   {"<Address/>", job[Field::Address]},
        {"<CityStateZip/>", job[Field::CityStateZip]}, {"<PhoneNumber/>", job[Field::PhoneNumber]},
        {"<CalculationType/>", std::string(title)},    {"<Geometry/>", GeometryText(panel)}};
    for (const auto& [tag, control] : labels) {
        values[tag] = PanelText(panel, control).value_or("");
    }
    return values;
}

} // namespace kaloria
