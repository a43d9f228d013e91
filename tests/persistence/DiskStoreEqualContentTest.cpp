#include <gtest/gtest.h>
#include <unicode/normalizer2.h>
#include <unicode/unistr.h>

#include "VantryCore/persistence/Codec.h"
#include "VantryCore/persistence/DiskStore.h"
#include "tests/support/FaultyFileOperations.h"
#include "tests/support/Files.h"
#include "tests/support/JsonText.h"
#include "tests/support/SampleLibrary.h"

namespace vantry {
namespace {

namespace fs = std::filesystem;
using support::TemporaryFolder;

std::string decomposed(const std::string& utf8) {
    UErrorCode status = U_ZERO_ERROR;
    std::string result;
    icu::Normalizer2::getNFDInstance(status)
        ->normalize(icu::UnicodeString::fromUTF8(utf8), status)
        .toUTF8String(result);
    return result;
}

std::string smallLetters(const std::string& inside) {
    if (!Identifier::parse(inside))
        return inside;
    std::string small = inside;
    for (char& c : small)
        c = static_cast<char>(std::tolower(c));
    return small;
}

std::string escaped(const std::string& inside) {
    std::string out;
    const icu::UnicodeString units = icu::UnicodeString::fromUTF8(inside);
    for (std::int32_t i = 0; i < units.length(); ++i) {
        const unsigned unit = units[i];
        char escape[8];
        std::snprintf(escape, sizeof escape, "\\u%04x", unit);
        out += unit < 0x80 ? std::string(1, static_cast<char>(unit)) : escape;
    }
    return out;
}

Library lively() {
    Library library = support::completeLibrary();
    library.projects[0].edit().title = "Caf\u00E9 \u00C5ngstr\u00F6m 한국 雨夜";
    library.projects[0].edit().acts[0].edit().shots[0].edit().takes[0].edit().notes = "R\u00E9p\u00E9t\u00E9";
    return library;
}

struct Spelling {
    const char* name;
    std::function<std::string(const std::string&)> of;
};

const Spelling spellings[] = {
    {"the encoder's own", [](const std::string& json) { return json; }},
    {"pretty-printed with the keys turned round", support::prettyPrinted},
    {"identifiers in small letters",
     [](const std::string& json) {
         support::JsonStyle style;
         style.text = smallLetters;
         return support::restyled(json, style);
     }},
    {"whole numbers with a point",
     [](const std::string& json) {
         support::JsonStyle style;
         style.number = [](const std::string& n) {
             return n.find('.') == std::string::npos ? n + ".0" : n + "0";
         };
         return support::restyled(json, style);
     }},
    {"numbers with an exponent",
     [](const std::string& json) {
         support::JsonStyle style;
         style.number = [](const std::string& n) { return n + "e0"; };
         return support::restyled(json, style);
     }},
    {"decomposed texts",
     [](const std::string& json) {
         support::JsonStyle style;
         style.text = decomposed;
         return support::restyled(json, style);
     }},
    {"texts in escapes",
     [](const std::string& json) {
         support::JsonStyle style;
         style.text = escaped;
         return support::restyled(json, style);
     }},
    {"slashes without a backslash",
     [](const std::string& json) {
         std::string plain = json;
         for (auto at = plain.find("\\/"); at != std::string::npos; at = plain.find("\\/"))
             plain.erase(at, 1);
         return plain;
     }},
    {"unknown keys",
     [](const std::string& json) {
         auto members = support::membersOf(json);
         members.push_back({"zz", "{\"own\":[1,2.5,null,\"x\"]}"});
         return support::objectOf(members);
     }},
    {"blanks at both ends", [](const std::string& json) { return "\n \t" + json + "\r\n"; }},
};

TEST(EqualContent, InAnySpellingLeavesBothFilesUntouched) {
    const Library library = lively();
    for (const auto& spelling : spellings) {
        const TemporaryFolder folder;
        const fs::path file = folder / "library.json";
        support::putContent(file, spelling.of(Codec::encode(library)));
        support::putContent(DiskStore::previousOf(file), "kept as it is");
        support::makeOld(file);
        support::makeOld(DiskStore::previousOf(file));
        const auto before = support::factsOf(file);
        const auto previousBefore = support::factsOf(DiskStore::previousOf(file));

        DiskStore::write(library, file);
        SavedFile memory;
        ASSERT_TRUE(DiskStore::read(file, &memory) == library) << spelling.name;
        DiskStore::write(library, file, &memory);
        DiskStore::write(library, file, &memory);

        EXPECT_EQ(support::factsOf(file), before) << spelling.name;
        EXPECT_EQ(support::factsOf(DiskStore::previousOf(file)), previousBefore) << spelling.name;
        EXPECT_EQ(support::namesIn(folder.path()).size(), 2U) << spelling.name;
    }
}

TEST(EqualContent, IsDecidedByTheRecordsWhenTheUserRetypesAText) {
    const TemporaryFolder folder;
    const fs::path file = folder / "library.json";
    Library library = lively();
    SavedFile memory;
    DiskStore::write(library, file, &memory);
    support::makeOld(file);
    const auto before = support::factsOf(file);
    library.projects[0].edit().title = Text(decomposed(library.projects[0]->title.utf8()));
    DiskStore::write(library, file, &memory);
    DiskStore::write(library, file);
    EXPECT_EQ(support::factsOf(file), before);
    EXPECT_FALSE(fs::exists(DiskStore::previousOf(file)));
}

TEST(EqualContent, TakesNoStepThatWrites) {
    const TemporaryFolder folder;
    const fs::path file = folder / "library.json";
    DiskStore::write(lively(), file);
    support::FaultyFileOperations disk;
    DiskStore::write(lively(), file, nullptr, disk);
    for (const auto& step : disk.stepNames())
        EXPECT_TRUE(step == "createFolders" || step == "status" || step == "openForReading" || step == "read")
            << step;
}

TEST(EqualContent, OfAReadOnlyFolderIsNoFailure) {
    const TemporaryFolder folder;
    const fs::path file = folder / "library.json";
    DiskStore::write(lively(), file);
    support::FaultyFileOperations disk;
    disk.beforeStep = [](std::size_t, const std::string& step) {
        if (step == "createForWriting" || step == "link" || step == "rename")
            throw std::system_error(EROFS, std::generic_category(), "read-only");
    };
    EXPECT_NO_THROW(DiskStore::write(lively(), file, nullptr, disk));
}

TEST(EqualContent, EndsWithAnyChangeOfARecord) {
    const TemporaryFolder folder;
    const fs::path file = folder / "library.json";
    const Library library = lively();
    const std::vector<std::pair<const char*, std::function<void(Library&)>>> changes{
        {"a capital",
         [](Library& l) { l.projects[0].edit().title = "caf\u00E9 \u00C5ngstr\u00F6m 한국 雨夜"; }},
        {"a blank", [](Library& l) { l.projects[0].edit().notes = "notes "; }},
        {"an empty list for an absent one",
         [](Library& l) {
             l.projects[0].edit().crewMembers.reset();
             l.projects[0].edit().crewMembers.emplace();
         }},
        {"an empty value for an absent key",
         [](Library& l) { l.projects[0].edit().defaults.set("iso", ""); }},
        {"the smallest fraction", [](Library& l) { l.projects[0].edit().createdAt.seconds += 1e-6; }},
        {"a stroke's identifier",
         [](Library& l) {
             l.projects[0].edit().acts[0].edit().shots[0].edit().strokes[0].id = Identifier();
         }},
        {"an order", [](Library& l) { l.projects.emplace(l.projects.begin(), Project::make("x")); }},
    };
    for (const auto& [name, change] : changes) {
        DiskStore::write(library, file);
        Library changed = library;
        change(changed);
        DiskStore::write(changed, file);
        EXPECT_EQ(support::contentOf(file), Codec::encode(changed)) << name;
        EXPECT_EQ(support::contentOf(DiskStore::previousOf(file)), Codec::encode(library)) << name;
    }
}

}  // namespace
}  // namespace vantry
