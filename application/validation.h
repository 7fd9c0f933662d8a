// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <functional>
#include <limits>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace kaloria {

/// The file of cases cannot be read or is not in the form of docs/validation.md; what() is a sentence that
/// names the file and, where there is one, the case.
class ValidationFileError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A figure as its source prints it.
struct ValidationFigure {
    double value = 0;
    std::string unit; ///< known to FindUnit
};
using ValidationInputs = std::map<std::string, ValidationFigure, std::less<>>;

/// How far our value may lie from the published one, in its unit or, when relative, in parts of its
/// magnitude. Both limits are positive.
struct ValidationTolerance {
    double below = 0;
    double above = 0;
    bool relative = false;
};

/// One published result with what is needed to compute it anew.
struct ValidationCase {
    std::string id;
    std::string group;    ///< one letter, see docs/validation.md
    std::string subject;  ///< what is computed, for people
    std::string method;   ///< the way through the engine, a name of the list in docs/validation.md
    std::string variant;  ///< correlation or surface, where the method has several
    std::string quantity; ///< what is compared
    ValidationInputs inputs;
    std::vector<ValidationInputs> layers; ///< innermost first, of the layered methods
    double published = 0;
    std::string unit;
    ValidationTolerance tolerance;
    std::string source;
    std::string note;
};

struct ValidationResult {
    double ours = std::numeric_limits<double>::quiet_NaN();       ///< in the unit of the case
    double difference = std::numeric_limits<double>::quiet_NaN(); ///< ours less published
    double allowed = 0; ///< largest magnitude of a difference of this sign
    bool met = false;
    std::string fault; ///< why there is no value of ours; otherwise empty
};

/// Reads the cases, in the order of the file. Everything is checked that can be told without computing:
/// form, sizes, unique identifiers, known methods, quantities and units, positive tolerances.
/// @throws ValidationFileError
[[nodiscard]] std::vector<ValidationCase> LoadValidationCases(const std::filesystem::path& path);

/// The same from text; @p name stands for the file in messages.
[[nodiscard]] std::vector<ValidationCase> ParseValidationCases(std::string_view text,
                                                               const std::string& name);

/// Computes the case with the engine's own functions and compares. Does not throw for anything in the case:
/// an input that is missing, unused or of the wrong kind, and a fault of the engine, end in `fault`.
[[nodiscard]] ValidationResult RunValidation(const ValidationCase& validationCase);

/// The comparison alone; a value that is not a number meets no case.
[[nodiscard]] ValidationResult CompareWithPublished(const ValidationCase& validationCase, double ours);

} // namespace kaloria
