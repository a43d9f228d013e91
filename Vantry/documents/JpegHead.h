#pragma once

#include <optional>
#include <string_view>

namespace vantry {

/// What the frame header of a JPEG file (ITU-T T.81) tells.
struct JpegHead {
    int width = 0;
    int height = 0;
    int components = 0;

    /// Reads the header of a file that every reader of PDF can show: baseline, extended or progressive, of
    /// eight bits. Nothing for others, for files that fill the room between segments, and for what is no
    /// JPEG.
    [[nodiscard]] static std::optional<JpegHead> read(std::string_view file);
};

}  // namespace vantry
