// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/case_inputs.h"

#include "application/field_reader.h"
#include "application/insulation_thickness.h"
#include "data/fuel_units.h"
#include "engine/conversion.h"
#include "engine/number_text.h"
#include "engine/numeric_fault.h"
#include "engine/surface_geometry.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <string_view>

namespace kaloria {

namespace {

using namespace calculation_type;

std::string SizeText(float size) { return FormatNumber(size, NumberFormat::shortest); }

/// Position of a size's text in its list: by its text, or by its number ("6.0").
std::optional<std::size_t> SizePosition(const std::vector<std::string>& sizes, std::string_view text) {
    const auto wanted = ParseSingle(text);
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        if (sizes[i] == text || (wanted && ParseSingle(sizes[i]) == wanted)) {
            return i;
        }
    }
    return std::nullopt;
}

/// Reads one job; collects the case and the findings.
class CaseReader {
public:
    CaseReader(const Job& job, Catalogue& catalogue) : job_(job), catalogue_(catalogue), fields_(job) {}

    CaseReading Read() {
        ReadKind();
        if (case_.geometry != nullptr) {
            ReadMaterials();
            ReadSize();
            ReadConditions();
            ReadGoal();
            ReadLayers();
            ReadFuel();
        }
        CaseReading reading;
        if (!fields_.HasFailed()) {
            reading.inputs = std::move(case_);
        }
        reading.findings = std::move(fields_.findings);
        return reading;
    }

private:
    [[nodiscard]] std::int32_t Code() const { return case_.geometry->ID; }

    void ReadKind() {
        case_.units = job_.UnitsInForce();
        case_.itemDescription = job_[Field::ItemDescription];
        case_.retrofit = !job_.IsTrue(Field::NewApplication);
        const auto type = CalculationTypeFrom(job_[Field::InsulationThicknessCalculationType]);
        if (!type) {
            fields_.Fail(Field::InsulationThicknessCalculationType,
                         fmt::format("\"{}\" is no calculation type",
                                     job_[Field::InsulationThicknessCalculationType]));
        }
        case_.calculationType = type.value_or(0);
        case_.geometry = FindByName(catalogue_.SurfaceGeometries, job_[Field::SurfaceGeometry]);
        if (case_.geometry == nullptr || !geometry::IsKnown(Code())) {
            case_.geometry = nullptr;
            fields_.Fail(Field::SurfaceGeometry,
                         fmt::format("\"{}\" is no system application", job_[Field::SurfaceGeometry]));
        } else if (case_.calculationType == thicknessTable && !geometry::IsCylinder(Code())) {
            fields_.Fail(Field::SurfaceGeometry,
                         "an insulation thickness table can only be created for pipes and tubes");
        }
    }

    void ReadMaterials() {
        case_.baseMetal = FindById(catalogue_.BaseMetals, job_.baseMetal.id);
        if (case_.baseMetal == nullptr) {
            fields_.Fail(Field::BaseMetal, fmt::format("{} is not in the catalogue", job_.baseMetal.name));
        }
        case_.jacket = FindById(catalogue_.JacketMaterials, job_.jacket.id);
        if (case_.jacket == nullptr) {
            fields_.Fail(Field::Jacket, fmt::format("{} is not in the catalogue", job_.jacket.name));
        }
    }

    void ReadSize() {
        if (!geometry::IsCylinder(Code())) {
            return;
        }
        const auto sizes = SizeTexts(catalogue_, Code(), case_.units);
        const auto position = SizePosition(sizes, job_[Field::PipeSize]);
        if (!position) {
            fields_.Fail(Field::PipeSize,
                         fmt::format("\"{}\" is not in the list of {} sizes", job_[Field::PipeSize],
                                     geometry::IsPipe(Code()) ? "pipe" : "tube"));
            return;
        }
        case_.sizeText = sizes[*position];
        const auto offset = static_cast<std::ptrdiff_t>(*position);
        if (geometry::IsTube(Code())) {
            case_.tube = *std::ranges::next(catalogue_.Tubes.begin(), offset, catalogue_.Tubes.end());
            case_.pipeSize = case_.tube->USNTS;
            return;
        }
        case_.pipe = *std::ranges::next(catalogue_.Pipes.begin(), offset, catalogue_.Pipes.end());
        case_.pipeSize = case_.pipe->USNPS;
        if (case_.units == Units::si) {
            case_.pipe->ActualPipeSizeInches = MillimetersToInches(case_.pipe->ActualPipeSizemm);
            case_.pipe->WallThicknessInches = MillimetersToInches(case_.pipe->WallThicknessmm);
            case_.pipeSize = MillimetersToInches(case_.pipe->USMetric);
        }
    }

    void ReadConditions() {
        case_.processTemp = fields_.Needed(Field::ProcessTemp);
        case_.ambientTemp = fields_.Needed(Field::AmbientTemp);
        case_.windSpeed = fields_.Needed(Field::WindSpeed);
        if (geometry::IsDuct(Code())) {
            case_.ductWidth = fields_.Needed(Field::DuctWidth);
            case_.ductDepth = fields_.Needed(Field::DuctDepth);
        }
    }

    void ReadGoal() {
        if (IsUsed(Field::MaxSurfaceTemp, case_.calculationType, Code())) {
            case_.maxSurfaceTemp = fields_.Needed(Field::MaxSurfaceTemp);
        }
        if (IsUsed(Field::HeatFlowLimit, case_.calculationType, Code())) {
            case_.heatFlowLimit = fields_.Needed(Field::HeatFlowLimit);
        }
        if (case_.calculationType == condensationControl) {
            case_.moisture = MoistureInput{job_.moisture, fields_.Needed(job_.moisture)};
        }
    }

    void ReadLayers() {
        case_.nominalThicknesses = NominalSeries(catalogue_, Code(), case_.units);
        case_.onlyListed = true;
        if (job_.layers.empty() || job_.layers.size() > mostLayers) {
            fields_.Fail(Field::Insulation, job_.layers.empty() ? "there is no insulation layer"
                                                                : "there are more than five layers");
        }
        for (std::size_t i = 0; i < job_.layers.size(); ++i) {
            ReadLayer(job_.layers[i], i + 1);
        }
    }

    void ReadLayer(const JobLayer& row, std::size_t position) {
        const std::string subject = fmt::format("Insulation.{}", position);
        const CInsulation* material = FindById(catalogue_.Insulations, row.material.id);
        if (material == nullptr) {
            fields_.Note(Severity::error, subject,
                         fmt::format("Layer {}: its material ({}) is not in the catalogue any more.",
                                     position, row.material.name));
            return;
        }
        LayerInput layer;
        layer.material = material->Copy();
        layer.position = position;
        // The first layer that reads "Vary" is the varying one; further ones keep the thickness that they
        // show.
        layer.varies = row.locked == "Vary" && !case_.Varies();
        if (row.locked != "Vary" && row.locked != "Fix") {
            fields_.Note(
                Severity::error, subject,
                fmt::format("Layer {}: \"{}\" is neither \"Fix\" nor \"Vary\".", position, row.locked));
        }
        if (!layer.varies) {
            layer.nominal = FixedThickness(row, position, subject);
        }
        case_.layers.push_back(std::move(layer));
    }

    float FixedThickness(const JobLayer& row, std::size_t position, const std::string& subject) {
        constexpr double thickest = 100.0; // [in]
        const auto value = ParseSingle(row.thickness);
        const double inches = ToEnglish(Quantity::length, case_.units, value.value_or(0.0F));
        if (!value || !(inches > 0.0) || inches > thickest) {
            fields_.Note(Severity::error, subject,
                         Trimmed(row.thickness).empty()
                             ? fmt::format("Layer {}: a thickness is needed{}.", position,
                                           row.locked == "Vary" ? ", since another layer varies already" : "")
                             : fmt::format("Layer {}: \"{}\" is no thickness above 0 and up to {}.", position,
                                           row.thickness, case_.units == Units::si ? "2540 mm" : "100 in"));
            return 0;
        }
        if (geometry::IsCylinder(Code()) && (case_.pipe || case_.tube) &&
            FindThicknessRow(Code(), *value, case_.Pipe(), case_.Tube(), case_.units == Units::si) ==
                nullptr) {
            fields_.Note(
                Severity::information, subject,
                fmt::format(
                    "Layer {}: the size's table has no covering of {} {}; it is installed at this thickness.",
                    position, Trimmed(row.thickness), InfoOf(Quantity::length).Text(case_.units)));
        }
        return *value;
    }

    /// Fuel and hours are needed for a yearly result and welcome otherwise: a report shows them, and the
    /// audit file.
    void ReadFuel() {
        const bool needed = case_.calculationType == heatLossPerYear;
        const std::size_t before = fields_.findings.size();
        FuelInput fuel;
        fuel.record = FindByName(catalogue_.Fuels, job_[Field::Fuel]);
        case_.hoursPerYear = fields_.Needed(Field::HoursPerYear);
        case_.hoursText = job_[Field::HoursPerYear];
        if (fuel.record == nullptr) {
            fields_.Fail(Field::Fuel, fmt::format("\"{}\" is not in the catalogue", job_[Field::Fuel]));
        } else {
            const FuelMeasure measure = MeasureOf(fuel.record->CostUnits);
            const bool si = case_.units == Units::si;
            const double heat = fields_.Needed(Field::HeatContent);
            const double cost = fields_.Needed(Field::FuelCost);
            fuel.heatContent = Single(si ? HeatContentToEnglish(measure, heat) : heat);
            fuel.cost = Single(si ? FuelCostToEnglish(measure, cost) : cost);
            fuel.efficiency = fields_.Needed(Field::ConversionEfficiency);
            fuel.heatText = job_[Field::HeatContent];
            fuel.costText = job_[Field::FuelCost];
            fuel.efficiencyText = job_[Field::ConversionEfficiency];
        }
        if (fields_.findings.size() == before) {
            case_.fuel = std::move(fuel);
        } else if (!needed) {
            fields_.findings.resize(before);
        }
    }

    const Job& job_;
    Catalogue& catalogue_;
    CaseInputs case_;
    FieldReader fields_;
};

} // namespace

bool CaseInputs::Varies() const {
    return std::any_of(layers.begin(), layers.end(), [](const LayerInput& layer) { return layer.varies; });
}

CaseReading ReadCase(const Job& job, Catalogue& catalogue) { return CaseReader(job, catalogue).Read(); }

bool IsUsed(Field field, int calculationType, std::int32_t geometryCode) {
    switch (field) {
    case Field::PipeSize:
        return geometry::IsCylinder(geometryCode);
    case Field::DuctWidth:
    case Field::DuctDepth:
        return geometry::IsDuct(geometryCode);
    case Field::MaxSurfaceTemp:
        return calculationType == personnelProtection || calculationType == thicknessTable;
    case Field::HeatFlowLimit:
        return calculationType == heatFlowLimitation;
    case Field::WetBulbTemperature:
    case Field::RelativeHumidity:
    case Field::DewPoint:
        return calculationType == condensationControl;
    case Field::HoursPerYear:
    case Field::Fuel:
    case Field::HeatContent:
    case Field::FuelCost:
    case Field::ConversionEfficiency:
        return calculationType == heatLossPerYear;
    default:
        return true;
    }
}

std::vector<std::string> SizeTexts(const Catalogue& catalogue, std::int32_t geometryCode, Units units) {
    std::vector<std::string> texts;
    if (geometry::IsPipe(geometryCode)) {
        for (const CPipe& pipe : catalogue.Pipes) {
            texts.push_back(SizeText(units == Units::si ? pipe.USMetric : pipe.USNPS));
        }
    } else if (geometry::IsTube(geometryCode)) {
        for (const CTube& tube : catalogue.Tubes) {
            texts.push_back(SizeText(tube.USNTS));
        }
    }
    return texts;
}

std::vector<float> NominalSeries(const Catalogue& catalogue, std::int32_t geometryCode, Units units) {
    std::vector<float> series;
    for (const CNominalThickness& nominal : catalogue.NominalThicknesses) {
        const float metric = geometry::IsCylinder(geometryCode) ? nominal.USMetric : nominal.EuropeanFlat;
        series.push_back(units == Units::si ? metric : nominal.US);
    }
    return series;
}

} // namespace kaloria
