// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/report_items.h"
#include "application/report_reading.h"
#include "data/catalogue.h"
#include "data/job.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// The rules of the report wizard.
namespace kaloria {

/// The 29 check boxes of sizes and surfaces.
class ItemTicks {
public:
    /// All when the job reports all surfaces, else its own one.
    [[nodiscard]] static ItemTicks Of(const Job& job, const Catalogue& catalogue);

    /// @param position  1 to reportItemCount
    /// @throws std::out_of_range
    [[nodiscard]] bool IsTicked(int position) const { return ticks_.at(Index(position)); }
    void Tick(int position, bool ticked) { ticks_.at(Index(position)) = ticked; }

    void SelectAll() { ticks_.fill(true); }
    void SelectNone() { ticks_.fill(false); }
    /// "6,12-15,27" or "all": those and no others. What is wrong with the text, as a sentence, and then
    /// nothing changes; else empty.
    [[nodiscard]] std::string SelectRange(std::string_view text);
    /// The ticked positions in the form of SelectRange.
    [[nodiscard]] std::string RangeText() const;

    [[nodiscard]] std::vector<int> Positions() const;
    /// Whether one of the three flat surfaces is ticked.
    [[nodiscard]] bool HasFlatSurface() const;

    [[nodiscard]] ReportChoice Choice() const;
    /// Keeps in the job what it can hold: whether all are ticked.
    void KeepIn(Job& job) const;

private:
    static std::size_t Index(int position) { return static_cast<std::size_t>(position - 1); }
    std::array<bool, reportItemCount> ticks_{};
};

/// The fixed texts that keep the wizard from going on; empty when it may.
[[nodiscard]] std::string_view ProjectProblem(const Job& job);
[[nodiscard]] std::string_view SurfacesProblem(const ItemTicks& ticks);
[[nodiscard]] std::string_view DateProblem(std::string_view text);

/// A date as "mm/dd/yyyy" or one of "m/d/yyyy", "yyyy-mm-dd", "dd.mm.yyyy", "12 Mar 2024", "March 12, 2024";
/// nothing for anything else and for days that do not exist. Years 1900 to 9999.
[[nodiscard]] std::optional<std::chrono::year_month_day> ParseDate(std::string_view text);

/// "mm/dd/yyyy"
[[nodiscard]] std::string DateText(std::chrono::year_month_day date);
[[nodiscard]] std::string Today();

} // namespace kaloria
