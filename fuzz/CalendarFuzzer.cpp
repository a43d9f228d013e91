#include "VantryCore/records/CallSheet.h"
#include "fuzz/Input.h"

using namespace vantry;

/// A call sheet whose start is looked for on its day.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    CallSheet sheet;
    try {
        sheet = Codec::decode<CallSheet>(fuzz::textOf(data, size));
    } catch (const DecodingError&) {
        return 0;
    }
    const auto start = sheet.calendarStart();
    fuzz::demand(start == sheet.calendarStart(), "a start is found again");
    if (start)
        fuzz::demand(start->isFinite() && sheet.calendar().isSameDay(*start, sheet.date),
                     "a start is on its day");
    return 0;
}
