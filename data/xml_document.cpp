// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/xml_document.h"

#include "data/xml_text.h"
#include "engine/number_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstring>
#include <utility>

namespace kaloria {

namespace {

constexpr unsigned int everyNode = pugi::parse_full | pugi::parse_fragment;

bool IsText(pugi::xml_node node) {
    return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
}

bool IsUtf16(std::string_view bytes) {
    const std::string_view start = bytes.substr(0, 2);
    return start == "\xFE\xFF" || start == "\xFF\xFE";
}

/// The node after @p node in the order of the document, given that its children are done with; null at the
/// end.
/// @param depth  of @p node, changed to that of the result
pugi::xml_node NextOutside(pugi::xml_node node, int& depth) {
    while (node && !node.next_sibling()) {
        node = node.parent();
        --depth;
    }
    return node ? node.next_sibling() : node;
}

/// Gathers text without recursion.
struct TextCollector : pugi::xml_tree_walker {
    std::string text;
    bool for_each(pugi::xml_node& node) override {
        if (IsText(node)) {
            text += node.value();
        }
        return true;
    }
};

struct StringWriter : pugi::xml_writer {
    std::string text;
    void write(const void* data, std::size_t size) override {
        text.append(static_cast<const char*>(data), size);
    }
};

} // namespace

XmlDocument::XmlDocument(std::string bytes, Blanks blanks) : bytes_(std::move(bytes)) {
    CheckCharacters();
    Parse(blanks == Blanks::keepAlone ? everyNode | pugi::parse_ws_pcdata_single : everyNode);
    CheckOutermostLevel();
    CheckDepth();
}

int XmlDocument::LineOf(pugi::xml_node node) const {
    while (node && node.offset_debug() < 0) {
        node = node.parent();
    }
    return LineAt(node ? static_cast<std::size_t>(node.offset_debug()) : 0);
}

std::string XmlDocument::Text() const { return DocumentText(document_); }

int XmlDocument::LineAt(std::size_t offset) const {
    offset = std::min(offset, bytes_.size());
    if (offset < knownOffset_) {
        knownOffset_ = 0;
        knownLine_ = 1;
    }
    const char* const data = bytes_.data();
    knownLine_ += static_cast<int>(std::count(data + knownOffset_, data + offset, '\n'));
    knownOffset_ = offset;
    return knownLine_;
}

FileFault XmlDocument::FaultAt(pugi::xml_node node, std::string text) const {
    return FileFault({LineOf(node), std::move(text)});
}

FileFault XmlDocument::FaultAtOffset(std::size_t offset, std::string text) const {
    return FileFault({LineAt(offset), std::move(text)});
}

void XmlDocument::CheckCharacters() const {
    if (bytes_.size() > maxBytes) {
        throw FileFault({0, fmt::format("the file is larger than {} bytes", maxBytes)});
    }
    if (IsUtf16(bytes_)) {
        throw FileFault({1, "the file is in UTF-16; it must be in UTF-8"});
    }
    for (std::size_t at = 0; at < bytes_.size();) {
        const std::size_t length = XmlCharacterLength(std::string_view(bytes_).substr(at));
        if (length == 0) {
            throw FaultAtOffset(at, "a character that is not allowed in XML, or not in UTF-8");
        }
        at += length;
    }
}

void XmlDocument::Parse(unsigned int options) {
    const auto result = document_.load_buffer(bytes_.data(), bytes_.size(), options, pugi::encoding_utf8);
    if (!result) {
        throw FaultAtOffset(static_cast<std::size_t>(std::max<std::ptrdiff_t>(result.offset, 0)),
                            fmt::format("not well-formed XML: {}", result.description()));
    }
}

void XmlDocument::CheckOutermostLevel() const {
    int elements = 0;
    for (const pugi::xml_node node : document_.children()) {
        // The parser lets blanks pass as text when they are all that there is.
        if (IsText(node) && !Trimmed(node.value()).empty()) {
            throw FaultAt(node, "not well-formed XML: text outside the root element");
        }
        elements += node.type() == pugi::node_element ? 1 : 0;
        if (elements > 1) {
            throw FaultAt(node, "not well-formed XML: a second root element");
        }
    }
    if (elements == 0) {
        throw FileFault({1, "not well-formed XML: no root element"});
    }
}

void XmlDocument::CheckDepth() const {
    int depth = 1;
    pugi::xml_node node = document_.first_child();
    while (node) {
        if (depth > maxDepth) {
            throw FaultAt(node, fmt::format("elements are nested more than {} deep", maxDepth));
        }
        const pugi::xml_node child = node.first_child();
        depth += child ? 1 : 0;
        node = child ? child : NextOutside(node, depth);
    }
}

pugi::xml_attribute LastAttribute(pugi::xml_node element, std::string_view name) {
    pugi::xml_attribute attribute = element.last_attribute();
    while (attribute && attribute.name() != name) {
        attribute = attribute.previous_attribute();
    }
    return attribute;
}

std::string TextContent(pugi::xml_node node) {
    TextCollector collector;
    node.traverse(collector);
    return std::move(collector.text);
}

std::string DocumentText(const pugi::xml_document& document) {
    StringWriter writer;
    document.save(writer, "\t", pugi::format_indent | pugi::format_no_declaration, pugi::encoding_utf8);
    return std::move(writer.text);
}

} // namespace kaloria
