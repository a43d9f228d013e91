#pragma once

namespace vantry {

/// What is known of the key that the application is handling at this moment.
class KeyEvents {
public:
    KeyEvents() = default;
    KeyEvents(const KeyEvents&) = delete;
    KeyEvents& operator=(const KeyEvents&) = delete;
    virtual ~KeyEvents() = default;

    /// Whether this very call was caused by a key that is held down, in its repetition: a key press on its
    /// way, or the shortcut that it triggered. False as soon as that event has been handled.
    [[nodiscard]] virtual bool isRepeat() const = 0;
};

}  // namespace vantry
