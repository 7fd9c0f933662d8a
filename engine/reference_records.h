// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <list>
#include <string>

/// The reference records: plain values, read and written without checks. A new record has every number 0,
/// every text empty, every flag false. They are declared beside the engine because its inputs refer to them;
/// the configuration file fills them.
namespace kaloria {

/// An ordered, unkeyed list of records whose elements never move, so that a reference to one stays good
/// until that very record is removed.
template <class Record>
using Collection = std::list<Record>;

/// The metal of a bare pipe or surface: the innermost layer.
struct CBaseMetal {
    float OutsideTemp = 0; ///< outer face of the metal in the last solution [degF]; in no file
    float Emittance = 0;   ///< of the bare metal, 0 to 1 [-]
    std::int32_t ID = 0;   ///< 1 carbon steel, 2 stainless steel, 3 copper; every other is solved as plastic
    std::string CreatedBy;
    std::string Name;
    bool Active = false;
};

/// The outer covering over the insulation.
struct CJacketMaterial {
    float Emittance = 0; ///< 0 to 1 [-]
    std::int32_t ID = 0;
    std::string CreatedBy;
    std::string Name;
    bool Active = false;
};

/// One emission factor of a fuel.
struct CPollutant {
    std::int32_t ID = 0;
    std::string CreatedBy;
    float Amount = 0; ///< [lb per million Btu of fuel]
    std::string Name;
};

/// An energy source whose price turns heat loss into money and emissions.
struct CFuel {
    Collection<CPollutant> Pollutants;
    float UnitCostFactor = 0; ///< Cost x UnitCostFactor / BTU is the price of one Btu of fuel [-]
    bool ConversionEfficiencyChange = false;
    float ConversionEfficiency = 0; ///< [%]
    std::string BTUUnits;           ///< unit of BTU, "Btu/gal"
    float BTU = 0;                  ///< heating value [BTUUnits]
    std::string CostUnits;          ///< unit of Cost, "$/gal"
    float Cost = 0;                 ///< price [CostUnits]
    std::int32_t ID = 0;
    std::string CreatedBy;
    std::string Name;
    bool Active = false;
};

/// A system application. Its ID is the geometry code 1 to 11 by which the solver chooses film correlation
/// and result basis (see engine/surface_geometry.h).
struct CSurfaceGeometry {
    std::int32_t ID = 0;
    std::string Name;
};

/// A reporting unit with its default inputs.
struct CReportingUnit {
    float DefaultSizeSI = 0; ///< metric pipe size or [mm]
    float DefaultSize = 0;   ///< nominal pipe size or [in]
    std::string PipeLabel;
    bool IsPipe = false;
    float DefaultInsulationThicknessSI = 0; ///< [mm]
    float DefaultInsulationThickness = 0;   ///< [in]
    std::int32_t DefaultBaseMetalID = 0;
    std::string Name;
    std::int32_t ID = 0;
};

/// One row of the insulation-thickness table of a pipe or tube.
struct CInsulationThickness {
    float NominalThickness = 0;      ///< [in] in series 1, [mm] in series 2
    float ActualThickness = 0;       ///< radial, laid on the pipe [in] or [mm]
    float OD = 0;                    ///< over the insulation [in] or [mm]
    std::int32_t InsulationType = 0; ///< series: 1 inches, 2 millimetres
};

/// One nominal pipe size.
struct CPipe {
    Collection<CInsulationThickness> InsulationThicknesses;
    float WallThicknessmm = 0;      ///< [mm]
    float WallThicknessInches = 0;  ///< [in]
    float ActualPipeSizemm = 0;     ///< outside diameter [mm]
    float ActualPipeSizeInches = 0; ///< outside diameter [in]
    float European = 0;             ///< size in the European listing [mm]
    float USMetric = 0;             ///< size in the US metric listing (DN)
    float USNPS = 0;                ///< nominal pipe size (NPS)
    std::int32_t ID = 0;
};

/// One nominal tube size; tubes have no metric listing.
struct CTube {
    Collection<CInsulationThickness> InsulationThicknesses;
    float WallThicknessInches = 0;  ///< [in]
    float ActualTubeSizeInches = 0; ///< outside diameter [in]
    float USNTS = 0;                ///< nominal tube size (NTS)
    std::int32_t ID = 0;
};

/// One nominal insulation thickness in four series; its position in the list is its identity.
struct CNominalThickness {
    float US = 0;           ///< [in]
    float USMetric = 0;     ///< [mm]
    float European = 0;     ///< pipes [mm]
    float EuropeanFlat = 0; ///< flat surfaces [mm]
};

/// Labour productivity of a region.
struct CProductivityFactor {
    std::string Region;
    float Factor = 0; ///< hours for the same work, United States average = 100 [%]
};

} // namespace kaloria
