// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/calculation_result.h"
#include "application/case_inputs.h"
#include "application/messages.h"
#include "data/catalogue.h"
#include "data/file_problem.h"
#include "data/job.h"
#include "engine/heat_loss_calculator.h"
#include "reports/report.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string_view>

namespace kaloria {

/// The root object: one for the whole run. It owns the reference data, the engine, the report generator and
/// the current job; everything else reaches them through it.
class CApplication {
public:
    /// @param programFolder  holds the configuration file, the default job and what else ships; borrowed @p
    /// sink must
    ///                       outlive this object
    CApplication(std::filesystem::path programFolder, MessageSink& sink);
    CApplication(const CApplication&) = delete;
    CApplication& operator=(const CApplication&) = delete;

    // Thickness look-ups in the units in force (SI)
    // ----------------------------------------------------------
    [[nodiscard]] float GetInsulationThickness(std::int32_t geometryCode, float nominal,
                                               std::string_view insulationName, const CPipe* pipe,
                                               const CTube* tube) const;
    [[nodiscard]] float GetInsulationOD(std::int32_t geometryCode, float nominal, const CPipe* pipe,
                                        const CTube* tube) const;

    std::int32_t SystemUnits = 0;    ///< 0 English, 1 SI; nothing reads it
    std::filesystem::path JobPath;   ///< of the current job
    std::filesystem::path AuditPath; ///< of the audit file
    bool SI = false;                 ///< SI units are in force

    [[nodiscard]] CReport& Report() { return report_; }
    [[nodiscard]] CHeatLossCalculator& HeatLossCalculator() { return calculator_; }
    [[nodiscard]] Catalogue& Records() { return catalogue_; }
    [[nodiscard]] Collection<CProductivityFactor>& ProductivityFactors() {
        return catalogue_.ProductivityFactors;
    }
    [[nodiscard]] Collection<CPipe>& Pipes() { return catalogue_.Pipes; }
    [[nodiscard]] Collection<CTube>& Tubes() { return catalogue_.Tubes; }
    [[nodiscard]] Collection<CSurfaceGeometry>& SurfaceGeometries() { return catalogue_.SurfaceGeometries; }
    [[nodiscard]] Collection<CReportingUnit>& ReportingUnits() { return catalogue_.ReportingUnits; }
    [[nodiscard]] Collection<CFuel>& Fuels() { return catalogue_.Fuels; }
    [[nodiscard]] Collection<CJacketMaterial>& JacketMaterials() { return catalogue_.JacketMaterials; }
    [[nodiscard]] Collection<CNominalThickness>& NominalThicknesses() {
        return catalogue_.NominalThicknesses;
    }
    [[nodiscard]] Collection<CInsulation>& Insulations() { return catalogue_.Insulations; }
    [[nodiscard]] Collection<CBaseMetal>& BaseMetals() { return catalogue_.BaseMetals; }

    /// Header text of a navigation position.
    /// @throws std::out_of_range for category or menu item outside 0 to 5, sub-item outside 0 to 10
    [[nodiscard]] const std::string& HeaderText(int category, int menuItem, int subItem = 0) const {
        return catalogue_.Headers.At(category, menuItem, subItem);
    }

    // Files; what goes wrong is shown in the sink
    // -------------------------------------------------------------

    /// Reads the reference data, appending to what is there; false when something was wrong with the file.
    bool LoadConfigurationFile();
    /// Writes the user's records back when they are others than were read. What prevented it is returned, not
    /// shown: the caller decides what to offer. Records that another window has saved meanwhile are never
    /// written over.
    [[nodiscard]] std::optional<FileProblem> SaveConfigurationFile();
    /// Opens the file at JobPath. A field that the file does not have takes its default, so that a file alone
    /// decides its results; a file that breaks off halfway leaves what was read before in the current job.
    bool OpenJob();
    bool SaveJob();

    /// A hook at start-up; has no lasting effect.
    void BuildCostData() const noexcept;

    /// Where everything is said.
    [[nodiscard]] MessageSink& Messages() const { return sink_; }

    [[nodiscard]] Job& CurrentJob() { return job_; }
    [[nodiscard]] const std::filesystem::path& ProgramFolder() const { return programFolder_; }
    [[nodiscard]] std::filesystem::path ConfigurationPath() const {
        return programFolder_ / "CorvaneConfig.xml";
    }
    [[nodiscard]] std::filesystem::path DefaultJobPath() const { return programFolder_ / "Default.kal"; }

    /// Calculates the current job. The engine keeps the last solved case until the next call.
    [[nodiscard]] CalculationResult Calculate();

    /// The inputs of the last case that was calculated, for what is drawn of it; null before the first. They
    /// refer to records: ask after a calculation and before anything is deleted.
    [[nodiscard]] const CaseInputs* CalculatedCase() const { return case_ ? &*case_ : nullptr; }

    /// Appends the line of a calculated case to the audit file at AuditPath; false when there is no path or
    /// no result, or when it could not be written.
    bool AppendAudit(const CalculationResult& result);

    /// Gives the material rows of a job the names of their records, or marks them as missing.
    void NameMaterials(Job& job) const;

private:
    void TakeOver(const Job& job);
    [[nodiscard]] std::optional<FileProblem> TrySaveRecords();

    std::filesystem::path programFolder_;
    MessageSink& sink_;
    Catalogue catalogue_;
    std::string recordsInFile_; // the user's, as this window last read or wrote them
    CHeatLossCalculator calculator_;
    CReport report_;
    Job job_;
    std::optional<CaseInputs> case_; // what calculator_ refers to
};

} // namespace kaloria
