#include "Vantry/interface/shots/NewTake.h"

#include "Vantry/app/VantryStore.h"

namespace vantry {

void startNewTake(const PageContext& context, const Identifier& projectID, const Identifier& actID,
                  const Identifier& shotID) {
    if (!context.store.acceptCreation(VantryCreationAction::take(shotID)))
        return;
    const Identifier takeID = context.store.addTake(projectID, actID, shotID);
    context.go(Route::take(projectID, actID, shotID, takeID));
}

}  // namespace vantry
