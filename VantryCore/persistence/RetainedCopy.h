#pragma once

#include <string>

#include "VantryCore/records/Project.h"

namespace vantry {

// The copy of an incoming record that a merge keeps beside a local one that differs. `key` is the hash of the
// incoming record and becomes the copy's mark; all identifiers come from `seed`, so that they are the same on
// every machine and in every repeat.

[[nodiscard]] VantryTake retainedCopy(const VantryTake& take, const std::string& key,
                                      const std::string& seed);
[[nodiscard]] Shot retainedCopy(const Shot& shot, const std::string& key, const std::string& seed);
[[nodiscard]] Act retainedCopy(const Act& act, const std::string& key, const std::string& seed);
[[nodiscard]] Project retainedCopy(const Project& project, const std::string& key, const std::string& seed);

}  // namespace vantry
