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
class StoryboardImages {
public:
    explicit StoryboardImages(std::filesystem::path dataFolder);

    /// The image of that key, no larger than `bound` and not enlarged; in its own size when `bound` is empty.
    /// A null image when there is no file, or no image in it.
    [[nodiscard]] QImage image(const std::string& key, const QSize& bound);

    /// Keeps the bytes of an image file as they are and answers the key that names them. Throws VantryError
    /// invalidBackup when they are no image, and std::system_error when the disk fails.
    [[nodiscard]] std::string import(std::string_view bytes, FileOperations& disk);

private:
    struct Decoded {
        QImage image;
        FileStatus file;
    };

    std::filesystem::path folder;
    QCache<QString, Decoded> decoded;
};

}  // namespace vantry
