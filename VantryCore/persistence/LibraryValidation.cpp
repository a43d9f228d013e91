#include "VantryCore/persistence/LibraryValidation.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include "VantryCore/persistence/VantryError.h"
#include "VantryCore/records/Identifiers.h"

namespace vantry {
namespace {

constexpr std::size_t tooManyProjects = 10000;
constexpr std::int64_t longestShotMinutes = 10080;
constexpr std::int64_t mostStars = 5;
constexpr int imageKeyLength = 64;

void demand(bool holds) {
    if (!holds)
        throw VantryError(VantryError::Case::invalidBackup);
}

bool isFraction(double value) {
    return std::isfinite(value) && value >= 0 && value <= 1;
}

bool isAsciiHexDigit(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

/// 64 hexadecimal digits in the sense of Unicode's Hex_Digit, so full-width ones count as well.
bool isImageKey(std::string_view key) {
    if (key.size() == imageKeyLength && std::all_of(key.begin(), key.end(), isAsciiHexDigit))
        return true;
    const auto length = static_cast<std::int64_t>(key.size());
    std::int64_t at = 0;
    int digits = 0;
    while (at < length) {
        UChar32 point = 0;
        U8_NEXT_OR_FFFD(key.data(), at, length, point);
        if (u_hasBinaryProperty(point, UCHAR_HEX_DIGIT) == 0 || ++digits > imageKeyLength)
            return false;
    }
    return digits == imageKeyLength;
}

void checkValues(const VantryTake& take) {
    demand(take.number >= 1);
    demand(take.stars >= 0 && take.stars <= mostStars);
    demand(!take.cameraNumber || *take.cameraNumber >= 1);
    demand(!take.soundNumber || *take.soundNumber >= 1);
    demand(take.createdAt.isFinite());
}

/// The shot's own values, without its takes.
void checkValues(const Shot& shot) {
    demand(shot.durationMinutes >= 1 && shot.durationMinutes <= longestShotMinutes);
    demand(!shot.scheduledAt || shot.scheduledAt->isFinite());
    demand(!shot.imageKey || isImageKey(shot.imageKey->utf8()));
    for (const auto& stroke : shot.strokes)
        for (const auto& point : stroke.points)
            demand(isFraction(point.x) && isFraction(point.y));
}

void checkValues(const RelatedFile& file) {
    if (file.kind == RelatedFileKind::link)
        demand(RelatedFile::linkURL(file.location.utf8()).has_value());
    else
        demand(file.location.utf8().starts_with('/'));
}

void checkValues(const CallSheet& sheet) {
    demand(sheet.date.isFinite());
    demand(Zone::isKnown(sheet.timeZoneID.utf8()));
}

void checkRoot(const Library& library) {
    demand(library.format == Text("Vantry"));
    demand(library.version == 1);
    demand(library.projects.size() < tooManyProjects);
}

/// Walks a project's own part, in the order of the rules, without its acts.
template <class OnIdentifier>
void walkOwn(const Project& project, OnIdentifier&& identifier) {
    identifier(project.id);
    for (const auto& member : project.crew())
        identifier(member.id);
    for (const auto& member : project.cast())
        identifier(member.id);
    for (const auto& file : project.relatedFiles()) {
        identifier(file.id);
        checkValues(file);
    }
    for (const auto& sheet : project.callSheets()) {
        identifier(sheet.id);
        checkValues(sheet);
        for (const auto& person : sheet.people)
            identifier(person.id);
    }
    demand(project.createdAt.isFinite());
}

/// What a library has beyond an earlier one and lacks of it, found by walking what differs. A record that
/// changed its place may count as gone and come.
struct Differences {
    std::vector<Identifier> gone;
    std::vector<Identifier> come;

    void compare(const Library& now, const Library& before) {
        checkRoot(now);
        if (before.projects.empty())
            reserveFor(now);
        compareLists(now.projects, before.projects);
    }

private:
    void reserveFor(const Library& library) {
        std::size_t count = 0;
        for (const auto& project : library.projects) {
            ++count;
            for (const auto& act : project->acts) {
                count += 1 + act->shots.size();
                for (const auto& shot : act->shots)
                    count += shot->takes.size();
            }
        }
        come.reserve(count + count / 8);
    }

    template <class T>
    void compareLists(const NodeList<T>& now, const NodeList<T>& before) {
        const std::size_t shorter = std::min(now.size(), before.size());
        std::size_t front = 0;
        while (front < shorter && comparePair(now[front], before[front]))
            ++front;
        std::size_t back = 0;
        while (back < shorter - front &&
               comparePair(now[now.size() - 1 - back], before[before.size() - 1 - back]))
            ++back;
        for (std::size_t i = front; i < before.size() - back; ++i)
            collect(*before[i]);
        for (std::size_t i = front; i < now.size() - back; ++i)
            checkAndCollect(*now[i]);
    }

    /// Compares two states of one record; answers whether they are that.
    template <class T>
    bool comparePair(const Node<T>& now, const Node<T>& before) {
        if (now.isSameAs(before))
            return true;
        if (!(now->id == before->id))
            return false;
        compareRecords(*now, *before);
        return true;
    }

    void compareRecords(const Project& now, const Project& before) {
        walkOwn(before, [this](const Identifier& id) { gone.push_back(id); });
        walkOwn(now, [this](const Identifier& id) { come.push_back(id); });
        compareLists(now.acts, before.acts);
    }
    void compareRecords(const Act& now, const Act& before) { compareLists(now.shots, before.shots); }
    void compareRecords(const Shot& now, const Shot& before) {
        checkValues(now);
        compareLists(now.takes, before.takes);
    }
    void compareRecords(const VantryTake& now, const VantryTake&) { checkValues(now); }

    template <class T>
    void collect(const T& record) {
        forEachIdentifier(record, [this](const Identifier& id) { gone.push_back(id); });
    }

    void checkAndCollect(const Project& project) {
        walkOwn(project, [this](const Identifier& id) { come.push_back(id); });
        for (const auto& act : project.acts)
            checkAndCollect(*act);
    }
    void checkAndCollect(const Act& act) {
        come.push_back(act.id);
        for (const auto& shot : act.shots)
            checkAndCollect(*shot);
    }
    void checkAndCollect(const Shot& shot) {
        come.push_back(shot.id);
        checkValues(shot);
        for (const auto& take : shot.takes)
            checkAndCollect(*take);
    }
    void checkAndCollect(const VantryTake& take) {
        come.push_back(take.id);
        checkValues(take);
    }
};

}  // namespace

void validate(const Library& library) {
    KnownValid().accept(library);
}

void KnownValid::accept(const Library& next) {
    Differences differences;
    differences.compare(next, valid);
    Library accepted = next;
    exchange(differences.gone, differences.come);
    std::swap(valid, accepted);
}

void KnownValid::exchange(const std::vector<Identifier>& gone, const std::vector<Identifier>& come) {
    identifiers.reserve(identifiers.size() + come.size());
    for (const auto& id : gone)
        identifiers.erase(id);
    for (std::size_t i = 0; i < come.size(); ++i) {
        if (identifiers.insert(come[i]).second)
            continue;
        for (std::size_t j = 0; j < i; ++j)
            identifiers.erase(come[j]);
        identifiers.insert(gone.begin(), gone.end());
        throw VantryError(VantryError::Case::invalidBackup);
    }
}

}  // namespace vantry
