#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <QImage>

#include "Vantry/documents/CallSheetPDF.h"
#include "Vantry/documents/PDFExport.h"
#include "tests/documents/PictureSamples.h"
#include "tests/documents/PrintedFile.h"
#include "tests/documents/SampleProject.h"
#include "tests/support/InkGrid.h"

namespace vantry::test {
namespace {

constexpr double dotsPerInch = 50;
constexpr int cell = 8;  ///< dots; a little less than a line of text

/// How dark a page is, softened so that a shift of a dot or two does not count.
InkGrid inkOf(const QImage& page) {
    return {page, cell, [](QRgb colour) { return (255 - qGray(colour)) / 255.0; }};
}

bool looksAlike(const QImage& page, const QImage& golden) {
    constexpr int mostUnlike = 45;
    constexpr InkGrid::Tolerance ofFonts{.share = 0.3, .more = 0.05};
    return inkOf(page).cellsUnlike(inkOf(golden), ofFonts) <= mostUnlike;
}

/// The sample, made so short that something of every block stands on the first page.
Project shortProject() {
    Project project = sampleProject();
    project.setCrew({project.crew().front()});
    project.setCast({project.cast().front()});
    project.notes = "全片手持。";
    return project;
}

CallSheet shortSheet() {
    CallSheet sheet = sampleSheet();
    sheet.set("safety", {});
    sheet.set("address", "虹口区");
    sheet.people.pop_back();
    return sheet;
}

enum class Kind { plan, report, callSheet };

QImage pageOf(Kind kind, const Project& project, const CallSheet& sheet, bool english) {
    const PrintedFile file(
        [&](PDFWriter& writer) {
            if (kind == Kind::callSheet)
                CallSheetPDF::write(project, sheet, english, writer);
            else
                PDFExport::write(project, kind == Kind::report, {english, made, *Zone::find("Asia/Shanghai")},
                                 writer);
        },
        [](const Text&) { return fileOf(quarters(320, 240), "PNG"); });
    return file.look(0, dotsPerInch);
}

struct Golden {
    const char* name;
    Kind kind;
    bool english;

    [[nodiscard]] QString path() const { return QStringLiteral(GOLDEN_FOLDER "/%1.png").arg(name); }
    [[nodiscard]] QImage image() const { return QImage(path()); }
};

const Golden goldens[] = {
    {"plan-english", Kind::plan, true},           {"plan-chinese", Kind::plan, false},
    {"report-english", Kind::report, true},       {"report-chinese", Kind::report, false},
    {"callsheet-english", Kind::callSheet, true}, {"callsheet-chinese", Kind::callSheet, false},
};

TEST(Golden, PagesLookAsTheyDidWhenAPersonLookedAtThem) {
    for (const Golden& golden : goldens) {
        const QImage page = pageOf(golden.kind, shortProject(), shortSheet(), golden.english);
        // To make them anew, run with this variable and look at every one of them.
        if (qEnvironmentVariableIsSet("VANTRY_NEW_GOLDEN")) {
            QImage grey(page.size(), QImage::Format_Grayscale8);
            for (int y = 0; y < page.height(); ++y)
                for (int x = 0; x < page.width(); ++x)
                    grey.scanLine(y)[x] = static_cast<uchar>(qGray(page.pixel(x, y)));
            EXPECT_TRUE(grey.save(golden.path()));
        }
        ASSERT_FALSE(golden.image().isNull()) << golden.name;
        EXPECT_TRUE(looksAlike(page, golden.image())) << golden.name;
    }
}

TEST(Golden, PagesOfOtherDocumentsLookDifferent) {
    for (const Golden& one : goldens)
        for (const Golden& other : goldens)
            EXPECT_TRUE(one.kind == other.kind || !looksAlike(one.image(), other.image()))
                << one.name << " and " << other.name;
}

TEST(Golden, PageWithoutABlockIsTold) {
    const struct {
        const char* what;
        std::vector<Kind> kinds;
        std::function<void(Project&, CallSheet&)> spoil;
    } faults[] = {
        {"no cast", {Kind::plan, Kind::report}, [](Project& project, CallSheet&) { project.setCast({}); }},
        {"no notes", {Kind::plan, Kind::report}, [](Project& project, CallSheet&) { project.notes = {}; }},
        {"no image",
         {Kind::plan},
         [](Project& project, CallSheet&) { project.acts[0].edit().shots[0].edit().imageKey.reset(); }},
        {"no takes",
         {Kind::report},
         [](Project& project, CallSheet&) { project.acts[0].edit().shots[0].edit().takes.clear(); }},
        {"no shots",
         {Kind::plan, Kind::report, Kind::callSheet},
         [](Project& project, CallSheet&) { project.acts.clear(); }},
        {"no people", {Kind::callSheet}, [](Project&, CallSheet& sheet) { sheet.people.clear(); }},
        {"no title",
         {Kind::plan, Kind::report, Kind::callSheet},
         [](Project& project, CallSheet&) { project.title = {}; }},
    };
    for (const auto& [what, kinds, spoil] : faults)
        for (const Golden& golden : goldens) {
            if (std::find(kinds.begin(), kinds.end(), golden.kind) == kinds.end())
                continue;
            Project project = shortProject();
            CallSheet sheet = shortSheet();
            spoil(project, sheet);
            EXPECT_FALSE(looksAlike(pageOf(golden.kind, project, sheet, golden.english), golden.image()))
                << golden.name << ": " << what;
        }
}

TEST(Golden, PageWithEverythingMovedIsTold) {
    for (const Golden& golden : goldens) {
        const QImage image = golden.image();
        for (const QPoint& by : {QPoint(0, 25), QPoint(0, -25), QPoint(25, 0)}) {
            QImage moved(image.size(), QImage::Format_RGB32);
            moved.fill(Qt::white);
            for (int y = std::max(0, by.y()); y < std::min(image.height(), image.height() + by.y()); ++y)
                for (int x = by.x(); x < image.width(); ++x)
                    moved.setPixel(x, y, image.pixel(x - by.x(), y - by.y()));
            EXPECT_FALSE(looksAlike(moved, image)) << golden.name;
        }
    }
}

TEST(Golden, PageInSlightlyOtherFontsIsTheSamePage) {
    for (const Golden& golden : goldens) {
        const QImage image = golden.image();
        for (const double stretch : {0.995, 1.005})
            for (const double weight : {0.85, 1.15}) {
                QImage other(image.size(), QImage::Format_RGB32);
                for (int y = 0; y < image.height(); ++y)
                    for (int x = 0; x < image.width(); ++x) {
                        const int fromX = std::min(image.width() - 1, static_cast<int>(x * stretch));
                        const int fromY = std::min(image.height() - 1, static_cast<int>(y * stretch));
                        const int dark = std::min(
                            255, static_cast<int>((255 - qGray(image.pixel(fromX, fromY))) * weight));
                        other.setPixel(x, y, qRgb(255 - dark, 255 - dark, 255 - dark));
                    }
                EXPECT_TRUE(looksAlike(other, image)) << golden.name << stretch << weight;
            }
    }
}

}  // namespace
}  // namespace vantry::test
