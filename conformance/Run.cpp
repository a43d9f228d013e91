#include "conformance/Run.h"

#include <exception>

#include "VantryCore/persistence/VantryError.h"
#include "conformance/Operation.h"

namespace vantry::conformance {
namespace {

/// What an operation came to: an output, or a failure by its name in the cases.
struct Outcome {
    Json output;
    std::string failure;
    std::string detail;  ///< the message of the failure

    [[nodiscard]] std::string text() const {
        if (failure.empty())
            return output.dump();
        return "failure \"" + failure + "\"" + (detail.empty() ? "" : " (" + detail + ")");
    }
};

std::string nameOf(const VantryError& failure) {
    switch (failure.which()) {
    case VantryError::Case::invalidBackup:
        return "invalidBackup";
    case VantryError::Case::missingMedia:
        return "missingMedia";
    case VantryError::Case::tooLarge:
        break;
    }
    return "tooLarge";
}

Outcome perform(Operation operation, const Json& in) {
    try {
        return {operation(in), {}, {}};
    } catch (const DecodingError& failure) {
        return {{}, "decode", failure.what()};
    } catch (const VantryError& failure) {
        return {{}, nameOf(failure), {}};
    } catch (const std::exception& failure) {
        return {{}, "unexpected", failure.what()};
    }
}

/// Runs one case and tells whether it passed; prints it if not.
bool passes(const Case& one, Operation operation, std::ostream& out) {
    const Outcome got = perform(operation, one.in);
    const Outcome expected{one.expected, one.failure, {}};
    std::vector<std::string> places;
    if (got.failure.empty() && expected.failure.empty())
        places = differences(expected.output, got.output);
    if (got.failure == expected.failure && places.empty())
        return true;
    out << "FAILED " << one.name << "\n  expected " << expected.text() << "\n  got      " << got.text()
        << "\n";
    for (const auto& place : places)
        out << "  differs at " << (place.empty() ? "the top" : place) << "\n";
    return false;
}

}  // namespace

void run(const std::vector<Case>& cases, Report& report, std::ostream& out) {
    for (const auto& one : cases) {
        Counts& counts = report[one.operation];
        const Operation operation = findOperation(one.operation);
        if (operation == nullptr)
            ++counts.unsupported;
        else if (passes(one, operation, out))
            ++counts.passed;
        else
            ++counts.failed;
    }
}

Counts printSummary(const Report& report, std::ostream& out) {
    Counts sum;
    for (const auto& [operation, counts] : report) {
        out << operation << " " << counts.passed << "/" << counts.failed << "/" << counts.unsupported << "\n";
        sum.passed += counts.passed;
        sum.failed += counts.failed;
        sum.unsupported += counts.unsupported;
    }
    out << sum.passed << " passed, " << sum.failed << " failed, " << sum.unsupported << " skipped\n";
    return sum;
}

}  // namespace vantry::conformance
