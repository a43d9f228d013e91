#include "VantryCore/records/Text.h"

#include <set>

#include <gtest/gtest.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include "tests/support/RandomRecords.h"

namespace vantry {
namespace {

std::string nfc(const std::string& utf8) {
    UErrorCode status = U_ZERO_ERROR;
    const auto* nfc = icu::Normalizer2::getNFCInstance(status);
    std::string result;
    nfc->normalize(icu::UnicodeString::fromUTF8(utf8), status).toUTF8String(result);
    EXPECT_TRUE(U_SUCCESS(status));
    return result;
}

std::string nfd(const std::string& utf8) {
    UErrorCode status = U_ZERO_ERROR;
    const auto* nfd = icu::Normalizer2::getNFDInstance(status);
    std::string result;
    nfd->normalize(icu::UnicodeString::fromUTF8(utf8), status).toUTF8String(result);
    EXPECT_TRUE(U_SUCCESS(status));
    return result;
}

struct Pair {
    const char* name;
    std::string a;
    std::string b;
};

TEST(Text, EqualsItsOtherCanonicalSpellings) {
    const Pair equal[] = {
        {"the empty text", "", ""},
        {"one letter and its decomposition", "\u00E9", "e\u0301"},
        {"inside a word", "caf\u00E9 noir", "cafe\u0301 noir"},
        {"two marks of different classes in either order", "q\u0307\u0323", "q\u0323\u0307"},
        {"a letter with two marks, partly composed", "\u1E69", "s\u0323\u0307"},
        {"the same, composed the other way", "\u1E69", "\u1E61\u0323"},
        {"Hangul syllable and its jamo", "\uAC01", "\u1100\u1161\u11A8"},
        {"Hangul LV and a trailing jamo", "\uAC01", "\uAC00\u11A8"},
        {"the kelvin sign, an ASCII letter", "\u212A", "K"},
        {"the Greek question mark, an ASCII sign", "\u037E", ";"},
        {"the Greek grave accent, an ASCII sign", "\u1FEF", "`"},
        {"the Angstrom sign", "\u212B", "A\u030A"},
        {"the ohm sign", "\u2126", "\u03A9"},
        {"a compatibility ideograph", "\uF900", "\u8C48"},
        {"an en quad", "\u2000", "\u2002"},
        {"a Greek letter with three marks", "\u1F84", "\u03B1\u0313\u0301\u0345"},
        {"a composition exclusion", "\u0958", "\u0915\u093C"},
        {"beyond the basic plane", "\U0002F800", "\u4E3D"},
    };
    for (const auto& pair : equal) {
        EXPECT_TRUE(Text(pair.a) == Text(pair.b)) << pair.name;
        EXPECT_TRUE(Text(pair.b) == Text(pair.a)) << pair.name;
    }
}

TEST(Text, DiffersFromWhatOnlyLooksAlike) {
    const Pair different[] = {
        {"capitals", "a", "A"},
        {"a mark more", "e", "e\u0301"},
        {"a mark more at the end of equal texts", "re", "re\u0301"},
        {"another mark", "e\u0300", "e\u0301"},
        {"two marks of one class in another order", "a\u0301\u0308", "a\u0308\u0301"},
        {"a compatibility ligature", "\uFB01", "fi"},
        {"full width", "\uFF21", "A"},
        {"a full-width colon", "\uFF1A", ":"},
        {"an ideographic blank", "\u3000", " "},
        {"a no-break blank", "\u00A0", " "},
        {"a blank more", "a", "a "},
        {"a NUL more", "a", std::string("a\0", 2)},
        {"half-width kana", "\uFF76", "\u30AB"},
        {"a superscript", "\u00B2", "2"},
        {"a joiner inside a mark sequence", "e\u0301", "e\u034F\u0301"},
        {"a jamo that completes a syllable", "\uAC00", "\uAC00\u11A8"},
    };
    for (const auto& pair : different) {
        EXPECT_FALSE(Text(pair.a) == Text(pair.b)) << pair.name;
        EXPECT_FALSE(Text(pair.b) == Text(pair.a)) << pair.name;
    }
}

TEST(Text, KeepsTheBytesItWasGiven) {
    const std::string spelled = "e\u0301\u212A";
    EXPECT_EQ(Text(spelled).utf8(), spelled);
    EXPECT_EQ(Text(std::string_view(spelled)).utf8(), spelled);
}

TEST(Text, AgreesWithNormalizationOnRandomTexts) {
    support::RandomRecords random(1);
    int equal = 0;
    for (int round = 0; round < 20000; ++round) {
        // A common beginning and end of any kind, so that the difference may cut a combining sequence.
        const std::string head = random.text(4);
        const std::string tail = random.text(4);
        const std::string inner = random.text(3);
        std::string other = random.text(3);
        switch (random.number(0, 3)) {
        case 0:
            other = nfc(inner);
            break;
        case 1:
            other = nfd(inner);
            break;
        default:
            break;
        }
        const std::string a = head + inner + tail;
        std::string b = head + other + tail;
        if (random.chance(0.2))
            b = random.chance(0.5) ? nfc(a) : nfd(a);
        const bool expected = nfc(a) == nfc(b);
        equal += expected ? 1 : 0;
        ASSERT_EQ(canonicallyEquivalent(a, b), expected) << "round " << round << "\n" << a << "\n" << b;
        ASSERT_EQ(canonicallyEquivalent(b, a), expected) << "round " << round << "\n" << a << "\n" << b;
        ASSERT_EQ(Text(a) == Text(b), expected) << "round " << round;
    }
    EXPECT_GT(equal, 4000);
    EXPECT_LT(equal, 16000);
}

TEST(Text, AgreesWithNormalizationWhereverOnePieceMovesInASequence) {
    // All orders of short sequences of pieces that interact.
    const std::string pieces[] = {"a", "\u0301", "\u0323", "\u00E1", "\u1100", "\u1161", "\u11A8", "\uAC00"};
    std::vector<std::string> texts{""};
    for (std::size_t from = 0, round = 0; round < 3; ++round) {
        const std::size_t end = texts.size();
        for (; from < end; ++from)
            for (const auto& piece : pieces)
                texts.push_back(texts[from] + piece);
    }
    std::vector<std::string> forms;
    forms.reserve(texts.size());
    for (const auto& text : texts)
        forms.push_back(nfc(text));
    for (std::size_t i = 0; i < texts.size(); ++i)
        for (std::size_t j = i; j < texts.size(); ++j)
            ASSERT_EQ(canonicallyEquivalent(texts[i], texts[j]), forms[i] == forms[j]) << texts[i] << "\n"
                                                                                       << texts[j];
}

TEST(Text, HasOneComposedForm) {
    support::RandomRecords random(14);
    for (int round = 0; round < 3000; ++round) {
        const std::string text = random.text();
        ASSERT_EQ(composed(text), nfc(text)) << text;
        ASSERT_EQ(composed(nfd(text)), nfc(text)) << text;
    }
    EXPECT_EQ(composed(""), "");
}

TEST(Text, ComparesLongNotesThatDifferInOneAccent) {
    const std::string page(100'000, 'x');
    EXPECT_TRUE(Text(page + "\u00E9" + page) == Text(page + "e\u0301" + page));
    EXPECT_FALSE(Text(page + "\u00E9" + page) == Text(page + "e\u0300" + page));
}

TEST(Text, TrimsExactlyTheWhiteSpaceOfUnicode) {
    int whiteSpaces = 0;
    for (char32_t point = 1; point <= 0x10FFFF; ++point) {
        if (point >= 0xD800 && point <= 0xDFFF)
            continue;
        std::string mark;
        support::appendUtf8(mark, point);
        const bool isWhite = u_hasBinaryProperty(static_cast<UChar32>(point), UCHAR_WHITE_SPACE) != 0;
        whiteSpaces += isWhite ? 1 : 0;
        ASSERT_EQ(trimmed(mark + "a b" + mark), isWhite ? "a b" : mark + "a b" + mark)
            << std::uint32_t(point);
        ASSERT_EQ(isBlank(mark), isWhite) << std::uint32_t(point);
    }
    EXPECT_EQ(whiteSpaces, 25);
}

TEST(Text, TrimsBothEndsAndNothingInside) {
    struct Case {
        std::string text;
        std::string expected;
    };
    const Case cases[] = {
        {"", ""},
        {" ", ""},
        {" \t\r\n\u3000\u00A0\u2029\u0085", ""},
        {"a", "a"},
        {" a  b ", "a  b"},
        {"\u3000雨 夜\u3000\n", "雨 夜"},
        {"\u200Ba\u200B", "\u200Ba\u200B"},
        {"\uFEFFa", "\uFEFFa"},
        {" \u0301 ", "\u0301"},
        {"\n\n🎬\r\n", "🎬"},
        {std::string("\0 ", 2), std::string("\0", 1)},
    };
    for (const auto& c : cases)
        EXPECT_EQ(trimmed(c.text), c.expected) << c.text;
}

TEST(Text, TrimmingPointsIntoTheTextItWasGiven) {
    const std::string text = "  x ";
    EXPECT_EQ(trimmed(text).data(), text.data() + 2);
}

}  // namespace
}  // namespace vantry
