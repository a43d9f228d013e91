#pragma once

#include "Vantry/interface/pages/PageContext.h"
#include "VantryCore/records/Identifier.h"

namespace vantry {

/// Where a shot is.
struct ShotPlace {
    Identifier project;
    Identifier act;
    Identifier shot;
};

// What more than one page does with a shot. Each is a structural change of its own.

/// Makes a new shot behind that one and goes to it; nothing happens when no shot may be made now.
void insertShotAfter(const PageContext& context, const ShotPlace& place);
/// Calls the shoot of that shot off, or plans it again. Its records stay in any case.
void setCancelled(const PageContext& context, const ShotPlace& place, bool cancelled);

}  // namespace vantry
