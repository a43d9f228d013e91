#pragma once

#include <array>
#include <cstddef>
#include <string_view>
#include <tuple>
#include <utility>

#include "VantryCore/records/Field.h"

namespace vantry {

/// The positions of a record's fields in the order of their keys by Unicode scalar value, which is the order
/// of the JSON form. Computed by the compiler.
template <Record T>
constexpr std::array<std::size_t, fieldCount<T>> sortedPositions() {
    std::array<std::string_view, fieldCount<T>> names;
    std::array<std::size_t, fieldCount<T>> order{};
    std::size_t next = 0;
    forEachField<T>([&](const auto& f) {
        order[next] = next;
        names[next++] = f.name;
    });
    for (std::size_t i = 1; i < order.size(); ++i)
        for (std::size_t j = i; j > 0 && names[order[j]] < names[order[j - 1]]; --j)
            std::swap(order[j], order[j - 1]);
    return order;
}

/// The field that stands at position `I` of the JSON form.
template <Record T, std::size_t I>
inline constexpr auto sortedField = std::get<sortedPositions<T>()[I]>(T::fields());

/// The keys of the JSON form, ascending.
template <Record T>
constexpr std::array<std::string_view, fieldCount<T>> sortedKeys() {
    return []<std::size_t... I>(std::index_sequence<I...>) {
        return std::array{sortedField<T, I>.name...};
    }
    (std::make_index_sequence<fieldCount<T>>());
}

}  // namespace vantry
