// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/economics_output.h"
#include "cli/findings_output.h"

#include <nlohmann/json.hpp>

namespace kaloria::cli {

namespace {

using nlohmann::json;

/// Turns one analysis into JSON.
class JsonWriter {
public:
    JsonWriter(Units units, const CReport& report) : units_(units), report_(report) {}

    [[nodiscard]] json Inputs() const {
        const ReportInputs& inputs = report_.Inputs;
        const EconomicFigures& e = report_.Analysis()->figures;
        return {{"unitFuelCost", e.unitFuelCost}, // $/Btu in either unit system
                {"fuel", inputs.fuel.Name},
                {"insulation", inputs.insulation.Name},
                {"jacket", inputs.jacket.Name},
                {"layout", inputs.engineering ? "engineering" : "tables"},
                {"hotService", e.hotService},
                {"hoursPerYear", e.hoursPerYear},
                {"efficiency", e.efficiency},
                {"taxRate", e.taxRate},
                {"plantMaintenance", e.plantMaintenance},
                {"insulationMaintenance", e.insulationMaintenance},
                {"discountRate", e.discountRate},
                {"fuelInflation", e.fuelInflation},
                {"plantYears", e.plantYears},
                {"insulationYears", e.insulationYears},
                {"ambientTemp", Value(Quantity::temperature, inputs.ambientTemp)},
                {"windSpeed", Value(Quantity::windSpeed, inputs.windSpeed)},
                {"referenceThickness", Value(Quantity::length, inputs.referenceThickness)},
                {"dewPoint",
                 inputs.dewPoint ? json(Value(Quantity::temperature, *inputs.dewPoint)) : json(nullptr)}};
    }

    [[nodiscard]] json Surface(const SurfaceResult& surface) const {
        const SurfaceQuantities quantities(surface.isPipe);
        json temperatures = json::array();
        for (std::size_t k = 0; k < surface.temperatures.size(); ++k) {
            const TemperatureResult& step = surface.temperatures[k];
            json rows = json::array();
            for (std::size_t i = 0; i < step.rows.size(); ++i) {
                if (step.rows[i].made) {
                    rows.push_back(Row(step.rows[i], quantities));
                    const auto& marginal =
                        report_.Analysis()->marginalSavings[k].At(static_cast<int>(i), surface.position);
                    rows.back()["marginalSavings"] =
                        marginal ? json(Value(quantities.yearlyMoney, *marginal)) : json(nullptr);
                }
            }
            temperatures.push_back(
                {{"temperature", Value(Quantity::temperature, step.temperature)},
                 {"outcome", step.outcome == EconomicOutcome::found ? "found" : TextOf(step.outcome)},
                 {"economicThickness", Thickness(step.Economic())},
                 {"rows", rows}});
            if (step.firstDry) {
                temperatures.back()["firstDryThickness"] = Thickness(&step.rows[*step.firstDry]);
            }
        }
        return {{"position", surface.position},
                {"name", surface.name},
                {"units",
                 {{"heatFlow", Text(quantities.flow)},
                  {"installedCost", Text(quantities.price)},
                  {"annualCost", Text(quantities.yearlyMoney)},
                  {"reductions", Text(quantities.emission)}}},
                {"temperatures", temperatures}};
    }

private:
    [[nodiscard]] double Value(Quantity quantity, double value) const {
        return FromEnglish(quantity, units_, value);
    }
    [[nodiscard]] std::string Text(Quantity quantity) const {
        return std::string(InfoOf(quantity).Text(units_));
    }

    [[nodiscard]] json Thickness(const ThicknessResult* row) const {
        return row != nullptr ? json(Value(Quantity::length, row->nominal)) : json(nullptr);
    }

    [[nodiscard]] json Row(const ThicknessResult& row, const SurfaceQuantities& quantities) const {
        json object{{"thickness", Value(Quantity::length, row.nominal)},
                    {"layers", row.layers},
                    {"heatFlow", nullptr},
                    {"surfaceTemp", nullptr},
                    {"annualCost", nullptr},
                    {"installedCost", nullptr}};
        if (row.IsSolved()) {
            object["heatFlow"] = Value(quantities.flow, row.heatFlow);
            object["surfaceTemp"] = Value(Quantity::temperature, row.surfaceTemp);
            object["annualCost"] = Value(quantities.yearlyMoney, row.annualCost);
            object["wet"] = row.wet;
        } else {
            object["fault"] = row.fault;
        }
        if (row.installedCost) {
            object["installedCost"] = Value(quantities.price, *row.installedCost);
        }
        if (row.curve) {
            object["curve"] = {{"capital", Value(quantities.yearlyMoney, row.curve->capital)},
                               {"energy", Value(quantities.yearlyMoney, row.curve->energy)},
                               {"total", Value(quantities.yearlyMoney, row.curve->Total())}};
        }
        if (row.money) {
            AddMoney(object, *row.money, quantities);
        }
        return object;
    }

    void AddMoney(json& object, const MoneyResult& money, const SurfaceQuantities& quantities) const {
        object["savedFlow"] = Value(quantities.flow, money.savedFlow);
        object["savedCost"] = Value(quantities.yearlyMoney, money.savedCost);
        object["payback"] = money.payback.years;
        object["paybackFlag"] = money.payback.Flag();
        object["simplePayback"] = money.payback.simple ? json(*money.payback.simple) : json(nullptr);
        object["netPresentWorth"] = Value(quantities.price, money.presentWorth);
        object["totalSavings"] = Value(quantities.yearlyMoney, money.totalSavings);
        json reductions = json::object();
        std::size_t i = 0;
        for (const CPollutant& pollutant : report_.Inputs.fuel.Pollutants) {
            reductions[pollutant.Name] = Value(quantities.emission, money.reductions[i++]);
        }
        object["reductions"] = reductions;
    }

    Units units_;
    const CReport& report_;
};

} // namespace

json ToJson(const EconomicsResult& result, const CReport& report) {
    json object{{"done", result.done}, {"findings", ToJson(result.findings)}};
    if (!result.done) {
        return object;
    }
    const JsonWriter writer(result.units, report);
    object["units"] = result.units == Units::si ? "SI" : "English";
    object["inputs"] = writer.Inputs();
    object["items"] = json::array();
    for (const SurfaceResult& surface : report.Analysis()->surfaces) {
        object["items"].push_back(writer.Surface(surface));
    }
    return object;
}

} // namespace kaloria::cli
