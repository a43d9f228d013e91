#include "Vantry/app/StoryboardImages.h"

#include <memory>
#include <span>

#include "Vantry/app/ImageReading.h"
#include "VantryCore/persistence/Codec.h"
#include "VantryCore/persistence/MediaFolder.h"
#include "VantryCore/persistence/OpenFile.h"
#include "VantryCore/persistence/VantryError.h"

namespace vantry {
namespace {

/// In kilobytes: some twenty images as large as a screen.
constexpr qsizetype memoryBound = qsizetype{128} * 1024;

bool isSameFile(const FileStatus& a, const FileStatus& b) {
    return a.identity == b.identity && a.size == b.size;
}

QString nameOf(const std::string& key, const QSize& bound) {
    return QStringLiteral("%1 %2x%3").arg(QString::fromStdString(key)).arg(bound.width()).arg(bound.height());
}

}  // namespace

StoryboardImages::StoryboardImages(std::filesystem::path dataFolder)
    : folder(std::move(dataFolder))
    , decoded(memoryBound) {}

QImage StoryboardImages::image(const std::string& key, const QSize& bound) {
    const QString name = nameOf(key, bound);
    FileOperations& disk = FileOperations::system();
    const auto file = MediaFolder(folder, disk).fileOf(key);
    try {
        const auto status = disk.status(file);
        if (!status || !status->isRegularFile())
            return {};
        if (const Decoded* known = decoded.object(name); known != nullptr && isSameFile(known->file, *status))
            return known->image;
        QImage image = readImage(readWhole(file, VantryBackup::largestFile, disk), bound);
        if (!image.isNull())
            decoded.insert(name, new Decoded{image, *status}, image.sizeInBytes() / 1024 + 1);
        return image;
    } catch (const std::exception&) {
        return {};  // an image that cannot be read is shown as none
    }
}

std::string StoryboardImages::import(std::string_view bytes, FileOperations& disk) {
    if (!isImage(bytes))
        throw VantryError(VantryError::Case::invalidBackup);
    std::string key = Codec::hash(bytes);
    MediaFolder media(folder, disk);
    media.create();
    media.store(key, std::span(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()));
    return key;
}

}  // namespace vantry
