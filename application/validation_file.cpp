// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/validation_methods.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <fstream>

namespace kaloria {

namespace {

using nlohmann::json;

constexpr std::streamsize largestFile = std::streamsize{4} * 1024 * 1024;
constexpr std::size_t mostCases = 10000;
constexpr std::size_t mostLayers = 100;

/// What is wrong, before file and case are known.
class FormError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

const json& Member(const json& object, const char* name) {
    const auto found = object.find(name);
    if (found == object.end()) {
        throw FormError(std::string(name) + " is missing");
    }
    return *found;
}

std::string Text(const json& object, const char* name) {
    const json& value = Member(object, name);
    if (!value.is_string() || value.get_ref<const std::string&>().empty()) {
        throw FormError(std::string(name) + " is not a text");
    }
    return value.get<std::string>();
}

std::string TextOrNone(const json& object, const char* name) {
    return object.contains(name) ? Text(object, name) : std::string();
}

double Number(const json& value, const std::string& name) {
    if (!value.is_number() || !std::isfinite(value.get<double>())) {
        throw FormError(name + " is not a number");
    }
    return value.get<double>();
}

/// "diameter [m]": 0.1 is an input named diameter.
ValidationInputs InputsFrom(const json& object) {
    if (!object.is_object()) {
        throw FormError("inputs and layers are objects");
    }
    ValidationInputs inputs;
    for (const auto& [key, value] : object.items()) {
        const auto bracket = key.find(" [");
        if (bracket == std::string::npos || bracket == 0 || key.back() != ']') {
            throw FormError("the input \"" + key + "\" has no unit in brackets");
        }
        const std::string unit = key.substr(bracket + 2, key.size() - bracket - 3);
        if (FindUnit(unit) == nullptr) {
            throw FormError("the input \"" + key + "\" has an unknown unit");
        }
        if (!inputs.try_emplace(key.substr(0, bracket), ValidationFigure{Number(value, key), unit}).second) {
            throw FormError("the input \"" + key + "\" is given twice");
        }
    }
    return inputs;
}

ValidationTolerance ToleranceFrom(const json& object) {
    if (!object.is_object() || object.size() != 1) {
        throw FormError("tolerance is neither relative nor absolute");
    }
    const bool relative = object.contains("relative");
    const json& value = Member(object, relative ? "relative" : "absolute");
    const auto limit = [&](const char* side) {
        const double number = Number(value.is_object() ? Member(value, side) : value, "tolerance");
        if (!(number > 0.0)) {
            throw FormError("tolerance is not positive");
        }
        return number;
    };
    return {limit("below"), limit("above"), relative};
}

void CheckNames(const ValidationCase& c) {
    if (validation::FindMethod(c.method) == nullptr) {
        throw FormError("there is no method \"" + c.method + "\"");
    }
    const validation::Quantity* quantity = validation::FindQuantity(c.quantity);
    if (quantity == nullptr) {
        throw FormError("there is no quantity \"" + c.quantity + "\"");
    }
    const Unit* unit = FindUnit(c.unit);
    if (unit == nullptr || unit->dimension != quantity->dimension) {
        throw FormError("a " + c.quantity + " cannot be in \"" + c.unit + "\"");
    }
    if (c.tolerance.relative && c.published == 0.0) {
        throw FormError("nothing is relative to a published 0");
    }
}

ValidationCase CaseFrom(const json& object) {
    ValidationCase c;
    c.id = Text(object, "id");
    c.group = Text(object, "group");
    c.subject = Text(object, "subject");
    c.method = Text(object, "method");
    c.variant = TextOrNone(object, "variant");
    c.quantity = Text(object, "quantity");
    c.inputs = InputsFrom(Member(object, "inputs"));
    if (const auto layers = object.find("layers"); layers != object.end()) {
        if (!layers->is_array() || layers->size() > mostLayers) {
            throw FormError("layers is not a list of at most 100");
        }
        for (const json& layer : *layers) {
            c.layers.push_back(InputsFrom(layer));
        }
    }
    c.published = Number(Member(object, "published"), "published");
    c.unit = Text(object, "unit");
    c.tolerance = ToleranceFrom(Member(object, "tolerance"));
    c.source = Text(object, "source");
    c.note = TextOrNone(object, "note");
    CheckNames(c);
    return c;
}

json ParseBounded(std::string_view text) {
    // The depth is bounded while reading: the tree would be freed recursively.
    constexpr int deepest = 16;
    const json::parser_callback_t bounded = [](int depth, json::parse_event_t, json&) {
        if (depth > deepest) {
            throw FormError("it is nested too deeply");
        }
        return true;
    };
    try {
        return json::parse(text, bounded);
    } catch (const json::exception& error) { // out of range as well as not JSON
        throw FormError(error.what());
    }
}

std::vector<ValidationCase> CasesFrom(const json& document) {
    if (!document.is_object() || !document.contains("cases") || !document["cases"].is_array()) {
        throw FormError("it has no list of cases");
    }
    const json& list = document["cases"];
    if (list.empty() || list.size() > mostCases) {
        throw FormError("it has no case, or more than 10000");
    }
    std::vector<ValidationCase> cases;
    std::set<std::string> known;
    for (const json& object : list) {
        // A case that has lost its identifier is named by its place.
        std::string name = "case " + std::to_string(cases.size() + 1);
        try {
            if (!object.is_object()) {
                throw FormError("not an object");
            }
            name = "case " + Text(object, "id");
            cases.push_back(CaseFrom(object));
            if (!known.insert(cases.back().id).second) {
                throw FormError("the identifier occurs twice");
            }
        } catch (const FormError& error) {
            throw FormError(name + ": " + error.what());
        }
    }
    return cases;
}

} // namespace

std::vector<ValidationCase> ParseValidationCases(std::string_view text, const std::string& name) {
    try {
        return CasesFrom(ParseBounded(text));
    } catch (const FormError& error) {
        throw ValidationFileError(name + ": " + error.what());
    }
}

std::vector<ValidationCase> LoadValidationCases(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    std::string text;
    if (stream) {
        text.resize(static_cast<std::size_t>(largestFile) + 1);
        stream.read(text.data(), largestFile + 1);
        text.resize(static_cast<std::size_t>(stream.gcount()));
    }
    if (stream.bad() || text.empty()) {
        throw ValidationFileError(path.string() + ": the file cannot be read or is empty");
    }
    if (text.size() > static_cast<std::size_t>(largestFile)) {
        throw ValidationFileError(path.string() + ": the file is too large");
    }
    return ParseValidationCases(text, path.string());
}

} // namespace kaloria
