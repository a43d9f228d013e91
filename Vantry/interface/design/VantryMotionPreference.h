#pragma once

#include <QObject>

namespace vantry {

class DesktopMotion;

/// Holds the whole interface still when the person wants that or the desktop does, and follows changes of
/// both. The window has one; where there are several, one that wants it is enough. What moves at that moment
/// is at its end in its next frame.
class VantryMotionPreference final : public QObject {
    Q_OBJECT

public:
    explicit VantryMotionPreference(QObject* parent = nullptr);
    /// It wants nothing any more.
    ~VantryMotionPreference() override;

    /// What the person chose.
    void setChoice(bool reduced);
    /// What the desktop says, whatever the person chose.
    [[nodiscard]] bool isReducedByDesktop() const;

private:
    void apply();
    void wish(bool reduced);

    DesktopMotion* desktop;
    bool choice = false;
    bool wished = false;
};

}  // namespace vantry
