#pragma once

#include <set>
#include <string>
#include <vector>

#include <QColor>

#include "VantryCore/persistence/VantryBackup.h"
#include "VantryCore/persistence/VantryError.h"
#include "tests/app/ImageFiles.h"
#include "tests/app/StoreFixture.h"
#include "tests/support/Files.h"

namespace vantry::test {

inline Bytes bytesOf(const std::string& text) {
    return {text.begin(), text.end()};
}

/// Two machines: this store, and a library that came from the other one as a backup.
class ExchangeTest : public StoreTest {
protected:
    [[nodiscard]] fs::path media() const { return root() / "Media"; }
    [[nodiscard]] fs::path outside(const std::string& name) const {
        return fs::path(folder.path().toStdString()) / name;
    }

    /// The library of the other machine: a copy of ours in which the take has other notes, and a production
    /// of its own whose shot has an image.
    [[nodiscard]] Library otherLibrary(const Library& ours) {
        Library other = ours;
        for (auto& record : other.projects)
            if (record->id == project)
                record.edit().acts[0].edit().shots[0].edit().takes[0].edit().notes = "另一台设备的不同内容";
        Project foreign = Project::make("From the other machine");
        Act scene = Act::make("Scene");
        Shot framed = Shot::make("01", "Framed", {});
        framed.imageKey = Text(Codec::hash(picture));
        scene.shots.emplace_back(std::move(framed));
        foreign.acts.emplace_back(std::move(scene));
        foreignProject = foreign.id;
        other.projects.emplace_back(std::move(foreign));
        return other;
    }
    [[nodiscard]] std::string backupOf(const Library& library) const {
        return VantryBackup::encode(VantryBackup(library, {{Codec::hash(picture), bytesOf(picture)}}));
    }
    /// The takes of our shot.
    [[nodiscard]] const NodeList<VantryTake>& takesIn(const VantryStore& store) const {
        return store.shot(project, act, shot)->takes;
    }

    std::string picture = pngOf(Qt::darkCyan);
    Identifier foreignProject;
};

}  // namespace vantry::test
