#pragma once

#include <optional>

#include <QDBusVariant>
#include <QObject>
#include <QString>

namespace vantry {

/// Whether the desktop wants dark windows, as it says itself over D-Bus (org.freedesktop.appearance), else by
/// the lightness of the windows that it had painted before ours. Follows changes.
class DesktopAppearance final : public QObject {
    Q_OBJECT

public:
    explicit DesktopAppearance(QObject* parent = nullptr);

    [[nodiscard]] bool isDark() const { return announced.value_or(paletteIsDark); }

signals:
    void changed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ask();
    /// Listens for changes. Only once the bus has answered: on a connection that is still being made Qt takes
    /// the wish and forgets it.
    void follow();
    void take(uint colourScheme);

    std::optional<bool> announced;  ///< what the desktop said; nothing while it has no preference
    bool paletteIsDark;

private slots:
    void onSettingChanged(const QString& space, const QString& key, const QDBusVariant& value);
};

}  // namespace vantry
