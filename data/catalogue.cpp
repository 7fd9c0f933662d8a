// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/catalogue.h"

#include <limits>
#include <stdexcept>
#include <utility>

namespace kaloria {

namespace {

std::size_t Position(int category, int menuItem, int subItem) {
    const auto inside = [](int index, int bound) { return index >= 0 && index < bound; };
    if (!inside(category, HeaderTexts::categories) || !inside(menuItem, HeaderTexts::menuItems) ||
        !inside(subItem, HeaderTexts::subItems)) {
        throw std::out_of_range("header text position out of range");
    }
    const int position = (category * HeaderTexts::menuItems + menuItem) * HeaderTexts::subItems + subItem;
    return static_cast<std::size_t>(position);
}

} // namespace

const std::string& HeaderTexts::At(int category, int menuItem, int subItem) const {
    return texts_[Position(category, menuItem, subItem)];
}

void HeaderTexts::Set(int category, int menuItem, int subItem, std::string text) {
    texts_[Position(category, menuItem, subItem)] = std::move(text);
}

std::int32_t IdAfter(std::int32_t largest) {
    if (largest == std::numeric_limits<std::int32_t>::max()) {
        throw std::length_error("no ID is left for a new record");
    }
    return largest + 1;
}

} // namespace kaloria
