// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/conductivity_check.h"

#include "engine/numeric_fault.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <string_view>

namespace kaloria {

namespace {

constexpr double absoluteZero = -459.67; // [degF]
constexpr std::size_t fewestTemperatures = 3;
constexpr const char* pointsField = "TemperaturePoints";

// Beyond these a conductivity is no insulation's; one in W/(m degC) taken for Btu in/(h ft2 degF) is below.
constexpr double unusuallyLow = 0.05;
constexpr double unusuallyHigh = 20.0;
constexpr double largeDeviation = 0.05; // of the measured conductivity

/// Checks one curve.
class CurveCheck {
public:
    CurveCheck(const CInsulation& record, const std::vector<CTemperaturePoint>& points, Units units)
        : points_(points), units_(units) {
        check_.curve = record;
    }

    ConductivityCheck Run(bool fit) {
        CheckPoints(fit);
        if (sound_ && fit) {
            Fit();
        }
        check_.hasCurve = sound_;
        if (sound_) {
            SetRange();
            CheckRange();
            CheckDeviation();
        }
        return std::move(check_);
    }

private:
    template <class... Args>
    void Add(Severity severity, const char* subject, fmt::format_string<Args...> text, Args&&... args) {
        check_.findings.push_back({severity, subject, fmt::format(text, std::forward<Args>(args)...)});
    }

    [[nodiscard]] std::string Temperature(double degF) const {
        return fmt::format("{} {}", TemperatureNumber(degF), InfoOf(Quantity::temperature).Text(units_));
    }
    /// Without the unit. What was entered in degC comes back as it was, whatever its rounding in degF.
    [[nodiscard]] std::string TemperatureNumber(double degF) const {
        constexpr double tenths = 10;
        const double shown = FromEnglish(Quantity::temperature, units_, degF);
        return fmt::format("{:g}", units_ == Units::si ? std::round(shown * tenths) / tenths : shown);
    }
    [[nodiscard]] double K(double english) const {
        return FromEnglish(Quantity::conductivity, units_, english);
    }
    [[nodiscard]] std::string_view UnitOfK() const { return InfoOf(Quantity::conductivity).Text(units_); }

    /// @param fit  the curve is made from them: they have to determine it
    void CheckPoints(bool fit) {
        std::vector<CTemperaturePoint> sorted = points_;
        SortPoints(sorted);
        std::set<float> temperatures;
        for (const CTemperaturePoint& point : sorted) {
            CheckPoint(point);
            if (std::isfinite(point.Temperature)) {
                temperatures.insert(point.Temperature);
            }
        }
        for (std::size_t i = 1; sound_ && i < sorted.size(); ++i) {
            CheckNeighbours(sorted[i - 1], sorted[i]);
        }
        if (fit && temperatures.size() < fewestTemperatures) {
            Fail(pointsField, fmt::format("A curve needs points at {} different temperatures; there are {}.",
                                          fewestTemperatures, temperatures.size()));
        }
    }

    void CheckPoint(const CTemperaturePoint& point) {
        if (!std::isfinite(point.Temperature) || !(point.Temperature >= absoluteZero)) {
            Fail(pointsField, "A temperature is missing or below absolute zero.");
        } else if (!std::isfinite(point.Conductivity) || !(point.Conductivity > 0.0F)) {
            Fail(pointsField,
                 fmt::format("At {} the conductivity has to be above 0.", Temperature(point.Temperature)));
        } else if (point.Conductivity < unusuallyLow || point.Conductivity > unusuallyHigh) {
            Add(Severity::warning, pointsField,
                "At {} the conductivity of {:.3g} is unusual; it counts in {}.",
                Temperature(point.Temperature), K(point.Conductivity), UnitOfK());
        }
    }

    void CheckNeighbours(const CTemperaturePoint& point, const CTemperaturePoint& next) {
        if (point.Temperature != next.Temperature) {
            return;
        }
        if (point.Conductivity != next.Conductivity) {
            Fail(pointsField, fmt::format("{} stands twice, with different conductivities.",
                                          Temperature(point.Temperature)));
        } else {
            Add(Severity::warning, pointsField, "{} stands twice and counts twice.",
                Temperature(point.Temperature));
        }
    }

    void Fail(const char* subject, std::string text) {
        check_.findings.push_back({Severity::error, subject, std::move(text)});
        sound_ = false;
    }

    void Fit() {
        check_.curve.TemperaturePoints = points_;
        try {
            check_.curve.CalculateQuadratic();
        } catch (const NumericFault&) {
            Fail(pointsField, "The points do not determine a conductivity curve.");
        }
    }

    /// Service limits that are not given (both 0) bound nothing.
    void SetRange() {
        const CInsulation& record = check_.curve;
        const bool limited = record.MaxTemp > record.MinTemp;
        std::vector<float> ends;
        if (limited) {
            ends = {record.MinTemp, record.MaxTemp};
        }
        for (const CTemperaturePoint& point : points_) {
            ends.push_back(point.Temperature);
        }
        if (ends.empty()) {
            ends.push_back(record.MaxTemp);
        }
        const auto [low, high] = std::minmax_element(ends.begin(), ends.end());
        check_.lowTemp = *low;
        check_.highTemp = *high;
        if (limited && !points_.empty()) {
            NoteExtrapolation();
        }
    }

    void NoteExtrapolation() {
        const auto [low, high] =
            std::minmax_element(points_.begin(), points_.end(),
                                [](const auto& a, const auto& b) { return a.Temperature < b.Temperature; });
        if (check_.curve.MinTemp < low->Temperature || check_.curve.MaxTemp > high->Temperature) {
            Add(Severity::information, pointsField,
                "The points cover {} to {}; beyond, the curve is continued.",
                TemperatureNumber(low->Temperature), Temperature(high->Temperature));
        }
    }

    /// A parabola is lowest and highest at the ends of the range or at its vertex.
    void CheckRange() {
        const CInsulation& curve = check_.curve;
        const double low = check_.lowTemp;
        const double high = check_.highTemp;
        const double vertex = curve.C != 0.0F ? -double{curve.B} / (2.0 * double{curve.C}) : low;
        const double between = std::clamp(vertex, low, high);
        double lowestTemp = low;
        check_.lowestK = check_.highestK = curve.ConductivityAt(low);
        for (const double temp : {high, between}) {
            const double k = curve.ConductivityAt(temp);
            lowestTemp = k < check_.lowestK ? temp : lowestTemp;
            check_.lowestK = std::min(check_.lowestK, k);
            check_.highestK = std::max(check_.highestK, k);
        }
        if (!(check_.lowestK > 0.0) || !std::isfinite(check_.highestK)) {
            Add(Severity::error, points_.empty() ? "A" : pointsField,
                "The curve gives a conductivity of {:.3g} at {}, which no material has.", K(check_.lowestK),
                Temperature(std::round(lowestTemp)));
        } else if (points_.empty() && (check_.lowestK < unusuallyLow || check_.highestK > unusuallyHigh)) {
            Add(Severity::warning, "A",
                "The curve runs from {:.3g} to {:.3g}, which is unusual; it counts in {}.", K(check_.lowestK),
                K(check_.highestK), UnitOfK());
        }
    }

    void CheckDeviation() {
        double largestPart = 0;
        for (const CTemperaturePoint& point : points_) {
            const double k = point.Conductivity;
            const double deviation = std::abs(check_.curve.ConductivityAt(point.Temperature) - k);
            if (deviation > check_.largestDeviation) {
                check_.largestDeviation = deviation;
                check_.deviationTemp = point.Temperature;
            }
            largestPart = std::max(largestPart, deviation / k);
        }
        if (largestPart > largeDeviation) {
            Add(Severity::warning, pointsField, "The curve strays from a point by {:.1f} %.",
                largestPart * 100.0);
        }
    }

    const std::vector<CTemperaturePoint>& points_;
    Units units_;
    ConductivityCheck check_;
    bool sound_ = true;
};

const std::vector<CTemperaturePoint> noPoints;

void CheckCoefficients(const CInsulation& record, ConductivityCheck& check) {
    if (!std::isfinite(record.A) || !std::isfinite(record.B) || !std::isfinite(record.C)) {
        check.hasCurve = false;
        check.findings.push_back({Severity::error, "A", "The coefficients have to be numbers."});
    }
}

} // namespace

ConductivityCheck CheckConductivity(const CInsulation& record, Units units) {
    return record.TemperaturePoints.empty() ? CheckPolynomial(record, noPoints, units)
                                            : CurveCheck(record, record.TemperaturePoints, units).Run(true);
}

ConductivityCheck CheckPolynomial(const CInsulation& record, const std::vector<CTemperaturePoint>& evidence,
                                  Units units) {
    ConductivityCheck check;
    check.hasCurve = true;
    CheckCoefficients(record, check);
    if (!check.hasCurve) {
        check.curve = record;
        return check;
    }
    ConductivityCheck held = CurveCheck(record, evidence, units).Run(false);
    if (held.hasCurve || evidence.empty()) {
        return held;
    }
    // The points are unsound, the polynomial stands without them.
    check = CurveCheck(record, noPoints, units).Run(false);
    check.findings.insert(check.findings.begin(), held.findings.begin(), held.findings.end());
    return check;
}

void SortPoints(std::vector<CTemperaturePoint>& points) {
    // Temperatures that are no numbers go last: they have no place among the others.
    std::stable_sort(points.begin(), points.end(), [](const auto& a, const auto& b) {
        return std::isnan(b.Temperature) ? !std::isnan(a.Temperature) : a.Temperature < b.Temperature;
    });
}

} // namespace kaloria
