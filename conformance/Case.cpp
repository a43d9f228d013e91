#include "conformance/Case.h"

#include <algorithm>
#include <set>

namespace vantry::conformance {
namespace {

Case readCase(const std::string& line) {
    const Json json = Json::parse(line);
    Case read;
    read.name = json.at("name").get<std::string>();
    read.operation = json.at("op").get<std::string>();
    read.in = json.at("in");
    if (json.contains("error"))
        read.failure = json.at("error").get<std::string>();
    else
        read.expected = json.at("out");
    return read;
}

std::string step(const std::string& key) {
    return (Json::json_pointer() / key).to_string();
}

void compare(const Json& expected, const Json& got, const std::string& place, bool partly,
             std::vector<std::string>& found) {
    if (expected.is_object() && got.is_object()) {
        std::set<std::string> keys;
        for (const auto& [key, value] : expected.items())
            keys.insert(key);
        if (!partly)
            for (const auto& [key, value] : got.items())
                keys.insert(key);
        for (const auto& key : keys) {
            if (expected.contains(key) && got.contains(key))
                compare(expected.at(key), got.at(key), place + step(key), false, found);
            else
                found.push_back(place + step(key));
        }
    } else if (expected.is_array() && got.is_array()) {
        for (std::size_t i = 0; i < std::max(expected.size(), got.size()); ++i) {
            const std::string here = place + "/" + std::to_string(i);
            if (i < expected.size() && i < got.size())
                compare(expected[i], got[i], here, false, found);
            else
                found.push_back(here);
        }
    } else if (expected != got) {
        found.push_back(place);
    }
}

}  // namespace

std::vector<Case> readCases(std::istream& lines) {
    std::vector<Case> cases;
    std::string line;
    for (int number = 1; std::getline(lines, line); ++number) {
        if (line.find_first_not_of(" \t\r") == std::string::npos)
            continue;
        try {
            cases.push_back(readCase(line));
        } catch (const Json::exception& failure) {
            throw UnreadableCase("line " + std::to_string(number) + ": " + failure.what());
        }
    }
    return cases;
}

std::vector<std::string> differences(const Json& expected, const Json& got) {
    std::vector<std::string> found;
    compare(expected, got, "", true, found);
    return found;
}

}  // namespace vantry::conformance
