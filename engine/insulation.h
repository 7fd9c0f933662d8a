// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kaloria {

/// One measured pair of a material described by paired data.
struct CTemperaturePoint {
    float Temperature = 0;  ///< mean temperature [degF]
    float Conductivity = 0; ///< [Btu in/(h ft2 degF)]
};

/// An insulation material of the catalogue and, as a copy, one layer of a case.
///
/// Conductivity at mean temperature T [degF]: k = A + B T + C T2 [Btu in/(h ft2 degF)], so that thickness in
/// inches over k is a resistance in h ft2 degF/Btu. A material with TemperaturePoints gets A, B and C from
/// CalculateQuadratic.
class CInsulation {
public:
    std::vector<CTemperaturePoint> TemperaturePoints; ///< empty for a polynomial material
    float Conductivity = 0;              ///< result: at the solved mean temperature [Btu in/(h ft2 degF)]
    float OutsideTemp = 0;               ///< result: outside of the layer [degF]
    float Thickness = 0;                 ///< as installed [in]
    std::int32_t NominalThicknessID = 0; ///< position (from 1) of the layer's nominal thickness; 0 none
    std::int32_t ID = 0;
    float C = 0;
    float B = 0;
    float A = 0;
    float MaxTemp = 0; ///< service limit [degF]
    float MinTemp = 0; ///< service limit [degF]
    std::int32_t InsulationType = 0;
    std::string CreatedBy;
    std::string Name;
    bool Active = false;

    /// Range of the paired data as set by CalculateQuadratic [degF]. The search starts from -1000 and 4000
    /// and only ever widens them, so they tell points outside that span and nothing else.
    [[nodiscard]] float LowerTemp() const { return lowerTemp_; }
    [[nodiscard]] float UpperTemp() const { return upperTemp_; }

    [[nodiscard]] CInsulation Copy() const { return *this; }

    /// Least-squares parabola through TemperaturePoints into A, B, C (normal equations in double precision,
    /// elimination with partial pivoting).
    /// @throws NumericFault when the points do not determine a parabola (a pivot below 1e-12 of the largest
    ///         element of its column)
    void CalculateQuadratic();

    /// k at mean temperature @p meanTemp [degF], from A, B and C alone.
    [[nodiscard]] double ConductivityAt(double meanTemp) const {
        return double{A} + double{B} * meanTemp + double{C} * meanTemp * meanTemp;
    }

private:
    float lowerTemp_ = 0;
    float upperTemp_ = 0;
};

} // namespace kaloria
