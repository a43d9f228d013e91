#include <array>
#include <stdexcept>

#include "VantryCore/persistence/Base64.h"
#include "VantryCore/persistence/Merge.h"
#include "VantryCore/persistence/RecordDelta.h"
#include "VantryCore/persistence/RecordValue.h"
#include "VantryCore/persistence/SameContent.h"
#include "VantryCore/persistence/VantryBackup.h"
#include "conformance/Operation.h"

namespace vantry::conformance {
namespace {

const std::string& text(const Json& in, const char* key) {
    return in.at(key).get_ref<const std::string&>();
}

Library library(const Json& in, const char* key) {
    return Codec::decode<Library>(text(in, key));
}

RecordValue value(const Json& in, const char* key) {
    return Codec::decode<RecordValue>(text(in, key));
}

Json decodeBackup(const Json& in) {
    const VantryBackup backup = VantryBackup::decode(text(in, "text"));
    Json media = Json::object();
    for (const auto& [key, bytes] : backup.media) {
        std::string base64;
        appendBase64(base64, bytes);
        media[key] = base64;
    }
    return {{"library", Codec::encode(backup.library)}, {"media", media}};
}

Json encodeBackup(const Json& in) {
    Media media;
    for (const auto& [key, base64] : in.at("media").items())
        media[key] = decodeBase64(base64.get_ref<const std::string&>()).value();
    return {{"text", VantryBackup::encode(VantryBackup(library(in, "library"), std::move(media)))}};
}

Json withoutIdentity(const Json& in) {
    return {{"value", Codec::encode(value(in, "value").withoutIdentity())}};
}

Json revert(const Json& in) {
    const auto result = RecordValue::revert(value(in, "before"), value(in, "after"), value(in, "current"));
    return {{"value", Codec::encode(result)}};
}

/// Both forms of the comparison have to agree.
template <class Record>
bool areSame(const std::string& a, const std::string& b) {
    const auto first = Codec::decode<Record>(a);
    const auto second = Codec::decode<Record>(b);
    const bool same = sameContent(first, second);
    if (same != sameContentByValues(first, second))
        throw std::logic_error("the two forms of the comparison disagree");
    return same;
}

struct ComparedType {
    std::string_view name;
    bool (*areSame)(const std::string&, const std::string&);
};

constexpr std::array comparedTypes{
    ComparedType{"Project", areSame<Project>},
    ComparedType{"Act", areSame<Act>},
    ComparedType{"Shot", areSame<Shot>},
    ComparedType{"VantryTake", areSame<VantryTake>},
};

Json compareContent(const Json& in) {
    for (const auto& type : comparedTypes)
        if (type.name == text(in, "type"))
            return {{"same", type.areSame(text(in, "a"), text(in, "b"))}};
    throw std::invalid_argument("records called " + text(in, "type") + " are not compared");
}

Json undo(const Json& in) {
    const Library before = library(in, "before");
    const Library after = library(in, "after");
    const Library current = library(in, "current");
    const std::string result = Codec::encode(RecordDelta::undo(before, after, current));
    if (result != Codec::encode(RecordDelta::undoByValues(before, after, current)))
        throw std::logic_error("the two forms of undo disagree");
    return {{"library", result}};
}

Json merge(const Json& in) {
    Library local = library(in, "local");
    const MergeReport report = Merge::apply(library(in, "incoming"), local);
    return {{"library", Codec::encode(local)},
            {"report",
             {{"added", report.added}, {"identical", report.identical}, {"conflicts", report.conflicts}}}};
}

constexpr std::array operations{
    NamedOperation{"backup.decode", decodeBackup},
    NamedOperation{"backup.encode", encodeBackup},
    NamedOperation{"value.withoutIdentity", withoutIdentity},
    NamedOperation{"value.revert", revert},
    NamedOperation{"value.sameContent", compareContent},
    NamedOperation{"delta.undo", undo},
    NamedOperation{"merge.apply", merge},
};

}  // namespace

std::span<const NamedOperation> exchangeOperations() {
    return operations;
}

}  // namespace vantry::conformance
