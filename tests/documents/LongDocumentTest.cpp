#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "Vantry/documents/CallSheetPDF.h"
#include "Vantry/documents/PDFExport.h"
#include "tests/documents/PrintedFile.h"
#include "tests/documents/SampleProject.h"

namespace vantry::test {
namespace {

QByteArray production(const Project& project, bool report, bool english = true) {
    return printed([&](PDFWriter& writer) {
        PDFExport::write(project, report, {english, made, *Zone::find("UTC")}, writer);
    });
}

Project projectWithTakes(std::vector<VantryTake> takes) {
    Shot shot;
    shot.code = "1";
    for (auto& take : takes)
        shot.takes.emplace_back(std::move(take));
    Act act;
    act.shots = {shot};
    Project project;
    project.acts = {act};
    return project;
}

VantryTake takeWithNotes(std::string notes) {
    VantryTake take;
    take.number = 1;
    take.notes = Text(std::move(notes));
    return take;
}

/// The text of all pages without the footers, as each of the readers gives it.
std::vector<QString> bodies(const PrintedFile& file) {
    QString byQt;
    QString byPoppler;
    const QStringList pages = file.textByPoppler().split(QLatin1Char('\f'), Qt::SkipEmptyParts);
    EXPECT_EQ(pages.size(), file.pageCount());
    for (int page = 0; page < file.pageCount(); ++page) {
        const QString footer = QString::fromUtf8("Vantry·%1").arg(page + 1);
        for (auto [all, read] : {std::pair{&byQt, withoutBlanks(file.pageText(page))},
                                 std::pair{&byPoppler, withoutBlanks(pages.at(page))}}) {
            EXPECT_TRUE(read.endsWith(footer)) << page;
            *all += read.chopped(footer.size());
        }
    }
    return {byQt, byPoppler};
}

TEST(LongDocument, KeepsANoteOfManyPages) {
    std::string note;
    for (int i = 0; i < 200; ++i)
        note += "This take was interrupted by a train, sentence " + std::to_string(i) + ".\n";
    const PrintedFile file(production(projectWithTakes({takeWithNotes(note + "END_OF_REPORT")}), true));
    EXPECT_GT(file.pageCount(), 4);
    EXPECT_TRUE(file.text().contains("END_OF_REPORT"));
    for (const QString& body : bodies(file))
        EXPECT_TRUE(body.contains(withoutBlanks(note + "END_OF_REPORT")));
}

TEST(LongDocument, KeepsEveryWordOf2000TakesWithNotes) {
    std::vector<VantryTake> takes;
    for (int i = 1; i <= 2000; ++i) {
        VantryTake take;
        take.number = i;
        take.notes =
            Text("笔记" + std::to_string(i) +
                 " the actor turned too early and the boom came into the picture; once more, please, "
                 "with more air above the head and a slower turn. End" +
                 std::to_string(i) + ".");
        takes.push_back(take);
    }
    const PrintedFile file(production(projectWithTakes(takes), true));
    EXPECT_GT(file.pageCount(), 300);
    for (const QString& body : bodies(file)) {
        qsizetype at = 0;
        for (const auto& take : takes) {
            const qsizetype found = body.indexOf(withoutBlanks(take.notes.utf8()), at);
            ASSERT_GE(found, at) << "the note of take " << take.number << ", in its order";
            at = found;
        }
    }
}

TEST(LongDocument, KeepsANoteOfTenThousandLines) {
    std::string note;
    for (int i = 0; i < 10'000; ++i)
        note += "l" + std::to_string(i) + "\n";
    const PrintedFile file([&](PDFWriter& writer) { writer.text(note + "end", 11); });
    for (const QString& body : bodies(file))
        EXPECT_EQ(body, withoutBlanks(note + "end"));
}

TEST(LongDocument, KeepsAParagraphOf300000CharactersWithoutALineEnd) {
    std::string chinese;
    std::string latin;
    std::string mixed;
    constexpr int length = 300'000;
    for (int i = 0; i < length; ++i)
        chinese += i % 50 == 49 ? "，" : (i % 3 == 0 ? "她" : i % 3 == 1 ? "在" : "窗");
    for (int i = 0; static_cast<int>(latin.size()) < length; ++i)
        latin += "word" + std::to_string(i) + " ";
    for (int i = 0; static_cast<int>(mixed.size()) < length; ++i)
        mixed += "第" + std::to_string(i) + "镜take";
    for (const std::string& text : {chinese, latin, mixed, std::string(length, 'x')}) {
        const PrintedFile file([&](PDFWriter& writer) { writer.text(text, 11); });
        const QString expected = withoutBlanks(text);
        for (const QString& body : bodies(file)) {
            EXPECT_EQ(body.size(), expected.size());
            EXPECT_TRUE(body == expected) << "differs, or is out of order";
        }
    }
}

TEST(LongDocument, GoesOnBehindALetterWithThousandsOfMarks) {
    std::string text = "e";
    for (int i = 0; i < 5000; ++i)
        text += "\u0301";
    const PrintedFile file([&](PDFWriter& writer) { writer.text(text + " MARKER", 11); });
    // pdftotext leaves out marks that stand at the same place, so they are not counted.
    EXPECT_TRUE(file.textByPoppler().contains("MARKER"));
    EXPECT_TRUE(file.text().contains("MARKER"));
}

TEST(LongDocument, KeepsWhatStandsBehindThousandsOfPicturesAndUnknownCharacters) {
    for (const char* part : {"😀", "\uE000", "\u200B"}) {
        std::string text;
        for (int i = 0; i < 5000; ++i)
            text += part;
        const PrintedFile file([&](PDFWriter& writer) { writer.text(text + " 中文\nMARKER", 11); });
        EXPECT_TRUE(file.textByPoppler().contains(QString::fromUtf8("中文"))) << part;
        EXPECT_TRUE(file.text().contains("MARKER")) << part;
    }
}

TEST(LongDocument, FillsTheLinesOfALongParagraphLikeThoseOfAShortOne) {
    // However a paragraph is laid out, its lines are as full as if it were laid out at once.
    std::string words;
    for (int i = 0; i < 3000; ++i)
        words += "words ";
    PDFWriter writer(made);
    writer.text("words words words words words words words words words words words words words words", 11);
    EXPECT_EQ(writer.cursor(), 50 + 20.5) << "fourteen words fit on one line";
    PDFWriter longer(made);
    longer.text(words, 11);
    const int perLine = 16;
    const int perPage = 44;
    EXPECT_EQ(longer.pageNumber(), 1 + (3000 / perLine) / perPage);
}

TEST(LongDocument, KeepsATitleOf500Characters) {
    Project project;
    std::string title;
    for (int i = 0; i < 100; ++i)
        title += "候车室" + std::to_string(10 + i % 90);
    project.title = Text(title);
    for (const bool report : {false, true})
        for (const QString& body : bodies(PrintedFile(production(project, report))))
            EXPECT_TRUE(body.startsWith(withoutBlanks(title)));
    const PrintedFile sheet(
        [&](PDFWriter& writer) { CallSheetPDF::write(project, sampleSheet(), true, writer); });
    for (const QString& body : bodies(sheet))
        EXPECT_TRUE(body.startsWith(withoutBlanks(title)));
}

TEST(LongDocument, OfAnEmptyProjectIsOnePageWithItsHead) {
    for (const bool report : {false, true}) {
        const PrintedFile file(production(Project{}, report));
        EXPECT_EQ(file.pageCount(), 1);
        for (const QString& body : bodies(file))
            EXPECT_EQ(body,
                      withoutBlanks(std::string(report ? "Shoot report · Director" : "Storyboard plan · DP") +
                                    "Director: 2026-10-06 17:20"));
    }
}

}  // namespace
}  // namespace vantry::test
