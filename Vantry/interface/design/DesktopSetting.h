#pragma once

#include <QDBusVariant>
#include <QObject>
#include <QString>

namespace vantry {

/// One setting of the desktop, as it tells it over D-Bus (org.freedesktop.portal.Settings). It is asked for
/// when this is made, without waiting, and its changes are followed. A desktop that does not know it, or no
/// desktop at all, says nothing.
class DesktopSetting final : public QObject {
    Q_OBJECT

public:
    /// The setting `key` of the group `space`.
    DesktopSetting(const QString& space, const QString& key, QObject* parent);

signals:
    /// The desktop has answered, or the setting has changed.
    void told(const QVariant& value);

private:
    void ask();
    /// Listens for changes. Only once the bus has answered: on a connection that is still being made Qt takes
    /// the wish and forgets it.
    void follow();

    const QString space;
    const QString key;

private slots:
    void onSettingChanged(const QString& space, const QString& key, const QDBusVariant& value);
};

}  // namespace vantry
