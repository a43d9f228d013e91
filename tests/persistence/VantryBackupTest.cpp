#include <cstring>
#include <fstream>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "VantryCore/persistence/VantryBackup.h"
#include "VantryCore/persistence/VantryError.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/JsonText.h"
#include "tests/support/SampleLibrary.h"

namespace vantry {
namespace {

Bytes bytesOf(std::string_view text) {
    return {text.begin(), text.end()};
}

Media mediaOf(const std::vector<Bytes>& images) {
    Media media;
    for (const auto& image : images)
        media.emplace(Codec::hash(image), image);
    return media;
}

/// A backup of a library whose shots name these images, in the order of their keys.
VantryBackup backupWith(Media media) {
    Library library = support::libraryTitled("one");
    Act act;
    act.id = Codec::stableID("act");
    for (const auto& [key, image] : media) {
        Shot shot;
        shot.id = Codec::stableID("shot " + key);
        shot.imageKey = Text(key);
        act.shots.emplace_back(shot);
    }
    library.projects[0].edit().acts.emplace_back(act);
    return {library, std::move(media)};
}

VantryBackup backupOf(const std::vector<Bytes>& images) {
    return backupWith(mediaOf(images));
}

const std::vector<Bytes>& twoImages() {
    static const std::vector<Bytes> images{bytesOf("first image"), bytesOf("second one")};
    return images;
}

std::string goodFile() {
    return VantryBackup::encode(backupOf(twoImages()));
}

std::string outcomeOf(const std::string& file) {
    try {
        (void)VantryBackup::decode(file);
        return "good";
    } catch (const VantryError& failure) {
        switch (failure.which()) {
        case VantryError::Case::invalidBackup:
            return "invalidBackup";
        case VantryError::Case::missingMedia:
            return "missingMedia";
        default:
            return "tooLarge";
        }
    } catch (const DecodingError&) {
        return "not decoded";
    }
}

std::string outcomeOf(const VantryBackup& backup) {
    return outcomeOf(VantryBackup::encode(backup));
}

std::string blown(std::string file, std::size_t size) {
    file.resize(size, ' ');
    return file;
}

TEST(VantryBackup, OfExactlyTheLimitIsReadAndOneByteMoreIsTooLarge) {
    std::string file = blown(goodFile(), VantryBackup::largestFile);
    EXPECT_EQ(outcomeOf(file), "good");
    file += ' ';
    EXPECT_EQ(outcomeOf(file), "tooLarge");
    // Nothing is parsed before.
    file[0] = 'x';
    EXPECT_EQ(outcomeOf(file), "tooLarge");
    EXPECT_THROW((void)VantryBackup::decodePadded(file), VantryError);
}

TEST(VantryBackup, WithoutImagesHasBothTablesAllTheSame) {
    const std::string file = VantryBackup::encode({support::libraryTitled("one"), {}});
    EXPECT_EQ(outcomeOf(file), "good");
    for (const char* key : {"checksums", "media"})
        EXPECT_EQ(support::withValue(file, key, "{}"), file);
    for (const char* key : {"checksums", "format", "library", "media", "version"})
        EXPECT_EQ(outcomeOf(support::withoutKey(file, key)), "not decoded") << key;
}

TEST(VantryBackup, ThatIsNoJsonFailsAsTheDecoderDoes) {
    for (const char* text : {"", "no JSON", "{", "[]", "null", "\"VantryBackup\"", "\xff\xfe"})
        EXPECT_EQ(outcomeOf(std::string(text)), "not decoded") << text;
}

TEST(VantryBackup, OfAnotherFormatOrVersionIsInvalidWhateverTheRestHolds) {
    VantryBackup backup = backupOf(twoImages());
    backup.media.clear();
    backup.library.version = 9;
    for (const char* format : {"vantrybackup", "VANTRYBACKUP", "VantryBackup ", "", "Vantry"}) {
        backup.format = format;
        EXPECT_EQ(outcomeOf(backup), "invalidBackup") << format;
    }
    backup = backupOf(twoImages());
    for (const std::int64_t version : {2, 0, -1}) {
        backup.version = version;
        EXPECT_EQ(outcomeOf(backup), "invalidBackup") << version;
    }
    EXPECT_EQ(outcomeOf(support::withValue(goodFile(), "version", "1.0")), "good");
    EXPECT_EQ(outcomeOf(support::withValue(goodFile(), "version", "1.5")), "not decoded");
    EXPECT_EQ(outcomeOf(support::withValue(goodFile(), "version", "\"1\"")), "not decoded");
}

TEST(VantryBackup, LacksAnImageEvenIfItsChecksumIsThere) {
    VantryBackup backup = backupOf(twoImages());
    backup.media.erase(Codec::hash(twoImages()[0]));
    EXPECT_EQ(outcomeOf(backup), "missingMedia");
}

TEST(VantryBackup, LacksAnImageWithoutItsChecksumOrWithAnotherOne) {
    VantryBackup backup = backupOf(twoImages());
    const std::string key = Codec::hash(twoImages()[0]);
    backup.checksums.set(Text(key), Text(Codec::hash("other")));
    EXPECT_EQ(outcomeOf(backup), "missingMedia");
    backup.checksums = {};
    EXPECT_EQ(outcomeOf(backup), "missingMedia");
}

TEST(VantryBackup, LacksAnImageOfWhichOneByteIsFlipped) {
    for (std::size_t at = 0; at < twoImages()[1].size(); ++at)
        for (int bit = 0; bit < 8; ++bit) {
            VantryBackup backup = backupOf(twoImages());
            backup.media[Codec::hash(twoImages()[1])][at] ^= static_cast<std::uint8_t>(1 << bit);
            ASSERT_EQ(outcomeOf(backup), "missingMedia") << at << " " << bit;
        }
}

TEST(VantryBackup, LacksAnImageUnderAKeyThatIsNotItsHash) {
    VantryBackup backup = backupOf(twoImages());
    const std::string wrong(64, 'a');
    backup.library.projects[0].edit().acts[0].edit().shots[0].edit().imageKey = Text(wrong);
    backup.media[wrong] = twoImages()[0];
    backup.checksums.set(Text(wrong), Text(Codec::hash(twoImages()[0])));
    EXPECT_EQ(outcomeOf(backup), "missingMedia");
    backup.checksums.set(Text(wrong), Text(wrong));
    EXPECT_EQ(outcomeOf(backup), "missingMedia");
    // Nor are capitals the hash.
    std::string capitals = Codec::hash(twoImages()[0]);
    for (char& c : capitals)
        c = c >= 'a' ? static_cast<char>(c - 'a' + 'A') : c;
    backup.library.projects[0].edit().acts[0].edit().shots[0].edit().imageKey = Text(capitals);
    backup.media[capitals] = twoImages()[0];
    backup.checksums.set(Text(capitals), Text(capitals));
    EXPECT_EQ(outcomeOf(backup), "missingMedia");
}

TEST(VantryBackup, CarriesImagesThatNoShotNamesUnchecked) {
    VantryBackup backup = backupOf(twoImages());
    backup.media["no hash at all"] = bytesOf("anything");
    backup.checksums.set("of nothing", "wrong");
    const VantryBackup read = VantryBackup::decode(VantryBackup::encode(backup));
    EXPECT_TRUE(read == backup);
    EXPECT_EQ(read.media.at("no hash at all"), bytesOf("anything"));
}

TEST(VantryBackup, ReadsBackAsItWasWritten) {
    const VantryBackup backup = backupOf(twoImages());
    EXPECT_TRUE(VantryBackup::decode(Codec::encode(backup)) == backup);
    EXPECT_EQ(VantryBackup::encode(backup), Codec::encode(backup));
    EXPECT_EQ(backup.format.utf8(), "VantryBackup");
    EXPECT_EQ(backup.version, 1);
    for (const auto& [key, checksum] : backup.checksums)
        EXPECT_EQ(key.utf8(), checksum.utf8());
    const VantryBackup sample(support::sampleLibrary(), {});
    EXPECT_TRUE(Codec::decode<VantryBackup>(VantryBackup::encode(sample)) == sample);
}

TEST(VantryBackup, IsOneObjectOfFiveSortedKeys) {
    const auto members = support::membersOf(goodFile());
    ASSERT_EQ(members.size(), 5U);
    const char* keys[] = {"checksums", "format", "library", "media", "version"};
    for (std::size_t i = 0; i < members.size(); ++i)
        EXPECT_EQ(members[i].key, keys[i]);
    EXPECT_EQ(members[1].value, "\"VantryBackup\"");
    EXPECT_EQ(members[2].value, Codec::encode(backupOf(twoImages()).library));
    EXPECT_EQ(support::membersOf(members[3].value)[1].value, "\"Zmlyc3QgaW1hZ2U=\"");
    EXPECT_EQ(members[4].value, "1");
}

TEST(VantryBackup, ReportsTheFaultThatComesFirst) {
    VantryBackup backup = backupOf(twoImages());
    backup.media.clear();
    EXPECT_EQ(outcomeOf(backup), "missingMedia");
    backup.library.projects[0].edit().acts[0].edit().shots[0].edit().durationMinutes = 0;
    EXPECT_EQ(outcomeOf(backup), "invalidBackup");
    const std::string invalid = VantryBackup::encode(backup);
    EXPECT_EQ(outcomeOf(support::withValue(invalid, "media", R"({"a":"no Base64"})")), "not decoded");
    EXPECT_EQ(outcomeOf(invalid + "}"), "not decoded");
    EXPECT_EQ(outcomeOf(blown(invalid, VantryBackup::largestFile + 1)), "tooLarge");
}

TEST(VantryBackup, HoldsAnImageLargerThanOneThatIsBroughtIn) {
    EXPECT_EQ(outcomeOf(backupOf({Bytes(VantryBackup::largestImage + 1)})), "good");
}

/// The most memory that this process ever had, in bytes.
std::uint64_t peakMemory() {
    std::ifstream status("/proc/self/status");
    std::string word;
    while (status >> word)
        if (word == "VmHWM:") {
            std::uint64_t kilobytes = 0;
            status >> kilobytes;
            return kilobytes * 1024;
        }
    throw std::runtime_error("the system does not tell the memory of a process");
}

#if defined(__SANITIZE_ADDRESS__)
/// The sanitizer keeps freed memory back for a while, and notes a byte for each eight.
constexpr std::uint64_t memoryBesideOurs = 320'000'000;
#else
constexpr std::uint64_t memoryBesideOurs = 0;
#endif

TEST(VantryBackup, IsMadeAndReadWithinSixTimesItsSize) {
    const std::string answer = support::inChildProcess([] {
        std::mt19937_64 random(1);
        Media images;
        for (int i = 0; i < 3; ++i) {
            Bytes image(16'000'000);
            for (std::size_t at = 0; at < image.size(); at += 8) {
                const std::uint64_t eight = random();
                std::memcpy(image.data() + at, &eight, 8);
            }
            std::string key = Codec::hash(image);
            images.emplace(std::move(key), std::move(image));
        }
        const std::string file = VantryBackup::encode(backupWith(std::move(images)));
        const VantryBackup read = VantryBackup::decode(file);
        if (read.media.size() != 3 || file.size() < 60'000'000)
            return "not as made: " + std::to_string(file.size());
        const std::uint64_t peak = peakMemory();
        return peak < 6 * file.size() + memoryBesideOurs
                   ? std::string()
                   : std::to_string(peak) + " bytes for a file of " + std::to_string(file.size());
    });
    EXPECT_EQ(answer, "");
}

}  // namespace
}  // namespace vantry
