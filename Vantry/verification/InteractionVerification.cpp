#include "Vantry/app/VantryCreationGate.h"
#include "Vantry/verification/Smoke.h"

namespace vantry {

void InteractionVerification::run() {
    constexpr double interval = 0.5;
    VantryCreationGate gate;
    const Identifier shotA = Identifier::random();
    const Identifier shotB = Identifier::random();
    const auto takeOfA = VantryCreationAction::take(shotA);
    Smoke::demand(gate.accept(takeOfA, 0, interval), "First creation was delayed");
    for (int tenth = 1; tenth <= 10; ++tenth)
        Smoke::demand(!gate.accept(takeOfA, tenth / 10.0, interval), "Rapid input created a second record");
    Smoke::demand(gate.accept(VantryCreationAction::cast(shotA), 1.1, interval),
                  "Unrelated action was blocked");
    Smoke::demand(gate.accept(VantryCreationAction::take(shotB), 1.1, interval), "Another shot was blocked");
    Smoke::demand(gate.accept(takeOfA, 1.6, interval), "Intentional next take was blocked");
    Smoke::demand(!gate.accept(takeOfA, 1.61, interval), "Gate reset after accepting the next take");
    Smoke::pass("immediate first creation, repeated-input suppression, independent targets and retry");
}

}  // namespace vantry
