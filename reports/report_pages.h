// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/economic_results.h"
#include "reports/report_inputs.h"
#include "reports/rtf_document.h"

#include <cstddef>
#include <filesystem>
#include <string_view>

namespace kaloria {

enum class ReportKind { economic, environmental };

/// File name of the template for pages about a surface.
[[nodiscard]] std::string_view BodyTemplateName(ReportKind kind, bool engineering);

/// A template of the program folder.
/// @throws FileError with its path: it is missing, or it is no rich text
[[nodiscard]] rtf::Document LoadTemplate(const std::filesystem::path& folder, std::string_view name);

/// @param tag  with its brackets
[[nodiscard]] bool HasTag(const rtf::Document& page, std::string_view tag);

/// The pages of a report, each a template with its tags filled in.
class ReportPages {
public:
    /// Loads the templates.
    /// @throws FileError as LoadTemplate
    ReportPages(const std::filesystem::path& folder, ReportKind kind, bool engineering);

    [[nodiscard]] rtf::Document Cover(const rtf::TagValues& particulars) const;
    [[nodiscard]] rtf::Document GeneralEconomic(const rtf::TagValues& particulars, const ReportInputs& inputs,
                                                const EconomicFigures& figures) const;
    /// @param pageNumber  in the report, from 1
    [[nodiscard]] rtf::Document Body(const rtf::TagValues& particulars, const ReportInputs& inputs,
                                     const SurfaceResult& surface, std::size_t pageNumber) const;
    [[nodiscard]] rtf::Document Disclaimer(const rtf::TagValues& particulars) const;

private:
    ReportKind kind_;
    bool engineering_;
    rtf::Document cover_;
    rtf::Document general_;
    rtf::Document body_;
    rtf::Document disclaimer_;
    bool saysDirection_; ///< the body has a place for "Gain" or "Loss"
};

} // namespace kaloria
