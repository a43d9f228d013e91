#pragma once

#include <QObject>

namespace vantry {

/// Whether the desktop wants its programs to hold still: it asks for reduced motion
/// (org.freedesktop.appearance), or has switched its own animations off (org.gnome.desktop.interface).
/// Follows changes. A desktop that says neither lets things move.
class DesktopMotion final : public QObject {
    Q_OBJECT

public:
    explicit DesktopMotion(QObject* parent = nullptr);

    [[nodiscard]] bool isReduced() const { return wantsReduced || !animates; }

signals:
    void changed();

private:
    void set(bool& part, bool value);

    bool wantsReduced = false;
    bool animates = true;
};

}  // namespace vantry
