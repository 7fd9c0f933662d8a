// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/report_run.h"

#include "application/report_file.h"
#include "data/atomic_file.h"

namespace kaloria {

namespace {

/// What was typed into the job since it was opened counts too.
void TakeParticulars(CReport& report, const Job& job) {
    report.CompanyName = job[Field::CompanyName];
    report.Address = job[Field::Address];
    report.CityStateZip = job[Field::CityStateZip];
    report.PhoneNumber = job[Field::PhoneNumber];
    const std::string& title = job[Field::ReportName];
    report.Project = {title.empty() ? job[Field::JobName] : title,
                      job[Field::ProjectNumber],
                      job[Field::System],
                      job[Field::Location],
                      job[Field::Date],
                      job[Field::Engineer],
                      job[Field::Contact],
                      job[Field::Phone]};
}

} // namespace

ReportResult RunReport(CApplication& application, const ReportRequest& request) {
    TakeParticulars(application.Report(), application.CurrentJob());
    EconomicsRequest economics = request.economics;
    economics.choice.mayBeEmpty = true;
    ReportText work;
    ReportText output;
    ReportResult result;
    try {
        result.economics = RunEconomicsWith(application, economics, [&](CReport& report, CCostData& costs) {
            return report.CreateReport(work, output, {request.kind, &costs, request.date, request.progress});
        });
    } catch (const FileError& error) {
        ShowTemplateProblem(application, error.what());
        result.hasTemplates = false;
        return result;
    }
    result.rtf = std::move(output.rtf);
    return result;
}

} // namespace kaloria
