// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/wizard_rules.h"

#include "application/messages.h"
#include "engine/number_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <ctime>
#include <vector>

namespace kaloria {

namespace {

using std::chrono::year_month_day;

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsLetter(char c) { return Lower(c) >= 'a' && Lower(c) <= 'z'; }

/// A date text as its numbers, words and the character between the numbers.
struct DateParts {
    std::vector<std::string_view> parts;
    std::string separators; ///< one character for each gap; blanks beside another one do not count
    bool sound = true;
};

DateParts Split(std::string_view text) {
    DateParts result;
    std::size_t i = 0;
    while (i < text.size()) {
        const bool digits = IsDigit(text[i]);
        if (!digits && !IsLetter(text[i])) {
            result.sound = false;
            return result;
        }
        const std::size_t start = i;
        while (i < text.size() && (digits ? IsDigit(text[i]) : IsLetter(text[i]))) {
            ++i;
        }
        result.parts.push_back(text.substr(start, i - start));
        const std::size_t gap = i;
        while (i < text.size() && !IsDigit(text[i]) && !IsLetter(text[i])) {
            ++i;
        }
        const std::string_view between = Trimmed(text.substr(gap, i - gap));
        result.separators += between.empty() ? ' ' : between.front();
        result.sound = result.sound && between.size() <= 1;
    }
    result.sound = result.sound && result.parts.size() == 3 && result.separators.back() == ' ';
    return result;
}

/// Of up to four digits.
std::optional<unsigned> Number(std::string_view digits) {
    constexpr std::size_t longest = 4;
    unsigned value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    const bool whole = error == std::errc() && end == digits.data() + digits.size();
    return whole && digits.size() <= longest ? std::optional(value) : std::nullopt;
}

/// A month by its English name or the first three letters of it, or more.
std::optional<unsigned> Month(std::string_view word) {
    constexpr std::string_view names[] = {"january",   "february", "march",    "april",
                                          "may",       "june",     "july",     "august",
                                          "september", "october",  "november", "december"};
    constexpr std::size_t shortest = 3;
    for (unsigned i = 0; i < std::size(names); ++i) {
        const auto same = [](char a, char b) { return Lower(a) == b; };
        if (word.size() >= shortest && word.size() <= names[i].size() &&
            std::equal(word.begin(), word.end(), names[i].begin(), same)) {
            return i + 1;
        }
    }
    return std::nullopt;
}

std::optional<year_month_day> MakeDate(std::string_view yearText, std::optional<unsigned> month,
                                       std::string_view dayText) {
    constexpr unsigned firstYear = 1900;
    constexpr std::size_t yearDigits = 4;
    constexpr std::size_t dayDigits = 2;
    const auto year = Number(yearText);
    const auto day = Number(dayText);
    if (yearText.size() != yearDigits || dayText.size() > dayDigits || !year || *year < firstYear || !month ||
        !day) {
        return std::nullopt;
    }
    const year_month_day date(std::chrono::year(static_cast<int>(*year)), std::chrono::month(*month),
                              std::chrono::day(*day));
    return date.ok() ? std::optional(date) : std::nullopt;
}

std::optional<unsigned> MonthNumber(std::string_view text) {
    return text.size() <= 2 ? Number(text) : std::nullopt;
}

} // namespace

std::optional<year_month_day> ParseDate(std::string_view text) {
    const DateParts date = Split(Trimmed(text));
    if (!date.sound) {
        return std::nullopt;
    }
    const auto& p = date.parts;
    const std::string_view form = std::string_view(date.separators).substr(0, 2);
    if (IsLetter(p[0].front())) { // March 12, 2024
        return form == "  " || form == " ," || form == ". " ? MakeDate(p[2], Month(p[0]), p[1])
                                                            : std::nullopt;
    }
    if (IsLetter(p[1].front())) { // 12 March 2024, 12-Mar-2024
        return form == "  " || form == "--" || form == ". " ? MakeDate(p[2], Month(p[1]), p[0])
                                                            : std::nullopt;
    }
    if (form == "//") {
        return MakeDate(p[2], MonthNumber(p[0]), p[1]);
    }
    if (form == "--") { // the year stands first, for otherwise day and month could be mistaken
        return MakeDate(p[0], MonthNumber(p[1]), p[2]);
    }
    return form == ".." ? MakeDate(p[2], MonthNumber(p[1]), p[0]) : std::nullopt;
}

std::string DateText(year_month_day date) {
    return fmt::format("{:02}/{:02}/{:04}", static_cast<unsigned>(date.month()),
                       static_cast<unsigned>(date.day()), static_cast<int>(date.year()));
}

std::string Today() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&now, &local);
    constexpr int firstYear = 1900;
    return fmt::format("{:02}/{:02}/{:04}", local.tm_mon + 1, local.tm_mday, local.tm_year + firstYear);
}

std::string_view ProjectProblem(const Job& job) {
    const bool filled = !Trimmed(job[Field::ProjectNumber]).empty() && !Trimmed(job[Field::Date]).empty();
    return filled ? DateProblem(job[Field::Date]) : message::projectRequired;
}

std::string_view SurfacesProblem(const ItemTicks& ticks) {
    return ticks.HasFlatSurface() ? std::string_view() : message::surfaceRequired;
}

std::string_view DateProblem(std::string_view text) {
    return Trimmed(text).empty() || ParseDate(text) ? std::string_view() : message::dateNotValid;
}

ItemTicks ItemTicks::Of(const Job& job, const Catalogue& catalogue) {
    ItemTicks ticks;
    if (job.IsTrue(Field::ReportAllSurfaces)) {
        ticks.SelectAll();
    } else if (const auto own = OwnItem(job, catalogue)) {
        ticks.Tick(*own, true);
    }
    return ticks;
}

std::string ItemTicks::SelectRange(std::string_view text) {
    const ItemSelection selection = ParseItems(text);
    if (!selection.problem.empty()) {
        return selection.problem + '.';
    }
    SelectNone();
    for (const int position : selection.positions) {
        Tick(position, true);
    }
    return {};
}

std::string ItemTicks::RangeText() const {
    std::string text;
    for (int first = 1; first <= reportItemCount; ++first) {
        if (!IsTicked(first)) {
            continue;
        }
        int last = first;
        while (last < reportItemCount && IsTicked(last + 1)) {
            ++last;
        }
        text += (text.empty() ? "" : ",") + std::to_string(first);
        if (last > first) {
            text += (last == first + 1 ? "," : "-") + std::to_string(last);
        }
        first = last;
    }
    return text;
}

std::vector<int> ItemTicks::Positions() const {
    std::vector<int> positions;
    for (int position = 1; position <= reportItemCount; ++position) {
        if (IsTicked(position)) {
            positions.push_back(position);
        }
    }
    return positions;
}

bool ItemTicks::HasFlatSurface() const {
    return std::any_of(ticks_.begin() + (firstFlatItem - 1), ticks_.end(),
                       [](bool ticked) { return ticked; });
}

ReportChoice ItemTicks::Choice() const {
    ReportChoice choice;
    choice.items = Positions();
    return choice;
}

void ItemTicks::KeepIn(Job& job) const {
    const bool all = std::all_of(ticks_.begin(), ticks_.end(), [](bool ticked) { return ticked; });
    job[Field::ReportAllSurfaces] = all ? "True" : "False";
}

} // namespace kaloria
