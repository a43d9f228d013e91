#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include <QCache>
#include <QImage>
#include <QSize>
#include <QString>

#include "VantryCore/persistence/FileOperations.h"

namespace vantry {

/// The storyboard images of a library, decoded for showing. Keeps what was shown lately within a bound of
/// memory; a file that is gone or was replaced is noticed at the next call.
///
/// A file is decoded once for all the sizes in which pages show it, and once more for larger ones; what was
/// asked for is scaled down from that. A file that cannot be decoded is tried once.
class StoryboardImages {
public:
    explicit StoryboardImages(std::filesystem::path dataFolder);

    /// No image is shown with more pixels than this in either direction, except in its own size.
    static constexpr int largestSide = 5120;

    /// The image of that key, no larger than `bound` and not enlarged; in its own size when `bound` is empty.
    /// It fills a `bound` that its proportions miss by a point.
    /// A null image when there is no file, or no image in it. While nothing of it changes, and there is room
    /// to keep it, it is the same image at each call.
    [[nodiscard]] QImage image(const std::string& key, const QSize& bound);

    /// Keeps the bytes of an image file as they are and answers the key that names them. Throws VantryError
    /// invalidBackup when they are no image, and std::system_error when the disk fails.
    [[nodiscard]] std::string import(std::string_view bytes, FileOperations& disk);

private:
    struct Decoded {
        QImage image;
        FileStatus file;
        QSize room;  ///< it fills this in one direction, or is as large as in the file; empty: the latter
    };
    using Shelf = QCache<QString, Decoded>;

    /// The image with at least the pixels that `bound` can show.
    [[nodiscard]] QImage source(const std::string& key, const QSize& bound, const FileStatus& file);

    std::filesystem::path folder;
    Shelf shown;    ///< in the sizes of pages
    Shelf sources;  ///< what those are made of, by key
    Shelf large;    ///< larger ones, and what they are made of
};

}  // namespace vantry
