#pragma once

class QObject;

namespace vantry {

/// Makes the field that has the keyboard mean what stands in it, without taking the keyboard away.
///
/// What an input method still holds goes into the text that it is being written in: it was typed as well.
/// Each letter is written once, also with methods that commit only when they are reset, or never. Then the
/// field's slot `settle()` is called, if it has one: an hour of which one digit was typed is that hour. First
/// step of whatever saves, leaves or replaces texts; the press of a button takes it by itself.
void settleField();

/// From now on what input methods compose in any field of `application` is known to `settleField`.
void watchCompositions(QObject& application);

}  // namespace vantry
