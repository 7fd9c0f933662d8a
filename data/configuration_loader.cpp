// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/atomic_file.h"
#include "data/configuration_file.h"
#include "data/configuration_reader.h"
#include "data/value_text.h"
#include "data/xml_document.h"

#include <fmt/format.h>

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace kaloria {

namespace {

template <class Record>
const tables::Attribute<Record>* FindAttribute(std::string_view name) {
    const auto& all = tables::attributes<Record>;
    const auto* const found = std::find_if(all.begin(), all.end(),
                                           [name](const auto& attribute) { return attribute.name == name; });
    return found == all.end() ? nullptr : found;
}

} // namespace

ConfigurationReader::ConfigurationReader(Catalogue& catalogue, Report report)
    : catalogue_(catalogue), report_(std::move(report)) {}

template <class Use>
void ConfigurationReader::ForEachElement(pugi::xml_node parent, Use&& use) {
    for (const pugi::xml_node child : parent.children()) {
        if (child.type() == pugi::node_element) {
            use(child);
        } else {
            report_(child,
                    fmt::format("a comment, text or instruction inside <{}>, where only elements may stand",
                                parent.name()));
        }
    }
}

void ConfigurationReader::Read(pugi::xml_node root) {
    if (root.type() != pugi::node_element) {
        return;
    }
    ForEachElement(root, [this](pugi::xml_node node) {
        if (node.name() == tables::headerSection) {
            ReadHeaderTexts(node);
        }
        tables::ForEachSection([&](const auto& section) {
            if (node.name() == section.name) {
                ReadSection(node, section);
            }
        });
    });
}

void ConfigurationReader::ReadHeaderTexts(pugi::xml_node section) {
    ForEachElement(section, [this](pugi::xml_node element) { ReadHeaderText(element); });
}

void ConfigurationReader::ReadHeaderText(pugi::xml_node element) {
    for (const pugi::xml_attribute attribute : element.attributes()) {
        if (attribute.name() != std::string_view("ID")) {
            continue;
        }
        const auto code = value_text::ParseInteger(attribute.value());
        if (!code) {
            report_(element, fmt::format("ID: \"{}\" is not an integer", attribute.value()));
            return;
        }
        headerCode_ = *code;
    }
    try {
        catalogue_.Headers.Set(headerCode_ / 100, headerCode_ % 100 / 10, headerCode_ % 10,
                               TextContent(element));
    } catch (const std::out_of_range&) {
        report_(element, fmt::format("ID: {} is no position of a header text (three digits, the first two "
                                     "0 to 5)",
                                     headerCode_));
    }
}

template <class Record>
void ConfigurationReader::ReadSection(pugi::xml_node node, const tables::Section<Record>& section) {
    auto& records = catalogue_.*section.records;
    ForEachElement(node, [&](pugi::xml_node element) { records.push_back(ReadRecord<Record>(element)); });
}

template <class Record>
Record ConfigurationReader::ReadRecord(pugi::xml_node element) {
    Record record;
    for (const pugi::xml_attribute attribute : element.attributes()) {
        const auto* const known = FindAttribute<Record>(attribute.name());
        if (known != nullptr && !known->store(attribute.value(), known->rule, record)) {
            report_(element, fmt::format("{}: \"{}\" cannot be read", attribute.name(), attribute.value()));
        }
    }
    if constexpr (tables::HasChildren<Record>) {
        ForEachElement(element, [&](pugi::xml_node child) {
            (record.*tables::children<Record>).push_back(ReadRecord<tables::ChildOf<Record>>(child));
        });
    }
    return record;
}

std::optional<FileProblem> LoadConfigurationText(std::string bytes, Catalogue& catalogue) {
    try {
        const XmlDocument document(std::move(bytes), XmlDocument::Blanks::drop);
        ConfigurationReader reader(catalogue, [&](pugi::xml_node place, std::string text) {
            throw document.FaultAt(place, std::move(text));
        });
        reader.Read(document.First());
        return std::nullopt;
    } catch (const FileFault& fault) {
        return fault.Problem();
    }
}

std::optional<FileProblem> LoadConfiguration(const std::filesystem::path& path, Catalogue& catalogue) {
    try {
        return LoadConfigurationText(ReadFile(path, XmlDocument::maxBytes), catalogue);
    } catch (const FileError& error) {
        return FileProblem{0, error.what()};
    }
}

} // namespace kaloria
