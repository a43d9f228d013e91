#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace vantry::support {

/// A field after a change of its value in the smallest way that counts.
struct ChangedField {
    std::string name;
    bool equal = false;             ///< whether the record still equals the one before, either way round
    bool equalWhenPutBack = false;  ///< whether it does again with the old value
    bool readsBack = false;         ///< whether its JSON form decodes to it
    std::string form;               ///< its JSON form
};

/// A kind of record that has a JSON form, as functions, so that one test runs over all of them. Records are
/// named by the seed that fills every field of theirs at random.
struct RecordType {
    const char* name;
    std::vector<std::string> (*fieldNames)();
    /// The JSON form of a record in which everything optional is there.
    std::string (*completeForm)();
    std::string (*randomForm)(std::uint64_t seed);
    /// Whether the record equals a copy, one made the same way, and what its JSON form decodes to.
    bool (*equalsItself)(std::uint64_t seed);
    /// Whether a JSON text decodes to the record.
    bool (*isFormOf)(std::string_view json, std::uint64_t seed);
    /// The record with each single field changed in turn.
    std::vector<ChangedField> (*changedFields)(std::uint64_t seed);
    /// Decodes and encodes again. Throws what the decoder throws.
    std::string (*rewritten)(std::string_view json);
    /// Whether two JSON texts decode to equal records.
    bool (*equal)(std::string_view a, std::string_view b);
};

/// Readable as the name of a test.
void PrintTo(const RecordType& type, std::ostream* out);

/// Every record that has a JSON form.
[[nodiscard]] const std::vector<RecordType>& recordTypes();

}  // namespace vantry::support
