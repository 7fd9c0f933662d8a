// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/configuration_file.h"

#include <stdexcept>

namespace kaloria::test {

/// A copy of the reference data that ships.
inline Catalogue ShippedCatalogue() {
    static const Catalogue shipped = [] {
        Catalogue catalogue;
        if (LoadConfiguration(KALORIA_RESOURCES_DIR "/CorvaneConfig.xml", catalogue)) {
            throw std::runtime_error("the reference data do not load");
        }
        return catalogue;
    }();
    return shipped;
}

} // namespace kaloria::test
