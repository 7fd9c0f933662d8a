// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/job.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

/// The map of the main window: what its categories and menu items are and where Next, Back and Finish lead.
/// Header texts come from CApplication::HeaderText by the same positions.
namespace kaloria {

/// A panel of inputs or results. Categories 2 and 3 share theirs.
enum class Panel : std::uint8_t {
    none, ///< of menu items that do something instead
    userInformation,
    surface,
    insulation,
    fuel,
    results,
    project,
    economics,
    installedCost,
    report,
    insulations,
    baseMetals,
    jackets,
    fuels,
    guide,
    about,
};

/// What a menu item without a panel does.
enum class MenuAction : std::uint8_t { none, openJob, saveJob };

/// What Finish does in a category.
enum class FinishAction : std::uint8_t {
    none,      ///< the category has no Finish
    calculate, ///< calculate, then show the results
    report,    ///< make the report
};

struct MenuItem {
    std::string_view title;    ///< "Installed cost"
    std::string_view mnemonic; ///< the same with "&" before its access key; keys are unique in a category
    std::string_view image;    ///< base name: with "on" or "off" behind it the name of the picture
    Panel panel = Panel::none;
    MenuAction action = MenuAction::none;
};

struct MenuCategory {
    std::string_view title;
    std::string_view mnemonic; ///< keys are unique among the categories
    std::string_view image;    ///< base name as above
    FinishAction finish = FinishAction::none;
    std::span<const MenuItem> items; ///< one to four, for imgMenu0 to imgMenu3
};

/// Where in the map one is.
struct MenuPosition {
    int category = 0;
    int menuItem = 0;

    friend bool operator==(const MenuPosition&, const MenuPosition&) = default;
};

/// All six categories.
[[nodiscard]] std::span<const MenuCategory> MenuCategories();

/// Null where there is nothing.
[[nodiscard]] const MenuCategory* CategoryAt(int category);
[[nodiscard]] const MenuItem* MenuItemAt(MenuPosition position);

/// The next and the previous panel of the category (items that do something are passed over); nothing at its
/// end.
[[nodiscard]] std::optional<MenuPosition> NextPanel(MenuPosition position);
[[nodiscard]] std::optional<MenuPosition> PreviousPanel(MenuPosition position);

/// Where Finish leads: the results after a calculation, the report panel; nothing where there is no Finish.
[[nodiscard]] std::optional<MenuPosition> FinishPanel(int category);

/// The first item of a category that shows a panel.
[[nodiscard]] MenuPosition FirstPanel(int category);

/// Where a panel stands: in @p category when it has it, else in the first category that has it.
[[nodiscard]] std::optional<MenuPosition> PositionOf(Panel panel, int category = 0);

/// The position that a job was left at; one that shows no panel or does not exist becomes the nearest that
/// does.
[[nodiscard]] MenuPosition PositionOf(const Job& job);
void KeepPosition(Job& job, MenuPosition position);

} // namespace kaloria
