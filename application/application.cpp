// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/application.h"

#include "application/audit_file.h"
#include "application/audit_line.h"
#include "application/calculate.h"
#include "application/insulation_thickness.h"
#include "data/atomic_file.h"
#include "data/configuration_file.h"
#include "data/job_file.h"

#include <fmt/format.h>

#include <iterator>

namespace kaloria {

namespace {

std::string Place(const std::filesystem::path& path, const FileProblem& problem) {
    if (problem.line > 0) {
        return fmt::format("{}:{}: {}", path.string(), problem.line, problem.text);
    }
    return problem.text.starts_with(path.string()) ? problem.text
                                                   : fmt::format("{}: {}", path.string(), problem.text);
}

template <class Records>
void NameMaterial(JobMaterial& row, const Records& records) {
    const auto* record = FindById(records, row.id);
    row.missing = record == nullptr;
    row.name = record != nullptr ? record->Name : "ID " + std::to_string(row.id);
}

} // namespace

CApplication::CApplication(std::filesystem::path programFolder, MessageSink& sink)
    : programFolder_(std::move(programFolder)), sink_(sink) {}

float CApplication::GetInsulationThickness(std::int32_t geometryCode, float nominal,
                                           std::string_view insulationName, const CPipe* pipe,
                                           const CTube* tube) const {
    return kaloria::GetInsulationThickness(geometryCode, nominal, insulationName, pipe, tube, SI);
}

float CApplication::GetInsulationOD(std::int32_t geometryCode, float nominal, const CPipe* pipe,
                                    const CTube* tube) const {
    return kaloria::GetInsulationOD(geometryCode, nominal, pipe, tube, SI);
}

bool CApplication::LoadConfigurationFile() {
    const auto problem = LoadConfiguration(ConfigurationPath(), catalogue_);
    report_.Pipes = &catalogue_.Pipes;
    report_.SurfaceGeometries = &catalogue_.SurfaceGeometries;
    NameMaterials(job_);
    recordsInFile_ = UserRecordsText(catalogue_);
    if (problem) {
        sink_.Show(message::loadingMaterials);
        sink_.Log(Place(ConfigurationPath(), *problem));
    }
    return !problem;
}

std::optional<FileProblem> CApplication::SaveConfigurationFile() {
    try {
        return TrySaveRecords();
    } catch (const FileFault& fault) {
        return fault.Problem();
    }
}

std::optional<FileProblem> CApplication::TrySaveRecords() {
    const std::string records = UserRecordsText(catalogue_);
    if (records == recordsInFile_) {
        return std::nullopt;
    }
    Catalogue present;
    if (auto problem = LoadConfiguration(ConfigurationPath(), present)) {
        return problem;
    }
    if (UserRecordsText(present) != recordsInFile_) {
        return FileProblem{0, "Another window of the program has saved records since this one was opened; "
                              "they would be lost."};
    }
    auto problem = SaveConfiguration(ConfigurationPath(), catalogue_);
    if (!problem) {
        recordsInFile_ = records;
    }
    return problem;
}

bool CApplication::OpenJob() {
    Job fresh;
    JobLoad load = LoadJob(JobPath, catalogue_, fresh);
    if (load.kind == JobLoad::Kind::done && fresh.UnitsInForce() == Units::si) {
        fresh = Job(Units::si); // once more, over the defaults of these units
        load = LoadJob(JobPath, catalogue_, fresh);
    }
    switch (load.kind) {
    case JobLoad::Kind::done:
        TakeOver(fresh);
        return true;
    case JobLoad::Kind::notFound:
        sink_.Show(message::fileNotFound);
        break;
    case JobLoad::Kind::wrongVersion:
        sink_.Show(message::wrongVersion);
        break;
    case JobLoad::Kind::failed:
        fresh = job_;
        (void)LoadJob(JobPath, catalogue_, fresh);
        TakeOver(fresh);
        sink_.Show(message::openingJob);
        break;
    }
    sink_.Log(Place(JobPath, load.problem));
    return false;
}

void CApplication::TakeOver(const Job& job) {
    job_ = job;
    NameMaterials(job_);
    SI = job_.UnitsInForce() == Units::si;
    SystemUnits = SI ? 1 : 0;
    report_.CompanyName = job_[Field::CompanyName];
    report_.Address = job_[Field::Address];
    report_.CityStateZip = job_[Field::CityStateZip];
    report_.PhoneNumber = job_[Field::PhoneNumber];
}

bool CApplication::SaveJob() {
    try {
        kaloria::SaveJob(JobPath, job_, catalogue_);
        return true;
    } catch (const FileError& error) {
        sink_.Show(message::savingJob);
        sink_.Log(error.what());
        return false;
    }
}

void CApplication::BuildCostData() const noexcept {}

void CApplication::NameMaterials(Job& job) const {
    NameMaterial(job.baseMetal, catalogue_.BaseMetals);
    NameMaterial(job.jacket, catalogue_.JacketMaterials);
    for (JobLayer& layer : job.layers) {
        NameMaterial(layer.material, catalogue_.Insulations);
    }
}

CalculationResult CApplication::Calculate() {
    CaseReading reading = ReadCase(job_, catalogue_);
    CalculationResult result;
    if (reading.inputs) {
        case_ = std::move(reading.inputs);
        result = kaloria::Calculate(*case_, calculator_, report_);
        // Now, while the records of the case are there: the user may delete them before the line is appended.
        result.auditLine = AuditLine(result, *case_);
    }
    result.findings.insert(result.findings.begin(), std::make_move_iterator(reading.findings.begin()),
                           std::make_move_iterator(reading.findings.end()));
    return result;
}

bool CApplication::AppendAudit(const CalculationResult& result) {
    if (AuditPath.empty()) {
        sink_.Show(message::noAuditFile);
        return false;
    }
    if (!result.done) {
        sink_.Show(message::savingAudit);
        sink_.Log("there is no calculated case");
        return false;
    }
    try {
        AppendAuditLine(AuditPath, result.auditLine);
        return true;
    } catch (const FileError& error) {
        sink_.Show(message::savingAudit);
        sink_.Log(error.what());
        return false;
    }
}

} // namespace kaloria
