// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/configuration_file.h"
#include "data/record_tables.h"
#include "data/value_text.h"
#include "data/xml_document.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace kaloria {

namespace {

/// Whether a record of the user's has what @p isThat looks for, and no system record of the same file has.
template <class Record, class IsThat>
bool IsTheUsersOnly(const Collection<Record>& records, const IsThat& isThat) {
    bool users = false;
    for (const Record& record : records) {
        if (isThat(record)) {
            if (record.CreatedBy == systemCreator) {
                return false;
            }
            users = true;
        }
    }
    return users;
}

/// Removes the records whose `ID` or name the user took first: jobs name records by them, and would go over
/// to another material without a word.
template <class Record>
void LeaveOutTaken(pugi::xml_node root, const tables::Section<Record>& section, const Catalogue& mine,
                   std::vector<std::string>& leftOut) {
    const std::string name(section.name);
    const Collection<Record>& records = mine.*section.records;
    for (pugi::xml_node node = root.child(name.c_str()); node; node = node.next_sibling(name.c_str())) {
        for (pugi::xml_node element = node.first_child(); element;) {
            const pugi::xml_node next = element.next_sibling();
            const auto id = value_text::ParseInteger(LastAttribute(element, "ID").value());
            const std::string_view called = LastAttribute(element, "Name").value();
            if (IsTheUsersOnly(records, [&](const Record& record) { return record.ID == id; }) ||
                IsTheUsersOnly(records, [&](const Record& record) { return record.Name == called; })) {
                leftOut.push_back(fmt::format("{} {} \"{}\"", section.element, id.value_or(0), called));
                node.remove_child(element);
            }
            element = next;
        }
    }
}

} // namespace

std::string SystemConfigurationText(std::string bytes) {
    return SavedConfigurationText(std::move(bytes), Catalogue());
}

RenewedConfiguration RenewedConfigurationText(std::string shipped, std::string mine) {
    Catalogue own;
    if (auto problem = LoadConfigurationText(std::move(mine), own)) {
        throw FileFault(*std::move(problem));
    }
    const XmlDocument document(std::move(shipped), XmlDocument::Blanks::drop);
    RenewedConfiguration renewed;
    tables::ForEachSection([&]<class Record>(const tables::Section<Record>& section) {
        if constexpr (tables::IsWritten<Record>) {
            LeaveOutTaken(document.First(), section, own, renewed.leftOut);
        }
    });
    renewed.text = SavedConfigurationText(document.Text(), own);
    return renewed;
}

} // namespace kaloria
