// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "application/finding.h"
#include "data/job.h"

#include <string>
#include <string_view>
#include <vector>

namespace kaloria {

/// Reads the fields of a job as checked English values and collects what is wrong with them.
class FieldReader {
public:
    /// @param job  must outlive this object
    explicit FieldReader(const Job& job) : job_(job), units_(job.UnitsInForce()) {}

    [[nodiscard]] const Job& TheJob() const { return job_; }
    [[nodiscard]] Units UnitsInForce() const { return units_; }

    void Note(Severity severity, std::string subject, std::string text);
    void Warn(Field field, std::string text);

    /// An error at a field: its label, then @p what, a phrase without a full stop.
    void Fail(Field field, std::string_view what);

    /// A number that is needed, as an English value; 0 after an error. Fuel prices and heating values stay as
    /// they are.
    [[nodiscard]] float Needed(Field field);

    /// A number that may be missing: 0 then.
    [[nodiscard]] float Optional(Field field);

    /// A flag; false after an error.
    [[nodiscard]] bool Flag(Field field);

    [[nodiscard]] bool IsEmpty(Field field) const;
    [[nodiscard]] bool HasFailed() const;

    std::vector<Finding> findings;

private:
    const Job& job_;
    Units units_;
};

} // namespace kaloria
