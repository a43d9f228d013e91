#include "tests/support/JsonText.h"

#include <algorithm>
#include <stdexcept>

namespace vantry::support {
namespace {

bool isBlankByte(char c) {
    return c == ' ' || c == '\n' || c == '\r' || c == '\t';
}

class Scanner {
public:
    explicit Scanner(std::string_view json)
        : rest(json) {}

    void skipBlanks() {
        while (!rest.empty() && isBlankByte(rest.front()))
            rest.remove_prefix(1);
    }
    /// Takes the character if it comes next.
    bool takes(char c) {
        skipBlanks();
        if (rest.empty() || rest.front() != c)
            return false;
        rest.remove_prefix(1);
        return true;
    }
    void expect(char c) {
        if (!takes(c))
            throw std::logic_error("the test's own JSON is broken");
    }
    /// The text in quotes, without them.
    std::string_view quoted() {
        expect('"');
        std::size_t end = 0;
        while (rest.at(end) != '"')
            end += rest.at(end) == '\\' ? 2 : 1;
        const auto inside = rest.substr(0, end);
        rest.remove_prefix(end + 1);
        return inside;
    }
    /// Any value, as it is written.
    std::string_view value() {
        skipBlanks();
        const char* start = rest.data();
        if (rest.at(0) == '"') {
            (void)quoted();
        } else if (rest.at(0) == '{' || rest.at(0) == '[') {
            int depth = 0;
            do {
                if (rest.at(0) == '"') {
                    (void)quoted();
                    continue;
                }
                depth += (rest.at(0) == '{' || rest.at(0) == '[') ? 1 : 0;
                depth -= (rest.at(0) == '}' || rest.at(0) == ']') ? 1 : 0;
                rest.remove_prefix(1);
            } while (depth > 0);
        } else {
            while (!rest.empty() && rest.front() != ',' && rest.front() != '}' && rest.front() != ']' &&
                   !isBlankByte(rest.front()))
                rest.remove_prefix(1);
        }
        return {start, static_cast<std::size_t>(rest.data() - start)};
    }

private:
    std::string_view rest;
};

std::string restyledValue(std::string_view json, const JsonStyle& style, const std::string& indent);

/// Lays out what stands between two brackets.
std::string laidOut(char open, const std::vector<std::string>& parts, char close, const JsonStyle& style,
                    const std::string& indent) {
    std::string out(1, open);
    for (std::size_t i = 0; i < parts.size(); ++i) {
        out += (i == 0 ? "" : ",") + style.lineEnd + indent + style.blank;
        out += parts[i];
    }
    out += parts.empty() ? "" : style.lineEnd + indent;
    return out + close;
}

std::string restyledValue(std::string_view json, const JsonStyle& style, const std::string& indent) {
    const std::string deeper = indent + style.blank;
    std::vector<std::string> parts;
    switch (json.front()) {
    case '{': {
        auto members = membersOf(json);
        if (style.keysReversed)
            std::reverse(members.begin(), members.end());
        for (const auto& member : members)
            parts.push_back("\"" + member.key + "\"" + style.blank + ":" + style.blank +
                            restyledValue(member.value, style, deeper));
        return laidOut('{', parts, '}', style, indent);
    }
    case '[':
        for (const auto& item : itemsOf(json))
            parts.push_back(restyledValue(item, style, deeper));
        return laidOut('[', parts, ']', style, indent);
    case '"': {
        const std::string inside(json.substr(1, json.size() - 2));
        return "\"" + (style.text ? style.text(inside) : inside) + "\"";
    }
    case 't':
    case 'f':
    case 'n':
        return std::string(json);
    default:
        return style.number ? style.number(std::string(json)) : std::string(json);
    }
}

}  // namespace

std::vector<JsonMember> membersOf(std::string_view object) {
    Scanner scanner(object);
    std::vector<JsonMember> members;
    scanner.expect('{');
    if (scanner.takes('}'))
        return members;
    do {
        const std::string key(scanner.quoted());
        scanner.expect(':');
        members.push_back({key, std::string(scanner.value())});
    } while (scanner.takes(','));
    scanner.expect('}');
    return members;
}

std::vector<std::string> itemsOf(std::string_view array) {
    Scanner scanner(array);
    std::vector<std::string> items;
    scanner.expect('[');
    if (scanner.takes(']'))
        return items;
    do
        items.emplace_back(scanner.value());
    while (scanner.takes(','));
    scanner.expect(']');
    return items;
}

std::string objectOf(const std::vector<JsonMember>& members) {
    std::string out = "{";
    for (const auto& member : members)
        out += (out.size() == 1 ? "\"" : ",\"") + member.key + "\":" + member.value;
    return out + "}";
}

std::string arrayOf(const std::vector<std::string>& items) {
    std::string out = "[";
    for (const auto& item : items)
        out += (out.size() == 1 ? "" : ",") + item;
    return out + "]";
}

std::string withValue(std::string_view object, std::string_view key, std::string_view value) {
    auto members = membersOf(object);
    const auto found =
        std::find_if(members.begin(), members.end(), [key](const auto& m) { return m.key == key; });
    if (found == members.end())
        throw std::logic_error("no such key in the test's own JSON: " + std::string(key));
    found->value = value;
    return objectOf(members);
}

std::string withoutKey(std::string_view object, std::string_view key) {
    auto members = membersOf(object);
    std::erase_if(members, [key](const auto& member) { return member.key == key; });
    return objectOf(members);
}

std::string restyled(std::string_view json, const JsonStyle& style) {
    return restyledValue(json, style, "");
}

std::string prettyPrinted(std::string_view json) {
    JsonStyle style;
    style.keysReversed = true;
    style.lineEnd = "\n";
    style.blank = " ";
    return restyled(json, style) + "\n";
}

}  // namespace vantry::support
