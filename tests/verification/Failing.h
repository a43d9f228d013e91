#pragma once

#include <string>

#include "Vantry/verification/Smoke.h"

namespace vantry::test {

/// The text of the check that `act` fails, or none.
template <class Act>
std::string failureOf(Act act) {
    try {
        act();
    } catch (const Smoke::Failure& failure) {
        return failure.what();
    }
    return {};
}

}  // namespace vantry::test
