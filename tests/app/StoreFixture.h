#pragma once

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "Vantry/app/Desktop.h"
#include "Vantry/app/FilePanels.h"
#include "Vantry/app/KeyEvents.h"
#include "Vantry/app/Preferences.h"
#include "Vantry/app/VantryStore.h"
#include "VantryCore/persistence/Codec.h"
#include "VantryCore/persistence/DiskStore.h"

namespace vantry::test {

namespace fs = std::filesystem;

/// A clock that stands still until a test moves it.
class ManualClock final : public Clock {
public:
    Moment now() override { return Moment{milliseconds / 1000.0}; }
    double uptime() override { return milliseconds / 1000.0; }
    std::unique_ptr<DelayedCall> callAfter(std::chrono::milliseconds delay,
                                           std::function<void()> call) override {
        const int id = next++;
        calls[{milliseconds + delay.count(), id}] = std::move(call);
        return std::make_unique<Cancel>(*this, std::pair{milliseconds + delay.count(), id});
    }
    /// Lets that much time pass and runs what falls due on the way.
    void advance(long long duration) {
        const long long end = milliseconds + duration;
        while (!calls.empty() && calls.begin()->first.first <= end) {
            milliseconds = calls.begin()->first.first;
            const auto call = std::move(calls.begin()->second);
            calls.erase(calls.begin());
            call();
        }
        milliseconds = end;
    }
    [[nodiscard]] std::size_t waiting() const { return calls.size(); }

private:
    using Due = std::pair<long long, int>;
    struct Cancel final : DelayedCall {
        Cancel(ManualClock& owner, Due when)
            : clock(owner)
            , due(when) {}
        ~Cancel() override { clock.calls.erase(due); }
        ManualClock& clock;
        Due due;
    };

    std::map<Due, std::function<void()>> calls;
    long long milliseconds = 1000000;
    int next = 0;
};

class FakeKeys final : public KeyEvents {
public:
    [[nodiscard]] bool isRepeat() const override { return held; }
    bool held = false;
};

/// A person who answers each chooser of files at once.
class FakePanels final : public FilePanels {
public:
    std::optional<fs::path> open(Content content, bool) override { return choose(content, {}); }
    std::optional<fs::path> save(Content content, const std::string& suggestedName, bool) override {
        return choose(content, suggestedName);
    }

    std::optional<fs::path> answer;   ///< what is chosen; nothing: cancelled
    std::function<void()> meanwhile;  ///< what happens while a panel is open
    int asked = 0;
    std::optional<Content> lastContent;
    std::string lastName;

private:
    std::optional<fs::path> choose(Content content, const std::string& name) {
        ++asked;
        lastContent = content;
        lastName = name;
        if (meanwhile)
            meanwhile();
        return answer;
    }
};

/// A desktop that remembers what it was asked to open.
class RecordingDesktop final : public Desktop {
public:
    bool open(const fs::path& document) override {
        opened.push_back(document);
        return hasProgram;
    }
    std::vector<fs::path> opened;
    bool hasProgram = true;
};

/// Counts what a save does to the disk.
class CountingDisk final : public FileOperations {
public:
    void write(int file, std::string_view bytes, const fs::path& path) override {
        ++writes;
        FileOperations::write(file, bytes, path);
    }
    int writes = 0;
};

inline std::string contentOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

inline void put(const fs::path& file, const std::string& bytes) {
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary | std::ios::trunc) << bytes;
}

/// A store on a data folder of its own, in a world that the test moves.
class StoreTest : public testing::Test {
protected:
    [[nodiscard]] fs::path root() const { return fs::path(folder.path().toStdString()) / "Data"; }
    [[nodiscard]] fs::path file() const { return root() / "library.json"; }
    [[nodiscard]] fs::path previous() const { return root() / "library.json.previous"; }

    [[nodiscard]] std::unique_ptr<VantryStore> open() {
        Surroundings around;
        around.clock = &clock;
        around.keys = &keys;
        around.disk = faults != nullptr ? faults : &disk;
        around.panels = &panels;
        around.desktop = &programs;
        around.doubleClickSeconds = [this] { return doubleClick; };
        return std::make_unique<VantryStore>(root(), around);
    }
    /// A production with an act, a shot and a take.
    void makeTake(VantryStore& store) {
        project = store.addProject("候车室", "林若水");
        act = store.addAct(project);
        shot = store.addShot(project, act);
        take = store.addTake(project, act, shot);
    }
    [[nodiscard]] std::shared_ptr<const VantryTake> takeIn(const VantryStore& store) const {
        return store.take(project, act, shot, take);
    }
    void type(VantryStore& store, const Text& notes) {
        store.updateTake(project, act, shot, take, [&](VantryTake& record) { record.notes = notes; });
    }
    [[nodiscard]] Text notesOnDisk() const {
        const Library library = DiskStore::read(file());
        return library.projects.at(0)->acts.at(0)->shots.at(0)->takes.at(0)->notes;
    }

    QTemporaryDir folder;
    ManualClock clock;
    FakeKeys keys;
    CountingDisk disk;
    FakePanels panels;
    RecordingDesktop programs;
    FileOperations* faults = nullptr;  ///< in place of `disk` for the stores that are opened from now on
    double doubleClick = 0.4;
    Identifier project, act, shot, take;
};

}  // namespace vantry::test
