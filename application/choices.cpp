// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/choices.h"

#include "application/case_inputs.h"

#include <iterator>

namespace kaloria {

namespace {

template <class Records, class Member>
std::vector<std::string> Texts(const Records& records, Member member) {
    std::vector<std::string> texts;
    for (const auto& record : records) {
        texts.push_back(record.*member);
    }
    return texts;
}

std::vector<std::string> Sizes(const Job& job, const Catalogue& catalogue) {
    const auto* const geometry = FindByName(catalogue.SurfaceGeometries, job[Field::SurfaceGeometry]);
    return geometry == nullptr ? std::vector<std::string>{}
                               : SizeTexts(catalogue, geometry->ID, job.UnitsInForce());
}

} // namespace

std::vector<std::string> ChoicesOf(Field field, const Job& job, const Catalogue& catalogue) {
    switch (InfoOf(field).choice) {
    case FieldChoice::none:
        return {};
    case FieldChoice::units:
        return {"English", "SI"};
    case FieldChoice::calculationType:
        return {std::begin(calculationTypeNames), std::end(calculationTypeNames)};
    case FieldChoice::surfaceGeometry:
        return Texts(catalogue.SurfaceGeometries, &CSurfaceGeometry::Name);
    case FieldChoice::size:
        return Sizes(job, catalogue);
    case FieldChoice::fuel:
        return ActiveNames(catalogue.Fuels);
    case FieldChoice::insulation:
        return ActiveNames(catalogue.Insulations);
    case FieldChoice::jacket:
        return ActiveNames(catalogue.JacketMaterials);
    case FieldChoice::reportingUnit:
        return Texts(catalogue.ReportingUnits, &CReportingUnit::Name);
    case FieldChoice::complexity:
        return {std::begin(complexityNames), std::end(complexityNames)};
    case FieldChoice::region:
        return Texts(catalogue.ProductivityFactors, &CProductivityFactor::Region);
    }
    return {};
}

} // namespace kaloria
