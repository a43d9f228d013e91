#include "VantryCore/persistence/LibraryValidation.h"
#include "fuzz/Input.h"

using namespace vantry;

/// A library file: what can be read is written so that it reads back the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Library library;
    try {
        library = Codec::decode<Library>(fuzz::textOf(data, size));
    } catch (const DecodingError&) {
        return 0;
    }
    const std::string form = Codec::encode(library);
    const auto again = Codec::decode<Library>(form);
    fuzz::demand(again == library, "a library equals what its form reads back");
    fuzz::demand(Codec::encode(again) == form, "a form is written once and for all");
    const auto isValid = [](const Library& checked) {
        return fuzz::unlessRefused([&] {
                   validate(checked);
                   return true;
               })
            .has_value();
    };
    fuzz::demand(isValid(library) == isValid(again), "a library is as valid as what its form reads back");
    fuzz::demand(library.mediaKeys() == again.mediaKeys(), "a library names the images that its form names");
    return 0;
}
