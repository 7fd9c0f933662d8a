// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/catalogue.h"
#include "data/value_text.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

/// What the configuration file looks like: one table for each kind of record, with its attributes in the
/// order in which they are written. Reader, writer and check walk these tables.
namespace kaloria::tables {

/// What is special about an attribute. Its form follows from the type of its field: integer, real, text, flag
/// ("True"/"False" or a number).
enum class Rule : std::uint8_t {
    plain,
    exactTrue,   ///< a flag that only the exact text "True" sets
    viaReal,     ///< an integer that the file gives as a real
    coefficient, ///< absent where a material is given by its points
    notRead,     ///< written, and accepted when read, but then left out of the record
    position,    ///< the record's place among its siblings, from 1; belongs to no field
};

// Values to fields and back, by the type of the field.
bool StoreValue(std::string_view text, Rule rule, std::int32_t& field);
bool StoreValue(std::string_view text, Rule rule, float& field);
bool StoreValue(std::string_view text, Rule rule, bool& field);
bool StoreValue(std::string_view text, Rule rule, std::string& field);
[[nodiscard]] std::string ValueText(std::int32_t value);
[[nodiscard]] std::string ValueText(float value);
[[nodiscard]] std::string ValueText(bool value);
[[nodiscard]] std::string ValueText(const std::string& value);

/// One attribute of a record.
template <class Record>
struct Attribute {
    std::string_view name;
    Rule rule = Rule::plain;
    /// Takes the value over into the record; false when its text has not the field's form.
    bool (*store)(std::string_view text, Rule rule, Record& record) = nullptr;
    /// The value as written. @throws std::domain_error for a real that is not finite
    std::string (*text)(const Record& record) = nullptr;
};

template <class Field>
struct FieldOf; // takes a pointer to member apart
template <class AnyRecord, class AnyValue>
struct FieldOf<AnyValue AnyRecord::*> {
    using Record = AnyRecord;
};

/// An attribute that stands for a field.
template <auto field>
constexpr auto Row(std::string_view name, Rule rule = Rule::plain) {
    using Record = typename FieldOf<decltype(field)>::Record;
    return Attribute<Record>{
        name, rule,
        [](std::string_view text, Rule r, Record& record) { return StoreValue(text, r, record.*field); },
        [](const Record& record) { return ValueText(record.*field); }};
}

/// An attribute that belongs to no field; the writer knows its value.
template <class Record>
constexpr Attribute<Record> PositionRow(std::string_view name) {
    return {name, Rule::position,
            [](std::string_view text, Rule, Record&) { return value_text::ParseInteger(text).has_value(); },
            [](const Record&) { return std::string(); }};
}

/// The attributes of a record, by its type.
template <class Record>
inline constexpr std::nullptr_t attributes = nullptr;

template <>
inline constexpr auto attributes<CSurfaceGeometry> = std::array{
    Row<&CSurfaceGeometry::ID>("ID"),
    Row<&CSurfaceGeometry::Name>("Name"),
};

template <>
inline constexpr auto attributes<CReportingUnit> = std::array{
    Row<&CReportingUnit::ID>("ID"),
    Row<&CReportingUnit::Name>("Name"),
    Row<&CReportingUnit::DefaultBaseMetalID>("DefaultBaseMetalID"),
    Row<&CReportingUnit::DefaultInsulationThickness>("DefaultInsulationThickness"),
    Row<&CReportingUnit::DefaultInsulationThicknessSI>("DefaultInsulationThicknessSI"),
    Row<&CReportingUnit::IsPipe>("Pipe", Rule::exactTrue),
    Row<&CReportingUnit::PipeLabel>("PipeLabel"),
    Row<&CReportingUnit::DefaultSize>("DefaultSize"),
    Row<&CReportingUnit::DefaultSizeSI>("DefaultSizeSI"),
};

template <>
inline constexpr auto attributes<CInsulation> = std::array{
    Row<&CInsulation::ID>("ID"),
    Row<&CInsulation::Active>("Active"),
    Row<&CInsulation::Name>("Name"),
    Row<&CInsulation::CreatedBy>("CreatedBy"),
    Row<&CInsulation::InsulationType>("InsulationType"),
    Row<&CInsulation::MaxTemp>("MaxTemp"),
    Row<&CInsulation::MinTemp>("MinTemp"),
    Row<&CInsulation::A>("A", Rule::coefficient),
    Row<&CInsulation::B>("B", Rule::coefficient),
    Row<&CInsulation::C>("C", Rule::coefficient),
};

template <>
inline constexpr auto attributes<CTemperaturePoint> = std::array{
    PositionRow<CTemperaturePoint>("Row"),
    Row<&CTemperaturePoint::Temperature>("Temperature"),
    Row<&CTemperaturePoint::Conductivity>("Conductivity"),
};

template <>
inline constexpr auto attributes<CBaseMetal> = std::array{
    Row<&CBaseMetal::ID>("ID"),
    Row<&CBaseMetal::Active>("Active"),
    Row<&CBaseMetal::Name>("Name"),
    Row<&CBaseMetal::CreatedBy>("CreatedBy"),
    Row<&CBaseMetal::Emittance>("Emittance"),
};

template <>
inline constexpr auto attributes<CJacketMaterial> = std::array{
    Row<&CJacketMaterial::ID>("ID"),
    Row<&CJacketMaterial::Active>("Active"),
    Row<&CJacketMaterial::Name>("Name"),
    Row<&CJacketMaterial::CreatedBy>("CreatedBy"),
    Row<&CJacketMaterial::Emittance>("Emittance"),
};

template <>
inline constexpr auto attributes<CFuel> = std::array{
    Row<&CFuel::ID>("ID"),
    Row<&CFuel::Active>("Active"),
    Row<&CFuel::Name>("Name"),
    Row<&CFuel::CreatedBy>("CreatedBy"),
    Row<&CFuel::Cost>("Cost"),
    Row<&CFuel::CostUnits>("CostUnits"),
    Row<&CFuel::BTU>("BTU"),
    Row<&CFuel::BTUUnits>("BTUUnits"),
    Row<&CFuel::ConversionEfficiency>("ConversionEfficiency"),
    Row<&CFuel::ConversionEfficiencyChange>("ConversionEfficiencyChange", Rule::exactTrue),
    Row<&CFuel::UnitCostFactor>("UnitCostFactor"),
};

template <>
inline constexpr auto attributes<CPollutant> = std::array{
    Row<&CPollutant::ID>("ID"),
    Row<&CPollutant::Name>("Name"),
    Row<&CPollutant::CreatedBy>("CreatedBy", Rule::notRead),
    Row<&CPollutant::Amount>("Amount"),
};

template <>
inline constexpr auto attributes<CPipe> = std::array{
    Row<&CPipe::ID>("ID"),
    Row<&CPipe::USNPS>("US-NPS"),
    Row<&CPipe::USMetric>("US-Metric"),
    Row<&CPipe::European>("European"),
    Row<&CPipe::ActualPipeSizeInches>("ActualPipeSizeInches"),
    Row<&CPipe::ActualPipeSizemm>("ActualPipeSizemm"),
    Row<&CPipe::WallThicknessInches>("WallThicknessInches"),
    Row<&CPipe::WallThicknessmm>("WallThicknessmm"),
};

template <>
inline constexpr auto attributes<CTube> = std::array{
    Row<&CTube::ID>("ID"),
    Row<&CTube::USNTS>("US-NTS"),
    Row<&CTube::ActualTubeSizeInches>("ActualTubeSizeInches"),
    Row<&CTube::WallThicknessInches>("WallThicknessInches"),
};

template <>
inline constexpr auto attributes<CInsulationThickness> = std::array{
    Row<&CInsulationThickness::NominalThickness>("NominalThickness"),
    Row<&CInsulationThickness::ActualThickness>("ActualThickness"),
    Row<&CInsulationThickness::OD>("OD"),
    Row<&CInsulationThickness::InsulationType>("InsulationType", Rule::viaReal),
};

template <>
inline constexpr auto attributes<CNominalThickness> = std::array{
    Row<&CNominalThickness::US>("US"),
    Row<&CNominalThickness::USMetric>("USMetric"),
    Row<&CNominalThickness::European>("European"),
    Row<&CNominalThickness::EuropeanFlat>("EuropeanFlat"),
};

template <>
inline constexpr auto attributes<CProductivityFactor> = std::array{
    Row<&CProductivityFactor::Region>("Region"),
    Row<&CProductivityFactor::Factor>("Factor"),
};

/// The collection of sub-records, of those kinds of record that have some.
template <class Record>
inline constexpr std::nullptr_t children = nullptr;
template <>
inline constexpr auto children<CInsulation> = &CInsulation::TemperaturePoints;
template <>
inline constexpr auto children<CFuel> = &CFuel::Pollutants;
template <>
inline constexpr auto children<CPipe> = &CPipe::InsulationThicknesses;
template <>
inline constexpr auto children<CTube> = &CTube::InsulationThicknesses;

template <class Record>
concept HasChildren = std::is_member_object_pointer_v<decltype(children<Record>)>;

template <HasChildren Record>
using ChildOf = typename std::remove_cvref_t<decltype(std::declval<Record&>().*children<Record>)>::value_type;

/// One section of the file.
template <class Record>
struct Section {
    std::string_view name;
    Collection<Record> Catalogue::*records;
    /// Names of the elements that the writer makes; empty where it makes none.
    const char* element = "";
    const char* childElement = "";
};

inline constexpr std::string_view headerSection = "HeaderText";

inline constexpr std::tuple sections{
    Section<CSurfaceGeometry>{"SurfaceGeometries", &Catalogue::SurfaceGeometries},
    Section<CReportingUnit>{"ReportingUnits", &Catalogue::ReportingUnits},
    Section<CInsulation>{"Insulations", &Catalogue::Insulations, "Insulation", "TemperaturePoint"},
    Section<CBaseMetal>{"BaseMetals", &Catalogue::BaseMetals, "BaseMetal"},
    Section<CJacketMaterial>{"JacketMaterials", &Catalogue::JacketMaterials, "JacketMaterial"},
    Section<CFuel>{"Fuels", &Catalogue::Fuels, "Fuel", "Pollutant"},
    Section<CPipe>{"PipeSizes", &Catalogue::Pipes},
    Section<CTube>{"TubeSizes", &Catalogue::Tubes},
    Section<CNominalThickness>{"NominalInsulationThicknesses", &Catalogue::NominalThicknesses},
    Section<CProductivityFactor>{"ProductivityFactors", &Catalogue::ProductivityFactors},
};

/// Only the records of sections that are written tell who created them.
template <class Record>
concept IsWritten = requires(const Record& record) {
    record.CreatedBy;
    record.Active;
};

/// Calls @p use with every section but the header texts, in the order above.
template <class Use>
void ForEachSection(Use&& use) {
    std::apply([&](const auto&... section) { (use(section), ...); }, sections);
}

} // namespace kaloria::tables
