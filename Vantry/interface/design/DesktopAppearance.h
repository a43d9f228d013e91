#pragma once

#include <optional>

#include <QObject>

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
    void take(uint colourScheme);

    std::optional<bool> announced;  ///< what the desktop said; nothing while it has no preference
    bool paletteIsDark;
};

}  // namespace vantry
