#pragma once

#include <memory>

namespace vantry {

/// Gives an object of a C library back when its owner goes.
template <auto release>
struct Release {
    template <class T>
    void operator()(T* object) const {
        release(object);
    }
};

template <class T, auto release>
using Owned = std::unique_ptr<T, Release<release>>;

}  // namespace vantry
