// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/viewer/rtf_picture.h"

#include "ui/viewer/rtf_look.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>
#include <utility>

namespace kaloria::viewer {

namespace {

constexpr int mostPixels = 40'000'000;
constexpr double pixelsPerInch = 96; // of a picture that does not say how large it is

int ValueOf(char digit) {
    if (digit >= '0' && digit <= '9') {
        return digit - '0';
    }
    const char small = static_cast<char>(digit | 0x20);
    return small >= 'a' && small <= 'f' ? small - 'a' + 10 : -1;
}

int Scaled(int length, int percent) {
    return static_cast<int>(static_cast<double>(length) * percent / 100 + 0.5);
}

} // namespace

void PictureCollector::ApplyWord(const rtf::Token& word) {
    constexpr int largestScale = 10000;
    if (word.name == "pngblip") {
        kind_ = "PNG";
    } else if (word.name == "jpegblip") {
        kind_ = "JPG";
    } else if (word.name == "picwgoal") {
        width_ = NumberOf(word, 0, farthest);
    } else if (word.name == "pichgoal") {
        height_ = NumberOf(word, 0, farthest);
    } else if (word.name == "picscalex") {
        scaleX_ = NumberOf(word, 1, largestScale, 100);
    } else if (word.name == "picscaley") {
        scaleY_ = NumberOf(word, 1, largestScale, 100);
    }
}

void PictureCollector::AddHex(std::string_view digits) {
    for (const char digit : digits) {
        const int value = ValueOf(digit);
        if (value < 0) {
            continue;
        }
        if (half_ < 0) {
            half_ = value;
        } else {
            bytes_.append(static_cast<char>(std::exchange(half_, -1) * 16 + value));
        }
    }
}

void PictureCollector::AddBytes(std::string_view bytes) {
    bytes_.append(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

std::optional<Picture> PictureCollector::Decode() const {
    if (kind_ == nullptr) {
        return std::nullopt;
    }
    QByteArray copy = bytes_;
    QBuffer buffer(&copy);
    QImageReader reader(&buffer, kind_);
    const QSize size = reader.size();
    if (!size.isValid() || static_cast<qint64>(size.width()) * size.height() > mostPixels) {
        return std::nullopt;
    }
    Picture picture;
    picture.image = reader.read();
    if (picture.image.isNull()) {
        return std::nullopt;
    }
    SetSize(picture);
    return picture;
}

void PictureCollector::SetSize(Picture& picture) const {
    const auto lengthOf = [](int goal, int scale, int pixels) {
        const int whole = goal > 0 ? goal : static_cast<int>(pixels * twipsPerInch / pixelsPerInch);
        return std::clamp(Scaled(whole, scale), 1, farthest);
    };
    picture.width = lengthOf(width_, scaleX_, picture.image.width());
    picture.height = lengthOf(height_, scaleY_, picture.image.height());
}

} // namespace kaloria::viewer
