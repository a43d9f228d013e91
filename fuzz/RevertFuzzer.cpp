#include "VantryCore/persistence/RecordValue.h"
#include "fuzz/Input.h"

using namespace vantry;

/// Three values: before a change, after it, and now.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto values = fuzz::valuesOf<RecordValue>(fuzz::textOf(data, size), 3);
    if (!values)
        return 0;
    const RecordValue& before = (*values)[0];
    const RecordValue& after = (*values)[1];
    const RecordValue& current = (*values)[2];
    const RecordValue result = RecordValue::revert(before, after, current);
    const std::string form = Codec::encode(result);
    fuzz::demand(Codec::decode<RecordValue>(form) == result, "a value equals what its form reads back");
    if (before == after)
        fuzz::demand(form == Codec::encode(current), "no change leaves today's state");
    else if (current == after)
        fuzz::demand(form == Codec::encode(before), "nothing since brings the state before back");
    const RecordValue content = result.withoutIdentity();
    fuzz::demand(content == content.withoutIdentity(), "what is without identity has none to lose");
    return 0;
}
