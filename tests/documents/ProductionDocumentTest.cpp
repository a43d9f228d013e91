#include <memory>
#include <string>

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "Vantry/app/VantryStore.h"
#include "Vantry/documents/CallSheetPDF.h"
#include "Vantry/documents/PDFExport.h"
#include "conformance/MachineZone.h"
#include "conformance/RecordedFlow.h"
#include "tests/documents/PrintedFile.h"
#include "tests/documents/SampleProject.h"

namespace vantry::test {
namespace {

QByteArray production(bool report, bool english) {
    return printed([&](PDFWriter& writer) {
        PDFExport::write(sampleProject(), report, {english, made, *Zone::find("Asia/Shanghai")}, writer);
    });
}

TEST(ProductionDocument, HoldsEveryLineThatIsWrittenToItInBothLanguages) {
    for (const bool report : {false, true})
        for (const bool english : {false, true}) {
            const PrintedFile file(production(report, english));
            conformance::RecordedFlow flow;
            PDFExport::write(sampleProject(), report, {english, made, *Zone::find("Asia/Shanghai")}, flow);
            std::string all;
            for (const auto& line : flow.lines)
                all += line.text;
            for (QString read : {file.text(), file.textByPoppler()}) {
                read = withoutBlanks(read);
                for (int page = 1; page <= file.pageCount(); ++page)
                    read.remove(QString::fromUtf8("Vantry·%1").arg(page));
                EXPECT_EQ(read, withoutBlanks(all));
            }
        }
}

TEST(ProductionDocument, HasTheTakesInTheReportAndNotInThePlan) {
    const QString report = PrintedFile(production(true, true)).text();
    const QString plan = PrintedFile(production(false, true)).text();
    for (const char* text : {"Second paragraph.", "A001_C001.mov", "S01_T01.wav", "Not shot · No takes",
                             "Camera take —", "Take 1 · Good", "On-set notes"}) {
        EXPECT_TRUE(report.contains(QString::fromUtf8(text))) << text;
        EXPECT_FALSE(plan.contains(QString::fromUtf8(text))) << text;
    }
    EXPECT_TRUE(report.contains(QString::fromUtf8("第一段：准确。")));
}

TEST(ProductionDocument, NamesTheCrewInTheLanguageOfTheDocumentWhenItHasAName) {
    const QString english = PrintedFile(production(true, true)).text();
    EXPECT_TRUE(english.contains("Director of photography: Lin"));
    EXPECT_TRUE(english.contains("Drone: Sam"));
    EXPECT_FALSE(english.contains("Gaffer"));
    const QString chinese = PrintedFile(production(true, false)).text();
    EXPECT_TRUE(chinese.contains(QString::fromUtf8("摄影指导: Lin")));
    EXPECT_TRUE(chinese.contains("Drone: Sam"));
    EXPECT_FALSE(chinese.contains(QString::fromUtf8("灯光")));
    EXPECT_FALSE(chinese.contains("Director"));
}

TEST(ProductionDocument, HoldsChineseTextThatCanBeCopied) {
    const QString text = PrintedFile(production(false, false)).text();
    for (const char* line : {"候车室", "分镜计划", "导演：林若水", "演员表", "她在窗前回头", "录制与监视"})
        EXPECT_TRUE(text.contains(QString::fromUtf8(line))) << line;
}

TEST(ProductionDocument, TakesLanguageAndMomentFromTheStoreAndTheZoneFromTheMachine) {
    const QTemporaryDir folder;
    VantryStore store(folder.filePath("Data").toStdString());
    const conformance::MachineZone here("Asia/Shanghai");
    for (const bool english : {true, false}) {
        store.setLanguage(english ? "en" : "zh");
        const QString plan = PrintedFile(PDFExport::render(sampleProject(), false, store)).text();
        EXPECT_EQ(plan.contains("Storyboard plan"), english);
        EXPECT_EQ(plan.contains(QString::fromUtf8("分镜计划")), !english);
        EXPECT_TRUE(plan.contains("2026-11-15 23:30"));
        const std::string now = PDFExport::dateAndTime(store.now(), Zone::machine());
        EXPECT_TRUE(plan.contains(QString::fromStdString(now.substr(0, 10))));
        const QString sheet = PrintedFile(CallSheetPDF::render(sampleProject(), sampleSheet(), store)).text();
        EXPECT_EQ(sheet.contains("Daily shot schedule"), english);
        EXPECT_EQ(sheet.contains(QString::fromUtf8("当日镜头安排")), !english);
    }
}

TEST(DocumentFile, IsTheSameToTheByteForTheSameInputAndMoment) {
    for (const bool report : {false, true})
        EXPECT_EQ(production(report, false), production(report, false));
    const auto write = [](PDFWriter& writer) { writer.text("same", 11); };
    EXPECT_EQ(printed(write), printed(write));
    PDFWriter later(Moment{made.seconds + 60});
    write(later);
    EXPECT_NE(later.finish(), printed(write)) << "the moment stands in the file";
}

TEST(DocumentFile, TellsItsTitleItsProgramAndItsMoment) {
    const std::string told =
        PrintedFile([](PDFWriter& writer) { writer.text("word", 11); }).toldBy("pdfinfo", {"-isodates"});
    for (const char* line : {"Title:           Vantry\n", "Creator:         Vantry\n",
                             "CreationDate:    2026-10-06T17:20:00Z\n", "Encrypted:       no\n"})
        EXPECT_NE(told.find(line), std::string::npos) << line << told;
}

TEST(DocumentFile, WritesLatinInTheFaceOfHelveticaAndChineseInTheSimplifiedFace) {
    const PrintedFile latin([](PDFWriter& writer) {
        writer.text("Latin only: \"quoted\" – 50 mm · f/2.8", 11);
        writer.text("Bold", 11, true);
    });
    const std::string latinFonts = latin.toldBy("pdffonts");
    EXPECT_NE(latinFonts.find("NimbusSans-Regular"), std::string::npos) << latinFonts;
    EXPECT_NE(latinFonts.find("NimbusSans-Bold"), std::string::npos);
    EXPECT_EQ(latinFonts.find("CJK"), std::string::npos);

    const PrintedFile mixed([](PDFWriter& writer) {
        writer.text("她在窗前回头，听见广播。骨直令门", 11);
        writer.text("Latin 和中文", 11);
        writer.text("粗体", 11, true);
    });
    const std::string fonts = mixed.toldBy("pdffonts");
    EXPECT_NE(fonts.find("NotoSansCJKsc-Regular"), std::string::npos) << fonts;
    EXPECT_NE(fonts.find("NotoSansCJKsc-Bold"), std::string::npos) << fonts;
    EXPECT_NE(fonts.find("NimbusSans-Regular"), std::string::npos) << fonts;
    for (const char* other : {"CJKjp", "CJKkr", "CJKtc", "CJKhk"})
        EXPECT_EQ(fonts.find(other), std::string::npos) << other;
}

TEST(DocumentFile, CarriesEveryFontInItself) {
    const PrintedFile file(production(true, false));
    const QStringList lines =
        QString::fromStdString(file.toldBy("pdffonts")).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    ASSERT_GT(lines.size(), 3);
    for (const QString& line : lines.mid(2)) {
        // ... emb sub uni object ID
        const QStringList words = line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        EXPECT_EQ(words.at(words.size() - 5), "yes") << line.toStdString();
        EXPECT_EQ(words.at(words.size() - 3), "yes") << "no way from glyphs to text: " << line.toStdString();
    }
}

}  // namespace
}  // namespace vantry::test
