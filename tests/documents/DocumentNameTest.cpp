#include "Vantry/documents/DocumentName.h"

#include <gtest/gtest.h>

namespace vantry::test {
namespace {

std::string repeated(const char* part, int times) {
    std::string text;
    for (int i = 0; i < times; ++i)
        text += part;
    return text;
}

TEST(DocumentName, IsTheTitleAndTheEnding) {
    EXPECT_EQ(documentName("Waiting Room", "-Report.pdf"), "Waiting Room-Report.pdf");
    EXPECT_EQ(documentName("候车室", "-Storyboard.pdf"), "候车室-Storyboard.pdf");
    EXPECT_EQ(documentName("", "-Report.pdf"), "-Report.pdf");
}

TEST(DocumentName, HasADashForEachSlashAndControlCharacter) {
    using namespace std::string_literals;
    const struct {
        std::string title, name;
    } cases[] = {
        {"a/b", "a-b"},           {"/", "-"},           {"//a//", "--a--"},
        {"a\nb", "a-b"},          {"a\r\nb", "a--b"},   {"a\tb", "a-b"},
        {"a\0b"s, "a-b"},         {"a\x1F\x7F", "a--"}, {"a\u0085b\u009F", "a-b-"},
        {"a\\b:c*?", "a\\b:c*?"}, {"／", "／"},
    };
    for (const auto& [title, name] : cases)
        EXPECT_EQ(documentName(Text(title), "-Report.pdf"), name + "-Report.pdf");
}

TEST(DocumentName, HasAtMost255Bytes) {
    EXPECT_EQ(documentName(Text(repeated("a", 244)), "-Report.pdf"), repeated("a", 244) + "-Report.pdf");
    EXPECT_EQ(documentName(Text(repeated("a", 245)), "-Report.pdf"), repeated("a", 244) + "-Report.pdf");
    EXPECT_EQ(documentName(Text(repeated("a", 100'000)), "-Report.pdf").size(), 255U);
    // 81 characters of three bytes are 243 bytes.
    EXPECT_EQ(documentName(Text(repeated("室", 500)), "-Report.pdf"), repeated("室", 81) + "-Report.pdf");
}

TEST(DocumentName, IsNeverCutInsideACharacterThatAReaderSees) {
    const struct {
        const char* what;
        const char* character;
    } cases[] = {
        {"a family", "👨\u200D👩\u200D👧\u200D👦"},
        {"a skin tone", "👍🏽"},
        {"a flag", "🇨🇳"},
        {"a keycap", "1\uFE0F\u20E3"},
        {"a letter with two marks", "a\u0323\u0302"},
        {"a character beyond the first plane", "𠮷"},
        {"a Korean syllable in its parts", "\u1112\u1161\u11AB"},
        {"a letter with ten marks", "e\u0301\u0301\u0301\u0301\u0301\u0301\u0301\u0301\u0301\u0301"},
    };
    for (const auto& [what, character] : cases) {
        const std::size_t bytes = std::string(character).size();
        for (int before = 0; before < 30; ++before) {
            const std::string start = repeated("b", before);
            const auto fitting = static_cast<int>((255 - 11 - start.size()) / bytes);
            EXPECT_EQ(documentName(Text(start + repeated(character, 100)), "-Report.pdf"),
                      start + repeated(character, fitting) + "-Report.pdf")
                << what;
        }
    }
}

TEST(DocumentName, IsTheEndingAloneWhenTheFirstCharacterDoesNotFit) {
    EXPECT_EQ(documentName(Text("e" + repeated("\u0301", 200)), "-Report.pdf"), "-Report.pdf");
}

}  // namespace
}  // namespace vantry::test
