#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <tuple>

#include "VantryCore/records/Project.h"

namespace vantry {

/// The root of everything: all productions of one user, in the order of creation.
struct Library {
    Text format = "Vantry";
    std::int64_t version = 1;
    NodeList<Project> projects;

    static constexpr auto fields() {
        return std::tuple(field("format", &Library::format), field("version", &Library::version),
                          field("projects", &Library::projects));
    }

    /// The image keys of all shots, each spelling once.
    [[nodiscard]] std::set<std::string> mediaKeys() const;
};

}  // namespace vantry
