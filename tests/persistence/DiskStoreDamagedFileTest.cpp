#include <cerrno>
#include <system_error>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "VantryCore/persistence/Codec.h"
#include "VantryCore/persistence/DiskStore.h"
#include "VantryCore/persistence/VantryError.h"
#include "tests/support/Files.h"
#include "tests/support/JsonText.h"
#include "tests/support/SampleLibrary.h"

namespace vantry {
namespace {

namespace fs = std::filesystem;
using support::TemporaryFolder;

/// A file that must not be believed, named after what is wrong with it.
struct Defect {
    const char* name;
    std::string bytes;
    bool decodes;  ///< well-formed, but against a rule
};

void PrintTo(const Defect& defect, std::ostream* out) {
    *out << defect.name;
}

std::vector<Defect> defects() {
    const Library complete = support::completeLibrary();
    const std::string good = Codec::encode(complete);
    const auto with = [&](const std::function<void(Library&)>& change) {
        Library library = complete;
        change(library);
        return Codec::encode(library);
    };
    std::string badText = good;
    badText.replace(badText.find("She waits."), 3, "\xFF\xFE!");
    return {
        {"zero-byte", "", false},
        {"zero-filled", std::string(good.size(), '\0'), false},
        {"zero-tail", good.substr(0, good.size() / 2) + std::string(good.size() / 2, '\0'), false},
        {"truncated", good.substr(0, good.size() / 2), false},
        {"last-byte-missing", good.substr(0, good.size() - 1), false},
        {"byte-behind", good + "}", false},
        {"written-twice", good + good, false},
        {"no-json", "invalid JSON", false},
        {"empty-object", "{}", false},
        {"only-a-list", "[]", false},
        {"invalid-utf8", badText, false},
        {"future-version", with([](Library& l) { l.version = 2; }), true},
        {"other-format", with([](Library& l) { l.format = "Vantry Backup"; }), true},
        {"future-shape", support::withoutKey(good, "projects"), false},
        {"invalid-stars", with([](Library& l) {
             l.projects[0].edit().acts[0].edit().shots[0].edit().takes[0].edit().stars = 6;
         }),
         true},
        {"repeated-identifier", with([](Library& l) { l.projects.push_back(l.projects[0]); }), true},
        {"unknown-zone",
         with([](Library& l) { l.projects[0].edit().callSheetRecords->front().timeZoneID = "Mars/Phobos"; }),
         true},
        {"missing-key", support::withoutKey(good, "version"), false},
        {"repeated-key", good.substr(0, good.size() - 1) + ",\"version\":1}", false},
        {"backup-file", R"({"library":)" + good + R"(,"checksums":{},"media":{},"version":1})", false},
    };
}

struct Outcome {
    bool decodingError = false;
    bool invalid = false;
};

Outcome outcomeOf(const std::function<void()>& work) {
    Outcome outcome;
    try {
        work();
    } catch (const DecodingError&) {
        outcome.decodingError = true;
    } catch (const VantryError& failure) {
        outcome.invalid = failure.which() == VantryError::Case::invalidBackup;
    }
    return outcome;
}

class DamagedFile : public ::testing::TestWithParam<Defect> {};

TEST_P(DamagedFile, IsNeverTouched) {
    const Defect& defect = GetParam();
    const TemporaryFolder folder;
    const fs::path file = folder / "library.json";
    support::putContent(file, defect.bytes);
    support::putContent(DiskStore::previousOf(file), Codec::encode(support::libraryTitled("last good one")));
    support::makeOld(file);
    support::makeOld(DiskStore::previousOf(file));
    const auto before = support::factsOf(file);
    const auto previousBefore = support::factsOf(DiskStore::previousOf(file));

    SavedFile memory;
    const std::vector<std::function<void()>> attempts{
        [&] { (void)DiskStore::read(file); },
        [&] { (void)DiskStore::read(file, &memory); },
        [&] { DiskStore::write(support::libraryTitled("new"), file); },
        [&] { DiskStore::write(support::libraryTitled("new"), file, &memory); },
        [&] { DiskStore::write(Library{}, file, &memory); },
        [&] { DiskStore::write(support::completeLibrary(), file); },
    };
    for (std::size_t i = 0; i < attempts.size(); ++i) {
        const Outcome outcome = outcomeOf(attempts[i]);
        EXPECT_EQ(outcome.decodingError, !defect.decodes) << "attempt " << i;
        EXPECT_EQ(outcome.invalid, defect.decodes) << "attempt " << i;
        EXPECT_EQ(support::factsOf(file), before) << "attempt " << i;
        EXPECT_EQ(support::factsOf(DiskStore::previousOf(file)), previousBefore) << "attempt " << i;
        EXPECT_EQ(support::namesIn(folder.path()).size(), 2U) << "attempt " << i;
    }
}

TEST_P(DamagedFile, StopsASaveAlthoughTheMemoryKnowsTheFileFromBefore) {
    const Defect& defect = GetParam();
    const TemporaryFolder folder;
    const fs::path file = folder / "library.json";
    SavedFile memory;
    DiskStore::write(support::libraryTitled("one"), file, &memory);
    support::putContent(file, defect.bytes);
    for (int attempt = 0; attempt < 3; ++attempt) {
        const Outcome outcome = outcomeOf(
            [&] { DiskStore::write(support::libraryTitled(std::to_string(attempt)), file, &memory); });
        EXPECT_TRUE(outcome.decodingError || outcome.invalid);
        EXPECT_EQ(support::contentOf(file), defect.bytes);
        EXPECT_FALSE(fs::exists(DiskStore::previousOf(file)));
    }
    // Once the user has put it right, saving goes on.
    support::putContent(file, Codec::encode(support::libraryTitled("repaired")));
    DiskStore::write(support::libraryTitled("next"), file, &memory);
    EXPECT_TRUE(DiskStore::read(file) == support::libraryTitled("next"));
    EXPECT_EQ(support::contentOf(DiskStore::previousOf(file)),
              Codec::encode(support::libraryTitled("repaired")));
}

INSTANTIATE_TEST_SUITE_P(Each, DamagedFile, ::testing::ValuesIn(defects()), [](const auto& info) {
    std::string name = info.param.name;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

int errorOf(const std::function<void()>& work) {
    try {
        work();
    } catch (const std::system_error& failure) {
        return failure.code().value();
    }
    return 0;
}

TEST(DamagedFile, ThatIsAFolderIsNeverTouched) {
    const TemporaryFolder folder;
    const fs::path file = folder / "library.json";
    fs::create_directory(file);
    support::putContent(file / "mine", "x");
    EXPECT_EQ(errorOf([&] { (void)DiskStore::read(file); }), EISDIR);
    EXPECT_EQ(errorOf([&] { DiskStore::write(support::libraryTitled("new"), file); }), EISDIR);
    EXPECT_EQ(support::contentOf(file / "mine"), "x");
    EXPECT_EQ(support::namesIn(folder.path()), std::vector<std::string>{"library.json"});
}

TEST(DamagedFile, ThatIsAnEmptyFolderIsNeverTouched) {
    const TemporaryFolder folder;
    const fs::path file = folder / "library.json";
    fs::create_directory(file);
    EXPECT_EQ(errorOf([&] { DiskStore::write(support::libraryTitled("new"), file); }), EISDIR);
    EXPECT_TRUE(fs::is_directory(file));
}

TEST(DamagedFile, ThatIsAPipeStopsNobody) {
    const TemporaryFolder folder;
    const fs::path file = folder / "library.json";
    ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0);
    EXPECT_ANY_THROW((void)DiskStore::read(file));
    EXPECT_ANY_THROW(DiskStore::write(support::libraryTitled("new"), file));
    EXPECT_TRUE(fs::is_fifo(file));
}

TEST(DamagedFile, IsReadForOnceTheOriginalFailure) {
    const TemporaryFolder folder;
    const fs::path file = folder / "library.json";
    const std::string good = Codec::encode(support::completeLibrary());
    std::string broken = good;
    broken.replace(broken.find("\"stars\":4"), 9, "\"stars\":[]");
    support::putContent(file, broken);
    for (const auto& attempt :
         std::vector<std::function<void()>>{[&] { (void)DiskStore::read(file); },
                                            [&] { DiskStore::write(support::libraryTitled("new"), file); }}) {
        try {
            attempt();
            ADD_FAILURE() << "believed a damaged file";
        } catch (const DecodingError& failure) {
            EXPECT_STREQ(failure.what(),
                         "projects[0].acts[0].shots[0].takes[0].stars: expected an integer, found a list");
        }
    }
}

}  // namespace
}  // namespace vantry
