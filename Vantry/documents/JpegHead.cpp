#include "Vantry/documents/JpegHead.h"

#include <cstddef>

namespace vantry {
namespace {

constexpr unsigned startOfImage = 0xD8;
constexpr unsigned firstFrame = 0xC0;
constexpr unsigned progressiveFrame = 0xC2;
constexpr unsigned startOfScan = 0xDA;

}  // namespace

std::optional<JpegHead> JpegHead::read(std::string_view file) {
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(file[at]); };
    const auto word = [&](std::size_t at) { return byte(at) << 8 | byte(at + 1); };
    if (file.size() < 4 || byte(0) != 0xFF || byte(1) != startOfImage)
        return std::nullopt;
    std::size_t at = 2;
    while (at + 10 <= file.size() && byte(at) == 0xFF) {
        const unsigned marker = byte(at + 1);
        if (marker >= firstFrame && marker <= progressiveFrame) {
            if (byte(at + 4) != 8)
                return std::nullopt;
            return JpegHead{word(at + 7), word(at + 5), byte(at + 9)};
        }
        if (marker == startOfScan)
            break;
        at += 2 + static_cast<std::size_t>(word(at + 2));
    }
    return std::nullopt;
}

}  // namespace vantry
