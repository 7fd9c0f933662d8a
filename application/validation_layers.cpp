// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/validation_methods.h"
#include "engine/conduction.h"
#include "engine/numeric_fault.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <limits>

namespace kaloria::validation {

namespace {

// The engine's conduction functions hold no constant with a unit, so they serve SI as they are. They keep
// radii, conductivities and temperatures in single precision, though, and some sources print nine digits and
// more; the three helpers below hand figures over, and take them back, without losing those digits.

/// Equivalent thicknesses [m] of cylinders of @p radii [m]. Radii matter by their ratios only: they go over
/// as multiples of the finest decimal unit that single precision counts without gaps, in which a source's
/// figures are whole numbers.
std::vector<double> EquivalentsOf(const std::vector<double>& radii) {
    constexpr double largestCount = 16777216.0; // 2^24
    const double scale = std::pow(10.0, std::floor(std::log10(largestCount / radii.back())));
    std::vector<float> counts;
    counts.reserve(radii.size());
    for (const double radius : radii) {
        counts.push_back(Single(std::nearbyint(radius * scale)));
    }
    std::vector<double> equivalents(radii.size() - 1);
    conduction::EquivalentThicknesses(counts, equivalents);
    for (double& equivalent : equivalents) {
        equivalent /= scale;
    }
    return equivalents;
}

/// Thickness over conductivity; what rounding does to the conductivity is put right in the thickness.
double Resistance(double equivalent, double conductivity) {
    const float rounded = Single(conductivity);
    const std::array compensated{equivalent * (double{rounded} / conductivity)};
    std::array resistance{0.0};
    conduction::Resistances(compensated, std::array{rounded}, resistance);
    return resistance[0];
}

/// Temperature drop over a resistance: one step from zero, and a second from the rounded drop backwards,
/// which answers with what the rounding took.
double Drop(double flux, double resistance) {
    const std::array resistances{resistance};
    std::array<float, 2> temps{};
    conduction::InterfaceTemperatures(flux, resistances, temps);
    const float rounded = temps[1];
    temps = {-rounded, 0};
    conduction::InterfaceTemperatures(flux, resistances, temps);
    return -(double{rounded} + temps[1]);
}

/// What stands between the inside and the outside temperature.
struct Wall {
    bool hasInsideFilm = false;
    std::vector<double> resistances; ///< inside film if any, layers; of the outer surface [m2 K/W]
    double outerRadius = 0;          ///< of pipes [m]
};

double Positive(double value, const char* what) {
    if (!(value > 0.0)) {
        throw InputError(std::string(what) + " is not positive");
    }
    return value;
}

/// @param areaRatio  outer over inner surface
void AddInsideFilm(Wall& wall, Reader& in, double areaRatio) {
    if (in.Has("inside film coefficient")) {
        const double film = in.Get("inside film coefficient", Dimension::FilmCoefficient);
        wall.resistances.push_back(Resistance(areaRatio, Positive(film, "a film coefficient")));
        wall.hasInsideFilm = true;
    }
}

void AddLayer(Wall& wall, Reader& layer, double equivalent) {
    const double conductivity = layer.Get("conductivity", Dimension::Conductivity);
    wall.resistances.push_back(Resistance(equivalent, Positive(conductivity, "a conductivity")));
    layer.ExpectAllUsed();
}

double RadiusFrom(Reader& in, const std::string& side) {
    const std::string diameter = side + " diameter";
    return in.Has(diameter) ? in.Get(diameter, Dimension::Length) / 2.0
                            : in.Get(side + " radius", Dimension::Length);
}

Wall PipeWall(const ValidationCase& c, Reader& in) {
    std::vector<double> radii{Positive(RadiusFrom(in, "inside"), "the inside radius")};
    std::vector<Reader> layers(c.layers.begin(), c.layers.end());
    for (Reader& layer : layers) {
        const double inner = radii.back();
        const double outer = layer.Has("thickness") ? inner + layer.Get("thickness", Dimension::Length)
                                                    : RadiusFrom(layer, "outside");
        Positive(outer - inner, "a thickness");
        radii.push_back(outer);
    }
    Wall wall;
    wall.outerRadius = radii.back();
    AddInsideFilm(wall, in, radii.back() / radii.front());
    const std::vector<double> equivalents = EquivalentsOf(radii);
    for (std::size_t i = 0; i < layers.size(); ++i) {
        AddLayer(wall, layers[i], equivalents[i]);
    }
    return wall;
}

Wall PlaneWall(const ValidationCase& c, Reader& in) {
    Wall wall;
    AddInsideFilm(wall, in, 1.0);
    for (const ValidationInputs& inputs : c.layers) {
        Reader layer(inputs);
        AddLayer(wall, layer, Positive(layer.Get("thickness", Dimension::Length), "a thickness"));
    }
    return wall;
}

/// Place of the input "layer" (1 is the innermost) in the resistances.
std::size_t LayerIndex(const Wall& wall, Reader& in) {
    const double layer = in.Get("layer", Dimension::None);
    const std::size_t films = wall.hasInsideFilm ? 1 : 0;
    const auto count = static_cast<double>(wall.resistances.size() - films);
    if (!(layer >= 1.0 && layer <= count) || layer != std::floor(layer)) {
        throw InputError("there is no such layer");
    }
    return static_cast<std::size_t>(layer) - 1 + films;
}

double HeatFlow(const ValidationCase& c, const Wall& wall, Reader& in, double flux) {
    if (c.quantity == "heat flux") {
        return flux;
    }
    if (wall.outerRadius > 0.0) {
        const double perLength = flux * 2.0 * in.Pi() * wall.outerRadius;
        if (c.quantity == "heat flow per length") {
            return perLength;
        }
        if (c.quantity == "heat flow") {
            return perLength * in.Get("pipe length", Dimension::Length);
        }
    }
    throw InputError("the method does not give a " + c.quantity);
}

double Answer(const ValidationCase& c, const Wall& wall, Reader& in) {
    const double inside = in.Get("inside temperature", Dimension::Temperature);
    const double outside = in.Get("outside temperature", Dimension::Temperature);
    // An infinite coefficient stands for an outer surface whose own temperature is given.
    const double film = in.GetOr("outside film coefficient", Dimension::FilmCoefficient,
                                 std::numeric_limits<double>::infinity());
    const double flux =
        conduction::Flux(inside - outside, Positive(film, "a film coefficient"), wall.resistances);
    if (c.quantity == "temperature drop") {
        return Drop(flux, wall.resistances[LayerIndex(wall, in)]);
    }
    const bool atSurface = c.quantity == "surface temperature";
    if (!atSurface && c.quantity != "interface temperature") {
        return HeatFlow(c, wall, in, flux);
    }
    const std::size_t passed = atSurface ? wall.resistances.size() : LayerIndex(wall, in) + 1;
    double temperature = inside;
    for (std::size_t i = 0; i < passed; ++i) {
        temperature -= Drop(flux, wall.resistances[i]);
    }
    return temperature;
}

} // namespace

double LayeredPipe(const ValidationCase& c, Reader& in) { return Answer(c, PipeWall(c, in), in); }

double LayeredWall(const ValidationCase& c, Reader& in) { return Answer(c, PlaneWall(c, in), in); }

} // namespace kaloria::validation
