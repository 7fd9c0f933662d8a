// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/atomic_file.h"
#include "data/configuration_file.h"
#include "data/record_tables.h"
#include "data/value_text.h"
#include "data/xml_document.h"

#include <fmt/format.h>

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace kaloria {

namespace {

using tables::Attribute;
using tables::Rule;
using tables::Section;

/// Whether a material is given by its points: only then are they written, and only otherwise the
/// coefficients.
bool IsGivenByPoints(const CInsulation& material) {
    return material.A == 0.0F && material.B == 0.0F && material.C == 0.0F;
}

template <class Record>
bool WritesCoefficients(const Record&) {
    return true;
}
bool WritesCoefficients(const CInsulation& material) { return !IsGivenByPoints(material); }

template <class Record>
bool WritesChildren(const Record&) {
    return true;
}
bool WritesChildren(const CInsulation& material) { return IsGivenByPoints(material); }

/// @param position  of the record among its siblings, from 1
template <class Record>
std::string AttributeText(const Attribute<Record>& attribute, const Record& record, int position) {
    try {
        return attribute.rule == Rule::position ? value_text::IntegerText(position) : attribute.text(record);
    } catch (const std::domain_error& error) {
        throw FileFault({0, fmt::format("{} of a record to be saved is {}", attribute.name, error.what())});
    }
}

template <class Record>
pugi::xml_node AppendElement(pugi::xml_node parent, const char* name, const Record& record, int position) {
    pugi::xml_node element = parent.append_child(name);
    for (const Attribute<Record>& attribute : tables::attributes<Record>) {
        if (attribute.rule != Rule::coefficient || WritesCoefficients(record)) {
            element.append_attribute(std::string(attribute.name).c_str())
                .set_value(AttributeText(attribute, record, position).c_str());
        }
    }
    return element;
}

template <class Record>
void AppendRecord(pugi::xml_node node, const Section<Record>& section, const Record& record) {
    pugi::xml_node element = AppendElement(node, section.element, record, 0);
    if constexpr (tables::HasChildren<Record>) {
        if (WritesChildren(record)) {
            int position = 0;
            for (const auto& child : record.*tables::children<Record>) {
                AppendElement(element, section.childElement, child, ++position);
            }
        }
    }
}

bool IsSystemRecord(const XmlDocument& document, pugi::xml_node element) {
    const pugi::xml_attribute createdBy = LastAttribute(element, "CreatedBy");
    if (!createdBy) {
        throw document.FaultAt(element, "the record has no CreatedBy attribute");
    }
    return createdBy.value() == systemCreator;
}

void RemoveUserRecords(const XmlDocument& document, pugi::xml_node section) {
    for (pugi::xml_node element = section.first_child(); element;) {
        const pugi::xml_node next = element.next_sibling();
        if (!IsSystemRecord(document, element)) {
            section.remove_child(element);
        }
        element = next;
    }
}

template <class Record>
bool HasUserRecords(const Collection<Record>& records) {
    return std::any_of(records.begin(), records.end(),
                       [](const Record& record) { return record.CreatedBy != systemCreator; });
}

template <class Record>
void WriteSection(const XmlDocument& document, const Section<Record>& section, const Catalogue& catalogue) {
    const pugi::xml_node root = document.First();
    const std::string name(section.name);
    const Collection<Record>& records = catalogue.*section.records;
    pugi::xml_node target = root.child(name.c_str());
    // A section that stands in the file twice loads twice; writing the user's records into both would double
    // them with every run.
    for (pugi::xml_node node = target; node; node = node.next_sibling(name.c_str())) {
        RemoveUserRecords(document, node);
    }
    if (!target && HasUserRecords(records)) {
        target = pugi::xml_node(root).append_child(name.c_str());
    }
    for (const Record& record : records) {
        if (record.CreatedBy != systemCreator) {
            AppendRecord(target, section, record);
        }
    }
}

} // namespace

std::string SavedConfigurationText(std::string bytes, const Catalogue& catalogue) {
    Catalogue onDisk;
    if (auto problem = LoadConfigurationText(bytes, onDisk)) {
        throw FileFault(*std::move(problem));
    }
    const XmlDocument document(std::move(bytes), XmlDocument::Blanks::drop);
    if (document.First().type() != pugi::node_element) {
        throw FileFault({1, "the root element is not the first node of the document"});
    }
    tables::ForEachSection([&]<class Record>(const Section<Record>& section) {
        if constexpr (tables::IsWritten<Record>) {
            WriteSection(document, section, catalogue);
        }
    });
    return document.Text();
}

std::string UserRecordsText(const Catalogue& catalogue) {
    return SavedConfigurationText("<Configuration/>", catalogue);
}

std::optional<FileProblem> SaveConfiguration(const std::filesystem::path& path, const Catalogue& catalogue) {
    try {
        ReplaceFile(path, SavedConfigurationText(ReadFile(path, XmlDocument::maxBytes), catalogue));
        return std::nullopt;
    } catch (const FileFault& fault) {
        return fault.Problem();
    } catch (const FileError& error) {
        return FileProblem{0, error.what()};
    }
}

} // namespace kaloria
