#pragma once

#include <functional>

#include "VantryCore/persistence/FileOperations.h"

namespace vantry {

class Clock;
class Desktop;
class FilePanels;
class KeyEvents;
class Preferences;

/// What the store asks of the machine around it. The defaults are the real ones; a test replaces what it
/// decides itself. What is given must outlive the store.
struct Surroundings {
    Clock* clock = nullptr;              ///< null: the system's
    Preferences* preferences = nullptr;  ///< null: none are stored, choices last for this run
    KeyEvents* keys = nullptr;           ///< null: no key is ever held
    FileOperations* disk = nullptr;      ///< null: the system's
    FilePanels* panels = nullptr;        ///< null: nobody is there to choose a file
    Desktop* desktop = nullptr;          ///< null: nothing is opened
    std::function<double()>
        doubleClickSeconds;  ///< the desktop's double-click interval; empty: half a second
};

}  // namespace vantry
