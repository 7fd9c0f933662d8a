// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/heat_loss_calculator.h"

#include "engine/air_properties.h"
#include "engine/conduction.h"
#include "engine/film_coefficient.h"
#include "engine/surface_geometry.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace kaloria {

namespace {

constexpr double feetPerMile = 5280.0;
constexpr float characteristicLength = 10.0F; // of flats and vertical cylinders [ft]
constexpr double tolerance = 0.001;           // of a temperature, pass to pass [degF]
constexpr double flowTolerance = 1e-6;        // of the settled flow, relative
constexpr int safeguardPasses = 100;
constexpr int mostPasses = 10000; // a program on a desk may not hang
// pi / 6 as this program has always written it: square feet per foot of length and inch of radius.
constexpr double areaPerFootAndRadius = 0.523598333;

constexpr std::array<std::int32_t, 3> ductFaces{geometry::verticalFlat, geometry::topFlat,
                                                geometry::bottomFlat};

float LargestMove(std::span<const float> before, std::span<const float> after) {
    float largest = 0;
    for (std::size_t i = 0; i < after.size(); ++i) {
        largest = std::max(largest, std::abs(after[i] - before[i]));
    }
    return largest;
}

std::string LayerName(const CInsulation& layer, std::size_t position) {
    const std::string name = "layer " + std::to_string(position);
    return layer.Name.empty() ? name : name + " (" + layer.Name + ")";
}

} // namespace

/// When a run of passes ends.
struct CHeatLossCalculator::Criterion {
    bool everything = false; ///< all temperatures and the flow, not the surface alone

    [[nodiscard]] bool IsMet(float tried, std::span<const float> before, double fluxBefore,
                             const Solution& now) const {
        if (!everything) {
            return std::abs(double{tried} - now.SurfaceTemp()) < tolerance;
        }
        return LargestMove(before, now.Temps) < tolerance &&
               std::abs(now.Flux - fluxBefore) <= flowTolerance * std::abs(now.Flux);
    }
};

std::span<const CHeatLossCalculator::Solution> CHeatLossCalculator::Solutions() const {
    return std::span(solutions_).first(converged_ ? solutionCount_ : 0);
}

float CHeatLossCalculator::SurfaceTemp() const {
    return converged_ ? solutions_[solutionCount_ - 1].SurfaceTemp()
                      : std::numeric_limits<float>::quiet_NaN();
}

bool CHeatLossCalculator::StoppedBySafeguard() const {
    const auto solutions = Solutions();
    return std::any_of(solutions.begin(), solutions.end(),
                       [](const Solution& solution) { return solution.StoppedBySafeguard; });
}

void CHeatLossCalculator::Solve() {
    FitLayers();
    const std::int32_t code = SurfaceGeometry != nullptr ? SurfaceGeometry->ID : 0;
    if (code == geometry::horizontalDuct) {
        RunFaces(ductFaces);
    } else {
        const std::array<std::int32_t, 1> face{code == geometry::verticalDuct ? geometry::verticalFlat
                                                                              : code};
        RunFaces(face);
    }
    CopyResults();
}

void CHeatLossCalculator::Qcalc() {
    FitLayers();
    const std::array<std::int32_t, 1> face{SurfaceGeometry != nullptr ? SurfaceGeometry->ID : 0};
    RunFaces(face);
}

void CHeatLossCalculator::RunFaces(std::span<const std::int32_t> codes) {
    converged_ = false;
    unitHeatFlow_ = std::numeric_limits<float>::quiet_NaN();
    CheckInputs();
    const FaultTrap trap;
    SetUpElements();
    solutionCount_ = codes.size();
    flowCode_ = SurfaceGeometry->ID;
    for (std::size_t i = 0; i < codes.size(); ++i) {
        Start(solutions_[i], codes[i]);
        Iterate(solutions_[i], Criterion{});
    }
    const double flow = FlowFrom(flowCode_);
    trap.Check("heat flow", {flow});
    unitHeatFlow_ = Single(flow);
    converged_ = true;
}

CHeatLossCalculator::Settlement CHeatLossCalculator::Settle() {
    if (!converged_) {
        throw NumericFault("there is no solution to settle");
    }
    converged_ = false;
    const double flowBefore = unitHeatFlow_;
    unitHeatFlow_ = std::numeric_limits<float>::quiet_NaN();
    const FaultTrap trap;
    Settlement settlement;
    for (Solution& solution : std::span(solutions_).first(solutionCount_)) {
        if (solution.StoppedBySafeguard) {
            continue;
        }
        const std::vector<float> temps = solution.Temps;
        const int passes = solution.Passes;
        trial_ = solution.SurfaceTemp();
        Iterate(solution, Criterion{true});
        settlement.TempChange = std::max(settlement.TempChange, LargestMove(temps, solution.Temps));
        settlement.Passes += solution.Passes - passes;
    }
    const double flow = FlowFrom(flowCode_);
    if (flow != flowBefore) {
        settlement.FlowChange = std::abs((flow - flowBefore) / flow);
    }
    trap.Check("heat flow", {flow, settlement.FlowChange});
    unitHeatFlow_ = Single(flow);
    converged_ = true;
    CopyResults();
    return settlement;
}

void CHeatLossCalculator::FitLayers() {
    // A fit that fails must not leave the previous case's answer standing.
    converged_ = false;
    unitHeatFlow_ = std::numeric_limits<float>::quiet_NaN();
    for (CInsulation& layer : InsulationLayers) {
        if (!layer.TemperaturePoints.empty()) {
            layer.CalculateQuadratic();
        }
    }
}

void CHeatLossCalculator::CheckInputs() const {
    if (SurfaceGeometry == nullptr || !geometry::IsKnown(SurfaceGeometry->ID)) {
        throw NumericFault("no surface geometry is chosen");
    }
    if (BaseMetal == nullptr) {
        throw NumericFault("no base metal is chosen");
    }
    if (!InsulationLayers.empty() && JacketMaterial == nullptr) {
        throw NumericFault("no jacket material is chosen");
    }
    if (geometry::IsCylinder(SurfaceGeometry->ID) && Pipe == nullptr && Tube == nullptr) {
        throw NumericFault("no pipe or tube size is chosen");
    }
    for (const CInsulation& layer : InsulationLayers) {
        if (!(layer.Thickness >= 0.0F)) {
            throw NumericFault("a layer's thickness is negative");
        }
    }
}

void CHeatLossCalculator::SetUpElements() {
    const std::size_t count = InsulationLayers.size() + 1;
    thicknesses_.resize(count);
    equivalents_.resize(count);
    resistances_.resize(count);
    thicknesses_[0] = geometry::flatWall;
    for (std::size_t i = 1; i < count; ++i) {
        thicknesses_[i] = InsulationLayers[i - 1].Thickness;
    }
    emittance_ = InsulationLayers.empty() ? BaseMetal->Emittance : JacketMaterial->Emittance;
    radii_.clear();
    if (geometry::IsCylinder(SurfaceGeometry->ID)) {
        SetUpCylinder();
    } else {
        std::copy(thicknesses_.begin(), thicknesses_.end(), equivalents_.begin());
    }
}

void CHeatLossCalculator::SetUpCylinder() {
    const float diameter = Pipe != nullptr ? Pipe->ActualPipeSizeInches : Tube->ActualTubeSizeInches;
    thicknesses_[0] = Pipe != nullptr ? Pipe->WallThicknessInches : Tube->WallThicknessInches;
    radii_.resize(thicknesses_.size() + 1);
    radii_[1] = Single(diameter / 2.0);
    radii_[0] = Single(double{radii_[1]} - thicknesses_[0]);
    for (std::size_t i = 2; i < radii_.size(); ++i) {
        radii_[i] = Single(double{radii_[i - 1]} + thicknesses_[i - 1]);
    }
    conduction::EquivalentThicknesses(radii_, equivalents_);
}

void CHeatLossCalculator::Start(Solution& solution, std::int32_t code) {
    solution.GeometryCode = code;
    solution.Passes = 0;
    solution.StoppedBySafeguard = false;
    solution.Flux = 0;
    solution.Conductivities.resize(thicknesses_.size());
    solution.Temps.resize(thicknesses_.size() + 1);
    trial_ = Single(AmbientTemp + 20.0);
    double sum = 0.0;
    for (const float thickness : thicknesses_) {
        sum += thickness;
    }
    const double drop = double{ProcessTemp} - AmbientTemp;
    solution.Temps[0] = ProcessTemp;
    for (std::size_t i = 0; i < thicknesses_.size(); ++i) {
        solution.Temps[i + 1] = Single(solution.Temps[i] - thicknesses_[i] / sum * drop);
    }
}

void CHeatLossCalculator::Iterate(Solution& solution, const Criterion& criterion) {
    std::vector<float> before;
    for (;;) {
        const float tried = trial_;
        const double fluxBefore = solution.Flux;
        if (criterion.everything) {
            before = solution.Temps;
        }
        Pass(solution);
        const float surface = solution.SurfaceTemp();
        if (std::isnan(surface)) {
            CheckConductivities(solution);
            throw NumericFault("the temperatures cannot be computed");
        }
        if (criterion.IsMet(tried, before, fluxBefore, solution)) {
            break;
        }
        trial_ = surface;
        const bool above = surface > AmbientTemp && surface > tried;
        const bool below = surface < AmbientTemp && surface < tried;
        if (solution.Passes >= safeguardPasses && (above || below)) {
            // Where process and ambient nearly agree, rounding alone moves the flow by more than its
            // tolerance: temperatures that rest are settled all the same.
            solution.StoppedBySafeguard =
                !criterion.everything || LargestMove(before, solution.Temps) >= tolerance;
            break;
        }
        if (solution.Passes >= mostPasses) {
            throw NumericFault("no solution within 10000 passes");
        }
    }
    CheckConductivities(solution);
}

void CHeatLossCalculator::Pass(Solution& solution) {
    ++solution.Passes;
    RefreshConductivities(solution);
    conduction::Resistances(equivalents_, solution.Conductivities, resistances_);
    const double drop = double{ProcessTemp} - AmbientTemp;
    solution.Flux =
        solution.GeometryCode == geometry::horizontalDuct
            ? DuctFlux(trial_)
            : conduction::Flux(drop, FilmCoefficient(solution.GeometryCode, trial_), resistances_);
    conduction::InterfaceTemperatures(solution.Flux, resistances_, solution.Temps);
}

double CHeatLossCalculator::ConductivityOf(std::size_t element, const Solution& solution) const {
    const double meanTemp = (double{solution.Temps[element]} + solution.Temps[element + 1]) / 2.0;
    return element == 0 ? conduction::WallConductivity(BaseMetal->ID, meanTemp)
                        : InsulationLayers[element - 1].ConductivityAt(meanTemp);
}

void CHeatLossCalculator::RefreshConductivities(Solution& solution) const {
    for (std::size_t i = 0; i < solution.Conductivities.size(); ++i) {
        solution.Conductivities[i] = Single(ConductivityOf(i, solution));
    }
}

/// The conductivities of the last pass belong to the temperatures before it; those of the temperatures that
/// it left must be sound as well, or a curve far outside its data could end the loop on nonsense.
void CHeatLossCalculator::CheckConductivities(const Solution& solution) const {
    for (std::size_t i = 0; i < solution.Conductivities.size(); ++i) {
        if (!(solution.Conductivities[i] > 0.0F) || !(ConductivityOf(i, solution) > 0.0)) {
            throw NumericFault("the conductivity of " +
                               (i == 0 ? "the base metal" : LayerName(InsulationLayers[i - 1], i)) +
                               " is not above zero at its mean temperature");
        }
    }
}

float CHeatLossCalculator::FilmCoefficient(std::int32_t code, float surfaceTemp) const {
    const float speed = Single(WindSpeed * feetPerMile);
    if (geometry::IsCylinder(code)) {
        const float diameter = Single(2.0 * radii_.back() / 12.0);
        return geometry::IsVerticalCylinder(code)
                   ? film::VerticalCylinder(surfaceTemp, AmbientTemp, characteristicLength, speed, emittance_,
                                            diameter)
                   : film::HorizontalCylinder(surfaceTemp, AmbientTemp, diameter, speed, emittance_);
    }
    const bool horizontal = code == geometry::topFlat || code == geometry::bottomFlat;
    const std::int16_t position = code == geometry::bottomFlat ? 2 : 1;
    return film::FlatSurface(surfaceTemp, AmbientTemp, horizontal ? 0.0F : 90.0F, characteristicLength,
                             position, speed, emittance_);
}

double CHeatLossCalculator::DuctFlux(float surfaceTemp) {
    const double drop = double{ProcessTemp} - AmbientTemp;
    for (std::size_t i = 0; i < ductFaces.size(); ++i) {
        ductFluxes_[i] = conduction::Flux(drop, FilmCoefficient(ductFaces[i], surfaceTemp), resistances_);
    }
    const auto [side, top, bottom] = ductFluxes_;
    if (CalculationType != 2) {
        return std::max({side, top, bottom});
    }
    // Uneven on purpose: where the side lies below the top, the bottom is not looked at. Results in people's
    // files depend on it.
    if (side < top) {
        return side;
    }
    return bottom < top ? bottom : top;
}

double CHeatLossCalculator::FlowPerFoot() const {
    return converged_ ? solutions_[0].Flux * AreaPerFoot() : std::numeric_limits<double>::quiet_NaN();
}

double CHeatLossCalculator::MeanFlux() const {
    if (!converged_) {
        return std::numeric_limits<double>::quiet_NaN();
    }
    return geometry::IsDuct(flowCode_) ? unitHeatFlow_ / ((2.0 * DuctWidth + 2.0 * DuctDepth) / 12.0)
                                       : solutions_[0].Flux;
}

/// Outer surface of a cylinder per foot of length [ft2/ft].
double CHeatLossCalculator::AreaPerFoot() const {
    return areaPerFootAndRadius * (InsulationOD == -1.0F ? radii_.back() : InsulationOD / 2.0);
}

double CHeatLossCalculator::FlowFrom(std::int32_t code) const {
    const double width = DuctWidth;
    const double depth = DuctDepth;
    const double flux = solutions_[0].Flux;
    if (geometry::IsCylinder(code)) {
        return CalculationType == 3 ? flux : flux * AreaPerFoot();
    }
    if (code == geometry::verticalDuct) {
        return (2.0 * width + 2.0 * depth) / 12.0 * flux;
    }
    if (code != geometry::horizontalDuct) {
        return flux;
    }
    const bool faceByFace = solutionCount_ == ductFaces.size();
    const double side = faceByFace ? flux : ductFluxes_[0];
    const double top = faceByFace ? solutions_[1].Flux : ductFluxes_[1];
    const double bottom = faceByFace ? solutions_[2].Flux : ductFluxes_[2];
    return 2.0 * depth / 12.0 * side + width / 12.0 * top + width / 12.0 * bottom;
}

void CHeatLossCalculator::CopyResults() {
    const Solution& last = solutions_[solutionCount_ - 1];
    BaseMetal->OutsideTemp = last.Temps[1];
    for (std::size_t i = 0; i < InsulationLayers.size(); ++i) {
        InsulationLayers[i].OutsideTemp = last.Temps[i + 2];
        InsulationLayers[i].Conductivity = last.Conductivities[i + 1];
    }
}

// The parts of the method by their own names
// ------------------------------------------------------------------

void CHeatLossCalculator::Hpipe(float Ts, float Ta, float D, float V, float Emittance, float& H) {
    const FaultTrap trap;
    const float result = film::HorizontalCylinder(Ts, Ta, D, V, Emittance);
    trap.Check("Hpipe", {result});
    H = result;
}

void CHeatLossCalculator::Vpipe(float Ts, float Ta, float L, float V, float Emittance, float& H, float D) {
    const FaultTrap trap;
    const float result = film::VerticalCylinder(Ts, Ta, L, V, Emittance, D);
    trap.Check("Vpipe", {result});
    H = result;
}

void CHeatLossCalculator::Flat(float Ts, float Ta, float Orientation, float L, std::int16_t Position, float V,
                               float Emittance, float& H) {
    const FaultTrap trap;
    const float result = film::FlatSurface(Ts, Ta, Orientation, L, Position, V, Emittance);
    trap.Check("Flat", {result});
    H = result;
}

void CHeatLossCalculator::AirProp(float& k, float& mu, float& Pr, float& beta, float dT, float& rho,
                                  float& nu, float& cp, float TK, float TF, float& Ra, float L) {
    const FaultTrap trap;
    const AirProperties air = AirAtFilm(dT, TK, TF, L);
    trap.Check("AirProp", {air.conductivity, air.dynamicViscosity, air.prandtl, air.expansion, air.density,
                           air.kinematicViscosity, air.specificHeat, air.rayleigh});
    k = air.conductivity;
    mu = air.dynamicViscosity;
    Pr = air.prandtl;
    beta = air.expansion;
    rho = air.density;
    nu = air.kinematicViscosity;
    cp = air.specificHeat;
    Ra = air.rayleigh;
}

} // namespace kaloria
