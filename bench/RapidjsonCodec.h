#pragma once

#include <string>
#include <string_view>

#include <rapidjson/stringbuffer.h>

#include "VantryCore/records/Library.h"

namespace vantry::bench {

/// Parses into a rapidjson document (full precision, UTF-8 checked) and makes our records from it.
/// Throws std::runtime_error for anything that it does not understand.
[[nodiscard]] Library decodeByRapidjson(std::string_view json);

/// Writes our records by rapidjson's streaming writer, which leaves "/" as it is.
void encodeByRapidjson(const Library& library, rapidjson::StringBuffer& out);

}  // namespace vantry::bench
