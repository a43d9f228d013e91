#include <system_error>

#include <gtest/gtest.h>

#include "VantryCore/persistence/Codec.h"
#include "VantryCore/persistence/DiskStore.h"
#include "tests/support/FaultyFileOperations.h"
#include "tests/support/Files.h"
#include "tests/support/JsonText.h"
#include "tests/support/RandomEdits.h"
#include "tests/support/SampleLibrary.h"

namespace vantry {
namespace {

namespace fs = std::filesystem;
using support::contentOf;
using support::libraryTitled;
using support::TemporaryFolder;

std::string bytesOf(const char* title) {
    return Codec::encode(libraryTitled(title));
}

TEST(SavedFile, LearnsFromAReadingAndFromAWriting) {
    const TemporaryFolder folder;
    const fs::path file = folder / "library.json";
    SavedFile memory;
    EXPECT_FALSE(memory.knows(file));
    EXPECT_FALSE(memory.knows(""));
    DiskStore::write(libraryTitled("one"), file, &memory);
    EXPECT_TRUE(memory.knows(file));
    EXPECT_FALSE(memory.knows(folder / "other"));
    EXPECT_EQ(memory.bytes, contentOf(file));
    EXPECT_TRUE(memory.library == libraryTitled("one"));
    SavedFile other;
    (void)DiskStore::read(file, &other);
    EXPECT_TRUE(other.knows(file));
    EXPECT_EQ(other.bytes, contentOf(file));
    other.forget();
    EXPECT_FALSE(other.knows(file));
}

TEST(SavedFile, SparesTheSecondDecodingOfTheSameBytes) {
    const TemporaryFolder folder;
    const fs::path file = folder / "library.json";
    SavedFile memory;
    DiskStore::write(support::completeLibrary(), file, &memory);
    const Node<Project> known = memory.library.projects[0];
    Library library = memory.library;
    library.projects[0].edit().notes = "changed";
    DiskStore::write(library, file, &memory);
    EXPECT_TRUE(memory.library.projects[0].isSameAs(library.projects[0]));
    EXPECT_FALSE(memory.library.projects[0].isSameAs(known));
}

TEST(SavedFile, ForgetsWhenAReadingFindsNothingOrFails) {
    const TemporaryFolder folder;
    const fs::path file = folder / "library.json";
    SavedFile memory;
    DiskStore::write(libraryTitled("one"), file, &memory);
    fs::remove(file);
    (void)DiskStore::read(file, &memory);
    EXPECT_FALSE(memory.knows(file));
    DiskStore::write(libraryTitled("one"), file, &memory);
    support::putContent(file, "invalid JSON");
    EXPECT_ANY_THROW((void)DiskStore::read(file, &memory));
    EXPECT_FALSE(memory.knows(file));
}

TEST(SavedFile, IsNotAskedAboutAnotherFile) {
    const TemporaryFolder folder;
    SavedFile memory;
    DiskStore::write(libraryTitled("one"), folder / "a", &memory);
    DiskStore::write(libraryTitled("two"), folder / "b");
    DiskStore::write(libraryTitled("one"), folder / "b", &memory);
    EXPECT_EQ(contentOf(folder / "b"), bytesOf("one"));
    EXPECT_EQ(contentOf(folder / "b.previous"), bytesOf("two"));
    DiskStore::write(libraryTitled("three"), folder / "a", &memory);
    EXPECT_EQ(contentOf(folder / "a.previous"), bytesOf("one"));
}

TEST(SavedFile, DoesNotShareWhatTheUserGoesOnEditing) {
    const TemporaryFolder folder;
    const fs::path file = folder / "library.json";
    SavedFile memory;
    Library library = support::completeLibrary();
    DiskStore::write(library, file, &memory);
    library.projects[0].edit().notes = "typed later";
    EXPECT_TRUE(memory.library == support::completeLibrary());
    DiskStore::write(library, file, &memory);
    EXPECT_EQ(contentOf(file), Codec::encode(library));
}

TEST(SavedFile, IsDistrustedWhenTheFileChangedWithinItsSizeAndTime) {
    const TemporaryFolder folder;
    const fs::path file = folder / "library.json";
    SavedFile memory;
    DiskStore::write(libraryTitled("one"), file, &memory);
    fs::copy_file(file, folder / "model");
    support::copyModificationTime(file, folder / "model");
    // In place, so that inode, size and modification time all stay.
    ASSERT_EQ(bytesOf("one").size(), bytesOf("two").size());
    support::putContent(file, bytesOf("two"));
    support::copyModificationTime(folder / "model", file);
    DiskStore::write(libraryTitled("one"), file, &memory);
    EXPECT_EQ(contentOf(file), bytesOf("one"));
    EXPECT_EQ(contentOf(DiskStore::previousOf(file)), bytesOf("two"));
}

TEST(SavedFile, IsDistrustedWhereverTheFileDiffers) {
    const TemporaryFolder folder;
    const fs::path file = folder / "library.json";
    // Over several chunks of reading, with a change in each and at both ends.
    Library library = support::sampleLibrary();
    for (const std::size_t at :
         {std::size_t{0}, std::size_t{262'143}, std::size_t{262'144}, std::size_t{524'288}}) {
        SavedFile memory;
        fs::remove(file);
        fs::remove(DiskStore::previousOf(file));
        DiskStore::write(library, file, &memory);
        std::string bytes = memory.bytes;
        const std::size_t letter = bytes.find("\"notes\":\"", at) + 9;
        bytes[letter] = bytes[letter] == 'x' ? 'y' : 'x';
        Library foreign;
        try {
            foreign = Codec::decode<Library>(bytes);
        } catch (const std::exception&) {
            bytes = memory.bytes;
            bytes.insert(letter, "x");
        }
        support::putContent(file, bytes);
        DiskStore::write(library, file, &memory);
        EXPECT_EQ(contentOf(file), Codec::encode(library)) << at;
        EXPECT_EQ(contentOf(DiskStore::previousOf(file)), bytes) << at;
    }
    for (const std::size_t length :
         {std::size_t{1}, std::size_t{262'144}, support::sampleFileBytes().size() - 1}) {
        SavedFile memory;
        fs::remove(file);
        DiskStore::write(library, file, &memory);
        support::putContent(file, std::string_view(memory.bytes).substr(0, length));
        EXPECT_ANY_THROW(DiskStore::write(library, file, &memory)) << length;
        EXPECT_EQ(contentOf(file).size(), length);
    }
}

TEST(SavedFile, IsDistrustedWhenTheFileShrinksOrGrowsWhileItIsRead) {
    for (const int change : {-1, 1}) {
        const TemporaryFolder folder;
        const fs::path file = folder / "library.json";
        SavedFile memory;
        const Library library = support::sampleLibrary();
        DiskStore::write(library, file, &memory);
        const std::string good = memory.bytes;
        support::FaultyFileOperations disk;
        int reads = 0;
        disk.beforeStep = [&](std::size_t, const std::string& step) {
            if (step == "read" && ++reads == 2)
                support::putContent(file, change < 0 ? good.substr(0, 300'000) : good + good);
        };
        EXPECT_ANY_THROW(DiskStore::write(libraryTitled("new"), file, &memory, disk));
        EXPECT_NE(contentOf(file), bytesOf("new"));
        EXPECT_FALSE(fs::exists(DiskStore::previousOf(file)));
    }
}

TEST(SavedFile, WritesAMissingFileAnew) {
    const TemporaryFolder folder;
    const fs::path file = folder / "library.json";
    SavedFile memory;
    DiskStore::write(libraryTitled("one"), file, &memory);
    fs::remove(file);
    DiskStore::write(libraryTitled("one"), file, &memory);
    EXPECT_EQ(contentOf(file), bytesOf("one"));
    EXPECT_FALSE(fs::exists(DiskStore::previousOf(file)));
    fs::remove_all(folder.path());
    DiskStore::write(libraryTitled("one"), file, &memory);
    EXPECT_EQ(contentOf(file), bytesOf("one"));
}

/// The same folder twice: one saved with the memory, one without. Everything that happens to one happens to
/// the other, and nobody may see a difference.
class Twins {
public:
    explicit Twins(std::uint64_t seed)
        : random(seed)
        , library(random.validLibrary()) {}

    void step() {
        switch (random.number(0, 15)) {
        case 0:
            inBoth([](const fs::path& file, const std::string& bytes) {
                support::putContent(file, bytes + " ");
            });
            break;
        case 1:
            inBoth([](const fs::path& file, const std::string& bytes) {
                if (bytes.size() > 1 && bytes.back() == '}')
                    support::putContent(file, support::prettyPrinted(bytes));
            });
            break;
        case 2:
            inBoth([](const fs::path& file, const std::string& bytes) {
                support::putContent(file, std::string_view(bytes).substr(0, bytes.size() / 2));
            });
            damaged = true;
            break;
        case 3:
            inBoth([](const fs::path& file, const std::string&) { fs::remove(file); });
            damaged = false;
            break;
        case 4: {
            const std::string foreign = Codec::encode(random.validLibrary());
            inBoth([&](const fs::path& file, const std::string&) { support::putContent(file, foreign); });
            damaged = false;
            break;
        }
        case 5:
            inBoth([](const fs::path& file, const std::string&) {
                if (fs::exists(DiskStore::previousOf(file)))
                    fs::copy_file(DiskStore::previousOf(file), file, fs::copy_options::overwrite_existing);
            });
            break;
        case 6:
            inBoth([](const fs::path& file, const std::string&) { fs::remove(DiskStore::previousOf(file)); });
            break;
        case 7:
            library = snapshot;
            break;
        case 8:
            snapshot = library;
            break;
        case 9:
            support::editFreely(library, random);
            break;
        case 10:
            random.chance(0.5) ? memory.forget() : reload();
            break;
        default:
            support::editValidly(library, random);
        }
        if (damaged && random.chance(0.3)) {
            const std::string repaired = Codec::encode(random.validLibrary());
            inBoth([&](const fs::path& file, const std::string&) { support::putContent(file, repaired); });
            damaged = false;
        }
        const auto failing = random.chance(0.15) ? static_cast<std::size_t>(random.number(1, 20)) : 0;
        const auto withMemory = save(remembering / "library.json", &memory, failing);
        const auto without = save(forgetful / "library.json", nullptr, failing);
        if (failing == 0) {
            EXPECT_EQ(withMemory, without);
        } else {
            // The two may take other steps and so fail at another; a second save brings them together.
            EXPECT_EQ(save(remembering / "library.json", &memory, 0),
                      save(forgetful / "library.json", nullptr, 0));
        }
        if (withMemory.empty())
            ++saved;
        EXPECT_EQ(contentIfAny(remembering), contentIfAny(forgetful));
        if (failing == 0) {
            EXPECT_EQ(support::contentIfAny(remembering / "library.json.previous"),
                      support::contentIfAny(forgetful / "library.json.previous"));
        }
        EXPECT_TRUE(support::temporaryNamesIn(remembering.path()).empty());
        EXPECT_TRUE(support::temporaryNamesIn(forgetful.path()).empty());
    }

    int saved = 0;

private:
    /// What the save reported, empty for success. After it the file holds the library.
    std::string save(const fs::path& file, SavedFile* known, std::size_t failing) {
        support::FaultyFileOperations disk;
        disk.skipSyncs();
        disk.failAt(failing);
        try {
            DiskStore::write(library, file, known, disk);
        } catch (const std::exception& failure) {
            std::string what = failure.what();
            if (const auto at = what.find(file.parent_path().string()); at != std::string::npos)
                what.replace(at, file.parent_path().string().size(), "folder");
            return what;
        }
        EXPECT_TRUE(Codec::decode<Library>(contentOf(file)) == library);
        return {};
    }
    void inBoth(const std::function<void(const fs::path&, const std::string&)>& change) {
        for (const TemporaryFolder* folder : {&remembering, &forgetful}) {
            const fs::path file = *folder / "library.json";
            if (fs::exists(file))
                change(file, contentOf(file));
        }
    }
    void reload() {
        try {
            library = DiskStore::read(remembering / "library.json", &memory);
        } catch (const std::exception&) {
            EXPECT_FALSE(memory.knows(remembering / "library.json"));
        }
    }
    static std::optional<std::string> contentIfAny(const TemporaryFolder& folder) {
        return support::contentIfAny(folder / "library.json");
    }

    support::RandomRecords random;
    Library library;
    Library snapshot;
    SavedFile memory;
    TemporaryFolder remembering;
    TemporaryFolder forgetful;
    bool damaged = false;
};

TEST(SavedFile, IsNeverSeenFromOutside) {
    int saved = 0;
    for (std::uint64_t seed = 0; seed < 12; ++seed) {
        Twins twins(seed);
        for (int step = 0; step < 60; ++step) {
            SCOPED_TRACE("seed " + std::to_string(seed) + " step " + std::to_string(step));
            twins.step();
            if (::testing::Test::HasFailure())
                return;
        }
        saved += twins.saved;
    }
    EXPECT_GT(saved, 200);
}

}  // namespace
}  // namespace vantry
