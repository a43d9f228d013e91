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

// In kilobytes.
constexpr qsizetype shownBound = qsizetype{48} * 1024;    ///< some hundred frames of pages
constexpr qsizetype sourcesBound = qsizetype{64} * 1024;  ///< some thirty photographs
constexpr qsizetype largeBound = qsizetype{128} * 1024;   ///< the one that is looked at closely

/// What pages show is no larger, on screens of twice the density too.
constexpr QSize pageRoom(1024, 1024);

bool isSameFile(const FileStatus& a, const FileStatus& b) {
    return a.identity == b.identity && a.size == b.size;
}

bool isWithin(const QSize& size, const QSize& bound) {
    return size.width() <= bound.width() && size.height() <= bound.height();
}

QString nameOf(const std::string& key, const QSize& bound) {
    return QStringLiteral("%1 %2x%3").arg(QString::fromStdString(key)).arg(bound.width()).arg(bound.height());
}

/// In the form that is painted without being converted.
QImage readyToPaint(const QImage& image) {
    return image.convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                         : QImage::Format_RGB32);
}

/// How large to decode what is shown in `bound`.
QSize roomFor(const QSize& bound) {
    return !bound.isEmpty() && isWithin(bound, pageRoom) ? pageRoom : bound;
}

QImage scaledInto(const QImage& image, const QSize& bound) {
    if (image.isNull() || bound.isEmpty() || isWithin(image.size(), bound))
        return image;
    QSize size = QSizeF(image.size()).scaled(bound, Qt::KeepAspectRatio).toSize();
    // Frames are on whole points: what is only a point smaller fills them, or its edges would be blurred.
    if ((bound - size).width() <= 1 && (bound - size).height() <= 1)
        size = bound;
    return image.scaled(size.expandedTo(QSize(1, 1)), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

}  // namespace

StoryboardImages::StoryboardImages(std::filesystem::path dataFolder)
    : folder(std::move(dataFolder))
    , shown(shownBound)
    , sources(sourcesBound)
    , large(largeBound) {}

QImage StoryboardImages::image(const std::string& key, const QSize& bound) {
    FileOperations& disk = FileOperations::system();
    try {
        const auto status = disk.status(MediaFolder(folder, disk).fileOf(key));
        if (!status || !status->isRegularFile())
            return {};
        const QSize wanted = bound.isEmpty() ? QSize() : bound.boundedTo(QSize(largestSide, largestSide));
        Shelf& shelf = !wanted.isEmpty() && isWithin(wanted, pageRoom) ? shown : large;
        const QString name = nameOf(key, wanted);
        if (const Decoded* known = shelf.object(name); known != nullptr && isSameFile(known->file, *status))
            return known->image;
        const QImage held = source(key, wanted, *status);
        QImage image = scaledInto(held, wanted);
        // What is shown as it was decoded is kept already.
        if (image.cacheKey() != held.cacheKey())
            shelf.insert(name, new Decoded{image, *status, wanted}, image.sizeInBytes() / 1024 + 1);
        return image;
    } catch (const std::exception&) {
        return {};  // an image that cannot be read is shown as none
    }
}

QImage StoryboardImages::source(const std::string& key, const QSize& bound, const FileStatus& file) {
    const QString name = QString::fromStdString(key);
    for (Shelf* shelf : {&sources, &large})
        if (const Decoded* known = shelf->object(name);
            known != nullptr && isSameFile(known->file, file) &&
            (known->room.isEmpty() || (!bound.isEmpty() && isWithin(bound, known->room))))
            return known->image;
    FileOperations& disk = FileOperations::system();
    QSize room = roomFor(bound);
    QImage image = readyToPaint(
        readImage(readWhole(MediaFolder(folder, disk).fileOf(key), VantryBackup::largestFile, disk), room));
    Shelf& shelf = room == pageRoom ? sources : large;
    // Smaller than it might be: that is its own size.
    if (image.width() < room.width() && image.height() < room.height())
        room = {};
    shelf.insert(name, new Decoded{image, file, room}, image.sizeInBytes() / 1024 + 1);
    return image;
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
