// SPDX-License-Identifier: GPL-3.0-or-later
// The map of the main window, and the header texts that belong to it.
#include "application/navigation.h"
#include "tests/support/shipped_catalogue.h"

#include <gtest/gtest.h>

#include <cctype>
#include <filesystem>
#include <set>

namespace kaloria {
namespace {

char AccessKey(std::string_view mnemonic) {
    const auto mark = mnemonic.find('&');
    return mark == std::string_view::npos ? ' ' : static_cast<char>(std::toupper(mnemonic[mark + 1]));
}

std::string WithoutMark(std::string_view mnemonic) {
    std::string text(mnemonic);
    std::erase(text, '&');
    return text;
}

void ExpectPictures(std::string_view image) {
    for (const char* const folder : {"", "dark/"}) {
        for (const char* const state : {"on.gif", "off.gif"}) {
            const auto file =
                std::string(KALORIA_RESOURCES_DIR "/images/") + folder + std::string(image) + state;
            EXPECT_TRUE(std::filesystem::is_regular_file(file)) << file;
        }
    }
}

TEST(Navigation, EveryItemHasAHeaderTextPicturesAndAnAccessKeyOfItsOwn) {
    const Catalogue catalogue = test::ShippedCatalogue();
    ASSERT_EQ(MenuCategories().size(), std::size_t{HeaderTexts::categories});
    for (int category = 0; CategoryAt(category) != nullptr; ++category) {
        const auto items = CategoryAt(category)->items;
        ExpectPictures(CategoryAt(category)->image);
        ASSERT_TRUE(!items.empty() && items.size() <= 4) << "imgMenu0 to imgMenu3";
        std::set<char> keys{'F', 'E', 'U', 'H', 'N', 'K'}; // of the menu bar, Next and Back
        std::set<std::string_view> images;
        for (int i = 0; i < HeaderTexts::menuItems; ++i) {
            const MenuItem* item = MenuItemAt({category, i});
            SCOPED_TRACE(std::to_string(category) + "." + std::to_string(i));
            EXPECT_EQ(catalogue.Headers.At(category, i).empty(), item == nullptr);
            if (item != nullptr) {
                EXPECT_EQ(WithoutMark(item->mnemonic), item->title);
                EXPECT_TRUE(keys.insert(AccessKey(item->mnemonic)).second) << item->mnemonic;
                EXPECT_TRUE(images.insert(item->image).second);
                ExpectPictures(item->image);
                EXPECT_NE(item->panel == Panel::none, item->action == MenuAction::none);
            }
        }
    }
}

TEST(Navigation, NextBackAndFinishWalkACategory) {
    using Way = std::vector<Panel>;
    const Way expected[] = {
        {Panel::userInformation},
        {Panel::surface, Panel::insulation, Panel::fuel, Panel::results},
        {Panel::project, Panel::economics, Panel::installedCost, Panel::report},
        {Panel::project, Panel::economics, Panel::installedCost, Panel::report},
        {Panel::insulations, Panel::baseMetals, Panel::jackets, Panel::fuels},
        {Panel::guide, Panel::about},
    };
    for (int category = 0; category < 6; ++category) {
        Way forth;
        Way back;
        MenuPosition last;
        for (std::optional at(FirstPanel(category)); at; at = NextPanel(*at)) {
            forth.push_back(MenuItemAt(*at)->panel);
            last = *at;
        }
        for (std::optional at(last); at; at = PreviousPanel(*at)) {
            back.insert(back.begin(), MenuItemAt(*at)->panel);
        }
        EXPECT_EQ(forth, expected[category]) << category;
        EXPECT_EQ(back, forth) << category;
    }
    EXPECT_EQ(FinishPanel(1), (MenuPosition{1, 3}));
    EXPECT_EQ(FinishPanel(2), (MenuPosition{2, 3}));
    EXPECT_EQ(FinishPanel(3), (MenuPosition{3, 3}));
    for (const int without : {0, 4, 5, 6, -1}) {
        EXPECT_FALSE(FinishPanel(without)) << without;
    }
    EXPECT_EQ(PositionOf(Panel::report, 3), (MenuPosition{3, 3}));
    EXPECT_EQ(PositionOf(Panel::report), (MenuPosition{2, 3}));
    EXPECT_FALSE(PositionOf(Panel::none));
}

TEST(Navigation, TakesUpAJobWhereItWasLeftOrNearby) {
    const struct {
        const char* category;
        const char* menuItem;
        MenuPosition expected;
    } cases[] = {
        {"1", "2", {1, 2}}, {"3", "1", {3, 1}},   {"0", "2", {0, 0}}, // saving is no panel
        {"5", "5", {5, 0}}, {"9", "0", {1, 0}},   {"", "", {1, 0}},
        {"x", "1", {1, 0}}, {"-1", "-1", {1, 0}}, {"1e300", "0", {1, 0}},
    };
    for (const auto& c : cases) {
        Job job;
        job[Field::CurrentCategory] = c.category;
        job[Field::CurrentMenuItem] = c.menuItem;
        EXPECT_EQ(PositionOf(job), c.expected) << c.category << '.' << c.menuItem;
    }
    Job job;
    KeepPosition(job, {4, 3});
    EXPECT_EQ(PositionOf(job), (MenuPosition{4, 3}));
}

} // namespace
} // namespace kaloria
