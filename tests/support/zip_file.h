// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <map>
#include <stdexcept>
#include <string>
#include <zlib.h>

namespace kaloria::test {

inline std::size_t LittleEndian(const std::string& bytes, std::size_t at, std::size_t count) {
    std::size_t value = 0;
    for (std::size_t i = count; i-- > 0;) {
        value = value << 8U | static_cast<unsigned char>(bytes.at(at + i));
    }
    return value;
}

inline std::string Inflated(const std::string& packed, std::size_t size) {
    std::string plain(size, '\0');
    z_stream stream{};
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
    stream.avail_in = static_cast<uInt>(packed.size());
    stream.next_out = reinterpret_cast<Bytef*>(plain.data());
    stream.avail_out = static_cast<uInt>(plain.size());
    const int rawDeflate = -15;
    if (::inflateInit2(&stream, rawDeflate) != Z_OK || ::inflate(&stream, Z_FINISH) != Z_STREAM_END) {
        throw std::runtime_error("damaged archive");
    }
    ::inflateEnd(&stream);
    return plain;
}

/// The files of a ZIP archive by name (PKWARE APPNOTE: central directory, stored or deflated).
inline std::map<std::string, std::string> Unzipped(const std::string& archive) {
    std::map<std::string, std::string> files;
    const std::size_t end = archive.rfind("PK\x05\x06");
    std::size_t at = LittleEndian(archive, end + 16, 4);
    for (std::size_t left = LittleEndian(archive, end + 10, 2); left > 0; --left) {
        const std::size_t packedSize = LittleEndian(archive, at + 20, 4);
        const std::size_t size = LittleEndian(archive, at + 24, 4);
        const std::size_t nameSize = LittleEndian(archive, at + 28, 2);
        const std::size_t local = LittleEndian(archive, at + 42, 4);
        const std::size_t data =
            local + 30 + LittleEndian(archive, local + 26, 2) + LittleEndian(archive, local + 28, 2);
        const std::string packed = archive.substr(data, packedSize);
        const bool deflated = LittleEndian(archive, at + 10, 2) != 0;
        files[archive.substr(at + 46, nameSize)] = deflated ? Inflated(packed, size) : packed;
        at += 46 + nameSize + LittleEndian(archive, at + 30, 2) + LittleEndian(archive, at + 32, 2);
    }
    return files;
}

} // namespace kaloria::test
