#include "Vantry/interface/shots/NewTake.h"

#include "Vantry/app/VantryStore.h"

namespace vantry {

void startNewTake(const PageContext& context, const Identifier& projectID, const Identifier& actID,
                  const Identifier& shotID, AfterNewTake keyboard) {
    if (!context.store.acceptCreation(VantryCreationAction::take(shotID)))
        return;
    const Identifier takeID = context.store.addTake(projectID, actID, shotID);
    const Route place = Route::take(projectID, actID, shotID, takeID);
    if (keyboard == AfterNewTake::writes && context.goWriting)
        context.goWriting(place);
    else
        context.go(place);
}

}  // namespace vantry
