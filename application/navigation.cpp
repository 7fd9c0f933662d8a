// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/navigation.h"

#include "engine/number_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <string>

namespace kaloria {

namespace {

// Access keys keep clear of those of the menu bar (F, E, U, H) and of Next and Back.
constexpr MenuItem jobItems[] = {
    {"User information", "User &information", "userinfo", Panel::userInformation},
    {"Open...", "&Open...", "open", Panel::none, MenuAction::openJob},
    {"Save...", "S&ave...", "save", Panel::none, MenuAction::saveJob},
};
constexpr MenuItem heatFlowItems[] = {
    {"Surface", "&Surface", "surface", Panel::surface},
    {"Insulation", "&Insulation", "insulation", Panel::insulation},
    {"Fuel", "Fue&l", "fuel", Panel::fuel},
    {"Results", "&Results", "results", Panel::results},
};
constexpr MenuItem economyItems[] = {
    {"Project", "Pro&ject", "project", Panel::project},
    {"Economics", "Econ&omics", "economics", Panel::economics},
    {"Installed cost", "&Installed cost", "installedcost", Panel::installedCost},
    {"Report", "&Report", "report", Panel::report},
};
constexpr MenuItem materialItems[] = {
    {"Insulations", "&Insulations", "insulations", Panel::insulations},
    {"Base metals", "Base &metals", "basemetals", Panel::baseMetals},
    {"Jackets", "&Jackets", "jackets", Panel::jackets},
    {"Fuels", "Fuel&s", "fuels", Panel::fuels},
};
constexpr MenuItem helpItems[] = {
    {"Guide", "&Guide", "guide", Panel::guide},
    {"About", "&About", "about", Panel::about},
};

// The access keys of the categories are digits, which no item and no menu of the menu bar takes.
constexpr MenuCategory categories[] = {
    {"Job", "&1 Job", "job", FinishAction::none, jobItems},
    {"Heat flow", "&2 Heat flow", "heatflow", FinishAction::calculate, heatFlowItems},
    {"Cost of energy", "&3 Cost of energy", "cost", FinishAction::report, economyItems},
    {"Pollutants", "&4 Pollutants", "pollutants", FinishAction::report, economyItems},
    {"Materials", "&5 Materials", "materials", FinishAction::none, materialItems},
    {"Help", "&6 Help", "help", FinishAction::none, helpItems},
};

constexpr int startCategory = 1;

/// The nearest position with a panel from @p position on, in steps of @p step; @p position itself counts.
std::optional<MenuPosition> SeekPanel(MenuPosition position, int step) {
    for (const MenuItem* item = nullptr; (item = MenuItemAt(position)) != nullptr;
         position.menuItem += step) {
        if (item->panel != Panel::none) {
            return position;
        }
    }
    return std::nullopt;
}

std::optional<MenuPosition> PositionIn(int category, Panel panel) {
    for (MenuPosition position{category, 0}; const MenuItem* item = MenuItemAt(position);
         ++position.menuItem) {
        if (item->panel == panel) {
            return position;
        }
    }
    return std::nullopt;
}

int Whole(const std::string& text) {
    constexpr double largest = 100;
    const double value = ParseNumber(text).value_or(-1);
    return std::abs(value) <= largest ? static_cast<int>(value) : -1;
}

} // namespace

std::span<const MenuCategory> MenuCategories() { return categories; }

const MenuCategory* CategoryAt(int category) {
    const bool inside = category >= 0 && static_cast<std::size_t>(category) < std::size(categories);
    return inside ? &categories[category] : nullptr;
}

const MenuItem* MenuItemAt(MenuPosition position) {
    const MenuCategory* category = CategoryAt(position.category);
    if (category == nullptr || position.menuItem < 0 ||
        static_cast<std::size_t>(position.menuItem) >= category->items.size()) {
        return nullptr;
    }
    return &category->items[static_cast<std::size_t>(position.menuItem)];
}

std::optional<MenuPosition> NextPanel(MenuPosition position) {
    return SeekPanel({position.category, position.menuItem + 1}, 1);
}

std::optional<MenuPosition> PreviousPanel(MenuPosition position) {
    return SeekPanel({position.category, position.menuItem - 1}, -1);
}

std::optional<MenuPosition> FinishPanel(int category) {
    const MenuCategory* found = CategoryAt(category);
    if (found == nullptr || found->finish == FinishAction::none) {
        return std::nullopt;
    }
    return PositionIn(category, found->finish == FinishAction::calculate ? Panel::results : Panel::report);
}

MenuPosition FirstPanel(int category) {
    return SeekPanel({category, 0}, 1).value_or(MenuPosition{startCategory, 0});
}

std::optional<MenuPosition> PositionOf(Panel panel, int category) {
    if (panel == Panel::none) {
        return std::nullopt;
    }
    if (const auto here = PositionIn(category, panel)) {
        return here;
    }
    for (int other = 0; CategoryAt(other) != nullptr; ++other) {
        if (const auto found = PositionIn(other, panel)) {
            return found;
        }
    }
    return std::nullopt;
}

MenuPosition PositionOf(const Job& job) {
    const MenuPosition kept{Whole(job[Field::CurrentCategory]), Whole(job[Field::CurrentMenuItem])};
    return SeekPanel(kept, -1).value_or(FirstPanel(kept.category));
}

void KeepPosition(Job& job, MenuPosition position) {
    job[Field::CurrentCategory] = std::to_string(position.category);
    job[Field::CurrentMenuItem] = std::to_string(position.menuItem);
}

} // namespace kaloria
