// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>

namespace kaloria::fuzz {

inline std::string Text(const std::uint8_t* data, std::size_t size) { return {data, data + size}; }

/// Stops the fuzzer at an input for which something that must hold does not.
inline void Check(bool holds, const char* what) {
    if (!holds) {
        std::cerr << "does not hold: " << what << '\n';
        std::abort();
    }
}

} // namespace kaloria::fuzz
