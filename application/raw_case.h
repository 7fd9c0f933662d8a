// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/heat_loss_calculator.h"

#include <nlohmann/json_fwd.hpp>

#include <stdexcept>
#include <string>

namespace kaloria {

/// A case that is not in the form described below; what() names the field.
class RawCaseError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A case for the engine alone, in its own English units, as scripts hand it over: an object with the
/// engine's properties by name, `GeometryCode` (1 to 11), `Pipe` and `Tube` (null, or outside diameter and
/// wall in inches), `BaseMetal` (`ID`, `Emittance`), `JacketMaterial` (`Emittance`), `Layers` (innermost
/// first: `Thickness` and `A`, `B`, `C` or `TemperaturePoints`) and `Call` ("Solve", the default, or
/// "Qcalc").
///
/// Owns the records that its calculator refers to, so it can neither be copied nor moved.
class RawCase {
public:
    /// @throws RawCaseError on a missing, wrong or non-finite field
    explicit RawCase(const nlohmann::json& inputs);
    RawCase(const RawCase&) = delete;
    RawCase& operator=(const RawCase&) = delete;

    /// Runs the call that the case names and returns `Fault` and, unless it is true, `UnitHeatFlow`,
    /// `SurfaceTemp`, `BaseMetalOutsideTemp`, `Layers`, `Passes` and, for code 8 through Solve,
    /// `FaceSurfaceTemps`. A fault adds `Reason`; a solution that the safeguard ended adds
    /// `StoppedBySafeguard`.
    [[nodiscard]] nlohmann::json Run();

    [[nodiscard]] CHeatLossCalculator& Calculator() { return calculator_; }

private:
    [[nodiscard]] nlohmann::json Results() const;

    CSurfaceGeometry geometry_;
    CBaseMetal baseMetal_;
    CJacketMaterial jacket_;
    CPipe pipe_;
    CTube tube_;
    bool directCall_ = false;
    CHeatLossCalculator calculator_;
};

/// One line in (`id` and `inputs`, anything else ignored), one object out: `id` and `result`.
/// @throws RawCaseError when the line is not such an object
[[nodiscard]] nlohmann::json SolveCaseLine(const std::string& line);

} // namespace kaloria
