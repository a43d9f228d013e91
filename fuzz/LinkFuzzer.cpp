#include "VantryCore/records/RelatedFile.h"
#include "fuzz/Input.h"

using namespace vantry;

/// A text that somebody typed as an address.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto url = RelatedFile::linkURL(fuzz::textOf(data, size));
    if (!url)
        return 0;
    for (const char c : url->text)
        fuzz::demand(c > ' ' && c < 0x7F, "an address is of printable ASCII");
    fuzz::demand(!url->scheme.empty(), "an address has a scheme");
    const auto again = RelatedFile::linkURL(url->text);
    fuzz::demand(again && again->text == url->text && again->scheme == url->scheme &&
                     again->host == url->host,
                 "an address is an address, the same");
    return 0;
}
