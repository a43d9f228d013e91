#include "conformance/Operation.h"

#include <array>

namespace vantry::conformance {

Operation findOperation(std::string_view name) {
    const std::array tables{codecOperations(),  documentOperations(),  exchangeOperations(),
                            gateOperations(),   interfaceOperations(), parametersOperations(),
                            peopleOperations(), referenceOperations(), scheduleOperations(),
                            shotOperations()};
    for (const auto& table : tables)
        for (const auto& operation : table)
            if (operation.name == name)
                return operation.run;
    return nullptr;
}

}  // namespace vantry::conformance
