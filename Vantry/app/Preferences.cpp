#include "Vantry/app/Preferences.h"

#include <QSettings>

#include "Vantry/app/QtText.h"

namespace vantry {
namespace {

QString keyName(std::string_view key) {
    return QString::fromUtf8(key.data(), static_cast<qsizetype>(key.size()));
}

}  // namespace

StoredPreferences::StoredPreferences(const QString& file)
    : settings(file.isEmpty()
                   ? std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::UserScope,
                                                 QStringLiteral("Vantry"), QStringLiteral("Vantry"))
                   : std::make_unique<QSettings>(file, QSettings::IniFormat)) {
    settings->setFallbacksEnabled(false);
}

StoredPreferences::~StoredPreferences() = default;

std::optional<Text> StoredPreferences::text(std::string_view key) {
    const QVariant value = settings->value(keyName(key));
    if (!value.isValid())
        return std::nullopt;
    return toText(value.toString());
}

void StoredPreferences::setText(std::string_view key, const Text& value) {
    settings->setValue(keyName(key), toQString(value));
    settings->sync();
}

bool StoredPreferences::flag(std::string_view key) {
    return settings->value(keyName(key), false).toBool();
}

void StoredPreferences::setFlag(std::string_view key, bool value) {
    settings->setValue(keyName(key), value);
    settings->sync();
}

}  // namespace vantry
