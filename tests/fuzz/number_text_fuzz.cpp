// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/value_text.h"
#include "data/xml_text.h"
#include "engine/number_text.h"
#include "tests/fuzz/fuzz_check.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace {

bool IsValid(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = kaloria::XmlCharacterLength(text);
        if (length == 0) {
            return false;
        }
        text.remove_prefix(length);
    }
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kaloria;
    const std::string text = fuzz::Text(data, size);
    const auto number = ParseNumber(text);
    const auto single = ParseSingle(text);
    fuzz::Check(!number || std::isfinite(*number), "a number is finite");
    fuzz::Check(!single || (number && std::isfinite(*single)), "a single is a finite number");
    fuzz::Check(!single || ParseSingle(value_text::RealText(*single)) == single,
                "a single written reads back");
    const auto integer = value_text::ParseInteger(text);
    fuzz::Check(!integer || std::abs(*number - *integer) <= 0.5, "an integer is the nearest one");
    fuzz::Check(!number || value_text::ParseFlag(text) == (*number != 0.0), "a number is a flag");
    float any = 0;
    std::memcpy(&any, data, std::min(size, sizeof any));
    fuzz::Check(!std::isfinite(any) || ParseSingle(value_text::RealText(any)) == any, "any float reads back");
    fuzz::Check(IsValid(XmlText(text)), "text made fit for a file is fit");
    return 0;
}
