#pragma once

#include <span>
#include <string_view>

#include "conformance/Case.h"

namespace vantry::conformance {

/// Does what a case asks for and gives the output in the form of the cases. Throws what the product throws.
using Operation = Json (*)(const Json& in);

struct NamedOperation {
    std::string_view name;
    Operation run;
};

// One table for each subject. To support an operation, write its function and add a line to a table.
[[nodiscard]] std::span<const NamedOperation> codecOperations();
[[nodiscard]] std::span<const NamedOperation> documentOperations();
[[nodiscard]] std::span<const NamedOperation> exchangeOperations();
[[nodiscard]] std::span<const NamedOperation> gateOperations();
[[nodiscard]] std::span<const NamedOperation> interfaceOperations();
[[nodiscard]] std::span<const NamedOperation> parametersOperations();
[[nodiscard]] std::span<const NamedOperation> peopleOperations();
[[nodiscard]] std::span<const NamedOperation> referenceOperations();
[[nodiscard]] std::span<const NamedOperation> scheduleOperations();
[[nodiscard]] std::span<const NamedOperation> shotOperations();

/// The operation of that name, or null when it is not supported.
[[nodiscard]] Operation findOperation(std::string_view name);

}  // namespace vantry::conformance
