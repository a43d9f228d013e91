#pragma once

#include "Vantry/interface/pages/PageContext.h"
#include "VantryCore/records/Identifier.h"

namespace vantry {

/// What every way to a new take does: asks whether a take may be made now, makes it and goes to it. Nothing
/// happens when the answer is no.
void startNewTake(const PageContext& context, const Identifier& projectID, const Identifier& actID,
                  const Identifier& shotID);

}  // namespace vantry
