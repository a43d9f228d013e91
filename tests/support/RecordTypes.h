#pragma once

#include <string>

#include <gtest/gtest.h>

#include "VantryCore/records/Library.h"

namespace vantry::support {

/// Every record that has a JSON form.
using RecordTypes = ::testing::Types<Library, Project, Act, Shot, VantryTake, Parameters, Stroke, Point,
                                     CrewMember, CastMember, CallSheet, CallSheetPerson, RelatedFile>;

/// Names the tests of a record type after the type.
struct RecordTypeNames {
    template <class T>
    static std::string GetName(int index) {
        static constexpr const char* names[] = {
            "Library", "Project",    "Act",        "Shot",      "VantryTake",      "Parameters", "Stroke",
            "Point",   "CrewMember", "CastMember", "CallSheet", "CallSheetPerson", "RelatedFile"};
        return names[index];
    }
};

// A value that differs from the one given, in the smallest way that counts.

inline void change(bool& value) {
    value = !value;
}
inline void change(std::int64_t& value) {
    value = value == 7 ? 8 : 7;
}
inline void change(double& value) {
    value = value == 0.5 ? 0.75 : 0.5;
}
inline void change(Moment& value) {
    change(value.seconds);
}
inline void change(Text& value) {
    value = Text(value.utf8() + "!");
}
inline void change(Identifier& value) {
    auto bytes = value.bytes();
    bytes[15] ^= 1;
    value = Identifier(bytes);
}
inline void change(TextMap& value) {
    value.set(Text("another key"), value.find("another key") == nullptr ? Text() : Text("x"));
}
inline void change(Bytes& value) {
    value.push_back(0);
}
template <TextEnum E>
void change(E& value) {
    const auto next = static_cast<std::size_t>(value) + 1;
    value = static_cast<E>(next % EnumTexts<E>::texts.size());
}
template <class T>
void change(std::optional<T>& value) {
    if (value)
        value.reset();
    else
        value.emplace();
}
template <class T>
void change(std::vector<T>& list) {
    list.emplace_back();
}
template <Record T>
void change(T& record) {
    change(record.*std::get<0>(T::fields()).member);
}

}  // namespace vantry::support
