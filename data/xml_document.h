// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/file_problem.h"

#include <pugixml.hpp>

#include <cstddef>
#include <string>
#include <string_view>

namespace kaloria {

/// An XML document that was read from untrusted bytes: UTF-8, well formed at its outermost level, of limited
/// size and nesting, so that walking it recursively is safe. Declaration, comments, processing instructions
/// and document type are kept as nodes, because the readers ask what the first node is.
class XmlDocument {
public:
    static constexpr std::size_t maxBytes = std::size_t{32} << 20U;
    static constexpr int maxDepth = 100;

    enum class Blanks {
        drop,     ///< text of blanks only is layout and left out
        keepAlone ///< ... unless it is all that an element holds
    };

    /// @throws FileFault with the line of the error
    XmlDocument(std::string bytes, Blanks blanks);

    /// The document's first node of whatever kind; there always is one.
    [[nodiscard]] pugi::xml_node First() const { return document_.first_child(); }

    /// Line of the file, from 1, on which @p node starts.
    [[nodiscard]] int LineOf(pugi::xml_node node) const;

    /// The document with the changes made through its nodes, as a file's text.
    [[nodiscard]] std::string Text() const;

    /// A fault that names the line of @p node.
    [[nodiscard]] FileFault FaultAt(pugi::xml_node node, std::string text) const;

private:
    [[nodiscard]] int LineAt(std::size_t offset) const;
    [[nodiscard]] FileFault FaultAtOffset(std::size_t offset, std::string text) const;
    void CheckCharacters() const;
    void Parse(unsigned int options);
    void CheckOutermostLevel() const;
    void CheckDepth() const;

    std::string bytes_; ///< as read: the parser works on a copy that it changes
    pugi::xml_document document_;
    // Problems come in the order of the document, so that counting on from the last place asked for takes one
    // pass over the file for all of them.
    mutable std::size_t knownOffset_ = 0;
    mutable int knownLine_ = 1;
};

/// The attribute that counts where an element has several of that name (the parser lets them pass): the last,
/// as when they are all read one after another. Null where there is none.
[[nodiscard]] pugi::xml_attribute LastAttribute(pugi::xml_node element, std::string_view name);

/// The text of everything inside @p node, comments left out.
[[nodiscard]] std::string TextContent(pugi::xml_node node);

/// A document as a file's text, in the layout that all files have: a tab per level, no declaration.
[[nodiscard]] std::string DocumentText(const pugi::xml_document& document);

} // namespace kaloria
