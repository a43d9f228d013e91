#include "Vantry/app/NativeDesktop.h"

#include <QDesktopServices>
#include <QFile>
#include <QUrl>

namespace vantry {

bool NativeDesktop::open(const std::filesystem::path& file) {
    return QDesktopServices::openUrl(QUrl::fromLocalFile(QFile::decodeName(file.c_str())));
}

}  // namespace vantry
