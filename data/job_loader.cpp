// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/atomic_file.h"
#include "data/job_file.h"
#include "data/job_reader.h"
#include "data/value_text.h"
#include "data/xml_document.h"

#include <fmt/format.h>

#include <utility>

namespace kaloria {

JobReader::JobReader(const Catalogue& catalogue, Job& job, Report report)
    : catalogue_(catalogue), job_(job), report_(std::move(report)) {}

void JobReader::Read(pugi::xml_node root) {
    for (const pugi::xml_node element : root.children()) {
        const JobField* const field =
            element.type() == pugi::node_element ? FindField(LocalName(element)) : nullptr;
        if (field != nullptr) {
            ReadField(element, *field);
        }
    }
}

void JobReader::ReadField(pugi::xml_node element, const JobField& field) {
    if (field.kind == FieldKind::material) {
        ReadRow(element, field.id);
        return;
    }
    std::string text = TextContent(element);
    if (field.id == Field::Units) {
        text = text == "SI" ? "SI" : "English";
    } else if (field.kind == FieldKind::flag) {
        text = value_text::FlagText(value_text::IsExactTrue(text));
    } else if (field.kind == FieldKind::moisture &&
               value_text::IsExactTrue(element.attribute("Selected").value())) {
        job_.moisture = field.id;
    }
    job_[field.id] = std::move(text);
}

void JobReader::ReadRow(pugi::xml_node element, Field field) {
    if (!std::exchange(hasRows_, true)) {
        job_.layers.clear();
    }
    if (field == Field::BaseMetal) {
        job_.baseMetal = ReadMaterial(element, catalogue_.BaseMetals);
    } else if (field == Field::Jacket) {
        job_.jacket = ReadMaterial(element, catalogue_.JacketMaterials);
    } else {
        ReadLayer(element);
    }
}

template <class Records>
JobMaterial JobReader::ReadMaterial(pugi::xml_node element, const Records& records) {
    const std::string text = TextContent(element);
    const auto id = value_text::ParseInteger(text);
    if (!id) {
        report_(element, fmt::format("{}: \"{}\" is no ID", element.name(), text));
        return {0, text, true};
    }
    const auto* const record = FindById(records, *id);
    return record != nullptr ? JobMaterial{*id, record->Name, false}
                             : JobMaterial{*id, fmt::format("ID {}", *id), true};
}

void JobReader::ReadLayer(pugi::xml_node element) {
    if (job_.layers.size() == mostLayers) {
        report_(element, fmt::format("more than {} insulation layers", mostLayers));
        return;
    }
    job_.layers.push_back({ReadMaterial(element, catalogue_.Insulations), element.attribute("Layer").value(),
                           element.attribute("Locked").value(), element.attribute("Thickness").value()});
}

std::string_view LocalName(pugi::xml_node element) {
    const std::string_view name = element.name();
    return name.substr(name.find(':') + 1); // npos + 1 is 0: the whole name
}

JobLoad LoadJobText(std::string bytes, const Catalogue& catalogue, Job& job) {
    try {
        const XmlDocument document(std::move(bytes), XmlDocument::Blanks::keepAlone);
        const pugi::xml_node root = document.First();
        const std::string_view version = root.attribute("Version").value();
        if (root.type() != pugi::node_element || version != jobVersion) {
            return {JobLoad::Kind::wrongVersion,
                    {document.LineOf(root),
                     fmt::format("Version is \"{}\" instead of \"{}\"", version, jobVersion)}};
        }
        JobReader(catalogue, job, [&](pugi::xml_node place, std::string text) {
            throw document.FaultAt(place, std::move(text));
        }).Read(root);
        return {};
    } catch (const FileFault& fault) {
        return {JobLoad::Kind::failed, fault.Problem()};
    }
}

JobLoad LoadJob(const std::filesystem::path& path, const Catalogue& catalogue, Job& job) {
    try {
        return LoadJobText(ReadFile(path, XmlDocument::maxBytes), catalogue, job);
    } catch (const FileError& error) {
        const bool notFound = error.GetKind() == FileError::Kind::notFound;
        return {notFound ? JobLoad::Kind::notFound : JobLoad::Kind::failed, {0, error.what()}};
    }
}

} // namespace kaloria
