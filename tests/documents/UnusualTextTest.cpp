#include <algorithm>
#include <numeric>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Vantry/app/QtText.h"
#include "tests/documents/PrintedFile.h"

namespace vantry::test {
namespace {

/// The characters of a text in the order of their code points: a reader of a PDF may give right-to-left text
/// in the order of the page. The marks of direction that pdftotext adds are left out, and so are blanks.
std::u32string characters(const QString& text) {
    const auto composed = withoutBlanks(text).toUcs4();
    std::u32string all;
    for (const char32_t c : composed)
        if (c < U'\u202A' || c > U'\u202E')
            all += c;
    std::sort(all.begin(), all.end());
    return all;
}

/// As code points, for a failed comparison.
std::string told(const std::u32string& characters) {
    std::string text;
    for (const char32_t c : characters)
        text += QStringLiteral("U+%1 ").arg(static_cast<uint>(c), 4, 16).toUpper().toStdString();
    return text;
}

std::string expected(const std::string& text) {
    return told(characters(toQString(std::string_view(text)) + QString::fromUtf8("Vantry·1")));
}

TEST(UnusualText, FromRightToLeftLosesNothing) {
    for (const char* text : {
             "שלום עליכם",
             "سلام عليكم",
             "mixed שלום 123 text",
             "导演 דוד כהן 12:30",
             "שָׁלוֹם",
             "Call: 07:00 · طاقم A",
         }) {
        const PrintedFile file([&](PDFWriter& writer) { writer.text(text, 11); });
        EXPECT_EQ(told(characters(file.text())), expected(text)) << text;
        EXPECT_EQ(told(characters(file.textByPoppler())), expected(text)) << text;
    }
}

TEST(UnusualText, OfEmojiCanBeCopied) {
    for (const char* text : {
             "😀",
             "smile 😀 here",
             "a😀b",
             "a 😀 b 😃 c 😄",
             "A family 👨\u200D👩\u200D👧\u200D👦 of four",
             "flags 🇨🇳 and 🇩🇪",
             "A heart ❤\uFE0F of two",
             "thumb 👍🏽 up",
             "key 1\uFE0F\u20E3 cap",
             "中文 😀 中文",
         }) {
        const PrintedFile file([&](PDFWriter& writer) { writer.text(text, 11); });
        EXPECT_EQ(told(characters(file.textByPoppler())), expected(text)) << text;
        EXPECT_EQ(told(characters(file.text())), expected(text)) << text;
    }
}

TEST(UnusualText, KeepsThePictureOfAnEmojiOnce) {
    const auto write = [](int count) {
        std::string text;
        for (int i = 0; i < count; ++i)
            text += "😀 ";
        return printed([&](PDFWriter& writer) { writer.text(text, 11); });
    };
    EXPECT_LT(write(1000).size(), write(1).size() + 40'000);
    const PrintedFile two([](PDFWriter& writer) { writer.text("😀 🎬", 11); });
    EXPECT_EQ(two.pictureList().size(), 4U) << "each with its mask";
}

TEST(UnusualText, OfEmojiIsPrintedInColour) {
    const QImage page = PrintedFile([](PDFWriter& writer) { writer.text("A ❤\uFE0F", 40); }).look(0, 72);
    int red = 0;
    for (int y = 50; y < 120; ++y)
        for (int x = 45; x < 200; ++x)
            red += qRed(page.pixel(x, y)) > 180 && qGreen(page.pixel(x, y)) < 100 ? 1 : 0;
    EXPECT_GT(red, 200);
}

TEST(UnusualText, ThatNoFontHasCanBeCopied) {
    for (const char* text : {"\uE000", "吉\uE000", "private \uE000 end", "\U00040000\U000F0000",
                             "中文 \uE000 中文", "中文 \U00040000 中文", "\uE000\uE001\uE000 twice \uE000"}) {
        const PrintedFile file([&](PDFWriter& writer) { writer.text(text, 11); });
        EXPECT_EQ(told(characters(file.textByPoppler())), expected(text)) << text;
        EXPECT_EQ(told(characters(file.text())), expected(text)) << text;
    }
}

TEST(UnusualText, ThatNobodySeesIsKept) {
    for (const char* text : {"soft\u00ADhyphen", "zero\u200Bwidth", "a\u200Cb", "joined\u2060words"}) {
        const PrintedFile file([&](PDFWriter& writer) { writer.text(text, 11); });
        EXPECT_EQ(told(characters(file.textByPoppler())), expected(text)) << text;
    }
}

TEST(UnusualText, ThatIsUnknownLeavesItsNeighboursAsTheyAre) {
    // The dark pixels of each column over the width of the Latin letters: another font on the line may move
    // it up or down.
    const auto ink = [](const char* text) {
        const QImage page = PrintedFile([&](PDFWriter& writer) { writer.text(text, 20); }).look(0, 72);
        std::vector<int> columns;
        for (int x = 45; x < 92; ++x) {
            columns.push_back(0);
            for (int y = 40; y < 100; ++y)
                columns.back() += 255 - qGray(page.pixel(x, y));
        }
        return columns;
    };
    const auto clean = ink("Latin");
    const auto beside = ink("Latin \uE000\U00040000");
    EXPECT_GT(std::accumulate(clean.begin(), clean.end(), 0), 10000);
    for (std::size_t x = 0; x < clean.size(); ++x)
        EXPECT_NEAR(beside[x], clean[x], 200) << x;
}

TEST(UnusualText, OfControlCharactersIsBlank) {
    const PrintedFile file([&](PDFWriter& writer) { writer.text("a\u0085b\u009Fc\u0007d\u007Fe", 11); });
    EXPECT_EQ(told(characters(file.textByPoppler())), expected("abcde"));
    EXPECT_EQ(told(characters(file.text())), expected("abcde"));
}

TEST(UnusualText, OfNoncharactersIsReplaced) {
    for (const char* none :
         {"\uFFFE", "\uFFFF", "\uFDD0", "\uFDEF", "\U0001FFFE", "\U0010FFFF", "\xFF", "\xED\xA0\x80"}) {
        const PrintedFile file(
            [&](PDFWriter& writer) { writer.text(std::string("left ") + none + " right", 11); });
        EXPECT_TRUE(file.text().contains("left")) << none;
        EXPECT_TRUE(file.text().contains("right")) << none;
        EXPECT_TRUE(file.textByPoppler().contains(QChar(0xFFFD))) << none;
    }
}

TEST(UnusualText, DoesNotHideWhatStandsBehindItOnOtherLines) {
    for (const char* text : {"😀", "\uE000", "\U00040000", "\u200B", "\uFEFF", "\u00AD", "שלום", "\u0301",
                             "\uFE0F", "\u200D", "\u202E", "\uFFFC", "\uFFFD"}) {
        const PrintedFile file([&](PDFWriter& writer) {
            writer.text(text, 11);
            writer.text(std::string(text) + "\nMARKER", 11);
        });
        EXPECT_TRUE(file.text().contains("MARKER")) << text;
        EXPECT_TRUE(file.textByPoppler().contains("MARKER")) << text;
    }
}

}  // namespace
}  // namespace vantry::test
