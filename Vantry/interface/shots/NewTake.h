#pragma once

#include "Vantry/interface/pages/PageContext.h"
#include "VantryCore/records/Identifier.h"

namespace vantry {

/// Where the keyboard is on the page of a new take.
enum class AfterNewTake { stays, writes };

/// What every way to a new take does: asks whether a take may be made now, makes it and goes to it. Nothing
/// happens when the answer is no.
void startNewTake(const PageContext& context, const Identifier& projectID, const Identifier& actID,
                  const Identifier& shotID, AfterNewTake keyboard = AfterNewTake::stays);

}  // namespace vantry
