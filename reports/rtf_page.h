// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/rtf_merge.h"

#include <string>
#include <string_view>

namespace kaloria::rtf {

/// A document's text as a section of another: its page setup, headers and footers and text, with the numbers
/// of the other's tables.
/// @param page  checked
/// @param merged  the tables, which get the entries that they lack
[[nodiscard]] std::string SectionOf(std::string_view page, MergedTables& merged);

} // namespace kaloria::rtf
