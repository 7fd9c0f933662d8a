// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/job_fields.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace kaloria {

/// A reference record as a row of the layer build-up shows it.
struct JobMaterial {
    std::int32_t id = 0;
    std::string name;     ///< as shown; of a missing record the text "ID n"
    bool missing = false; ///< the job file names an `ID` that the catalogue does not have
};

/// One insulation row of the layer build-up, as its cells show it.
struct JobLayer {
    JobMaterial material;
    std::string layer;     ///< layer number
    std::string locked;    ///< "Fix" or "Vary"
    std::string thickness; ///< nominal (pipes, tubes) or as installed [in or mm, as the job's units]; may be
                           ///< empty on a layer that varies
};

/// The complete set of inputs of one analysis, as the user typed them. Texts in, texts out: the application
/// turns a job into checked numbers when it calculates.
class Job {
public:
    /// A new job with the defaults of the field table. Material rows carry their `ID` only; whoever owns the
    /// catalogue gives them their names.
    explicit Job(Units units = Units::english);

    /// Text of a field. The material fields have none: their rows are below.
    [[nodiscard]] std::string& operator[](Field field) { return texts_.at(static_cast<std::size_t>(field)); }
    [[nodiscard]] const std::string& operator[](Field field) const {
        return texts_.at(static_cast<std::size_t>(field));
    }

    [[nodiscard]] Units UnitsInForce() const {
        return (*this)[Field::Units] == "SI" ? Units::si : Units::english;
    }
    [[nodiscard]] bool IsTrue(Field field) const { return (*this)[field] == "True"; }

    /// Which of WetBulbTemperature, RelativeHumidity and DewPoint is in use.
    Field moisture = Field::RelativeHumidity;

    JobMaterial baseMetal;
    std::vector<JobLayer> layers; ///< innermost first, one to five
    JobMaterial jacket;

private:
    std::array<std::string, fieldCount> texts_;
};

inline constexpr std::size_t mostLayers = 5;

} // namespace kaloria
