#pragma once

#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "VantryCore/records/Library.h"

namespace vantry::support {

/// Makes records with every field filled at random: the same ones for the same seed, everywhere.
class RandomRecords {
public:
    explicit RandomRecords(std::uint64_t seed)
        : generator(seed) {}

    /// An integer from `low` to `high`, both included.
    std::int64_t number(std::int64_t low, std::int64_t high);
    bool chance(double probability);
    template <class T, std::size_t N>
    const T& oneOf(const T (&choices)[N]) {
        return choices[static_cast<std::size_t>(number(0, static_cast<std::int64_t>(N) - 1))];
    }

    Identifier identifier();
    /// A code point, with a liking for those that are special somewhere: marks, jamo, singletons, controls.
    char32_t character();
    /// Up to `longest` characters of all kinds.
    std::string text(int longest = 12);
    /// A finite number: whole, fractional, tiny or huge.
    double finite();

    // Any value that the JSON form can hold; limits of the validation are not kept.
    void fill(bool& value) { value = chance(0.5); }
    void fill(std::int64_t& value);
    void fill(double& value) { value = finite(); }
    void fill(Moment& value) { value.seconds = finite(); }
    void fill(Text& value) { value = Text(text()); }
    void fill(Identifier& value) { value = identifier(); }
    void fill(TextMap& value);
    void fill(Bytes& value);
    template <TextEnum E>
    void fill(E& value) {
        value = static_cast<E>(number(0, static_cast<std::int64_t>(EnumTexts<E>::texts.size()) - 1));
    }
    template <class T>
    void fill(std::optional<T>& value) {
        value.reset();
        if (chance(0.6))
            fill(value.emplace());
    }
    template <class T>
    void fill(std::vector<T>& list) {
        list.resize(static_cast<std::size_t>(number(0, 2)));
        for (auto& item : list)
            fill(item);
    }
    template <class T>
    void fill(Node<T>& node) {
        fill(node.edit());
    }
    template <Record T>
    void fill(T& record) {
        forEachField<T>([&](const auto& field) { fill(record.*field.member); });
    }

    template <class T>
    T make() {
        T record;
        fill(record);
        return record;
    }

    /// A library of about that many records that keeps every rule of the validation.
    Library validLibrary(int projects = 2);
    Project validProject();
    Act validAct();
    Shot validShot();
    VantryTake validTake();
    CallSheet validCallSheet();
    RelatedFile validReference();

private:
    std::mt19937_64 generator;
};

/// The UTF-8 form of a code point.
void appendUtf8(std::string& out, char32_t point);

}  // namespace vantry::support
