#pragma once

#include <functional>

namespace vantry {

class Button;
class WorkspaceHeading;

/// The main action of a shot's and a take's page, at the right of `heading`, with its shortcut Ctrl+Return
/// (Command Return on macOS), which works from inside the page's editors. The shortcut repeats with a held
/// key: it is the store that refuses the repetition, and must see each attempt to do so.
[[nodiscard]] Button* makeNewTakeButton(WorkspaceHeading& heading, const std::function<void()>& start);

}  // namespace vantry
