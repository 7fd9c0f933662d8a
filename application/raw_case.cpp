// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/raw_case.h"

#include "engine/surface_geometry.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <limits>

namespace kaloria {

namespace {

using nlohmann::json;

float FloatFrom(const json& value, const std::string& name) {
    if (!value.is_number()) {
        throw RawCaseError(name + " is not a number");
    }
    const double number = value.get<double>();
    if (!std::isfinite(number) || std::abs(number) > double{std::numeric_limits<float>::max()}) {
        throw RawCaseError(name + " is out of range");
    }
    return static_cast<float>(number);
}

float Required(const json& object, const char* name) {
    const auto found = object.find(name);
    if (found == object.end()) {
        throw RawCaseError(std::string(name) + " is missing");
    }
    return FloatFrom(*found, name);
}

float Optional(const json& object, const char* name, float otherwise) {
    const auto found = object.find(name);
    return found == object.end() || found->is_null() ? otherwise : FloatFrom(*found, name);
}

int Whole(const json& object, const char* name, int otherwise, int low, int high) {
    const float value = Optional(object, name, static_cast<float>(otherwise));
    if (value < static_cast<float>(low) || value > static_cast<float>(high) || value != std::floor(value)) {
        throw RawCaseError(std::string(name) + " is not a whole number from " + std::to_string(low) + " to " +
                           std::to_string(high));
    }
    return static_cast<int>(value);
}

/// The object of that name, or null when it is absent or null.
const json* ObjectOf(const json& parent, const char* name) {
    const auto found = parent.find(name);
    if (found == parent.end() || found->is_null()) {
        return nullptr;
    }
    if (!found->is_object()) {
        throw RawCaseError(std::string(name) + " is not an object");
    }
    return &*found;
}

CInsulation LayerFrom(const json& object) {
    if (!object.is_object()) {
        throw RawCaseError("a layer is not an object");
    }
    CInsulation layer;
    layer.Thickness = Required(object, "Thickness");
    if (const auto name = object.find("Name"); name != object.end() && name->is_string()) {
        layer.Name = name->get<std::string>();
    }
    const auto points = object.find("TemperaturePoints");
    if (points == object.end() || points->is_null()) {
        layer.A = Required(object, "A");
        layer.B = Optional(object, "B", 0);
        layer.C = Optional(object, "C", 0);
        return layer;
    }
    if (!points->is_array() || points->empty()) {
        throw RawCaseError("TemperaturePoints is not a list of points");
    }
    for (const json& point : *points) {
        if (!point.is_object()) {
            throw RawCaseError("a temperature point is not an object");
        }
        layer.TemperaturePoints.push_back({Required(point, "Temperature"), Required(point, "Conductivity")});
    }
    return layer;
}

} // namespace

RawCase::RawCase(const json& inputs) {
    if (!inputs.is_object()) {
        throw RawCaseError("inputs is not an object");
    }
    calculator_.ProcessTemp = Required(inputs, "ProcessTemp");
    calculator_.AmbientTemp = Required(inputs, "AmbientTemp");
    calculator_.WindSpeed = Optional(inputs, "WindSpeed", 0);
    calculator_.InsulationOD = Optional(inputs, "InsulationOD", -1);
    calculator_.DuctWidth = Optional(inputs, "DuctWidth", 0);
    calculator_.DuctDepth = Optional(inputs, "DuctDepth", 0);
    calculator_.CalculationType = static_cast<std::int16_t>(Whole(inputs, "CalculationType", 0, 0, 6));
    // An unknown code is left to the engine, which answers it with a fault like any other impossible case.
    geometry_.ID = Whole(inputs, "GeometryCode", 0, -32768, 32767);
    calculator_.SurfaceGeometry = &geometry_;

    if (const json* pipe = ObjectOf(inputs, "Pipe")) {
        pipe_.ActualPipeSizeInches = Required(*pipe, "ActualPipeSizeInches");
        pipe_.WallThicknessInches = Required(*pipe, "WallThicknessInches");
        calculator_.Pipe = &pipe_;
    }
    if (const json* tube = ObjectOf(inputs, "Tube")) {
        tube_.ActualTubeSizeInches = Required(*tube, "ActualTubeSizeInches");
        tube_.WallThicknessInches = Required(*tube, "WallThicknessInches");
        calculator_.Tube = &tube_;
    }
    if (const json* metal = ObjectOf(inputs, "BaseMetal")) {
        baseMetal_.ID = Whole(*metal, "ID", 0, 0, std::numeric_limits<std::int16_t>::max());
        baseMetal_.Emittance = Required(*metal, "Emittance");
        calculator_.BaseMetal = &baseMetal_;
    }
    if (const json* jacket = ObjectOf(inputs, "JacketMaterial")) {
        jacket_.Emittance = Required(*jacket, "Emittance");
        calculator_.JacketMaterial = &jacket_;
    }
    if (const auto layers = inputs.find("Layers"); layers != inputs.end() && !layers->is_null()) {
        if (!layers->is_array()) {
            throw RawCaseError("Layers is not a list");
        }
        for (const json& layer : *layers) {
            calculator_.InsulationLayers.push_back(LayerFrom(layer));
        }
    }
    const auto call = inputs.find("Call");
    if (call != inputs.end() && *call != "Solve" && *call != "Qcalc") {
        throw RawCaseError("Call is neither \"Solve\" nor \"Qcalc\"");
    }
    directCall_ = call != inputs.end() && *call == "Qcalc";
}

json RawCase::Run() {
    try {
        if (directCall_) {
            calculator_.Qcalc();
        } else {
            calculator_.Solve();
        }
    } catch (const NumericFault& fault) {
        return {{"Fault", true}, {"Reason", fault.what()}};
    }
    return Results();
}

json RawCase::Results() const {
    const auto solutions = calculator_.Solutions();
    const auto& last = solutions.back();
    json result{{"Fault", false},
                {"UnitHeatFlow", calculator_.UnitHeatFlow()},
                {"SurfaceTemp", last.SurfaceTemp()},
                {"BaseMetalOutsideTemp", last.Temps[1]},
                {"Layers", json::array()}};
    for (std::size_t i = 1; i < last.Conductivities.size(); ++i) {
        result["Layers"].push_back(
            {{"OutsideTemp", last.Temps[i + 1]}, {"Conductivity", last.Conductivities[i]}});
    }
    if (solutions.size() == 1) {
        result["Passes"] = last.Passes;
    } else {
        for (const auto& face : solutions) {
            result["Passes"].push_back(face.Passes);
            result["FaceSurfaceTemps"].push_back(face.SurfaceTemp());
        }
    }
    if (calculator_.StoppedBySafeguard()) {
        result["StoppedBySafeguard"] = true;
    }
    return result;
}

json SolveCaseLine(const std::string& line) {
    // The depth of what is read is bounded before it is parsed, since the parsed tree is freed recursively.
    constexpr int deepest = 32;
    const json::parser_callback_t bounded = [](int depth, json::parse_event_t, json&) {
        if (depth > deepest) {
            throw RawCaseError("nested too deeply");
        }
        return true;
    };
    json document;
    try {
        document = json::parse(line, bounded);
    } catch (const json::exception& error) { // no JSON, or a number out of range
        throw RawCaseError(error.what());
    }
    if (!document.is_object() || !document.contains("inputs")) {
        throw RawCaseError("not an object with id and inputs");
    }
    RawCase rawCase(document["inputs"]);
    json answer{{"id", document.value("id", json())}};
    answer["result"] = rawCase.Run();
    return answer;
}

} // namespace kaloria
