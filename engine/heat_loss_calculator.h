// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/insulation.h"
#include "engine/numeric_fault.h"
#include "engine/reference_records.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

namespace kaloria {

/// The heat-transfer engine: one-dimensional steady conduction through a metal wall and any number of
/// insulation layers, convection and radiation at the outer surface, iterated on the surface temperature
/// because film coefficient and conductivities depend on the temperatures.
///
/// Set the inputs, call Solve (and Settle), read the results; the object may be used again and again. Nothing
/// is kept from one call to the next but the inputs. The method is written out in docs/methods.md.
class CHeatLossCalculator {
public:
    // Inputs ------------------------------------------------------------------------------------------------
    float ProcessTemp = 0; ///< [degF]
    float AmbientTemp = 0; ///< [degF]
    float WindSpeed = 0;   ///< [mph]
    float InsulationOD =
        -1;              ///< over the insulation, of a cylinder [in]; -1: not set, use the computed radius
    float DuctWidth = 0; ///< horizontal dimension [in]
    float DuctDepth = 0; ///< vertical dimension [in]
    float PipeSize = 0;  ///< nominal size as chosen; carried, not computed with
    /// Position in the list of calculation types: 3 asks for heat flow per square foot even of cylinders, 2
    /// changes the flux of the one-pass duct profile, the others make no difference here.
    std::int16_t CalculationType = 0;
    float MaxSurfaceTemp = 0;   ///< design goal [degF]; carried
    float DewPointTemp = 0;     ///< [degF]; given, or the result of CalculateDewPoint
    float RelativeHumidity = 0; ///< [%]
    float HeatFlowLimit = 0;    ///< design goal [Btu/(h ft2)]; carried
    float StartingTemp = 0;     ///< of a temperature sweep [degF]; carried
    float TempIncrement = 0;    ///< of a temperature sweep [degF]; carried
    float HoursPerYear = 0;     ///< [h]; carried

    // The selected records, owned by others. BaseMetal receives OutsideTemp; Solve needs SurfaceGeometry,
    // BaseMetal, for insulated surfaces JacketMaterial, for codes 1 to 4 Pipe or Tube (Pipe goes first).
    const CSurfaceGeometry* SurfaceGeometry = nullptr;
    CBaseMetal* BaseMetal = nullptr;
    const CJacketMaterial* JacketMaterial = nullptr;
    CFuel* FuelType = nullptr;
    const CPipe* Pipe = nullptr;
    const CTube* Tube = nullptr;
    const CReportingUnit* ReportingUnit = nullptr;
    const Collection<CNominalThickness>* NominalThicknesses = nullptr;

    /// Innermost first; each carries Thickness and receives OutsideTemp and Conductivity.
    std::vector<CInsulation> InsulationLayers;

    // Operations --------------------------------------------------------------------------------------------

    /// Solves the case. Ducts are solved face by face as flat surfaces: code 9 as one vertical face, code 8
    /// as sides, top and bottom, whose flows are added.
    /// @throws NumericFault; then Converged() is false, UnitHeatFlow() is NaN and layers and metal are
    /// untouched
    void Solve();

    /// How far the answer of Solve was from the settled one.
    struct Settlement {
        float TempChange = 0;  ///< largest movement of any temperature in any face [degF]
        double FlowChange = 0; ///< of the heat flow, relative to its settled value [-]
        int Passes = 0;        ///< added, all faces together
    };

    /// Repeats passes after Solve until every temperature moves less than 0.001 degF and the flow less than
    /// 1e-6 of itself, or the safeguard acts. Solve looks at the surface alone, and now and then stops while
    /// an inner interface is still on its way.
    /// @throws NumericFault as Solve
    Settlement Settle();

    /// One run of the iteration for the geometry as it stands; called directly with code 8, the three film
    /// coefficients of a horizontal duct share one temperature profile. Results go to Solutions() and
    /// UnitHeatFlow(), not to the layers.
    /// @throws NumericFault as Solve
    void Qcalc();

    /// DewPointTemp from AmbientTemp and RelativeHumidity by Newton's method on Logp; a humidity below 1 % is
    /// set to 1. The result lies on the safe (high) side of the psychrometric dew point, see docs/methods.md.
    /// @throws NumericFault
    void CalculateDewPoint();

    // Results -----------------------------------------------------------------------------------------------

    /// False before the first solution and after a fault.
    [[nodiscard]] bool Converged() const { return converged_; }

    /// Heat flow [Btu/(h ft)] of cylinders and ducts, [Btu/(h ft2)] of flats and tanks and, when
    /// CalculationType is 3, of cylinders too (per square foot of outer surface); negative for a heat gain.
    /// NaN unless Converged().
    [[nodiscard]] float UnitHeatFlow() const { return unitHeatFlow_; }

    /// Heat flow of a cylinder per foot of length, whatever the CalculationType [Btu/(h ft)]; NaN unless
    /// Converged().
    [[nodiscard]] double FlowPerFoot() const;

    /// Mean heat flux over the outer surface [Btu/(h ft2)]; of ducts over the duct's own perimeter, as their
    /// flow is reckoned. NaN unless Converged().
    [[nodiscard]] double MeanFlux() const;

    /// One solution of the iteration.
    struct Solution {
        std::int32_t GeometryCode = 0;     ///< with which it was run
        std::vector<float> Temps;          ///< process, outside of the wall, of each layer [degF]
        std::vector<float> Conductivities; ///< wall, each layer [Btu in/(h ft2 degF)]
        double Flux = 0;                   ///< through the outer surface [Btu/(h ft2)]
        int Passes = 0;
        bool StoppedBySafeguard = false; ///< ended without convergence: see Solve in docs/methods.md

        [[nodiscard]] float SurfaceTemp() const { return Temps.back(); }
    };

    /// One, or for a horizontal duct (code 8) through Solve three: sides, top, bottom.
    [[nodiscard]] std::span<const Solution> Solutions() const;

    /// Outer surface of the last solution made [degF].
    [[nodiscard]] float SurfaceTemp() const;

    /// Whether any solution was ended by the safeguard instead of converging.
    [[nodiscard]] bool StoppedBySafeguard() const;

    /// Outer radius over the insulation as computed [in]; cylinders only, otherwise 0.
    [[nodiscard]] float OuterRadius() const { return radii_.empty() ? 0.0F : radii_.back(); }

    // The parts of the method, each testable by itself; results go to the last arguments as named.
    // All throw NumericFault. Temperatures degF (TK kelvin), lengths ft, V ft/h, H Btu/(h ft2 degF).

    static void AirProp(float& k, float& mu, float& Pr, float& beta, float dT, float& rho, float& nu,
                        float& cp, float TK, float TF, float& Ra, float L);
    static void Hpipe(float Ts, float Ta, float D, float V, float Emittance, float& H);
    static void Vpipe(float Ts, float Ta, float L, float V, float Emittance, float& H, float D);
    static void Flat(float Ts, float Ta, float Orientation, float L, std::int16_t Position, float V,
                     float Emittance, float& H);
    /// result = ln x / ln 10
    static void Log10(float x, float& result);
    /// Base-10 logarithm of a vapour pressure in the form of Goff and Gratch, x = 273.16 K / T; with
    /// the sign of its logarithmic term as this program has always had it (see docs/methods.md).
    static void Logp(float x, float& result);

private:
    struct Criterion;

    void SetUpElements();
    void SetUpCylinder();
    void CheckInputs() const;
    void Start(Solution& solution, std::int32_t code);
    void Iterate(Solution& solution, const Criterion& criterion);
    void Pass(Solution& solution);
    [[nodiscard]] double ConductivityOf(std::size_t element, const Solution& solution) const;
    void RefreshConductivities(Solution& solution) const;
    void CheckConductivities(const Solution& solution) const;
    [[nodiscard]] float FilmCoefficient(std::int32_t code, float surfaceTemp) const;
    [[nodiscard]] double DuctFlux(float surfaceTemp);
    void RunFaces(std::span<const std::int32_t> codes);
    void FitLayers();
    void CopyResults();
    [[nodiscard]] double FlowFrom(std::int32_t code) const;
    [[nodiscard]] double AreaPerFoot() const;

    std::vector<float> thicknesses_; // wall, layers [in]
    std::vector<float> radii_;       // cylinders: bore, outside of each element [in]
    std::vector<double> equivalents_;
    std::vector<double> resistances_;
    std::array<Solution, 3> solutions_;
    std::size_t solutionCount_ = 0;
    float trial_ = 0;                    // surface temperature tried in the current pass [degF]
    float emittance_ = 0;                // of the outer surface
    std::array<double, 3> ductFluxes_{}; // one-pass duct: side, top, bottom [Btu/(h ft2)]
    std::int32_t flowCode_ = 0;          // the geometry whose rule UnitHeatFlow follows
    bool converged_ = false;
    float unitHeatFlow_ = std::numeric_limits<float>::quiet_NaN();
};

} // namespace kaloria
