// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/viewer/rtf_reader.h"

#include "reports/rtf_token.h"
#include "ui/viewer/rtf_machine.h"

namespace kaloria::viewer {

namespace {

QString Told(const FileFault& fault) { return QString::fromUtf8(fault.what()); }

/// Checked first, because the tables at the start are read by number; what is broken still gets shown.
QString ProblemOf(std::string_view bytes) {
    try {
        rtf::CheckDocument(bytes);
        return {};
    } catch (const FileFault& fault) {
        return Told(fault);
    }
}

Resources ResourcesOf(std::string_view bytes) {
    try {
        return ReadResources(bytes);
    } catch (const FileFault&) {
        return {}; // plain looks
    }
}

bool StartsAsRichText(std::string_view bytes) { return bytes.substr(0, 5) == "{\\rtf"; }

/// @returns why it ended early
QString TakeAll(RtfMachine& machine, std::string_view bytes) {
    try {
        rtf::Tokenizer tokens(bytes);
        for (auto token = tokens.Next(); token.kind != rtf::Token::Kind::end; token = tokens.Next()) {
            machine.Take(token, bytes);
            if (machine.IsFull()) {
                return QStringLiteral("it is longer than can be shown");
            }
        }
        return {};
    } catch (const FileFault& fault) {
        return Told(fault);
    }
}

} // namespace

RichText ReadRichText(std::string_view bytes) {
    const QString problem = ProblemOf(bytes);
    if (!StartsAsRichText(bytes) || bytes.size() > rtf::maxBytes) {
        RichText nothing;
        nothing.sections.emplace_back();
        nothing.problem = problem;
        return nothing;
    }
    RtfMachine machine(ResourcesOf(bytes));
    const QString early = TakeAll(machine, bytes);
    RichText text = machine.Finish();
    text.problem = early.isEmpty() ? problem : early;
    return text;
}

} // namespace kaloria::viewer
