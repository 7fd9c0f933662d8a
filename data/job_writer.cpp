// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/atomic_file.h"
#include "data/job_file.h"
#include "data/value_text.h"
#include "data/xml_document.h"
#include "data/xml_text.h"

namespace kaloria {

namespace {

class JobWriter {
public:
    JobWriter(const Job& job, const Catalogue& catalogue)
        : job_(job), catalogue_(catalogue), root_(document_.append_child("Job")) {
        root_.append_attribute("Version").set_value(std::string(jobVersion).c_str());
    }

    std::string Text() {
        for (const JobField& field : JobFields()) {
            AppendField(field);
        }
        return DocumentText(document_);
    }

private:
    void AppendField(const JobField& field);
    void AppendRows(const JobField& field);
    pugi::xml_node Append(std::string_view name, std::string_view text);
    static void SetAttribute(pugi::xml_node element, const char* name, std::string_view text) {
        element.append_attribute(name).set_value(XmlText(text).c_str());
    }

    const Job& job_;
    const Catalogue& catalogue_;
    pugi::xml_document document_;
    pugi::xml_node root_;
};

/// The `ID` of the material that a row shows.
template <class Records>
std::string IdText(const JobMaterial& material, const Records& records) {
    const auto* const record = material.missing ? nullptr : FindByName(records, material.name);
    return value_text::IntegerText(record != nullptr ? record->ID : material.id);
}

void JobWriter::AppendField(const JobField& field) {
    switch (field.kind) {
    case FieldKind::material:
        AppendRows(field);
        break;
    case FieldKind::flag:
        Append(field.element, value_text::FlagText(job_.IsTrue(field.id)));
        break;
    case FieldKind::moisture:
        SetAttribute(Append(field.element, job_[field.id]), "Selected",
                     value_text::FlagText(job_.moisture == field.id));
        break;
    case FieldKind::text:
    case FieldKind::number:
    case FieldKind::choice:
        Append(field.element, field.id == Field::Units && job_.UnitsInForce() == Units::english
                                  ? "English"
                                  : std::string_view(job_[field.id]));
        break;
    }
}

void JobWriter::AppendRows(const JobField& field) {
    if (field.id == Field::BaseMetal) {
        Append(field.element, IdText(job_.baseMetal, catalogue_.BaseMetals));
    } else if (field.id == Field::Jacket) {
        Append(field.element, IdText(job_.jacket, catalogue_.JacketMaterials));
    } else {
        for (const JobLayer& layer : job_.layers) {
            const pugi::xml_node element =
                Append(field.element, IdText(layer.material, catalogue_.Insulations));
            SetAttribute(element, "Layer", layer.layer);
            SetAttribute(element, "Locked", layer.locked);
            SetAttribute(element, "Thickness", layer.thickness);
        }
    }
}

pugi::xml_node JobWriter::Append(std::string_view name, std::string_view text) {
    pugi::xml_node element = root_.append_child(std::string(name).c_str());
    if (!text.empty()) {
        element.append_child(pugi::node_pcdata).set_value(XmlText(text).c_str());
    }
    return element;
}

} // namespace

std::string JobText(const Job& job, const Catalogue& catalogue) { return JobWriter(job, catalogue).Text(); }

void SaveJob(const std::filesystem::path& path, const Job& job, const Catalogue& catalogue) {
    ReplaceFile(path, JobText(job, catalogue));
}

} // namespace kaloria
