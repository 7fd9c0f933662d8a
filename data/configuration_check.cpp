// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/atomic_file.h"
#include "data/configuration_file.h"
#include "data/configuration_reader.h"
#include "data/problem_list.h"
#include "data/value_text.h"
#include "data/xml_document.h"
#include "engine/numeric_fault.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <set>
#include <span>
#include <utility>

namespace kaloria {

namespace {

using tables::Rule;
using tables::Section;

constexpr std::string_view sourceAttribute = "Source"; ///< says where a record's figures come from

pugi::xml_node RootElement(const XmlDocument& document) {
    pugi::xml_node node = document.First();
    while (node.type() != pugi::node_element) {
        node = node.next_sibling();
    }
    return node;
}

/// Goes through a document that has been read into a catalogue, looking at each element together with the
/// record that came of it.
class ConfigurationCheck {
public:
    explicit ConfigurationCheck(const XmlDocument& document)
        : problems_(document), root_(RootElement(document)) {}

    std::vector<FileProblem> Run();

private:
    [[nodiscard]] std::vector<pugi::xml_node> SectionsNamed(std::string_view name) const;
    void CheckSectionNames();
    void CheckHeaderTexts();
    template <class Record>
    void CheckSection(const Section<Record>& section);
    template <class Record>
    void CheckAttributes(pugi::xml_node element);
    template <class Record>
    void CheckOne(pugi::xml_node element, const Record& record);
    void CheckId(pugi::xml_node element, std::int32_t id, std::set<std::int32_t>& taken);

    void CheckFigures(pugi::xml_node element, const CInsulation& material);
    void CheckFigures(pugi::xml_node element, const CReportingUnit& unit);
    void CheckFigures(pugi::xml_node element, const CFuel& fuel);
    void CheckFigures(pugi::xml_node element, const CInsulationThickness& row);
    void CheckFigures(pugi::xml_node, const CSurfaceGeometry&) {}
    template <class Record>
    void CheckFigures(pugi::xml_node element, const Record& record);
    void CheckConductivity(pugi::xml_node element, CInsulation material);
    void CheckPositive(pugi::xml_node element, const char* name, float value);

    template <class... Args>
    void Add(pugi::xml_node place, fmt::format_string<Args...> format, Args&&... args) {
        problems_.Add(place, fmt::format(format, std::forward<Args>(args)...));
    }

    ProblemList problems_;
    pugi::xml_node root_;
    Catalogue catalogue_;
};

std::vector<FileProblem> ConfigurationCheck::Run() {
    if (root_.previous_sibling()) {
        Add(root_.parent().first_child(),
            "the root element is not the first node of the document: no record will be loaded");
    }
    ConfigurationReader reader(catalogue_, [this](pugi::xml_node place, std::string text) {
        problems_.Add(place, std::move(text));
    });
    reader.Read(root_);
    CheckSectionNames();
    CheckHeaderTexts();
    tables::ForEachSection([this](const auto& section) { CheckSection(section); });
    return problems_.Sorted();
}

std::vector<pugi::xml_node> ConfigurationCheck::SectionsNamed(std::string_view name) const {
    std::vector<pugi::xml_node> nodes;
    for (const pugi::xml_node node : root_.children()) {
        if (node.type() == pugi::node_element && node.name() == name) {
            nodes.push_back(node);
        }
    }
    return nodes;
}

void ConfigurationCheck::CheckSectionNames() {
    std::set<std::string_view> missing{tables::headerSection};
    tables::ForEachSection([&](const auto& section) { missing.insert(section.name); });
    const std::set<std::string_view> known = missing;
    for (const pugi::xml_node node : root_.children()) {
        const std::string_view name = node.name();
        if (node.type() != pugi::node_element) {
            continue;
        }
        if (!known.contains(name)) {
            Add(node, "unknown section <{}>", name);
        } else if (missing.erase(name) == 0) {
            Add(node, "section <{}> stands in the file more than once: all of them are loaded", name);
        }
    }
    for (const std::string_view name : missing) {
        Add(root_, "section <{}> is missing", name);
    }
}

void ConfigurationCheck::CheckHeaderTexts() {
    std::set<std::int32_t> taken;
    for (const pugi::xml_node section : SectionsNamed(tables::headerSection)) {
        for (const pugi::xml_node element : section.children()) {
            const pugi::xml_attribute id = element.attribute("ID");
            if (element.type() == pugi::node_element && !id) {
                Add(element, "no ID attribute: the text replaces the one before it");
            }
            if (const auto code = value_text::ParseInteger(id.value())) {
                CheckId(element, *code, taken);
            }
        }
    }
}

template <class Record>
void ConfigurationCheck::CheckSection(const Section<Record>& section) {
    std::set<std::int32_t> taken;
    auto record = (catalogue_.*section.records).cbegin();
    for (const pugi::xml_node node : SectionsNamed(section.name)) {
        for (const pugi::xml_node element : node.children()) {
            if (element.type() != pugi::node_element) {
                continue;
            }
            if constexpr (requires { record->ID; }) {
                CheckId(element, record->ID, taken);
            }
            CheckOne(element, *record++);
        }
    }
}

template <class Record>
void ConfigurationCheck::CheckOne(pugi::xml_node element, const Record& record) {
    CheckAttributes<Record>(element);
    CheckFigures(element, record);
    if constexpr (tables::HasChildren<Record>) {
        auto child = (record.*tables::children<Record>).cbegin();
        for (const pugi::xml_node node : element.children()) {
            if (node.type() == pugi::node_element) {
                CheckAttributes<tables::ChildOf<Record>>(node);
                CheckFigures(node, *child++);
            }
        }
    }
}

void ConfigurationCheck::CheckId(pugi::xml_node element, std::int32_t id, std::set<std::int32_t>& taken) {
    if (element.attribute("ID") && !taken.insert(id).second) {
        Add(element, "ID {} has been used before in this section", id);
    }
}

template <class Record>
void ConfigurationCheck::CheckAttributes(pugi::xml_node element) {
    for (const auto& known : tables::attributes<Record>) {
        const auto count = std::count_if(element.attributes_begin(), element.attributes_end(),
                                         [&](const auto& a) { return a.name() == known.name; });
        const bool optional = known.rule == Rule::coefficient || known.rule == Rule::position;
        if (count > 1) {
            Add(element, "attribute {} is given more than once: the last one counts", known.name);
        } else if (count == 0 && tables::IsWritten<Record> && known.name == "CreatedBy") {
            Add(element, "no CreatedBy attribute: the configuration file cannot be saved");
        } else if (count == 0 && !optional) {
            Add(element, "no {} attribute", known.name);
        }
    }
    for (const pugi::xml_attribute attribute : element.attributes()) {
        const auto& all = tables::attributes<Record>;
        const bool known =
            std::any_of(all.begin(), all.end(), [&](const auto& a) { return a.name == attribute.name(); });
        if (!known && attribute.name() != sourceAttribute) {
            Add(element, "unknown attribute {}", attribute.name());
        }
    }
}

template <class Record>
void ConfigurationCheck::CheckFigures(pugi::xml_node element, const Record& record) {
    if constexpr (requires { record.Emittance; }) {
        if (!(record.Emittance >= 0.0F && record.Emittance <= 1.0F)) {
            Add(element, "Emittance {} is not within 0 to 1", value_text::RealText(record.Emittance));
        }
    }
}

void ConfigurationCheck::CheckFigures(pugi::xml_node element, const CInsulation& material) {
    if (material.MaxTemp < material.MinTemp) {
        Add(element, "MaxTemp is below MinTemp");
    }
    if (!material.TemperaturePoints.empty() && element.attribute("A")) {
        Add(element, "both coefficients and points are given: calculations go by the points");
    }
    CheckConductivity(element, material);
}

void ConfigurationCheck::CheckConductivity(pugi::xml_node element, CInsulation material) {
    try {
        if (!material.TemperaturePoints.empty()) {
            material.CalculateQuadratic();
        }
    } catch (const NumericFault& fault) {
        Add(element, "{}", fault.what());
        return;
    }
    const double low = material.MinTemp;
    const double high = material.MaxTemp;
    // A parabola is lowest at an end of the range or at its vertex.
    const double vertex = material.C != 0.0F ? -double{material.B} / (2.0 * material.C) : low;
    for (const double temp : {low, high, std::clamp(vertex, std::min(low, high), std::max(low, high))}) {
        const double conductivity = material.ConductivityAt(temp);
        if (!(conductivity > 0.0 && std::isfinite(conductivity))) {
            Add(element, "the conductivity at {:g} degF, within the service range, is {:.4g}", temp,
                conductivity);
            return;
        }
    }
}

void ConfigurationCheck::CheckFigures(pugi::xml_node element, const CReportingUnit& unit) {
    if (FindById(catalogue_.BaseMetals, unit.DefaultBaseMetalID) == nullptr) {
        Add(element, "DefaultBaseMetalID {} is no base metal", unit.DefaultBaseMetalID);
    }
}

void ConfigurationCheck::CheckFigures(pugi::xml_node element, const CFuel& fuel) {
    CheckPositive(element, "BTU", fuel.BTU);
    CheckPositive(element, "ConversionEfficiency", fuel.ConversionEfficiency);
    std::set<std::int32_t> taken;
    auto pollutant = fuel.Pollutants.cbegin();
    for (const pugi::xml_node node : element.children()) {
        if (node.type() == pugi::node_element) {
            CheckId(node, (pollutant++)->ID, taken);
        }
    }
}

void ConfigurationCheck::CheckPositive(pugi::xml_node element, const char* name, float value) {
    if (element.attribute(name) && !(value > 0.0F)) {
        Add(element, "{} {} is not above 0", name, value_text::RealText(value));
    }
}

void ConfigurationCheck::CheckFigures(pugi::xml_node element, const CInsulationThickness& row) {
    constexpr std::int32_t inches = 1;
    constexpr std::int32_t millimetres = 2;
    if (row.InsulationType != inches && row.InsulationType != millimetres) {
        Add(element, "InsulationType {} is no series: 1 is inches, 2 millimetres", row.InsulationType);
        return;
    }
    const auto series = row.InsulationType == inches ? &CNominalThickness::US : &CNominalThickness::USMetric;
    const auto& nominal = catalogue_.NominalThicknesses;
    if (std::none_of(nominal.begin(), nominal.end(),
                     [&](const CNominalThickness& t) { return t.*series == row.NominalThickness; })) {
        Add(element, "NominalThickness {} is not in the nominal series",
            value_text::RealText(row.NominalThickness));
    }
}

} // namespace

std::vector<FileProblem> CheckConfigurationText(std::string bytes) {
    try {
        const XmlDocument document(std::move(bytes), XmlDocument::Blanks::drop);
        return ConfigurationCheck(document).Run();
    } catch (const FileFault& fault) {
        return {fault.Problem()};
    }
}

std::vector<FileProblem> CheckConfiguration(const std::filesystem::path& path) {
    try {
        return CheckConfigurationText(ReadFile(path, XmlDocument::maxBytes));
    } catch (const FileError& error) {
        return {FileProblem{0, error.what()}};
    }
}

} // namespace kaloria
