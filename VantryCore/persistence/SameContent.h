#pragma once

#include "VantryCore/records/Project.h"

namespace vantry {

/// Whether two records have the same content whatever their identity: everything is equal but the values
/// under the keys "id", "conflictKey" and "sourceID", at every depth. Numbers, dates and orders are content.
/// Of projects, an absent list of people, sheets or references is the same as an empty one.
///
/// It is the comparison of the two JSON forms without identity, found without making them. For records that
/// have no JSON form, because a float is not finite, the answer says nothing.
/// Defined for Project, Act, Shot and VantryTake.
template <class T>
[[nodiscard]] bool sameContent(const T& a, const T& b);

/// The same by its definition: both are encoded, read as values, freed of identity and compared. Throws
/// std::domain_error for a float that is not finite.
template <class T>
[[nodiscard]] bool sameContentByValues(const T& a, const T& b);

}  // namespace vantry
