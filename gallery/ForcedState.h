#pragma once

#include <array>

#include <QWidget>

#include "gallery/Phrase.h"

namespace vantry::gallery {

/// A state that a control usually is in only while a person does something.
enum class State { normal, hover, pressed, focused, disabled };

inline constexpr std::array allStates{State::normal, State::hover, State::pressed, State::focused,
                                      State::disabled};

[[nodiscard]] Phrase nameOf(State state);

/// Puts `control` into that state by what Qt itself would tell it, and keeps it there: neither the mouse nor
/// the keyboard of whoever looks at the gallery reaches it. To be called once it stands in its window.
void force(QWidget& control, State state);

}  // namespace vantry::gallery
