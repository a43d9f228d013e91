#pragma once

#include <functional>

#include "Vantry/interface/shots/NewTake.h"

namespace vantry {

class Button;
class WorkspaceHeading;

/// The main action of a shot's and a take's page, at the right of `heading`, with its shortcut Ctrl+Return
/// (Command Return on macOS), which works from inside the page's editors. The shortcut repeats with a held
/// key: it is the store that refuses the repetition, and must see each attempt to do so.
///
/// `start` is told where the keyboard belongs then: in the notes after the shortcut or a click, and not after
/// a key on the button, which may still be held.
[[nodiscard]] Button* makeNewTakeButton(WorkspaceHeading& heading,
                                        const std::function<void(AfterNewTake)>& start);

/// The same for a button that stands there already: a press of it starts a take.
void startTakeBy(Button& button, const std::function<void(AfterNewTake)>& start);

}  // namespace vantry
