// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "reports/rtf_token.h"
#include "ui/viewer/rich_text.h"

#include <QByteArray>

#include <optional>
#include <string_view>

namespace kaloria::viewer {

/// Collects the bytes of a picture and what is said about its size.
class PictureCollector {
public:
    void ApplyWord(const rtf::Token& word);
    void AddHex(std::string_view digits);
    void AddBytes(std::string_view bytes);

    /// Empty for a kind that cannot be shown (metafiles), one that is broken and one that is far too large.
    [[nodiscard]] std::optional<Picture> Decode() const;

private:
    void SetSize(Picture& picture) const;

    QByteArray bytes_;
    const char* kind_ = nullptr;
    int half_ = -1; ///< a digit that waits for its second
    int width_ = 0;
    int height_ = 0;
    int scaleX_ = 100;
    int scaleY_ = 100;
};

} // namespace kaloria::viewer
