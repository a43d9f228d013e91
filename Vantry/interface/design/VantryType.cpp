#include "Vantry/interface/design/VantryType.h"

#include <QFile>
#include <QFontDatabase>
#include <QResource>
#include <QSet>

namespace vantry {
namespace {

struct Face {
    int size;
    QFont::Weight weight;
    int lineHeight;
};

constexpr Face face(VantryType::Role role) {
    switch (role) {
    case VantryType::Role::title:
        return {24, QFont::DemiBold, 32};
    case VantryType::Role::heading:
        return {20, QFont::DemiBold, 28};
    case VantryType::Role::body:
        return {16, QFont::Normal, 24};
    case VantryType::Role::label:
        return {14, QFont::Medium, 20};
    case VantryType::Role::emphasis:
        return {16, QFont::DemiBold, 24};
    case VantryType::Role::caption:
    case VantryType::Role::small:
        break;
    }
    return {12, QFont::Normal, 16};
}

/// Inter for what it has, then a face with the Chinese shapes: left to itself the system takes Japanese ones.
const QStringList& familyNames() {
#ifdef Q_OS_MACOS
    static const QStringList names{QStringLiteral("Inter"), QStringLiteral("PingFang SC")};
#else
    static const QStringList names{QStringLiteral("Inter"), QStringLiteral("Noto Sans CJK SC")};
#endif
    return names;
}

}  // namespace

bool VantryType::registerFonts(const QString& bundle) {
    static QSet<QString> opened;
    if (opened.contains(bundle))
        return true;
    if (!QResource::registerResource(bundle))
        return false;
    opened.insert(bundle);
    for (const auto name : families) {
        const QString file = QStringLiteral(":/fonts/%1.ttf")
                                 .arg(QLatin1String(name.data(), static_cast<qsizetype>(name.size())));
        if (QFile::exists(file))
            QFontDatabase::addApplicationFont(file);
    }
    return true;
}

QFont VantryType::font(Role role) {
    return font(role, face(role).weight);
}

QFont VantryType::font(Role role, QFont::Weight weight) {
    QFont font;
    font.setFamilies(familyNames());
    font.setPixelSize(face(role).size);
    font.setWeight(weight);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

int VantryType::lineHeight(Role role) {
    return face(role).lineHeight;
}

int VantryType::paragraphLineHeight() {
    return face(Role::body).lineHeight + paragraphSpacing;
}

}  // namespace vantry
