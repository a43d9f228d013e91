#include "VantryCore/persistence/RecordDelta.h"
#include "fuzz/Input.h"

using namespace vantry;

/// Three libraries: before a change, after it, and now. The quick undo is what the one over values makes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto libraries = fuzz::valuesOf<Library>(fuzz::textOf(data, size), 3);
    if (!libraries)
        return 0;
    const Library& before = (*libraries)[0];
    const Library& after = (*libraries)[1];
    const Library& current = (*libraries)[2];
    const auto quick =
        fuzz::unlessRefused([&] { return Codec::encode(RecordDelta::undo(before, after, current)); });
    const auto byValues =
        fuzz::unlessRefused([&] { return Codec::encode(RecordDelta::undoByValues(before, after, current)); });
    fuzz::demand(quick == byValues, "both ways of taking a change back agree");
    return 0;
}
