// SPDX-License-Identifier: GPL-3.0-or-later
#include "application/validation.h"
#include "tests/fuzz/fuzz_check.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kaloria;
    try {
        for (const ValidationCase& validationCase : ParseValidationCases(fuzz::Text(data, size), "input")) {
            const ValidationResult result = RunValidation(validationCase);
            fuzz::Check(!result.met || result.fault.empty(), "a case without a value is not met");
        }
    } catch (const ValidationFileError&) {
        return 0;
    }
    return 0;
}
