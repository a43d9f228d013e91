#include "Vantry/documents/PDFWriter.h"

#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <QFont>
#include <QRawFont>

#include "tests/documents/PrintedFile.h"

namespace vantry::test {
namespace {

constexpr double bottomLimit = 786.89;

/// How far these calls move the cursor of a new page.
double heightOf(const std::function<void(PDFWriter&)>& calls) {
    PDFWriter writer(made);
    calls(writer);
    EXPECT_EQ(writer.pageNumber(), 1);
    return writer.cursor() - 50;
}

double heightOf(const std::string& text, double size, bool bold = false) {
    return heightOf([&](PDFWriter& writer) { writer.text(text, size, bold); });
}

/// A writer whose cursor stands there on page 1.
struct WriterAt {
    explicit WriterAt(double y) { writer.advance(y - 50); }
    PDFWriter writer{made};
};

Shot drawn(std::vector<Stroke> strokes) {
    Shot shot;
    shot.strokes = std::move(strokes);
    return shot;
}

TEST(PDFWriter, OpensTheFirstPageAtItsTop) {
    const PDFWriter writer(Moment{});
    EXPECT_EQ(writer.pageNumber(), 1);
    EXPECT_EQ(writer.cursor(), 50);
}

TEST(PDFWriter, HasTheGeometryOfA4) {
    EXPECT_DOUBLE_EQ(PDFWriter::textWidth, 505.28);
    EXPECT_DOUBLE_EQ(PDFWriter::bottom, bottomLimit);
    EXPECT_DOUBLE_EQ(PDFWriter::frameHeight, 284.22);
    const PrintedFile file([](PDFWriter& writer) { writer.text("A4", 11); });
    EXPECT_NE(file.toldBy("pdfinfo").find("595.28 x 841.89 pts (A4)"), std::string::npos);
}

TEST(PDFWriter, GivesAnEmptyParagraphItsSizeAndSixPointsAndNothingElse) {
    for (const double size : {9.0, 10.0, 11.0, 25.0})
        EXPECT_DOUBLE_EQ(heightOf("", size), size + 6);
    EXPECT_DOUBLE_EQ(heightOf("\n", 11), 34) << "a line feed alone parts two empty paragraphs";
}

TEST(PDFWriter, AddsFourPointsBehindAParagraphWithText) {
    const double line = heightOf("word", 11) - 4;
    EXPECT_DOUBLE_EQ(line, 16.5);
    EXPECT_DOUBLE_EQ(heightOf("word\nword", 11), 2 * (line + 4));
    EXPECT_DOUBLE_EQ(heightOf("word\n\nword", 11), 2 * (line + 4) + 17);
    std::string twoLines;
    for (int i = 0; i < 25; ++i)
        twoLines += "words ";
    EXPECT_DOUBLE_EQ(heightOf(twoLines, 11), 2 * line + 4) << "a broken line is no paragraph";
}

TEST(PDFWriter, GivesATextThatEndsInALineFeedOneMoreEmptyParagraph) {
    EXPECT_DOUBLE_EQ(heightOf("word\n", 11), heightOf("word", 11) + 17);
    EXPECT_DOUBLE_EQ(heightOf("word\n\n", 10), heightOf("word", 10) + 32);
}

TEST(PDFWriter, GivesALatinLineOneAndAHalfTimesItsSize) {
    for (const double size : {9.0, 10.0, 11.0, 14.0, 16.0, 17.0, 20.0, 25.0})
        for (const bool bold : {false, true})
            EXPECT_NEAR(heightOf("Latin", size, bold), std::max(size * 1.5, 1.2 * size + 3) + 4, 0.01)
                << size;
}

TEST(PDFWriter, GivesATallLineTheHeightOfItsFontAndThreePoints) {
    // What Qt knows of the same font.
    QFont font(QStringLiteral("Noto Sans CJK SC"));
    font.setPixelSize(100);
    font.setHintingPreference(QFont::PreferNoHinting);
    const QRawFont raw = QRawFont::fromFont(font);
    const double high = (raw.ascent() + raw.descent() + raw.leading()) / 100;
    ASSERT_GT(high, 1.4) << "the Chinese font is not installed";
    for (const double size : {9.0, 10.0, 11.0, 14.0, 16.0, 25.0})
        EXPECT_NEAR(heightOf("中文", size), std::max(size * 1.5, size * high + 3) + 4, 0.05) << size;
    EXPECT_GT(heightOf("中文", 11), heightOf("Latin", 11));
}

TEST(PDFWriter, StartsAPageForWhatWouldStandPastTheLimitAndNotBefore) {
    struct Case {
        const char* what;
        double height;
        std::function<void(PDFWriter&)> write;
    };
    const Case cases[] = {
        {"room of 80 points", 80, [](PDFWriter& writer) { writer.ensure(80); }},
        {"an empty paragraph", 17, [](PDFWriter& writer) { writer.text("", 11); }},
        {"a line", 16.5, [](PDFWriter& writer) { writer.text("line", 11); }},
        {"a frame", 294.22,
         [](PDFWriter& writer) {
             writer.storyboard(drawn({Stroke::make({{0, 0}})}));
         }},
    };
    for (const auto& [what, height, write] : cases) {
        WriterAt above(bottomLimit - height - 0.001);
        write(above.writer);
        EXPECT_EQ(above.writer.pageNumber(), 1) << what;
        WriterAt below(bottomLimit - height + 0.001);
        write(below.writer);
        EXPECT_EQ(below.writer.pageNumber(), 2) << what;
    }
}

TEST(PDFWriter, KeepsThePageWhenTheRoomReachesExactlyToTheLimit) {
    WriterAt here(700);
    const double room = PDFWriter::bottom - here.writer.cursor();
    here.writer.ensure(room);
    EXPECT_EQ(here.writer.pageNumber(), 1);
    EXPECT_EQ(here.writer.cursor(), 700) << "asking for room moves nothing";
    here.writer.ensure(room + 1e-9);
    EXPECT_EQ(here.writer.pageNumber(), 2);
    EXPECT_EQ(here.writer.cursor(), 50);
}

TEST(PDFWriter, AdvancesPastTheLimitWithoutANewPage) {
    WriterAt here(780);
    here.writer.advance(20);
    EXPECT_EQ(here.writer.pageNumber(), 1);
    EXPECT_DOUBLE_EQ(here.writer.cursor(), 800);
    here.writer.text("word", 11);
    EXPECT_EQ(here.writer.pageNumber(), 2);
    EXPECT_DOUBLE_EQ(here.writer.cursor(), 50 + 16.5 + 4);
}

TEST(PDFWriter, LetsTheGapBehindAParagraphHangOverTheLimit) {
    WriterAt here(PDFWriter::bottom - 16.6);
    here.writer.text("word", 11);
    EXPECT_EQ(here.writer.pageNumber(), 1);
    EXPECT_GT(here.writer.cursor(), PDFWriter::bottom);
}

TEST(PDFWriter, MovesByTheFrameAndTwelvePointsForAShotWithADrawing) {
    for (const auto& strokes : {std::vector{Stroke::make({{0.1, 0.1}, {0.9, 0.9}})},
                                std::vector{Stroke::make({{0.5, 0.5}})}, std::vector{Stroke::make({})}})
        EXPECT_DOUBLE_EQ(heightOf([&](PDFWriter& writer) { writer.storyboard(drawn(strokes)); }), 296.22);
}

TEST(PDFWriter, MovesNothingForAShotWithNeitherImageNorDrawing) {
    WriterAt here(700);  // where no frame fits
    here.writer.storyboard(Shot{});
    Shot lost;
    lost.imageKey = Text("no such image");
    here.writer.storyboard(lost);
    EXPECT_EQ(here.writer.cursor(), 700);
    EXPECT_EQ(here.writer.pageNumber(), 1);
}

TEST(PDFWriter, BreaksAWordThatIsWiderThanThePage) {
    const std::string word(10'000, 'W');
    const PrintedFile file([&](PDFWriter& writer) {
        writer.text(word + " behind", 11);
        EXPECT_GT(writer.pageNumber(), 1);
    });
    EXPECT_TRUE(withoutBlanks(file.textByPoppler()).count(QLatin1Char('W')) == 10'000);
    EXPECT_TRUE(withoutBlanks(file.text()).count(QLatin1Char('W')) == 10'000);
    EXPECT_TRUE(file.text().contains("behind"));
}

TEST(PDFWriter, GoesOnWithAGlyphThatIsWiderThanThePage) {
    const PrintedFile file([](PDFWriter& writer) {
        writer.text("宽宽", 560);
        writer.text("behind", 11);
        EXPECT_GE(writer.pageNumber(), 2);
    });
    EXPECT_EQ(withoutBlanks(file.textByPoppler()).count(QString::fromUtf8("宽")), 2);
    EXPECT_TRUE(file.text().contains("behind"));
}

TEST(PDFWriter, NumbersEveryPageAtItsFootAndLosesNoneOf200Paragraphs) {
    const PrintedFile file([](PDFWriter& writer) {
        for (int i = 0; i < 200; ++i)
            writer.text("Paragraph number " + std::to_string(i) + " of the note", 11);
        writer.text("END_OF_TEXT", 11);
    });
    ASSERT_EQ(file.pageCount(), 6) << "35 paragraphs of 20.5 points fit on a page";
    const QString all = file.text();
    for (int i = 0; i < 200; ++i)
        EXPECT_TRUE(all.contains(QStringLiteral("number %1 of").arg(i))) << i;
    EXPECT_TRUE(file.pageText(5).contains("END_OF_TEXT"));
    const QStringList pages = file.textByPoppler().split(QLatin1Char('\f'), Qt::SkipEmptyParts);
    for (int page = 0; page < 6; ++page) {
        const QString footer = QString::fromUtf8("Vantry·%1").arg(page + 1);
        EXPECT_TRUE(withoutBlanks(file.pageText(page)).endsWith(footer)) << page;
        EXPECT_TRUE(withoutBlanks(pages.at(page)).endsWith(footer)) << page;
        EXPECT_EQ(file.pageText(page).count("Vantry"), 1);
    }
}

TEST(PDFWriter, WritesTheFooterAlsoOnAPageWithoutAnythingElse) {
    const PrintedFile file([](PDFWriter&) {});
    EXPECT_EQ(file.pageCount(), 1);
    EXPECT_EQ(withoutBlanks(file.text()), QString::fromUtf8("Vantry·1"));
}

TEST(PDFWriter, WritesTheFooterInGreyWithItsBaseline25PointsAboveTheEdge) {
    const PrintedFile file([](PDFWriter&) {});
    const QImage page = file.look(0, 288);  // four dots to a point
    int lowest = 0;
    int left = page.width();
    int darkest = 255;
    for (int y = 0; y < page.height(); ++y)
        for (int x = 0; x < page.width(); ++x)
            if (const int grey = qGray(page.pixel(x, y)); grey < 200) {
                // The "y" of the name reaches below the line; what stands left of it does not.
                lowest = x < (45 + 20) * 4 ? y : lowest;
                left = std::min(left, x);
                darkest = std::min(darkest, grey);
            }
    EXPECT_NEAR(lowest / 4.0, 841.89 - 25, 0.5);
    EXPECT_NEAR(left / 4.0, 45, 1);
    EXPECT_NEAR(darkest, 128, 3);
}

}  // namespace
}  // namespace vantry::test
