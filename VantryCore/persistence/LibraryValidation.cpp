#include "VantryCore/persistence/LibraryValidation.h"

#include <cmath>

#include <absl/container/flat_hash_set.h>
#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include "VantryCore/persistence/VantryError.h"

namespace vantry {
namespace {

constexpr std::size_t tooManyProjects = 10000;
constexpr std::int64_t longestShotMinutes = 10080;
constexpr std::int64_t mostStars = 5;
constexpr int imageKeyLength = 64;

using Identifiers = absl::flat_hash_set<Identifier, std::hash<Identifier>>;

void demand(bool holds) {
    if (!holds)
        throw VantryError(VantryError::Case::invalidBackup);
}

bool isFraction(double value) {
    return std::isfinite(value) && value >= 0 && value <= 1;
}

/// 64 hexadecimal digits in the sense of Unicode's Hex_Digit, so full-width ones count as well.
bool isImageKey(std::string_view key) {
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

void reserveFor(const Library& library, Identifiers& seen) {
    std::size_t count = 0;
    for (const auto& project : library.projects) {
        ++count;
        for (const auto& act : project->acts) {
            count += 1 + act->shots.size();
            for (const auto& shot : act->shots)
                count += shot->takes.size();
        }
    }
    seen.reserve(count + count / 8);
}

/// Thrown inside this file when two libraries do not hold the same records in the same places.
struct OtherRecords {};

template <class T, class Visit>
void walkDifferences(const NodeList<T>& now, const NodeList<T>& before, Visit&& visit) {
    if (now.size() != before.size())
        throw OtherRecords{};
    for (std::size_t i = 0; i < now.size(); ++i) {
        if (now[i].isSameAs(before[i]))
            continue;
        if (!(now[i]->id == before[i]->id))
            throw OtherRecords{};
        visit(*now[i], *before[i]);
    }
}

/// Checks the values of what differs. As long as every identifier stands where it stood, all of them are
/// still unique.
void checkDifferences(const Library& library, const Library& valid) {
    walkDifferences(library.projects, valid.projects, [](const Project& project, const Project& before) {
        std::vector<Identifier> identifiers;
        walkOwn(before, [&](const Identifier& id) { identifiers.push_back(id); });
        std::size_t next = 0;
        walkOwn(project, [&](const Identifier& id) {
            if (next == identifiers.size() || !(identifiers[next++] == id))
                throw OtherRecords{};
        });
        if (next != identifiers.size())
            throw OtherRecords{};
        walkDifferences(project.acts, before.acts, [](const Act& act, const Act& actBefore) {
            walkDifferences(act.shots, actBefore.shots, [](const Shot& shot, const Shot& shotBefore) {
                checkValues(shot);
                walkDifferences(shot.takes, shotBefore.takes,
                                [](const VantryTake& take, const VantryTake&) { checkValues(take); });
            });
        });
    });
}

}  // namespace

void validate(const Library& library) {
    checkRoot(library);
    Identifiers seen;
    reserveFor(library, seen);
    const auto identifier = [&seen](const Identifier& id) { demand(seen.insert(id).second); };
    for (const auto& project : library.projects) {
        walkOwn(*project, identifier);
        for (const auto& act : project->acts) {
            identifier(act->id);
            for (const auto& shot : act->shots) {
                identifier(shot->id);
                checkValues(*shot);
                for (const auto& take : shot->takes) {
                    identifier(take->id);
                    checkValues(*take);
                }
            }
        }
    }
}

void validate(const Library& library, const Library& valid) {
    checkRoot(library);
    try {
        checkDifferences(library, valid);
    } catch (const OtherRecords&) {
        validate(library);
    }
}

}  // namespace vantry
