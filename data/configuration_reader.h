// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/record_tables.h"

#include <pugixml.hpp>

#include <functional>
#include <string>

namespace kaloria {

/// Reads the sections of a configuration document into a catalogue. Whatever does not fit goes to `report`,
/// which either throws, as loading does, or returns to have the rest read, as checking does.
class ConfigurationReader {
public:
    using Report = std::function<void(pugi::xml_node place, std::string text)>;

    ConfigurationReader(Catalogue& catalogue, Report report);

    /// @param root  first node of the document; one that is no element has no sections
    void Read(pugi::xml_node root);

private:
    template <class Use>
    void ForEachElement(pugi::xml_node parent, Use&& use);
    void ReadHeaderTexts(pugi::xml_node section);
    void ReadHeaderText(pugi::xml_node element);
    template <class Record>
    void ReadSection(pugi::xml_node node, const tables::Section<Record>& section);
    template <class Record>
    [[nodiscard]] Record ReadRecord(pugi::xml_node element);

    Catalogue& catalogue_;
    Report report_;
    int headerCode_ = 0; ///< an element without an `ID` takes that of the element before it
};

} // namespace kaloria
