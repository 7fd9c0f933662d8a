// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/workbook.h"

#include "data/atomic_file.h"
#include "data/xml_text.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <system_error>
#include <xlsxwriter.h>

namespace kaloria {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t longestText = 32767; // characters of a cell, by the file format
constexpr std::size_t largestWorkbook = 1 << 26;
constexpr const char* fileName = "workbook.xlsx";

const char* FormatCode(NumberFormat format) {
    switch (format) {
    case NumberFormat::whole:
        return "0";
    case NumberFormat::tenths:
        return "0.0";
    case NumberFormat::hundredths:
        return "0.00";
    case NumberFormat::thousandths:
        return "0.000";
    case NumberFormat::scientific:
        return "0.000E+00";
    default:
        return "General";
    }
}

/// Valid, and no longer than a cell takes.
std::string CellText(std::string_view text) {
    std::string valid = XmlText(text);
    if (valid.size() > longestText) {
        std::size_t end = longestText;
        while (end > 0 && (static_cast<unsigned char>(valid[end]) & 0xC0U) == 0x80U) {
            --end; // not within a character
        }
        valid.resize(end);
    }
    return valid;
}

std::size_t CharacterCount(std::string_view text) {
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

std::string NewFolder() {
    std::error_code error;
    const fs::path temporary = fs::temp_directory_path(error);
    std::string name = temporary / "kaloria-XXXXXX";
    if (error || ::mkdtemp(name.data()) == nullptr) {
        throw FileError(FileError::Kind::unwritable, name, "no temporary folder can be made");
    }
    return name;
}

} // namespace

Workbook::Workbook() : folder_(NewFolder()) {
    const std::string file = fs::path(folder_) / fileName;
    lxw_workbook_options options{};
    options.tmpdir = folder_.data();
    workbook_ = workbook_new_opt(file.c_str(), &options);
    if (workbook_ == nullptr) {
        throw FileError(FileError::Kind::unwritable, file, "there is no memory for the workbook");
    }
}

Workbook::~Workbook() {
    if (workbook_ != nullptr) {
        workbook_close(workbook_); // frees it
    }
    std::error_code ignored; // what stays in the temporary folder does no harm
    fs::remove_all(folder_, ignored);
}

void Workbook::AddSheet(const std::string& name) {
    sheet_ = workbook_add_worksheet(workbook_, name.c_str());
    complete_ = complete_ && sheet_ != nullptr;
    widths_.emplace_back();
    widths_.back().first = sheet_;
}

lxw_format* Workbook::Format(const CellStyle& style) {
    constexpr lxw_color_t lightGreen = 0xE7F4EA;
    lxw_format*& format = formats_[style];
    if (format == nullptr) {
        format = workbook_add_format(workbook_);
        format_set_num_format(format, FormatCode(style.number));
        if (style.heading) {
            format_set_bold(format);
        }
        if (style.marked) {
            format_set_bg_color(format, lightGreen);
        }
        if (style.right) {
            format_set_align(format, LXW_ALIGN_RIGHT);
        }
    }
    return format;
}

void Workbook::Widen(std::uint16_t column, std::string_view text) {
    std::size_t& width = widths_.back().second[column];
    width = std::max(width, CharacterCount(text));
}

void Workbook::Write(std::uint32_t row, std::uint16_t column, std::string_view text, CellStyle style) {
    const std::string cell = CellText(text);
    complete_ =
        complete_ && worksheet_write_string(sheet_, row, column, cell.c_str(), Format(style)) == LXW_NO_ERROR;
    Widen(column, cell);
}

void Workbook::Write(std::uint32_t row, std::uint16_t column, double value, CellStyle style) {
    if (!std::isfinite(value)) {
        Write(row, column, std::string_view("-"), style);
        return;
    }
    complete_ =
        complete_ && worksheet_write_number(sheet_, row, column, value, Format(style)) == LXW_NO_ERROR;
    Widen(column, FormatNumber(value, style.number));
}

void Workbook::Freeze(std::uint32_t row, std::uint16_t column) {
    worksheet_freeze_panes(sheet_, row, column);
}

void Workbook::SetWidths() {
    constexpr std::size_t widest = 60;
    constexpr double margin = 2;
    for (const auto& [sheet, columns] : widths_) {
        for (const auto& [column, width] : columns) {
            worksheet_set_column(sheet, column, column, static_cast<double>(std::min(width, widest)) + margin,
                                 nullptr);
        }
    }
}

void Workbook::Save(const fs::path& path) {
    SetWidths();
    const lxw_error error = workbook_close(workbook_);
    workbook_ = nullptr;
    if (error != LXW_NO_ERROR || !complete_) {
        throw FileError(FileError::Kind::unwritable, path,
                        error != LXW_NO_ERROR ? lxw_strerror(error) : "a cell could not be written");
    }
    ReplaceFile(path, ReadFile(fs::path(folder_) / fileName, largestWorkbook));
}

} // namespace kaloria
