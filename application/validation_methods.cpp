// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/validation_methods.h"

#include "engine/film_coefficient.h"
#include "engine/heat_loss_calculator.h"
#include "engine/nusselt.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace kaloria::validation {

namespace {

// Dimensionless groups -----------------------------------------------------------------------------------

double TemperatureDifference(Reader& in) {
    if (in.Has("temperature difference")) {
        return in.GetDifference("temperature difference");
    }
    return in.Get("surface temperature", Dimension::Temperature) -
           in.Get("ambient temperature", Dimension::Temperature);
}

double Rayleigh(Reader& in, double length) {
    if (in.Has("Grashof number")) {
        return in.Get("Grashof number", Dimension::None) * in.Get("Prandtl number", Dimension::None);
    }
    const double expansion = in.Has("expansion coefficient")
                                 ? in.Get("expansion coefficient", Dimension::Expansion)
                                 : 1.0 / in.Get("ideal-gas temperature", Dimension::Temperature);
    const double viscosity = in.Get("kinematic viscosity", Dimension::Diffusivity);
    const double diffusivity = in.Has("thermal diffusivity")
                                   ? in.Get("thermal diffusivity", Dimension::Diffusivity)
                                   : viscosity / in.Get("Prandtl number", Dimension::None);
    return in.Get("gravity", Dimension::Acceleration) * expansion * std::abs(TemperatureDifference(in)) *
           length * length * length / (viscosity * diffusivity);
}

double Reynolds(Reader& in, double length) {
    if (in.Has("Reynolds number")) {
        return in.Get("Reynolds number", Dimension::None);
    }
    constexpr double atmosphere = 101325.0; // [Pa], to which tables of viscosity refer
    const double viscosity = in.Get("kinematic viscosity", Dimension::Diffusivity) * atmosphere /
                             in.GetOr("pressure", Dimension::Pressure, atmosphere);
    return in.Get("air speed", Dimension::Speed) * length / viscosity;
}

// Nusselt numbers ----------------------------------------------------------------------------------------

struct Correlation {
    std::string_view name;
    std::string_view length; ///< the input that is its characteristic length
    bool forced;
    bool needsPrandtl;
    double (*number)(double rayleighOrReynolds, double prandtl);
};

constexpr Correlation correlations[] = {
    {"natural horizontal cylinder", "diameter", false, true, nusselt::NaturalHorizontalCylinder},
    {"natural vertical", "length", false, true, nusselt::NaturalVertical},
    {"natural vertical laminar", "length", false, true, nusselt::NaturalVerticalLaminar},
    {"natural horizontal favourable", "length", false, false,
     [](double rayleigh, double) { return nusselt::NaturalHorizontalFavourable(rayleigh); }},
    {"natural horizontal unfavourable", "length", false, false,
     [](double rayleigh, double) { return nusselt::NaturalHorizontalUnfavourable(rayleigh); }},
    {"forced cylinder", "diameter", true, true, nusselt::ForcedCylinder},
    {"forced plate", "length", true, true, nusselt::ForcedPlate},
};

const Correlation& CorrelationOf(const std::string& name) {
    const auto* const found = std::find_if(std::begin(correlations), std::end(correlations),
                                           [&](const Correlation& c) { return c.name == name; });
    if (found == std::end(correlations)) {
        throw InputError("there is no correlation \"" + name + "\"");
    }
    return *found;
}

double Number(const Correlation& correlation, Reader& in, double length) {
    const double argument = correlation.forced ? Reynolds(in, length) : Rayleigh(in, length);
    return correlation.number(argument,
                              correlation.needsPrandtl ? in.Get("Prandtl number", Dimension::None) : 0.0);
}

double Nusselt(const ValidationCase& c, Reader& in) {
    const Correlation& correlation = CorrelationOf(c.variant);
    // Where Grashof or Reynolds number is given as such, there is no length; elsewhere its absence shows.
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    return Number(correlation, in, in.GetOr(correlation.length, Dimension::Length, none));
}

// Radiation ----------------------------------------------------------------------------------------------

/// The engine's coefficient with the source's constants: the function's only uses of its own are a factor
/// beside the emittance and the distance from 0 degF to absolute zero, so both can be made good in its
/// arguments.
double RadiationCoefficient(Reader& in) {
    constexpr double ours = 0.1714e-8 * si::filmCoefficient / (si::degree * si::degree * si::degree);
    const double shift = in.GetOr("absolute zero", Dimension::Temperature, 0.0);
    const double sigma = in.GetOr("Stefan-Boltzmann constant", Dimension::RadiationConstant, ours);
    const double surface = in.Get("surface temperature", Dimension::Temperature) - shift;
    const double ambient = in.Get("ambient temperature", Dimension::Temperature) - shift;
    return film::Radiation(si::Fahrenheit(surface), si::Fahrenheit(ambient),
                           in.Get("emittance", Dimension::None) * sigma / ours) *
           si::filmCoefficient;
}

// From a coefficient to what the source prints -----------------------------------------------------------

double AreaOf(Reader& in) {
    if (in.Has("area")) {
        return in.Get("area", Dimension::Area);
    }
    if (in.Has("diameter")) {
        return in.Pi() * in.Get("diameter", Dimension::Length) * in.Get("pipe length", Dimension::Length);
    }
    return in.Get("length", Dimension::Length) * in.Get("width", Dimension::Length);
}

/// @param coefficient  film coefficient of the surface [W/(m2 K)]
double QuantityOf(const ValidationCase& c, Reader& in, double coefficient) {
    if (c.quantity == "film coefficient") {
        return coefficient;
    }
    if (c.quantity == "heat flow") {
        return coefficient * AreaOf(in) * TemperatureDifference(in);
    }
    const double perLengthAndDegree = coefficient * in.Pi() * in.Get("diameter", Dimension::Length);
    if (c.quantity == "heat flow per length and degree") {
        return perLengthAndDegree;
    }
    if (c.quantity == "heat flow per length") {
        return perLengthAndDegree * TemperatureDifference(in);
    }
    throw InputError("the method does not give a " + c.quantity);
}

double Radiation(const ValidationCase& c, Reader& in) { return QuantityOf(c, in, RadiationCoefficient(in)); }

double SurfaceWithGivenAir(const ValidationCase& c, Reader& in) {
    const Correlation& correlation = CorrelationOf(c.variant);
    const double length = in.Get(correlation.length, Dimension::Length);
    const double convection =
        Number(correlation, in, length) * in.Get("conductivity", Dimension::Conductivity) / length;
    return QuantityOf(c, in, convection + (in.Has("emittance") ? RadiationCoefficient(in) : 0.0));
}

/// Sides, top and bottom of a rectangular duct, per length: heights and widths times their coefficients.
double DuctFlow(Reader& in, double side, double top, double bottom) {
    return (2.0 * in.Get("height", Dimension::Length) * side +
            in.Get("width", Dimension::Length) * (top + bottom)) *
           TemperatureDifference(in);
}

double DuctWithGivenAir(const ValidationCase&, Reader& in) {
    const double conductivity = in.Get("conductivity", Dimension::Conductivity);
    const auto coefficient = [&](const char* correlation, double length) {
        return Number(CorrelationOf(correlation), in, length) * conductivity / length;
    };
    const double height = in.Get("height", Dimension::Length);
    const double halfWidth = in.Get("width", Dimension::Length) / 2.0;
    return DuctFlow(in, coefficient("natural vertical laminar", height),
                    coefficient("natural horizontal favourable", halfWidth),
                    coefficient("natural horizontal unfavourable", halfWidth));
}

// The engine's film routines -----------------------------------------------------------------------------

double FilmCoefficient(const std::string& surface, Reader& in, double length) {
    const auto fahrenheit = [&](const char* name) {
        return Single(si::Fahrenheit(in.Get(name, Dimension::Temperature)));
    };
    const float surfaceTemp = fahrenheit("surface temperature");
    const float ambientTemp = fahrenheit("ambient temperature");
    const float feet = Single(length / si::foot);
    const float feetPerHour = Single(in.GetOr("air speed", Dimension::Speed, 0.0) / si::foot * si::hour);
    const float emittance = Single(in.Get("emittance", Dimension::None));
    float h = 0;
    if (surface == "horizontal cylinder") {
        CHeatLossCalculator::Hpipe(surfaceTemp, ambientTemp, feet, feetPerHour, emittance, h);
    } else if (surface == "vertical surface") {
        CHeatLossCalculator::Flat(surfaceTemp, ambientTemp, 90, feet, 0, feetPerHour, emittance, h);
    } else if (surface == "horizontal surface facing up") {
        CHeatLossCalculator::Flat(surfaceTemp, ambientTemp, 0, feet, 1, feetPerHour, emittance, h);
    } else if (surface == "horizontal surface facing down") {
        CHeatLossCalculator::Flat(surfaceTemp, ambientTemp, 0, feet, 2, feetPerHour, emittance, h);
    } else {
        throw InputError("there is no surface \"" + surface + "\"");
    }
    return h * si::filmCoefficient;
}

double FilmRoutine(const ValidationCase& c, Reader& in) {
    const double length =
        in.Get(c.variant == "horizontal cylinder" ? "diameter" : "length", Dimension::Length);
    return QuantityOf(c, in, FilmCoefficient(c.variant, in, length));
}

double DuctFilmRoutines(const ValidationCase&, Reader& in) {
    const double height = in.Get("height", Dimension::Length);
    const double halfWidth = in.Get("width", Dimension::Length) / 2.0;
    return DuctFlow(in, FilmCoefficient("vertical surface", in, height),
                    FilmCoefficient("horizontal surface facing up", in, halfWidth),
                    FilmCoefficient("horizontal surface facing down", in, halfWidth));
}

// Air and water vapour -----------------------------------------------------------------------------------

double AirProperty(const ValidationCase& c, Reader& in) {
    const double film = in.Get("film temperature", Dimension::Temperature);
    float k = 0, mu = 0, prandtl = 0, beta = 0, rho = 0, nu = 0, cp = 0, rayleigh = 0;
    CHeatLossCalculator::AirProp(k, mu, prandtl, beta, 0, rho, nu, cp, Single(film),
                                 Single(si::Fahrenheit(film)), rayleigh, 1);
    constexpr double diffusivity = si::foot * si::foot / si::hour;
    if (c.quantity == "thermal conductivity") {
        return k * si::airConductivity;
    }
    if (c.quantity == "kinematic viscosity") {
        return nu * diffusivity;
    }
    if (c.quantity == "density") {
        return rho * si::pound / (si::foot * si::foot * si::foot);
    }
    if (c.quantity == "specific heat") {
        return cp * si::btu / (si::pound * si::degree);
    }
    if (c.quantity == "Prandtl number") {
        return prandtl;
    }
    if (c.quantity == "thermal diffusivity") {
        return double{k} / (double{rho} * cp) * diffusivity;
    }
    throw InputError("the method does not give a " + c.quantity);
}

/// The published equation has the logarithmic term with the other sign than the engine, which keeps its own
/// (docs/methods.md): twice the term turns the one into the other and leaves every constant checked.
double VapourPressure(const ValidationCase&, Reader& in) {
    const float x = Single(273.16 / in.Get("temperature", Dimension::Temperature));
    float exponent = 0;
    float logarithm = 0;
    CHeatLossCalculator::Logp(x, exponent);
    CHeatLossCalculator::Log10(x, logarithm);
    constexpr double hectopascal = 100.0;
    return std::pow(10.0, double{exponent} + 2.0 * 5.028 * logarithm) * hectopascal;
}

struct NamedMethod {
    std::string_view name;
    Method method;
};

constexpr NamedMethod methods[] = {
    {"nusselt", Nusselt},
    {"surface_with_given_air", SurfaceWithGivenAir},
    {"duct_with_given_air", DuctWithGivenAir},
    {"radiation", Radiation},
    {"film_routine", FilmRoutine},
    {"duct_film_routines", DuctFilmRoutines},
    {"layered_pipe", LayeredPipe},
    {"layered_wall", LayeredWall},
    {"air_property", AirProperty},
    {"vapour_pressure", VapourPressure},
};

constexpr Quantity quantities[] = {
    {"Nusselt number", Dimension::None},
    {"Prandtl number", Dimension::None},
    {"film coefficient", Dimension::FilmCoefficient},
    {"heat flow", Dimension::HeatFlow},
    {"heat flow per length", Dimension::HeatFlowPerLength},
    {"heat flow per length and degree", Dimension::Conductivity},
    {"heat flux", Dimension::HeatFlux},
    {"interface temperature", Dimension::Temperature},
    {"surface temperature", Dimension::Temperature},
    {"temperature drop", Dimension::Temperature, true},
    {"thermal conductivity", Dimension::Conductivity},
    {"kinematic viscosity", Dimension::Diffusivity},
    {"thermal diffusivity", Dimension::Diffusivity},
    {"density", Dimension::Density},
    {"specific heat", Dimension::SpecificHeat},
    {"saturation pressure", Dimension::Pressure},
};

template <typename Table>
auto FindByName(const Table& table, std::string_view name) {
    const auto* const found = std::find_if(std::begin(table), std::end(table),
                                           [name](const auto& row) { return row.name == name; });
    return found == std::end(table) ? nullptr : found;
}

} // namespace

Method FindMethod(std::string_view name) {
    const NamedMethod* found = FindByName(methods, name);
    return found == nullptr ? nullptr : found->method;
}

const Quantity* FindQuantity(std::string_view name) { return FindByName(quantities, name); }

} // namespace kaloria::validation
