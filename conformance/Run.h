#pragma once

#include <cstdint>
#include <map>
#include <ostream>
#include <string>
#include <vector>

#include "conformance/Case.h"

namespace vantry::conformance {

/// How the cases of one operation ended.
struct Counts {
    std::int64_t passed = 0;
    std::int64_t failed = 0;
    std::int64_t unsupported = 0;
};

/// The counts by the name of the operation.
using Report = std::map<std::string, Counts>;

/// Runs the cases and counts them in `report`. Each one that fails is printed with its name, what was
/// expected and what came out instead.
void run(const std::vector<Case>& cases, Report& report, std::ostream& out);

/// Prints a line for each operation and one for the sum, and gives that sum.
Counts printSummary(const Report& report, std::ostream& out);

}  // namespace vantry::conformance
