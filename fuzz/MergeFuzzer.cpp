#include "VantryCore/persistence/Merge.h"
#include "fuzz/Input.h"
#include "tests/support/PlainMerge.h"

using namespace vantry;

/// Two libraries, the incoming one first: the merge is what its rules say, all or nothing, and done at once.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto libraries = fuzz::valuesOf<Library>(fuzz::textOf(data, size), 2);
    if (!libraries)
        return 0;
    const Library& incoming = libraries->front();
    Library local = libraries->back();
    Library plain = local;
    const std::string before = Codec::encode(local);
    const auto report = fuzz::unlessRefused([&] { return Merge::apply(incoming, local); });
    const auto expected = fuzz::unlessRefused([&] { return support::mergePlainly(incoming, plain); });
    fuzz::demand(report == expected, "a merge reports what its rules say");
    const std::string merged = Codec::encode(local);
    fuzz::demand(merged == Codec::encode(plain), "a merge makes what its rules say");
    if (!report) {
        fuzz::demand(merged == before, "a merge that is refused changes nothing");
        return 0;
    }
    KnownValid known;
    const MergeReport again = Merge::apply(incoming, local, known);
    fuzz::demand(again.added == 0 && again.conflicts == 0, "a merge finds everything when it is repeated");
    fuzz::demand(Codec::encode(local) == merged, "a merge changes nothing when it is repeated");
    fuzz::demand(Codec::encode(known.library()) == merged, "a merge leaves its result known");
    return 0;
}
