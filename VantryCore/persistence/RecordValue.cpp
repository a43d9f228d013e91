#include "VantryCore/persistence/RecordValue.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <unordered_map>

namespace vantry {
namespace {

bool isAsciiText(const std::string& text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// The composed text of an identifier, by which elements are matched.
using ElementsByID = std::unordered_map<std::string, const RecordValue*>;

/// The elements by identifier, or nothing when one has none or two share one.
std::optional<ElementsByID> identifiedElements(const RecordValue::Array& array) {
    ElementsByID elements;
    for (const auto& element : array) {
        const Text* id = element.id();
        if (id == nullptr || !elements.emplace(composed(id->utf8()), &element).second)
            return std::nullopt;
    }
    return elements;
}

std::string keyOf(const RecordValue& element) {
    return composed(element.id()->utf8());
}

std::vector<std::string> keysIn(const RecordValue::Array& array, const ElementsByID& also) {
    std::vector<std::string> keys;
    for (const auto& element : array)
        if (auto key = keyOf(element); also.contains(key))
            keys.push_back(std::move(key));
    return keys;
}

std::size_t indexOf(const RecordValue::Array& array, const std::string& key) {
    std::size_t index = 0;
    while (index < array.size() && keyOf(array[index]) != key)
        ++index;
    return index;
}

/// Puts back what the change removed, each behind its nearest old neighbour that is there.
void restoreRemoved(RecordValue::Array& result, const RecordValue::Array& before,
                    const ElementsByID& afterByID) {
    for (std::size_t i = 0; i < before.size(); ++i) {
        const std::string key = keyOf(before[i]);
        if (afterByID.contains(key) || indexOf(result, key) < result.size())
            continue;
        std::size_t place = 0;
        for (std::size_t j = i; j > 0 && place == 0; --j)
            if (const std::size_t neighbour = indexOf(result, keyOf(before[j - 1]));
                neighbour < result.size())
                place = neighbour + 1;
        result.insert(result.begin() + static_cast<std::ptrdiff_t>(place), before[i]);
    }
}

/// Gives the elements that `before` has their old relative order, on the places that they hold together.
void restoreOrder(RecordValue::Array& result, const RecordValue::Array& before,
                  const ElementsByID& beforeByID) {
    RecordValue::Array ordered;
    for (const auto& element : before)
        if (const std::size_t index = indexOf(result, keyOf(element)); index < result.size())
            ordered.push_back(result[index]);
    std::size_t next = 0;
    for (auto& element : result)
        if (beforeByID.contains(keyOf(element)))
            element = ordered[next++];
}

RecordValue revertArrays(const RecordValue::Array& before, const RecordValue::Array& after,
                         const RecordValue& current) {
    const auto beforeByID = identifiedElements(before);
    const auto afterByID = identifiedElements(after);
    if (!beforeByID || !afterByID || !identifiedElements(*current.array()))
        return current;
    RecordValue::Array result;
    for (const auto& element : *current.array()) {
        const std::string key = keyOf(element);
        const auto was = beforeByID->find(key);
        const auto became = afterByID->find(key);
        if (was != beforeByID->end() && became != afterByID->end())
            result.push_back(RecordValue::revert(*was->second, *became->second, element));
        else if (was != beforeByID->end() || became == afterByID->end())
            result.push_back(element);
    }
    restoreRemoved(result, before, *afterByID);
    if (keysIn(before, *afterByID) != keysIn(after, *beforeByID))
        restoreOrder(result, before, *beforeByID);
    return RecordValue(std::move(result));
}

const RecordValue* valueAt(const RecordValue::Object& object, const Text& key) {
    const auto found = object.find(key);
    return found == object.end() ? nullptr : &found->second;
}

RecordValue revertObjects(const RecordValue::Object& before, const RecordValue::Object& after,
                          const RecordValue::Object& current) {
    RecordValue::Object result = current;
    for (const auto& [key, was] : before) {
        const RecordValue* became = valueAt(after, key);
        const RecordValue* is = valueAt(current, key);
        if (became != nullptr && is != nullptr)
            result.find(key)->second = RecordValue::revert(was, *became, *is);
        else if (became == nullptr && is == nullptr)
            result.emplace(key, was);
    }
    for (const auto& [key, became] : after) {
        const RecordValue* is = valueAt(current, key);
        if (valueAt(before, key) == nullptr && is != nullptr && *is == became)
            result.erase(result.find(key));
    }
    return RecordValue(std::move(result));
}

}  // namespace

bool RecordValue::KeyOrder::operator()(const Text& a, const Text& b) const {
    if (isAsciiText(a.utf8()) && isAsciiText(b.utf8()))
        return a.utf8() < b.utf8();
    return composed(a.utf8()) < composed(b.utf8());
}

const Text* RecordValue::id() const {
    static const Text key("id");
    const Object* fields = object();
    if (fields == nullptr)
        return nullptr;
    const auto found = fields->find(key);
    return found == fields->end() ? nullptr : std::get_if<Text>(&found->second.payload);
}

RecordValue RecordValue::withoutIdentity() const {
    if (const Object* fields = object()) {
        Object content;
        for (const auto& [key, value] : *fields)
            if (!(key == Text("id") || key == Text("conflictKey") || key == Text("sourceID")))
                content.emplace(key, value.withoutIdentity());
        return RecordValue(std::move(content));
    }
    if (const Array* elements = array()) {
        Array content;
        content.reserve(elements->size());
        for (const auto& element : *elements)
            content.push_back(element.withoutIdentity());
        return RecordValue(std::move(content));
    }
    return *this;
}

RecordValue RecordValue::revert(const RecordValue& before, const RecordValue& after,
                                const RecordValue& current) {
    if (before == after)
        return current;
    if (current == after)
        return before;
    if (before.object() != nullptr && after.object() != nullptr && current.object() != nullptr)
        return revertObjects(*before.object(), *after.object(), *current.object());
    if (before.array() != nullptr && after.array() != nullptr && current.array() != nullptr)
        return revertArrays(*before.array(), *after.array(), current);
    return current;
}

}  // namespace vantry
