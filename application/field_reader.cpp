// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/field_reader.h"

#include "data/field_check.h"
#include "engine/number_text.h"
#include "engine/numeric_fault.h"

#include <fmt/format.h>

#include <algorithm>

namespace kaloria {

void FieldReader::Note(Severity severity, std::string subject, std::string text) {
    findings.push_back({severity, std::move(subject), std::move(text)});
}

void FieldReader::Warn(Field field, std::string text) {
    Note(Severity::warning, std::string(InfoOf(field).element), std::move(text));
}

void FieldReader::Fail(Field field, std::string_view what) {
    const JobField& info = InfoOf(field);
    std::string label(info.label);
    if (!label.empty() && label.back() == ':') {
        label.pop_back();
    }
    Note(Severity::error, std::string(info.element), fmt::format("{}: {}.", label, what));
}

float FieldReader::Needed(Field field) {
    if (IsEmpty(field)) {
        Fail(field, "a value is needed");
        return 0;
    }
    return Optional(field);
}

float FieldReader::Optional(Field field) {
    const JobField& info = InfoOf(field);
    const std::string& text = job_[field];
    if (const auto problem = WhatIsWrong(info, text, units_)) {
        Fail(field, *problem);
        return 0;
    }
    return Single(ToEnglish(info.quantity, units_, ParseNumber(text).value_or(0)));
}

bool FieldReader::Flag(Field field) {
    if (const auto problem = WhatIsWrong(InfoOf(field), job_[field], units_)) {
        Fail(field, *problem);
    }
    return job_.IsTrue(field);
}

bool FieldReader::IsEmpty(Field field) const { return Trimmed(job_[field]).empty(); }

bool FieldReader::HasFailed() const {
    return std::any_of(findings.begin(), findings.end(),
                       [](const Finding& finding) { return finding.severity == Severity::error; });
}

} // namespace kaloria
