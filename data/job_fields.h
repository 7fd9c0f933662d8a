// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/number_format.h"
#include "data/quantity.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace kaloria {

/// Every input of a job, in the order of the job file.
enum class Field : std::uint8_t {
    CurrentCategory,
    CurrentMenuItem,
    Units,
    UserName,
    CompanyName,
    Address,
    CityStateZip,
    PhoneNumber,
    ItemDescription,
    InsulationThicknessCalculationType,
    ProcessTemp,
    AmbientTemp,
    WindSpeed,
    PipeSize,
    DuctWidth,
    DuctDepth,
    MaxSurfaceTemp,
    SurfaceGeometry,
    HeatFlowLimit,
    WetBulbTemperature,
    RelativeHumidity,
    DewPoint,
    HoursPerYear,
    BaseMetal,
    Insulation,
    Jacket,
    Fuel,
    HeatContent,
    FuelCost,
    ConversionEfficiency,
    JobName,
    Path,
    PrintReport,
    ReportUnits,
    ReportName,
    ProjectNumber,
    System,
    Date,
    Location,
    Engineer,
    Contact,
    Phone,
    HotSurface,
    NewApplication,
    ReportFuel,
    ReportFuelCost,
    ReportHeatingValue,
    ReportEfficiency,
    ChillerCondensorFactor,
    ChillerCoefficientOfPerformance,
    ChillerWetBulbTemperature,
    ChillerRelativeHumidity,
    ChillerMakeUpWaterCost,
    ChillerMakeUpWaterInflationRate,
    ReportAnnualInflationRate,
    InterestRate,
    TaxRate,
    PlantDepreciationPeriod,
    NewInsulationDepreciationPeriod,
    InvestmentRate,
    InsulationMaintenancePercent,
    FuelMaintenancePercent,
    AnnualOperation,
    AnnualAverageTemp,
    AnnualAverageWindSpeed,
    PaybackReferenceThickness,
    ReportAllSurfaces,
    EngineeringReport,
    FEA,
    PreviousCostData,
    UserSuppliedCostData,
    ReportStartingTemperature,
    ReportTemperatureIncrement,
    ReportInsulationMaterial,
    ReportInstallationComplexity,
    ReportJacketMaterial,
    ReportPipeInsulationPrice,
    ReportBoardInsulationPrice,
    ReportLaborRate,
    ReportRegionalProductivity,
    ReportExistingInsulationMaterial,
    ReportExistingInsulationThickness,
};

inline constexpr std::size_t fieldCount =
    static_cast<std::size_t>(Field::ReportExistingInsulationThickness) + 1;

/// How a field's element is written and what may stand in it.
enum class FieldKind : std::uint8_t {
    text,     ///< anything
    number,   ///< a number within low and high
    moisture, ///< a number; the element carries the attribute `Selected`
    choice,   ///< one of a list, see FieldChoice
    flag,     ///< "True" or "False"
    material, ///< a row of the layer build-up: an `ID` of a reference record
};

/// Which list a choice is made from.
enum class FieldChoice : std::uint8_t {
    none,
    units,           ///< "English", "SI"
    calculationType, ///< calculationTypeNames
    surfaceGeometry, ///< names of the geometries
    size,            ///< pipe or tube sizes as shown in the units in force
    fuel,            ///< names of the fuels
    insulation,      ///< names of the insulations
    jacket,          ///< names of the jacket materials
    reportingUnit,   ///< names of the reporting units
    complexity,      ///< complexityNames
    region,          ///< regions of the productivity factors
};

/// The panel on which a field is shown.
enum class FieldGroup : std::uint8_t {
    navigation,
    user,
    surface,
    layers,
    fuel,
    project,
    economics,
    installedCost,
    report,
};

/// One row of the field table: everything that reading, writing, showing, checking and converting a field
/// needs.
struct JobField {
    Field id;
    std::string_view element; ///< of the job file, and the name for `--set`
    std::string_view control; ///< object name of the window's control
    FieldKind kind;
    FieldChoice choice;
    Quantity quantity;
    NumberFormat format;            ///< in which a converted value is shown
    std::string_view defaultText;   ///< of a new job in English units
    std::string_view defaultTextSI; ///< of a new job in SI units
    double low;                     ///< allowed range, English units, both ends included
    double high;
    FieldGroup group;
    std::string_view label;
    std::string_view help;
};

/// The table, in the order of Field.
[[nodiscard]] std::span<const JobField, fieldCount> JobFields();

[[nodiscard]] const JobField& InfoOf(Field field);

/// The field of that element name (exact, case-sensitive).
[[nodiscard]] const JobField* FindField(std::string_view element);

/// The seven calculation types; the position is `CHeatLossCalculator::CalculationType`.
inline constexpr std::string_view calculationTypeNames[] = {
    "Personnel Protection", "Condensation Control", "Heat Flow Limitation",      "Interface Temperatures",
    "Heat Loss Per Year",   "Heat Loss Per Hour",   "Insulation Thickness Table"};

inline constexpr std::string_view complexityNames[] = {"Complex", "Average", "Simple", "Very Simple"};

/// Position of a calculation type given by its text, or as that position itself.
[[nodiscard]] std::optional<int> CalculationTypeFrom(std::string_view text);

} // namespace kaloria
