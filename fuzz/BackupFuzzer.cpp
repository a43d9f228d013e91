#include "VantryCore/persistence/LibraryValidation.h"
#include "VantryCore/persistence/VantryBackup.h"
#include "fuzz/Input.h"

using namespace vantry;

/// A backup file from anywhere: it is refused with one of its errors, or holds all that it should.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    VantryBackup backup;
    try {
        backup = VantryBackup::decode(fuzz::textOf(data, size));
    } catch (const DecodingError&) {
        return 0;
    } catch (const VantryError&) {
        return 0;
    }
    validate(backup.library);
    for (const auto& key : backup.library.mediaKeys())
        fuzz::demand(Codec::hash(backup.media.at(key)) == key, "an image that is named is there and whole");
    const std::string file = VantryBackup::encode(backup);
    fuzz::demand(VantryBackup::decode(file) == backup, "a backup equals what its file reads back");
    return 0;
}
