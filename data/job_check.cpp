// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/atomic_file.h"
#include "data/field_check.h"
#include "data/job_file.h"
#include "data/job_reader.h"
#include "data/problem_list.h"
#include "data/value_text.h"
#include "engine/number_text.h"
#include "engine/surface_geometry.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>
#include <utility>

namespace kaloria {

namespace {

/// Other programs' files carry it; it has no field.
constexpr std::string_view unusedElement = "DryBulbTemperature";

/// Looks at every element of a job document that has been read into a job.
class JobCheck {
public:
    JobCheck(const XmlDocument& document, const Catalogue& catalogue)
        : problems_(document), catalogue_(catalogue), root_(document.First()) {}

    std::vector<FileProblem> Run();

private:
    void CheckRoot();
    void CheckElement(pugi::xml_node element);
    void CheckPresence();
    void CheckText(pugi::xml_node element, const JobField& field);
    void CheckRow(pugi::xml_node element, Field field);
    void CheckLayer(pugi::xml_node element);
    [[nodiscard]] bool IsInCatalogue(FieldChoice choice, std::string_view text) const;
    [[nodiscard]] bool IsSize(std::string_view text) const;

    template <class... Args>
    void Add(pugi::xml_node place, fmt::format_string<Args...> format, Args&&... args) {
        problems_.Add(place, fmt::format(format, std::forward<Args>(args)...));
    }

    ProblemList problems_;
    const Catalogue& catalogue_;
    pugi::xml_node root_;
    Job job_;
    std::set<Field> seen_;
    int selected_ = 0; ///< moisture inputs marked as the one in use
};

std::vector<FileProblem> JobCheck::Run() {
    CheckRoot();
    if (root_.type() == pugi::node_element) {
        JobReader(catalogue_, job_, [this](pugi::xml_node place, std::string text) {
            problems_.Add(place, std::move(text));
        }).Read(root_);
        for (const pugi::xml_node element : root_.children()) {
            CheckElement(element);
        }
        CheckPresence();
    }
    return problems_.Sorted();
}

void JobCheck::CheckRoot() {
    const std::string_view version = root_.attribute("Version").value();
    if (root_.type() != pugi::node_element) {
        Add(root_, "the root element is not the first node of the document: the job will not be opened");
    } else if (version != jobVersion) {
        Add(root_, "Version is \"{}\" instead of \"{}\": the job will not be opened", version, jobVersion);
    }
    if (root_.type() == pugi::node_element && LocalName(root_) != "Job") {
        Add(root_, "the root element is <{}> instead of <Job>", root_.name());
    }
}

void JobCheck::CheckElement(pugi::xml_node element) {
    if (element.type() != pugi::node_element) {
        if (element.type() == pugi::node_pcdata || element.type() == pugi::node_cdata) {
            Add(element, "text outside the elements is ignored");
        }
        return;
    }
    const std::string_view name = LocalName(element);
    const JobField* const field = FindField(name);
    if (field == nullptr) {
        if (name != unusedElement) {
            Add(element, "unknown element <{}>", name);
        }
        return;
    }
    if (!seen_.insert(field->id).second && field->id != Field::Insulation) {
        Add(element, "<{}> stands in the file more than once: the last one counts", name);
    }
    if (field->kind == FieldKind::material) {
        CheckRow(element, field->id);
    } else {
        CheckText(element, *field);
    }
}

void JobCheck::CheckText(pugi::xml_node element, const JobField& field) {
    const std::string text = TextContent(element);
    if (const auto wrong = WhatIsWrong(field, text, job_.UnitsInForce())) {
        Add(element, "{}: {}", field.element, *wrong);
    } else if (!IsInCatalogue(field.choice, text)) {
        Add(element, "{}: \"{}\" is not in the reference data", field.element, text);
    }
    if (field.kind == FieldKind::moisture) {
        const std::string_view selected = element.attribute("Selected").value();
        selected_ += selected == "True" ? 1 : 0;
        if (selected != "True" && selected != "False") {
            Add(element, "{}: the attribute Selected is neither \"True\" nor \"False\"", field.element);
        }
    }
}

bool JobCheck::IsInCatalogue(FieldChoice choice, std::string_view text) const {
    switch (choice) {
    case FieldChoice::surfaceGeometry:
        return FindByName(catalogue_.SurfaceGeometries, text) != nullptr;
    case FieldChoice::fuel:
        return FindByName(catalogue_.Fuels, text) != nullptr;
    case FieldChoice::insulation:
        return FindByName(catalogue_.Insulations, text) != nullptr;
    case FieldChoice::jacket:
        return FindByName(catalogue_.JacketMaterials, text) != nullptr;
    case FieldChoice::reportingUnit:
        return FindByName(catalogue_.ReportingUnits, text) != nullptr;
    case FieldChoice::region:
        return std::any_of(catalogue_.ProductivityFactors.begin(), catalogue_.ProductivityFactors.end(),
                           [text](const CProductivityFactor& factor) { return factor.Region == text; });
    case FieldChoice::size:
        return IsSize(text);
    default:
        return true;
    }
}

/// Only pipes and tubes have a list of sizes.
bool JobCheck::IsSize(std::string_view text) const {
    const auto* const shape = FindByName(catalogue_.SurfaceGeometries, job_[Field::SurfaceGeometry]);
    const auto size = ParseSingle(text);
    const auto isOf = [&](const auto& records, auto listing) {
        return std::any_of(records.begin(), records.end(),
                           [&](const auto& record) { return record.*listing == size; });
    };
    if (shape != nullptr && geometry::IsPipe(shape->ID)) {
        return isOf(catalogue_.Pipes, job_.UnitsInForce() == Units::si ? &CPipe::USMetric : &CPipe::USNPS);
    }
    if (shape != nullptr && geometry::IsTube(shape->ID)) {
        return isOf(catalogue_.Tubes, &CTube::USNTS);
    }
    return true;
}

void JobCheck::CheckRow(pugi::xml_node element, Field field) {
    const auto id = value_text::ParseInteger(TextContent(element));
    if (!id) {
        return; // the reader has reported it
    }
    const bool isKnown = field == Field::BaseMetal ? FindById(catalogue_.BaseMetals, *id) != nullptr
                         : field == Field::Jacket  ? FindById(catalogue_.JacketMaterials, *id) != nullptr
                                                   : FindById(catalogue_.Insulations, *id) != nullptr;
    if (!isKnown) {
        Add(element, "{}: ID {} is not in the reference data", element.name(), *id);
    }
    if (field == Field::Insulation) {
        CheckLayer(element);
    }
}

void JobCheck::CheckLayer(pugi::xml_node element) {
    const std::string_view locked = element.attribute("Locked").value();
    const std::string_view thickness = element.attribute("Thickness").value();
    if (locked != "Fix" && locked != "Vary") {
        Add(element, "Insulation: Locked is \"{}\" instead of \"Fix\" or \"Vary\"", locked);
    }
    const auto value = ParseSingle(thickness);
    if (value ? *value < 0.0F : locked != "Vary" || !Trimmed(thickness).empty()) {
        Add(element, "Insulation: \"{}\" is no thickness", thickness);
    }
}

void JobCheck::CheckPresence() {
    for (const JobField& field : JobFields()) {
        if (!seen_.contains(field.id)) {
            Add(root_, "<{}> is missing", field.element);
        }
    }
    if (selected_ != 1) {
        Add(root_,
            "{} of WetBulbTemperature, RelativeHumidity and DewPoint are marked Selected=\"True\" "
            "instead of one",
            selected_);
    }
}

} // namespace

std::vector<FileProblem> CheckJobText(std::string bytes, const Catalogue& catalogue) {
    try {
        const XmlDocument document(std::move(bytes), XmlDocument::Blanks::keepAlone);
        return JobCheck(document, catalogue).Run();
    } catch (const FileFault& fault) {
        return {fault.Problem()};
    }
}

std::vector<FileProblem> CheckJob(const std::filesystem::path& path, const Catalogue& catalogue) {
    try {
        return CheckJobText(ReadFile(path, XmlDocument::maxBytes), catalogue);
    } catch (const FileError& error) {
        return {FileProblem{0, error.what()}};
    }
}

} // namespace kaloria
