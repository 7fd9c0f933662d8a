// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/finding.h"
#include "data/catalogue.h"
#include "data/job.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kaloria {

/// Positions in the list of calculation types.
namespace calculation_type {
constexpr int personnelProtection = 0;
constexpr int condensationControl = 1;
constexpr int heatFlowLimitation = 2;
constexpr int interfaceTemperatures = 3;
constexpr int heatLossPerYear = 4;
constexpr int heatLossPerHour = 5;
constexpr int thicknessTable = 6;
} // namespace calculation_type

/// One insulation row of a case.
struct LayerInput {
    CInsulation material;     ///< a copy, without a thickness
    bool varies = false;      ///< takes each nominal thickness of the series in turn
    float nominal = 0;        ///< of a fixed layer [in], in SI [mm]
    std::size_t position = 0; ///< from 1, innermost first
};

/// The fuel with the figures of the job, in English units.
struct FuelInput {
    CFuel* record = nullptr;    ///< of the catalogue; receives the figures when the case is calculated
    float heatContent = 0;      ///< [BTUUnits]
    float cost = 0;             ///< [CostUnits]
    float efficiency = 0;       ///< [%]
    std::string heatText;       ///< as typed
    std::string costText;       ///< as typed
    std::string efficiencyText; ///< as typed
};

/// The moisture input in use.
struct MoistureInput {
    Field given = Field::RelativeHumidity;
    float value = 0; ///< [degF], relative humidity [%]
};

/// A job's inputs as checked numbers in English units: what the calculation works on. References go into the
/// catalogue the inputs were read with.
struct CaseInputs {
    int calculationType = 0;
    Units units = Units::english; ///< decides the series of nominal thicknesses and the look of the results
    const CSurfaceGeometry* geometry = nullptr;
    CBaseMetal* baseMetal = nullptr;
    const CJacketMaterial* jacket = nullptr;
    std::optional<CPipe>
        pipe; ///< with the dimensions in force: in SI its metric diameter and wall, in inches
    std::optional<CTube> tube;
    float pipeSize = 0;                    ///< nominal size, in SI the metric one turned into inches
    std::string sizeText;                  ///< as shown
    float processTemp = 0;                 ///< [degF]
    float ambientTemp = 0;                 ///< [degF]
    float windSpeed = 0;                   ///< [mph]
    float ductWidth = 0;                   ///< [in]
    float ductDepth = 0;                   ///< [in]
    float maxSurfaceTemp = 0;              ///< [degF], types 0 and 6
    float heatFlowLimit = 0;               ///< [Btu/(h ft2)], type 2
    std::optional<MoistureInput> moisture; ///< type 1
    float hoursPerYear = 0;                ///< [h]
    std::optional<FuelInput> fuel;  ///< absent when its fields hold nothing usable and the type needs none
    std::vector<LayerInput> layers; ///< innermost first
    std::vector<float> nominalThicknesses; ///< the series in force [in], in SI [mm]
    bool onlyListed = false; ///< a cylinder skips the nominal thicknesses its table does not have
    bool retrofit = false;   ///< insulation is there already: the bare row is "Layer 0"
    std::string itemDescription;
    std::string hoursText;

    [[nodiscard]] const CPipe* Pipe() const { return pipe ? &*pipe : nullptr; }
    [[nodiscard]] const CTube* Tube() const { return tube ? &*tube : nullptr; }
    [[nodiscard]] bool IsCold() const { return processTemp < ambientTemp; }
    [[nodiscard]] bool Varies() const;
};

/// What reading a job's inputs gave: the case, or the errors that stand in its way, with what else was
/// noticed.
struct CaseReading {
    std::optional<CaseInputs> inputs;
    std::vector<Finding> findings;
};

/// Checks and converts every input that this calculation type and geometry use; others may hold anything.
[[nodiscard]] CaseReading ReadCase(const Job& job, Catalogue& catalogue);

/// Whether a calculation of that type on that geometry uses a field (of the groups surface, layers and fuel).
[[nodiscard]] bool IsUsed(Field field, int calculationType, std::int32_t geometryCode);

/// Sizes of the list that belongs to the geometry, as shown in those units; empty for flats, ducts and tanks.
[[nodiscard]] std::vector<std::string> SizeTexts(const Catalogue& catalogue, std::int32_t geometryCode,
                                                 Units units);

/// Nominal thicknesses in force: US in English units; in SI the US metric series on pipes and tubes, by which
/// their tables are kept, and the European flat series on everything else.
[[nodiscard]] std::vector<float> NominalSeries(const Catalogue& catalogue, std::int32_t geometryCode,
                                               Units units);

} // namespace kaloria
