// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/record_tables.h"

#include "data/xml_text.h"
#include "engine/number_text.h"

#include <cmath>
#include <optional>
#include <stdexcept>

namespace kaloria::tables {

namespace {

template <class Value>
bool Store(const std::optional<Value>& value, Value& field) {
    if (value) {
        field = *value;
    }
    return value.has_value();
}

} // namespace

bool StoreValue(std::string_view text, Rule rule, std::int32_t& field) {
    if (rule != Rule::viaReal) {
        return Store(value_text::ParseInteger(text), field);
    }
    const auto real = ParseSingle(text);
    return real && Store(value_text::RoundToInteger(double{*real}), field);
}

bool StoreValue(std::string_view text, Rule, float& field) { return Store(ParseSingle(text), field); }

bool StoreValue(std::string_view text, Rule rule, bool& field) {
    if (rule == Rule::exactTrue) {
        field = value_text::IsExactTrue(text);
        return true;
    }
    return Store(value_text::ParseFlag(text), field);
}

bool StoreValue(std::string_view text, Rule rule, std::string& field) {
    if (rule != Rule::notRead) {
        field = text;
    }
    return true;
}

std::string ValueText(std::int32_t value) { return value_text::IntegerText(value); }

std::string ValueText(float value) {
    // It could be written, but the file would not load again.
    if (!std::isfinite(value)) {
        throw std::domain_error("not a finite number");
    }
    return value_text::RealText(value);
}

std::string ValueText(bool value) { return std::string(value_text::FlagText(value)); }

std::string ValueText(const std::string& value) { return XmlText(value); }

} // namespace kaloria::tables
