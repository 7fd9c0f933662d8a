// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/number_format.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

struct lxw_workbook;
struct lxw_worksheet;
struct lxw_format;

namespace kaloria {

/// How a cell looks.
struct CellStyle {
    NumberFormat number = NumberFormat::shortest;
    bool heading = false;
    bool marked = false; ///< on a light ground
    bool right = false;

    friend bool operator<(const CellStyle& a, const CellStyle& b) {
        return std::tie(a.number, a.heading, a.marked, a.right) <
               std::tie(b.number, b.heading, b.marked, b.right);
    }
};

/// A spreadsheet workbook in the making. Texts are always texts, never formulas or links.
class Workbook {
public:
    /// @throws FileError when there is no place for its temporary files
    Workbook();
    Workbook(const Workbook&) = delete;
    Workbook& operator=(const Workbook&) = delete;
    ~Workbook();

    /// Further cells go onto this sheet.
    void AddSheet(const std::string& name);
    void Write(std::uint32_t row, std::uint16_t column, std::string_view text, CellStyle style = {});
    void Write(std::uint32_t row, std::uint16_t column, double value, CellStyle style = {});
    /// Rows above and columns left of this cell stay in sight.
    void Freeze(std::uint32_t row, std::uint16_t column);

    /// Finishes the workbook and replaces @p path by it. Columns become as wide as their texts. Once only.
    /// @throws FileError; the old file is then as it was
    void Save(const std::filesystem::path& path);

private:
    lxw_format* Format(const CellStyle& style);
    void Widen(std::uint16_t column, std::string_view text);
    void SetWidths();

    std::string folder_; // holds the workbook while it is written
    lxw_workbook* workbook_ = nullptr;
    lxw_worksheet* sheet_ = nullptr;
    std::vector<std::pair<lxw_worksheet*, std::map<std::uint16_t, std::size_t>>> widths_;
    std::map<CellStyle, lxw_format*> formats_;
    bool complete_ = true; // every cell could be written
};

} // namespace kaloria
