#include <algorithm>
#include <string>

#include <gtest/gtest.h>

#include <QStringDecoder>

#include "Vantry/app/QtText.h"
#include "tests/documents/PrintedFile.h"

namespace vantry::test {
namespace {

/// The characters of level 1 of GB 2312, the common ones: rows 16 to 55.
QString commonCharacters() {
    QStringDecoder decoder("GB18030");
    QString all;
    for (int row = 0xB0; row <= 0xD7; ++row)
        for (int cell = 0xA1; cell <= (row == 0xD7 ? 0xF9 : 0xFE); ++cell) {
            const char bytes[] = {static_cast<char>(row), static_cast<char>(cell)};
            all += QString(decoder(QByteArrayView(bytes, 2)));
        }
    return all;
}

/// What a reader finds besides the footers.
QString body(const QString& read) {
    QString text = withoutBlanks(read);
    for (int page = 1; page < 20; ++page)
        text.remove(QString::fromUtf8("Vantry·%1").arg(page));
    return text;
}

void expectComesOut(const QString& text) {
    const PrintedFile file([&](PDFWriter& writer) { writer.text(text.toStdString(), 11); });
    EXPECT_EQ(body(file.text()).toStdString(), withoutBlanks(text).toStdString()) << "by Qt";
    EXPECT_EQ(body(file.textByPoppler()).toStdString(), withoutBlanks(text).toStdString()) << "by pdftotext";
}

void expectComesOut(const char* text) {
    expectComesOut(QString::fromUtf8(text));
}

TEST(PrintedText, HoldsEachCommonChineseCharacterAsItWasWritten) {
    const QString all = commonCharacters();
    ASSERT_EQ(all.size(), 3755);
    ASSERT_TRUE(all.startsWith(QString::fromUtf8("啊阿")) && all.endsWith(QString::fromUtf8("座")));
    for (const bool bold : {false, true}) {
        const PrintedFile file([&](PDFWriter& writer) { writer.text(all.toStdString(), 11, bold); });
        for (const QString& read : {body(file.text()), body(file.textByPoppler())}) {
            EXPECT_EQ(read, all);
            // Fonts draw some characters and the radicals that look like them with one glyph.
            EXPECT_TRUE(std::none_of(read.begin(), read.end(),
                                     [](QChar c) { return c >= QChar(0x2E80) && c <= QChar(0x2FDF); }));
        }
    }
}

TEST(PrintedText, ComesOutAsItWentIn) {
    for (const char* text : {
             "The quick brown fox jumps over the lazy dog 0123456789",
             "!\"#$%&'()*+,./:;<=>?@[\\]^_`{|}~",
             "co-operate well-known 5-6",
             "office fluffy affinity ffi fi fl AV To",
             "¡¿«»“”‘’…–—•€£¥§©®™°±×÷ ½ µ",
             "ÀÉÎÕÜ àéîõü ßøåæœ Łódź Čeština Ğ ş ő",
             "Привет Ελληνικά",
             "她在窗前回头，听见广播。",
             "，。、；：？！“”（）《》【】—— ……",
             "１２３ ａｂｃ ＡＢＣ",
             "Scene 12：她 says “回头” 3 times, 50 mm f/2.8",
             "繁體中文 日本語 ひらがな カタカナ 한국어",
             "𠮷野家 𝔸𝔹",
             "⼀⺀",
             "→ ↔ ★ ☆ ♪ ① Ⅳ ㎜",
         })
        expectComesOut(text);
}

TEST(PrintedText, KeepsCombiningMarks) {
    for (const char* text :
         {"cafe\u0301 A\u030Angstro\u0308m", "q\u0303 x\u0323\u0302 y", "Vie\u0302\u0323t", "\u00E9 \u1EAD"})
        expectComesOut(text);
}

TEST(PrintedText, IsTheSameInEverySizeAndWeight) {
    for (const double size : {9.0, 10.0, 11.0, 14.0, 15.0, 16.0, 17.0, 18.0, 20.0, 24.0, 25.0})
        for (const bool bold : {false, true}) {
            const QString text = QString::fromUtf8("候车室 / Waiting Room — 第1幕");
            const PrintedFile file([&](PDFWriter& writer) { writer.text(text.toStdString(), size, bold); });
            EXPECT_EQ(body(file.text()).toStdString(), withoutBlanks(text).toStdString()) << size;
            EXPECT_EQ(body(file.textByPoppler()).toStdString(), withoutBlanks(text).toStdString()) << size;
        }
}

TEST(PrintedText, ReadsInTheOrderInWhichItWasWritten) {
    const PrintedFile file([](PDFWriter& writer) {
        writer.text("一 first\n二 second", 11);
        writer.text("三 third", 25, true);
        writer.text("四 fourth", 10);
    });
    const QString expected = QString::fromUtf8("一first二second三third四fourth");
    EXPECT_EQ(body(file.text()), expected);
    EXPECT_EQ(body(file.textByPoppler()), expected);
}

TEST(PrintedText, HoldsABlankInPlaceOfEachControlCharacter) {
    for (int c = 0; c < 0x20; ++c) {
        if (c == '\n' || c == '\r')
            continue;
        const std::string text = "before" + std::string(1, static_cast<char>(c)) + "behind";
        const PrintedFile file([&](PDFWriter& writer) { writer.text(text, 11); });
        EXPECT_TRUE(file.text().contains("before behind")) << c << ": " << file.text().toStdString();
        const QString byPoppler = withoutBlanks(file.textByPoppler());
        // What stands behind a tab is another column to pdftotext.
        EXPECT_TRUE(c == '\t' ? byPoppler.contains("before") && byPoppler.contains("behind")
                              : byPoppler.contains("beforebehind"))
            << c << ": " << byPoppler.toStdString();
    }
    const PrintedFile file([](PDFWriter& writer) {
        writer.text("before\x7F"
                    "behind",
                    11);
    });
    EXPECT_TRUE(file.text().contains("before behind"));
}

TEST(PrintedText, GoesOnBehindNulAtAnyPlace) {
    using namespace std::string_literals;
    for (const auto& text : {"\0MARKER"s, "word\0MARKER"s, "word\0\0\0MARKER"s, "词\0\nMARKER"s}) {
        const PrintedFile file([&](PDFWriter& writer) { writer.text(text, 11); });
        EXPECT_TRUE(file.text().contains("MARKER"));
        EXPECT_TRUE(file.textByPoppler().contains("MARKER"));
    }
}

TEST(PrintedText, TakesCarriageReturnAndLineFeedForOneLineEnd) {
    PDFWriter withReturns(made);
    withReturns.text("one\r\ntwo\r\n\r\nthree\r\n", 11);
    PDFWriter without(made);
    without.text("one\ntwo\n\nthree\n", 11);
    EXPECT_EQ(withReturns.cursor(), without.cursor());
    const PrintedFile file([](PDFWriter& writer) { writer.text("one\r\ntwo MARKER", 11); });
    EXPECT_EQ(body(file.text()), "onetwoMARKER");
}

TEST(PrintedText, StaysOneParagraphAroundALineEndThatIsNoLineFeed) {
    for (const char* lineEnd : {"\r", "\u2028", "\u2029"}) {
        const std::string text = std::string("one") + lineEnd + "two" + lineEnd + "MARKER";
        PDFWriter writer(made);
        writer.text(text, 11);
        // Each part stands on a line of its own, yet a paragraph ends only once.
        EXPECT_DOUBLE_EQ(writer.cursor(), 50 + 3 * 16.5 + 4) << text;
        const PrintedFile file([&](PDFWriter& to) { to.text(text, 11); });
        EXPECT_EQ(body(file.text()), "onetwoMARKER");
        EXPECT_EQ(body(file.textByPoppler()), "onetwoMARKER");
        PDFWriter atTheEnd(made);
        atTheEnd.text(std::string("word") + lineEnd, 11);
        EXPECT_DOUBLE_EQ(atTheEnd.cursor(), 50 + 16.5 + 4) << "nothing follows the last one";
    }
}

TEST(PrintedText, KeepsTheBlankBetweenWordsThatStandOnOneLine) {
    const PrintedFile file([](PDFWriter& writer) { writer.text("three short words on one line", 11); });
    EXPECT_TRUE(file.textByPoppler().simplified().contains("three short words on one line"));
}

}  // namespace
}  // namespace vantry::test
