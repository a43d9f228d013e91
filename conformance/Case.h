#pragma once

#include <istream>
#include <stdexcept>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

namespace vantry::conformance {

using Json = nlohmann::json;

/// A line that is no case. `what()` tells the line and the reason.
struct UnreadableCase : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// One example of a rule: what goes in, and what has to come out or which failure has to be reported.
struct Case {
    std::string name;
    std::string operation;
    Json in;
    Json expected;        ///< the output; unused when a failure is expected
    std::string failure;  ///< the expected failure, empty when there has to be an output
};

/// Reads one case a line; empty lines are passed over. Throws UnreadableCase.
[[nodiscard]] std::vector<Case> readCases(std::istream& lines);

/// Where an output differs from the expected one: JSON pointers (RFC 6901), in order; empty when it agrees.
/// Numbers are compared by value. A field that the expected output leaves out at its top is not compared;
/// deeper, both have to have the same fields.
[[nodiscard]] std::vector<std::string> differences(const Json& expected, const Json& got);

}  // namespace vantry::conformance
