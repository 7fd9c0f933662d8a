// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/rtf_binder.h"
#include "tests/fuzz/fuzz_check.h"

#include <optional>

namespace {

using namespace kaloria;

std::optional<rtf::Document> Loaded(const std::string& bytes) {
    try {
        return rtf::Document(bytes);
    } catch (const FileFault& fault) {
        fuzz::Check(!fault.Problem().text.empty(), "a fault has a text");
        return std::nullopt;
    }
}

/// Whatever is done to a document, it stays one.
void CheckSound(const std::string& bytes) { fuzz::Check(Loaded(bytes).has_value(), "the result is sound"); }

void CheckBinding(const rtf::Document& document) {
    static const rtf::Document other("{\\rtf1\\deff1{\\fonttbl{\\f1 A;}{\\f2 "
                                     "B;}}{\\colortbl;\\red1;}{\\stylesheet{Normal;}{\\s1\\sbasedon0 S;}}"
                                     "{\\*\\listtable{\\list{\\listlevel\\f2}\\listid1}}{\\*"
                                     "\\listoverridetable{\\listoverride\\listid1\\ls1}}"
                                     "{\\header h\\par}\\pard\\s1\\ls1\\f2\\cf1 x<A/>\\par}");
    const rtf::Document* const orders[][3] = {{&document, &other, &document}, {&other, &document, &other}};
    for (const auto& order : orders) {
        rtf::Binder binder(*order[0]);
        binder.Append(*order[1]);
        binder.Append(*order[2]);
        CheckSound(binder.Bytes());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes = fuzz::Text(data, size);
    const auto document = Loaded(bytes);
    if (!document) {
        return 0;
    }
    fuzz::Check(document->Bytes() == bytes, "written as it was read");
    CheckBinding(*document);

    rtf::Document filled = *document;
    filled.Fill({{"<A/>", "a {\\} b\n"}, {"<B/>", ""}, {"<T/>", "-1"}});
    CheckSound(filled.Bytes());
    for (const std::string& tag : filled.Tags()) {
        fuzz::Check(tag != "<A/>" && tag != "<T/>", "a tag is filled");
    }

    rtf::Document shorter = *document;
    const std::size_t count = shorter.RemoveParagraphsWith({"<A/>"});
    CheckSound(shorter.Bytes());
    fuzz::Check(count > 0 || shorter.Bytes() == bytes, "nothing removed, nothing changed");
    fuzz::Check(shorter.Bytes().size() <= bytes.size() + bytes.size() / 2, "removing makes shorter");

    rtf::TableBuilder table({{1000}, {1000, rtf::Alignment::right}});
    table.AddRow({"1", "2"});
    try {
        rtf::Document withTable = *document;
        withTable.FillBlock("<T/>", table.Build());
        CheckSound(withTable.Bytes());
    } catch (const FileFault& fault) {
        fuzz::Check(fault.Problem().line > 0, "a table in a table has a line");
    }
    return 0;
}
