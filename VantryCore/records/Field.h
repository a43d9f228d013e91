#pragma once

#include <array>
#include <cstddef>
#include <string_view>
#include <tuple>
#include <type_traits>

namespace vantry {

/// One member of a record: its key in the JSON form and where it is kept.
template <class Owner, class Member>
struct Field {
    using Value = Member;
    std::string_view name;
    Member Owner::*member;
};

template <class Owner, class Member>
constexpr Field<Owner, Member> field(std::string_view name, Member Owner::*member) {
    return {name, member};
}

/// A record lists its members once, in the order of its table: `static constexpr auto fields()` gives a tuple
/// of `Field`. Reading, writing, equality and the generic tests all run from that list.
template <class T>
concept Record = requires {
    T::fields();
};

template <Record T>
inline constexpr std::size_t fieldCount = std::tuple_size_v<decltype(T::fields())>;

/// Calls `visit(field)` for each field of `T`, in the order of the table.
template <Record T, class Visit>
constexpr void forEachField(Visit&& visit) {
    std::apply([&](const auto&... fields) { (visit(fields), ...); }, T::fields());
}

/// Records are equal when all their fields are, in the order of the table.
template <Record T>
bool operator==(const T& a, const T& b) {
    return std::apply([&](const auto&... fields) { return ((a.*fields.member == b.*fields.member) && ...); },
                      T::fields());
}

/// The texts of an enumeration whose JSON form is text, in the order of its cases. Specialise `texts`.
template <class E>
struct EnumTexts;

template <class E>
concept TextEnum = std::is_enum_v<E> && requires {
    EnumTexts<E>::texts;
};

template <TextEnum E>
constexpr std::string_view rawValue(E value) {
    return EnumTexts<E>::texts[static_cast<std::size_t>(value)];
}

/// Fails to compile when a member of `T` is missing from `T::fields()`: a structured binding takes exactly as
/// many names as there are members. Never called.
template <Record T>
constexpr bool listsEveryMember() {
    constexpr std::size_t count = fieldCount<T>;
    [[maybe_unused]] auto check = [](const T& r) {
        if constexpr (count == 1) {
            [[maybe_unused]] const auto& [a] = r;
        } else if constexpr (count == 2) {
            [[maybe_unused]] const auto& [a, b] = r;
        } else if constexpr (count == 3) {
            [[maybe_unused]] const auto& [a, b, c] = r;
        } else if constexpr (count == 4) {
            [[maybe_unused]] const auto& [a, b, c, d] = r;
        } else if constexpr (count == 5) {
            [[maybe_unused]] const auto& [a, b, c, d, e] = r;
        } else if constexpr (count == 6) {
            [[maybe_unused]] const auto& [a, b, c, d, e, f] = r;
        } else if constexpr (count == 11) {
            [[maybe_unused]] const auto& [a, b, c, d, e, f, g, h, i, j, k] = r;
        } else if constexpr (count == 12) {
            [[maybe_unused]] const auto& [a, b, c, d, e, f, g, h, i, j, k, l] = r;
        } else if constexpr (count == 13) {
            [[maybe_unused]] const auto& [a, b, c, d, e, f, g, h, i, j, k, l, m] = r;
        } else if constexpr (count == 16) {
            [[maybe_unused]] const auto& [a, b, c, d, e, f, g, h, i, j, k, l, m, n, o, p] = r;
        } else {
            static_assert(count == 0, "name as many members here as the record has");
        }
    };
    return true;
}

}  // namespace vantry
