// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/calculation_result.h"
#include "data/job.h"
#include "reports/rtf_document.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What the short report and the thickness table have in common: the user's particulars and the labels of the
/// report panel.
namespace kaloria {

/// Text of a label of the panel; nothing when the case does not have it.
[[nodiscard]] std::optional<std::string> PanelText(const std::vector<PanelLine>& panel,
                                                   std::string_view control);

/// Values of the tags that a panel gives, and of the user's particulars. A label that the case does not have
/// gives an empty text.
/// @param title  of the panel
[[nodiscard]] rtf::TagValues PanelValues(const std::vector<PanelLine>& panel, std::string_view title,
                                         const Job& job);

} // namespace kaloria
