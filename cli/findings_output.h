// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/finding.h"

#include <nlohmann/json_fwd.hpp>

#include <iosfwd>
#include <vector>

namespace kaloria::cli {

/// An empty line and one line per finding; nothing without findings.
void PrintFindings(const std::vector<Finding>& findings, std::ostream& out);

/// Warnings and errors to standard error.
void Complain(const std::vector<Finding>& findings);

/// An array of `severity`, `subject`, `text`.
[[nodiscard]] nlohmann::json ToJson(const std::vector<Finding>& findings);

} // namespace kaloria::cli
