#pragma once

#include <tuple>

#include "VantryCore/records/Field.h"
#include "VantryCore/records/Identifier.h"
#include "VantryCore/records/Text.h"

namespace vantry {

/// A part of a production and who plays it.
struct CastMember {
    Identifier id;
    Text character;
    Text actor;

    static constexpr auto fields() {
        return std::tuple(field("id", &CastMember::id), field("character", &CastMember::character),
                          field("actor", &CastMember::actor));
    }

    /// A new member with a fresh identifier.
    [[nodiscard]] static CastMember make(Text character = {}, Text actor = {}) {
        return CastMember{Identifier::random(), std::move(character), std::move(actor)};
    }
};

}  // namespace vantry
