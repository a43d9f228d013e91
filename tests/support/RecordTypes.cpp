#include "tests/support/RecordTypes.h"

#include <ostream>

#include "VantryCore/persistence/Codec.h"
#include "tests/support/RandomRecords.h"
#include "tests/support/SampleLibrary.h"

namespace vantry::support {
namespace {

// Changes to a value that differs from the one given, in the smallest way that counts.

void change(bool& value) {
    value = !value;
}
void change(std::int64_t& value) {
    value = value == 7 ? 8 : 7;
}
void change(double& value) {
    value = value == 0.5 ? 0.75 : 0.5;
}
void change(Moment& value) {
    change(value.seconds);
}
void change(Text& value) {
    value = Text(value.utf8() + "!");
}
void change(Identifier& value) {
    auto bytes = value.bytes();
    bytes[15] ^= 1;
    value = Identifier(bytes);
}
void change(TextMap& value) {
    value.set(Text("another key"), value.find("another key") == nullptr ? Text() : Text("x"));
}
void change(Bytes& value) {
    value.push_back(0);
}
template <TextEnum E>
void change(E& value) {
    const auto next = static_cast<std::size_t>(value) + 1;
    value = static_cast<E>(next % EnumTexts<E>::texts.size());
}
template <class T>
void change(std::vector<T>& list) {
    list.emplace_back();
}
template <class T>
void change(std::optional<T>& value) {
    if (value)
        change(*value);
    else
        value.emplace();
}
template <Record T>
void change(T& record) {
    change(record.*std::get<0>(T::fields()).member);
}

template <Record T>
T randomRecord(std::uint64_t seed) {
    return RandomRecords(seed).make<T>();
}

template <Record T>
std::vector<std::string> fieldNames() {
    std::vector<std::string> names;
    forEachField<T>([&](const auto& field) { names.emplace_back(field.name); });
    return names;
}

template <Record T>
std::string completeForm() {
    return Codec::encode(completeRecord<T>());
}

template <Record T>
std::string randomForm(std::uint64_t seed) {
    return Codec::encode(randomRecord<T>(seed));
}

template <Record T>
bool equalsItself(std::uint64_t seed) {
    const T record = randomRecord<T>(seed);
    const T copy = record;
    const T again = Codec::decode<T>(Codec::encode(record));
    return record == copy && record == randomRecord<T>(seed) && record == again && again == record;
}

template <Record T>
bool isFormOf(std::string_view json, std::uint64_t seed) {
    return Codec::decode<T>(json) == randomRecord<T>(seed);
}

template <Record T>
std::vector<ChangedField> changedFields(std::uint64_t seed) {
    std::vector<ChangedField> all;
    const T record = randomRecord<T>(seed);
    forEachField<T>([&](const auto& field) {
        ChangedField result;
        result.name = field.name;
        T changed = record;
        change(changed.*field.member);
        result.equal = changed == record || record == changed;
        result.form = Codec::encode(changed);
        result.readsBack = Codec::decode<T>(result.form) == changed;
        changed.*field.member = record.*field.member;
        result.equalWhenPutBack = changed == record;
        all.push_back(std::move(result));
    });
    return all;
}

template <Record T>
std::string rewritten(std::string_view json) {
    return Codec::encode(Codec::decode<T>(json));
}

template <Record T>
bool equal(std::string_view a, std::string_view b) {
    return Codec::decode<T>(a) == Codec::decode<T>(b);
}

template <Record T>
RecordType typeOf(const char* name) {
    return {name,        fieldNames<T>,    completeForm<T>, randomForm<T>, equalsItself<T>,
            isFormOf<T>, changedFields<T>, rewritten<T>,    equal<T>};
}

}  // namespace

void PrintTo(const RecordType& type, std::ostream* out) {
    *out << type.name;
}

const std::vector<RecordType>& recordTypes() {
    static const std::vector<RecordType> types{
        typeOf<Library>("Library"),
        typeOf<Project>("Project"),
        typeOf<Act>("Act"),
        typeOf<Shot>("Shot"),
        typeOf<VantryTake>("VantryTake"),
        typeOf<Parameters>("Parameters"),
        typeOf<Stroke>("Stroke"),
        typeOf<Point>("Point"),
        typeOf<CrewMember>("CrewMember"),
        typeOf<CastMember>("CastMember"),
        typeOf<CallSheet>("CallSheet"),
        typeOf<CallSheetPerson>("CallSheetPerson"),
        typeOf<RelatedFile>("RelatedFile"),
    };
    return types;
}

}  // namespace vantry::support
