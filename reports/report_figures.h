// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/economic_results.h"
#include "reports/report_inputs.h"

#include <optional>
#include <string>
#include <string_view>

namespace kaloria {

/// What stands where a number was not computed.
inline constexpr std::string_view noFigure = "-";

/// Unit texts of a page about one surface, with the blanks that templates count on.
struct PageUnits {
    PageUnits(Units units, bool isPipe);

    // Behind a value:
    std::string_view temperature;
    std::string_view thickness;
    std::string_view heatFlow;
    std::string_view payback;
    std::string_view annualCost;
    std::string_view savings;
    std::string_view installedCost;
    std::string_view emission; ///< pounds in both unit systems
    // Over a column of the engineering pages, whose heat flow is in joules per hour in SI:
    std::string_view thicknessHeading;
    std::string_view heatFlowHeading;
    std::string_view paybackHeading;
};

/// The figures of a page about one surface as texts without their units, in the units of the report. A row
/// that is null and what was not computed is a dash.
class PageFigures {
public:
    /// @param isGain  heat flows are counted inwards; else outwards
    PageFigures(const ReportInputs& inputs, bool isPipe, bool isGain);

    [[nodiscard]] const PageUnits& Texts() const { return texts_; }

    [[nodiscard]] std::string Temperature(double fahrenheit) const;
    [[nodiscard]] std::string Thickness(const ThicknessResult* row) const; ///< "2.5", "Bare", "Do Nothing"
    [[nodiscard]] std::string HeatFlow(const ThicknessResult* row) const;
    [[nodiscard]] std::string HourlyHeat(const ThicknessResult* row) const; ///< by heatFlowHeading
    [[nodiscard]] std::string SurfaceTemp(const ThicknessResult* row) const;
    [[nodiscard]] std::string InstalledCost(const ThicknessResult* row) const;
    [[nodiscard]] std::string Payback(const ThicknessResult* row) const; ///< "4.51", "never"
    [[nodiscard]] std::string AnnualCost(const ThicknessResult* row) const;
    [[nodiscard]] std::string TotalSavings(const ThicknessResult* row) const;
    [[nodiscard]] std::string Reduction(const ThicknessResult* row, std::size_t pollutant) const;

private:
    [[nodiscard]] std::string Fixed(Quantity quantity, std::optional<double> english, int decimals) const;
    [[nodiscard]] std::optional<double> Flow(const ThicknessResult* row) const;

    PageUnits texts_;
    Units units_;
    bool isPipe_;
    bool isGain_;
    bool isRetrofit_;
};

/// A number with @p value's unit text, in the units of the report: "75.0 °F", "2.0 mph", "1.0 in".
[[nodiscard]] std::string TenthsWithUnit(Quantity quantity, Units units, double english);

} // namespace kaloria
