// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/catalogue.h"
#include "data/job.h"

#include <optional>

namespace kaloria {

/// The window's units switch, exact to undo: an entry that was converted and not edited since gets back the
/// very text that it was converted from.
///
/// Texts are restored only where nothing that decides a conversion has changed: fuel figures while the fuel
/// is the same, sizes and thicknesses while the kind of geometry is.
class UnitsMemory {
public:
    /// Converts @p job to @p units in its display formats, see UnitsChange.
    void Switch(Job& job, const Catalogue& catalogue, Units units);

    /// Another job has been opened.
    void Forget() { last_.reset(); }

private:
    struct Conversion {
        Job before;
        Job after;
    };
    std::optional<Conversion> last_;
};

} // namespace kaloria
