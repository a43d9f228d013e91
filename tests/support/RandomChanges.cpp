#include "tests/support/RandomChanges.h"

#include <algorithm>
#include <string_view>
#include <type_traits>
#include <utility>

#include "VantryCore/persistence/Codec.h"

namespace vantry::support {
namespace {

constexpr const char* texts[] = {"", "a", "b", "id", "\u00E9", "e\u0301", "A\u030A", "\u00C5", "\u212B"};
constexpr const char* keys[] = {"id",  "conflictKey", "sourceID", "conflict\u212Aey",
                                "iso", "\u00E9",      "e\u0301",  "fps"};

class Changes {
public:
    explicit Changes(RandomRecords& generator)
        : random(generator) {}

    template <Record T>
    void change(T& record) {
        if constexpr (std::is_same_v<T, RelatedFile>) {
            changeReference(record);
        } else if (!changesChild(record)) {
            const auto chosen = random.number(0, static_cast<std::int64_t>(fieldCount<T>) - 1);
            std::int64_t at = 0;
            forEachField<T>([&](const auto& f) {
                if (at++ == chosen)
                    changeField(f.name, record.*f.member);
            });
        }
    }

    template <class T>
    void change(std::vector<T>& list) {
        const auto kind = random.number(0, 11);
        if (list.empty() || kind == 0)
            list.insert(list.begin() + place(list.size() + 1), makeValid<T>());
        else if (kind == 1)
            list.erase(list.begin() + place(list.size()));
        else if (kind == 2)
            std::swap(list[index(list)], list[index(list)]);
        else if (kind == 3)
            std::rotate(list.begin(), list.begin() + place(list.size()), list.end());
        else if (kind == 4 && (std::is_same_v<T, Stroke> || random.chance(0.02)))
            list.insert(list.begin() + place(list.size() + 1), T(list[index(list)]));
        else
            changeItem(list[index(list)]);
    }

private:
    /// Most fields of a record are plain: without this, hardly a change would reach the depths.
    template <class T>
    bool changesChild(T& record) {
        if (!random.chance(0.6))
            return false;
        if constexpr (std::is_same_v<T, Project>)
            change(record.acts);
        else if constexpr (std::is_same_v<T, Act>)
            change(record.shots);
        else if constexpr (std::is_same_v<T, Shot>)
            change(record.takes);
        else
            return false;
        return true;
    }
    std::ptrdiff_t place(std::size_t count) {
        return static_cast<std::ptrdiff_t>(random.number(0, static_cast<std::int64_t>(count) - 1));
    }
    template <class T>
    std::size_t index(const std::vector<T>& list) {
        return static_cast<std::size_t>(place(list.size()));
    }

    template <class T>
    T makeValid() {
        if constexpr (std::is_same_v<T, Node<Project>>) {
            return random.validProject();
        } else if constexpr (std::is_same_v<T, Node<Act>>) {
            return random.validAct();
        } else if constexpr (std::is_same_v<T, Node<Shot>>) {
            return random.validShot();
        } else if constexpr (std::is_same_v<T, Node<VantryTake>>) {
            return random.validTake();
        } else if constexpr (std::is_same_v<T, CallSheet>) {
            return random.validCallSheet();
        } else if constexpr (std::is_same_v<T, RelatedFile>) {
            return random.validReference();
        } else if constexpr (std::is_same_v<T, Stroke>) {
            return Stroke{random.identifier(), {{0.5, 0.25}}};
        } else if constexpr (std::is_same_v<T, Point>) {
            return Point{0.5, 1};
        } else if constexpr (std::is_same_v<T, std::uint8_t>) {
            return static_cast<std::uint8_t>(random.number(0, 255));
        } else {
            return random.make<T>();
        }
    }

    template <class T>
    void changeItem(T& item) {
        change(item);
    }
    template <class T>
    void changeItem(Node<T>& item) {
        change(item.edit());
    }
    void changeItem(std::uint8_t& byte) { byte = static_cast<std::uint8_t>(random.number(0, 3)); }

    template <class T>
    void changeField(std::string_view name, std::optional<T>& value) {
        if (!value || random.chance(0.7)) {
            if (!value)
                value.emplace();
            changeField(name, *value);
        } else {
            value.reset();
        }
    }
    template <class T>
    void changeField(std::string_view, std::vector<T>& list) {
        if (random.chance(0.03))
            list.clear();
        else
            change(list);
    }
    template <Record T>
    void changeField(std::string_view, T& record) {
        change(record);
    }
    void changeField(std::string_view name, Text& value) {
        if (name == "imageKey")
            value = Text(std::string(64, static_cast<char>('a' + random.number(0, 2))));
        else if (name == "timeZoneID")
            value = random.chance(0.5) ? "UTC" : "Europe/Berlin";
        else
            value = random.oneOf(texts);
    }
    void changeField(std::string_view, Identifier& value) {
        // An identifier stays, as it does in the program. A file may still bring another one.
        if (random.chance(0.1))
            value = random.identifier();
    }
    void changeField(std::string_view, std::int64_t& value) { value = random.number(1, 4); }
    void changeField(std::string_view, double& value) {
        value = static_cast<double>(random.number(0, 4)) / 4;
    }
    void changeField(std::string_view, Moment& value) { value.seconds = random.finite(); }
    void changeField(std::string_view, bool& value) { value = !value; }
    template <TextEnum E>
    void changeField(std::string_view, E& value) {
        random.fill(value);
    }
    void changeField(std::string_view, TextMap& map) {
        if (!map.empty() && random.chance(0.3)) {
            std::vector<TextMap::Entry> entries(map.begin(), map.end());
            entries.erase(entries.begin() + place(entries.size()));
            map = TextMap(std::move(entries));
        } else {
            map.set(random.oneOf(keys), random.oneOf(texts));
        }
    }

    void changeReference(RelatedFile& file) {
        switch (random.number(0, 3)) {
        case 0:
            changeField("name", file.name);
            break;
        case 1:
            changeField("notes", file.notes);
            break;
        case 2:
            changeField("bookmark", file.bookmark);
            break;
        default:
            file.kind = random.chance(0.5) ? RelatedFileKind::file : RelatedFileKind::folder;
            file.location = random.chance(0.5) ? "/a" : "/b";
        }
    }

    RandomRecords& random;
};

}  // namespace

void changeAnywhere(Library& library, RandomRecords& random) {
    Changes(random).change(library.projects);
}

void changeAnywhere(Project& project, RandomRecords& random) {
    Changes(random).change(project);
}

void changeAnywhere(Act& act, RandomRecords& random) {
    Changes(random).change(act);
}

void changeAnywhere(Shot& shot, RandomRecords& random) {
    Changes(random).change(shot);
}

void changeAnywhere(VantryTake& take, RandomRecords& random) {
    Changes(random).change(take);
}

Library crowdedLibrary(RandomRecords& random) {
    Library library = random.validLibrary(static_cast<int>(random.number(1, 3)));
    for (auto& project : library.projects) {
        for (auto more = random.number(0, 3); more > 0; --more)
            project.edit().acts.emplace_back(random.validAct());
        for (auto& act : project.edit().acts)
            for (auto more = random.number(0, 4); more > 0; --more) {
                Shot shot = random.validShot();
                for (auto takes = random.number(0, 4); takes > 0; --takes)
                    shot.takes.emplace_back(random.validTake());
                act.edit().shots.emplace_back(std::move(shot));
            }
    }
    return library;
}

Library unshared(const Library& library) {
    return Codec::decode<Library>(Codec::encode(library));
}

}  // namespace vantry::support
