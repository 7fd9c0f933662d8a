// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/report_file.h"

#include "data/atomic_file.h"
#include "reports/report_pages.h"

#include <fmt/format.h>

namespace kaloria {

bool SaveReport(const CApplication& application, const std::filesystem::path& path, std::string_view rtf) {
    try {
        ReplaceFile(path, rtf);
        return true;
    } catch (const FileError& error) {
        application.Messages().Show(message::savingReport);
        application.Messages().Log(error.what());
        return false;
    }
}

bool ExportFilled(const CApplication& application, std::string_view templateName,
                  const std::filesystem::path& path,
                  const std::function<std::string(rtf::Document page)>& fill) {
    std::string rtf;
    try {
        rtf = fill(LoadTemplate(application.ProgramFolder(), templateName));
    } catch (const FileError& error) {
        ShowTemplateProblem(application, error.what());
        return false;
    } catch (const FileFault& fault) {
        ShowTemplateProblem(application, fmt::format("{}: {}.", templateName, fault.what()));
        return false;
    }
    return SaveReport(application, path, rtf);
}

void ShowTemplateProblem(const CApplication& application, std::string_view problem) {
    application.Messages().Show(fmt::format("The report cannot be made. {}", problem));
}

} // namespace kaloria
