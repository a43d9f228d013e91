#pragma once

#include "Vantry/interface/pages/StorePage.h"
#include "VantryCore/records/Identifier.h"

namespace vantry {

class Button;
class ShotChooser;

/// The strip that leads along the shots of a production without going back. It skips cancelled shots; those
/// are reached by the chooser, which the middle button opens. Nobody leaves a shot that cannot be saved.
class ShotNavigation final : public StorePage {
    Q_OBJECT

public:
    ShotNavigation(PageContext context, const Identifier& projectID, const Identifier& shotID,
                   QWidget* parent = nullptr);

    void refresh() override;
    /// Previous and next show their signs alone.
    void setCompact(bool compact);

    /// Whether there was a next shot at the last refresh.
    [[nodiscard]] bool hasNext() const;
    /// Saves and goes to it; nothing happens when there is none or the save fails.
    void goToNeighbor(int step) const;

private:
    void choose();

    const Identifier projectID;
    const Identifier shotID;
    Button* previous;
    Button* position;
    Button* next;
    ShotChooser* chooser = nullptr;  ///< once it was wanted
};

}  // namespace vantry
