#pragma once

#include <QGuiApplication>
#include <QInputMethod>

namespace vantry {

/// Puts what an input method still holds into the text that it is being written in: it was typed as well.
/// First step of whatever saves, leaves or replaces texts.
inline void commitComposition() {
    if (QInputMethod* method = QGuiApplication::inputMethod())
        method->commit();
}

}  // namespace vantry
