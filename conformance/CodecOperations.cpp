#include <array>
#include <stdexcept>

#include "VantryCore/persistence/Codec.h"
#include "VantryCore/persistence/LibraryValidation.h"
#include "VantryCore/records/Library.h"
#include "conformance/Operation.h"

namespace vantry::conformance {
namespace {

const std::string& text(const Json& in, const char* key) {
    return in.at(key).get_ref<const std::string&>();
}

template <class Record>
std::string readAndWrite(const std::string& text) {
    return Codec::encode(Codec::decode<Record>(text));
}

struct RecordType {
    std::string_view name;
    std::string (*readAndWrite)(const std::string&);
};

constexpr std::array recordTypes{
    RecordType{"Library", readAndWrite<Library>},
    RecordType{"Project", readAndWrite<Project>},
    RecordType{"Act", readAndWrite<Act>},
    RecordType{"Shot", readAndWrite<Shot>},
    RecordType{"VantryTake", readAndWrite<VantryTake>},
    RecordType{"Parameters", readAndWrite<Parameters>},
    RecordType{"Stroke", readAndWrite<Stroke>},
    RecordType{"Point", readAndWrite<Point>},
    RecordType{"CrewMember", readAndWrite<CrewMember>},
    RecordType{"CastMember", readAndWrite<CastMember>},
    RecordType{"CallSheet", readAndWrite<CallSheet>},
    RecordType{"CallSheetPerson", readAndWrite<CallSheetPerson>},
    RecordType{"RelatedFile", readAndWrite<RelatedFile>},
};

Json roundtrip(const Json& in) {
    for (const auto& type : recordTypes)
        if (type.name == text(in, "type"))
            return {{"text", type.readAndWrite(text(in, "text"))}};
    throw std::invalid_argument("no record is called " + text(in, "type"));
}

Json hash(const Json& in) {
    return {{"hex", Codec::hash(text(in, "text"))}};
}

Json stableID(const Json& in) {
    return {{"uuid", Codec::stableID(text(in, "text")).text()}};
}

Json validateLibrary(const Json& in) {
    validate(Codec::decode<Library>(text(in, "library")));
    return {{"ok", true}};
}

Json mediaKeys(const Json& in) {
    return {{"keys", Codec::decode<Library>(text(in, "library")).mediaKeys()}};
}

constexpr std::array operations{
    NamedOperation{"codec.roundtrip", roundtrip},   NamedOperation{"codec.hash", hash},
    NamedOperation{"codec.stableID", stableID},     NamedOperation{"library.validate", validateLibrary},
    NamedOperation{"library.mediaKeys", mediaKeys},
};

}  // namespace

std::span<const NamedOperation> codecOperations() {
    return operations;
}

}  // namespace vantry::conformance
