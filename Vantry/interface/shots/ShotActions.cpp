#include "Vantry/interface/shots/ShotActions.h"

#include "Vantry/app/VantryStore.h"

namespace vantry {

void insertShotAfter(const PageContext& context, const ShotPlace& place) {
    if (!context.store.acceptCreation(VantryCreationAction::shot(place.act)))
        return;
    const Identifier made = context.store.addShot(place.project, place.act, place.shot);
    context.go(Route::shot(place.project, place.act, made));
}

void setCancelled(const PageContext& context, const ShotPlace& place, bool cancelled) {
    context.store.markCheckpoint();
    context.store.updateShot(place.project, place.act, place.shot,
                             [&](Shot& shot) { shot.cancelled = cancelled; });
}

}  // namespace vantry
