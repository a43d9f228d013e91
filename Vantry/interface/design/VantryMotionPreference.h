#pragma once

#include <QObject>

namespace vantry {

class DesktopMotion;

/// Holds the whole interface still when the person wants that or the desktop does, and follows changes of
/// both. The window has one; what moves at that moment is at its end in its next frame.
class VantryMotionPreference final : public QObject {
    Q_OBJECT

public:
    explicit VantryMotionPreference(QObject* parent = nullptr);
    /// Leaves the interface moving.
    ~VantryMotionPreference() override;

    /// What the person chose.
    void setChoice(bool reduced);
    /// What the desktop says, whatever the person chose.
    [[nodiscard]] bool isReducedByDesktop() const;

private:
    void apply();

    DesktopMotion* desktop;
    bool choice = false;
};

}  // namespace vantry
