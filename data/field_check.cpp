// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/field_check.h"

#include "engine/number_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace kaloria {

namespace {

std::string WithUnit(const JobField& field, Units units, const std::string& text) {
    const std::string_view unit = InfoOf(field.quantity).Text(units);
    return unit.empty() ? text : text + " " + std::string(unit);
}

std::optional<std::string> NumberProblem(const JobField& field, std::string_view text, Units units) {
    if (Trimmed(text).empty()) {
        return std::nullopt;
    }
    const auto value = ParseSingle(text);
    if (!value) {
        return fmt::format("\"{}\" is not a number", text);
    }
    const double low = FromEnglish(field.quantity, units, field.low);
    const double high = FromEnglish(field.quantity, units, field.high);
    // A hair of room for limits that are no round numbers in SI.
    const double room = 1e-6 * std::max(std::abs(low), std::abs(high));
    if (*value < low - room || *value > high + room) {
        return fmt::format("{} is outside {}", WithUnit(field, units, std::string(Trimmed(text))),
                           RangeText(field, units));
    }
    return std::nullopt;
}

std::optional<std::string> ChoiceProblem(const JobField& field, std::string_view text) {
    const auto isIn = [&](const auto& names) {
        return std::find(std::begin(names), std::end(names), text) != std::end(names);
    };
    constexpr std::string_view unitNames[] = {"English", "SI"};
    switch (field.choice) {
    case FieldChoice::units:
        return isIn(unitNames) ? std::nullopt
                               : std::optional(fmt::format("\"{}\" is neither \"English\" nor \"SI\"", text));
    case FieldChoice::calculationType:
        return CalculationTypeFrom(text) ? std::nullopt
                                         : std::optional(fmt::format("\"{}\" is no calculation type", text));
    case FieldChoice::complexity:
        return isIn(complexityNames)
                   ? std::nullopt
                   : std::optional(fmt::format("\"{}\" is no installation complexity", text));
    default:
        return std::nullopt;
    }
}

} // namespace

std::string RangeText(const JobField& field, Units units) {
    // Converted limits are rounded inwards: what is shown as allowed is.
    const auto limit = [&](double value, double (*inwards)(double)) {
        const double shown = FromEnglish(field.quantity, units, value);
        return FormatNumber(units == Units::si ? inwards(shown * 100) / 100 : shown, NumberFormat::shortest);
    };
    return WithUnit(field, units,
                    fmt::format("{} to {}", limit(field.low, [](double x) { return std::ceil(x); }),
                                limit(field.high, [](double x) { return std::floor(x); })));
}

std::optional<std::string> WhatIsWrong(const JobField& field, std::string_view text, Units units) {
    switch (field.kind) {
    case FieldKind::number:
    case FieldKind::moisture:
        return NumberProblem(field, text, units);
    case FieldKind::choice:
        return ChoiceProblem(field, text);
    case FieldKind::flag:
        return text == "True" || text == "False"
                   ? std::nullopt
                   : std::optional(fmt::format("\"{}\" is neither \"True\" nor \"False\"", text));
    default:
        return std::nullopt;
    }
}

} // namespace kaloria
