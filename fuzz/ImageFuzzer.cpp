#include <QCoreApplication>

#include "Vantry/app/ImageReading.h"
#include "fuzz/Input.h"

using namespace vantry;

extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments);

/// Qt looks for the plugins of its image formats beside the application object.
extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments) {
    static QCoreApplication application(*count, *arguments);
    return 0;
}

/// A file that somebody chose as a storyboard image.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes = fuzz::textOf(data, size);
    const QSize bound(48, 40);
    const QImage image = readImage(bytes, bound);
    fuzz::demand(image.width() <= bound.width() && image.height() <= bound.height(),
                 "an image stays within its bound");
    if (!image.isNull())
        fuzz::demand(isImage(bytes), "what can be shown is an image");
    return 0;
}
