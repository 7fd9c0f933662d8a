// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/catalogue.h"
#include "data/job.h"

#include <string>
#include <vector>

namespace kaloria {

/// The texts that a choice field offers, in their order: active records by name, the sizes of the job's
/// geometry in its units, or a fixed list. Empty for fields that are no choice.
[[nodiscard]] std::vector<std::string> ChoicesOf(Field field, const Job& job, const Catalogue& catalogue);

/// Names of the active records, in catalogue order.
template <class Records>
[[nodiscard]] std::vector<std::string> ActiveNames(const Records& records) {
    std::vector<std::string> names;
    for (const auto& record : records) {
        if (record.Active) {
            names.push_back(record.Name);
        }
    }
    return names;
}

} // namespace kaloria
