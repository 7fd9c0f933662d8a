// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/validation_methods.h"

#include <numbers>

namespace kaloria::validation {

const ValidationFigure& Reader::Find(std::string_view name, Dimension dimension) {
    const auto found = inputs_.find(name);
    if (found == inputs_.end()) {
        throw InputError("the input \"" + std::string(name) + "\" is missing");
    }
    const Unit* unit = FindUnit(found->second.unit);
    if (unit == nullptr || unit->dimension != dimension) {
        throw InputError("the input \"" + std::string(name) + "\" cannot be in " + found->second.unit);
    }
    used_.insert(found->first);
    return found->second;
}

double Reader::Get(std::string_view name, Dimension dimension) {
    const ValidationFigure& figure = Find(name, dimension);
    const Unit& unit = *FindUnit(figure.unit);
    return figure.value * unit.factor + unit.offset;
}

double Reader::GetDifference(std::string_view name) {
    const ValidationFigure& figure = Find(name, Dimension::Temperature);
    return figure.value * FindUnit(figure.unit)->factor;
}

double Reader::Pi() { return GetOr("pi", Dimension::None, std::numbers::pi); }

void Reader::ExpectAllUsed() const {
    for (const auto& [name, figure] : inputs_) {
        if (used_.find(name) == used_.end()) {
            throw InputError("the input \"" + name + "\" plays no part in the method");
        }
    }
}

} // namespace kaloria::validation
