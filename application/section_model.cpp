// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/section_model.h"

#include "application/headline.h"
#include "engine/conduction.h"
#include "engine/surface_geometry.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace kaloria {

namespace {

using namespace calculation_type;

/// Builds one section.
class SectionBuilder {
public:
    SectionBuilder(const CalculationResult& result, const CaseInputs& inputs, std::size_t row)
        : result_(result), inputs_(inputs), row_(result.solved.at(row)) {
        model_.title = row == 0 ? "Section, bare" : "Section at " + RowCaption(result, row);
        model_.units = inputs.units;
    }

    SectionModel Build() {
        if (!row_.IsSolved()) {
            model_.fault = row_.fault;
            model_.description = fmt::format("{}: no result, {}.", model_.title, row_.fault);
            return std::move(model_);
        }
        SetShape();
        AddBands();
        AddInterfaces();
        AddShares();
        Describe();
        return std::move(model_);
    }

private:
    [[nodiscard]] std::string Text(Quantity quantity, double english, NumberFormat format) const {
        return fmt::format("{} {}", FormatNumber(FromEnglish(quantity, inputs_.units, english), format),
                           InfoOf(quantity).Text(inputs_.units));
    }
    [[nodiscard]] std::string TempText(double degF) const {
        return Text(Quantity::temperature, degF, NumberFormat::tenths);
    }
    [[nodiscard]] std::string LimitText(double degF) const { return ShortTempText(degF, inputs_.units); }
    /// Layers to a hundredth of an inch or a tenth of a millimetre, in which they are made.
    [[nodiscard]] std::string LengthText(double inches) const {
        return Text(Quantity::length, inches,
                    inputs_.units == Units::si ? NumberFormat::tenths : NumberFormat::hundredths);
    }

    void SetShape() {
        const std::int32_t code = inputs_.geometry->ID;
        const bool si = inputs_.units == Units::si;
        model_.processTemp = inputs_.processTemp;
        model_.ambientTemp = inputs_.ambientTemp;
        model_.processText = LimitText(inputs_.processTemp);
        model_.ambientText = LimitText(inputs_.ambientTemp);
        model_.subject = inputs_.geometry->Name;
        if (geometry::IsCylinder(code)) {
            model_.shape = SectionShape::cylinder;
            model_.bore = OuterDiameter() / 2 - Wall();
            const char* series = si ? "DN" : inputs_.Pipe() != nullptr ? "NPS" : "NTS";
            model_.subject = fmt::format("{} {}", series, inputs_.sizeText);
        } else if (geometry::IsDuct(code)) {
            model_.shape = SectionShape::box;
            model_.width = inputs_.ductWidth;
            model_.height = inputs_.ductDepth;
            model_.subject =
                fmt::format("{} x {}", FormatNumber(Shown(inputs_.ductWidth), NumberFormat::shortest),
                            Text(Quantity::length, inputs_.ductDepth, NumberFormat::shortest));
        }
    }

    [[nodiscard]] float Shown(double inches) const {
        return static_cast<float>(FromEnglish(Quantity::length, inputs_.units, inches));
    }
    [[nodiscard]] double OuterDiameter() const {
        return inputs_.pipe ? inputs_.pipe->ActualPipeSizeInches : inputs_.tube.value().ActualTubeSizeInches;
    }
    [[nodiscard]] double Wall() const {
        if (!geometry::IsCylinder(inputs_.geometry->ID)) {
            return geometry::flatWall;
        }
        return inputs_.pipe ? inputs_.pipe->WallThicknessInches : inputs_.tube.value().WallThicknessInches;
    }

    void AddBand(bool isWall, const std::string& name, double thickness, double inside, double outside,
                 double conductivity) {
        SectionBand band;
        band.isWall = isWall;
        band.name = name;
        band.thickness = thickness;
        band.insideTemp = inside;
        band.outsideTemp = outside;
        band.thicknessText = LengthText(thickness);
        band.conductivityText = Text(Quantity::conductivity, conductivity, NumberFormat::thousandths);
        band.meanTempText = TempText((inside + outside) / 2);
        model_.bands.push_back(std::move(band));
        conductivities_.push_back(static_cast<float>(conductivity));
    }

    void AddBands() {
        const double metal = row_.metalOutsideTemp;
        const double wallMean = (inputs_.processTemp + metal) / 2;
        AddBand(true, inputs_.baseMetal->Name, Wall(), inputs_.processTemp, metal,
                conduction::WallConductivity(inputs_.baseMetal->ID, wallMean));
        for (std::size_t i = 0; i < row_.layers.size(); ++i) {
            const SolvedLayer& layer = row_.layers[i];
            AddBand(false, layer.name, layer.thickness, layer.insideTemp, layer.outsideTemp,
                    layer.conductivity);
            CheckServiceLimit(inputs_.layers.at(i).material, layer, model_.bands.back());
        }
        if (!row_.layers.empty()) {
            model_.jacket = inputs_.jacket->Name;
        }
    }

    /// The same rule as the warnings of a calculation.
    void CheckServiceLimit(const CInsulation& material, const SolvedLayer& layer, SectionBand& band) const {
        constexpr float hair = 0.05F; // [degF]
        const auto [low, high] = std::minmax(layer.insideTemp, layer.outsideTemp);
        if (material.MaxTemp == 0.0F && material.MinTemp == 0.0F) {
            return;
        }
        if (high > material.MaxTemp + hair) {
            band.limit = "above its service limit of " + LimitText(material.MaxTemp);
            band.limitWord = "too hot";
        } else if (low < material.MinTemp - hair) {
            band.limit = "below its service limit of " + LimitText(material.MinTemp);
            band.limitWord = "too cold";
        }
    }

    void AddInterfaces() {
        model_.interfaces.push_back({inputs_.processTemp, model_.processText, "process", {}});
        for (std::size_t i = 0; i < model_.bands.size(); ++i) {
            const double temp = model_.bands[i].outsideTemp;
            const bool isSurface = i + 1 == model_.bands.size();
            const std::string name = isSurface                ? "surface"
                                     : model_.bands[i].isWall ? "metal"
                                                              : fmt::format("layer {} to {}", i, i + 1);
            model_.interfaces.push_back(
                {temp, TempText(temp), name, isSurface ? SurfaceLimit() : std::string()});
        }
    }

    [[nodiscard]] std::string SurfaceLimit() const {
        const bool hasLimit =
            inputs_.calculationType == personnelProtection || inputs_.calculationType == thicknessTable;
        if (hasLimit && row_.surfaceTemp > inputs_.maxSurfaceTemp) {
            return "above the limit of " + LimitText(inputs_.maxSurfaceTemp);
        }
        if (result_.condensation && inputs_.IsCold() && row_.surfaceTemp < result_.condensation->dewPoint) {
            return "below the dew point of " + LimitText(result_.condensation->dewPoint);
        }
        return {};
    }

    [[nodiscard]] std::vector<double> Equivalents() const {
        std::vector<double> equivalents(model_.bands.size());
        if (model_.shape == SectionShape::cylinder) {
            std::vector<float> radii;
            for (std::size_t i = 0; i <= model_.bands.size(); ++i) {
                radii.push_back(static_cast<float>(model_.bore + model_.DepthOf(i)));
            }
            conduction::EquivalentThicknesses(radii, equivalents);
        } else {
            for (std::size_t i = 0; i < equivalents.size(); ++i) {
                equivalents[i] = model_.bands[i].thickness;
            }
        }
        return equivalents;
    }

    /// One flow passes everything in series: the solids together have the share of their temperature
    /// difference in the whole one, and each its part of that by its resistance. The resistances, because the
    /// difference across a metal wall is lost in single precision.
    void AddShares() {
        constexpr double least = 0.05; // [degF]; less says nothing about the film
        const double whole = double{inputs_.processTemp} - inputs_.ambientTemp;
        if (std::abs(whole) < least) {
            return;
        }
        std::vector<double> resistances(model_.bands.size());
        conduction::Resistances(Equivalents(), conductivities_, resistances);
        double sum = 0;
        for (const double resistance : resistances) {
            sum += resistance;
        }
        const double solids = (double{inputs_.processTemp} - row_.surfaceTemp) / whole;
        for (std::size_t i = 0; i < resistances.size(); ++i) {
            model_.bands[i].share = resistances[i] / sum * solids;
            model_.bands[i].shareText = PercentText(*model_.bands[i].share);
        }
        model_.filmShareText = PercentText(1 - solids);
    }

    [[nodiscard]] static std::string PercentText(double share) {
        return FormatNumber(share * 100, NumberFormat::tenths) + " %";
    }

    void Describe() {
        std::string& text = model_.description;
        text = fmt::format("{}, {}. Process {}.", model_.title, model_.subject, model_.processText);
        for (std::size_t i = 0; i < model_.bands.size(); ++i) {
            const SectionBand& band = model_.bands[i];
            const SectionInterface& outside = model_.interfaces[i + 1];
            text += fmt::format(" {} of {}{}{}; {} at its {}{}{}.", band.thicknessText, band.name,
                                band.limit.empty() ? "" : ", ", band.limit, outside.text,
                                i + 1 == model_.bands.size() ? "surface" : "outside",
                                outside.limit.empty() ? "" : ", ", outside.limit);
        }
        text += fmt::format(" Ambient {}.", model_.ambientText);
    }

    const CalculationResult& result_;
    const CaseInputs& inputs_;
    const SolvedRow& row_;
    SectionModel model_;
    std::vector<float> conductivities_; // of the bands [Btu in/(h ft2 degF)]
};

} // namespace

double SectionModel::DepthOf(std::size_t index) const {
    double depth = 0;
    for (std::size_t i = 0; i < index; ++i) {
        depth += bands.at(i).thickness;
    }
    return depth;
}

double SectionModel::TempIn(std::size_t band, double share) const {
    const SectionBand& solid = bands.at(band);
    const double inner = bore + DepthOf(band);
    double passed = share; // share of the band's resistance that lies inside of the place
    if (shape == SectionShape::cylinder && inner > 0 && solid.thickness > 0) {
        passed = std::log1p(share * solid.thickness / inner) / std::log1p(solid.thickness / inner);
    }
    return solid.insideTemp + passed * (solid.outsideTemp - solid.insideTemp);
}

std::string ShortTempText(double degF, Units units) {
    std::string number = FormatNumber(FromEnglish(Quantity::temperature, units, degF), NumberFormat::tenths);
    if (number.ends_with(".0")) {
        number.resize(number.size() - 2);
    }
    return fmt::format("{} {}", number, InfoOf(Quantity::temperature).Text(units));
}

SectionModel MakeSection(const CalculationResult& result, const CaseInputs& inputs, std::size_t row) {
    return SectionBuilder(result, inputs, row).Build();
}

} // namespace kaloria
