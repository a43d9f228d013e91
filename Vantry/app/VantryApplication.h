#pragma once

#include <QApplication>
#include <QPointer>

#include "Vantry/app/KeyEvents.h"

class QKeyEvent;

namespace vantry {

/// The Qt application, which also knows whether the event under way comes from a held key.
///
/// A repetition is known by Qt's own mark or, where the window system delivers a held key as releases and
/// presses of the same moment and Qt does not see that they belong together, by their time stamps.
/// A shortcut never arrives as a key press: Qt offers the key as a ShortcutOverride first and, when a
/// shortcut matches, sends a Shortcut event instead. So the repetition is remembered from the override and
/// holds while the Shortcut event is delivered.
///
/// While an input method composes a text, its keys belong to it: no shortcut of any window fires then.
class VantryApplication final : public QApplication, public KeyEvents {
    Q_OBJECT

public:
    VantryApplication(int& argc, char** argv);

    /// The running application.
    [[nodiscard]] static VantryApplication& instance();

    bool notify(QObject* receiver, QEvent* event) override;
    [[nodiscard]] bool isRepeat() const override { return repeating; }

private:
    bool deliver(QObject* receiver, QEvent* event, bool isRepetition);
    [[nodiscard]] bool isRepetition(const QKeyEvent& event) const;

    /// Whether an input method is composing where the keyboard is.
    [[nodiscard]] bool isComposing() const;

    QPointer<QObject> composing;  ///< what an input method last left an unfinished text in
    bool repeating = false;
    bool offeredRepeat = false;
    int releasedKey = 0;
    quint64 releasedAt = 0;  ///< milliseconds of the window system's clock; 0 when unknown
};

}  // namespace vantry
