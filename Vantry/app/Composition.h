#pragma once

class QObject;

namespace vantry {

/// Puts what an input method still holds into the text that it is being written in: it was typed as well.
/// Each letter is written once, also with methods that commit only when they are reset, or never.
/// First step of whatever saves, leaves or replaces texts.
void commitComposition();

/// From now on what input methods compose in any field of `application` is known to `commitComposition`.
void watchCompositions(QObject& application);

}  // namespace vantry
