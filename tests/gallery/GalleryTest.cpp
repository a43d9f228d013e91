// The gallery as it looked when a person looked at it. After a change that is meant, run with
// VANTRY_NEW_GOLDEN=1 and look at every picture in the folder golden.

#include <algorithm>
#include <fstream>
#include <iterator>
#include <memory>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QImage>
#include <QLocale>

#include "Vantry/interface/design/Palette.h"
#include "Vantry/interface/design/SegmentedChoice.h"
#include "Vantry/interface/design/VantryMotion.h"
#include "Vantry/interface/design/VantryToggle.h"
#include "gallery/Board.h"
#include "gallery/Gallery.h"
#include "tests/support/InkGrid.h"

namespace vantry::test {
namespace {

using gallery::Gallery;

struct Look {
    bool dark;
    bool english;

    [[nodiscard]] std::string picture() const {
        return std::string(GOLDEN_FOLDER "/") + (dark ? "dark" : "light") +
               (english ? "-english" : "-chinese") + ".png";
    }
    [[nodiscard]] std::string places() const {
        return std::string(GOLDEN_FOLDER "/") + (english ? "english" : "chinese") + ".txt";
    }
};

constexpr Look looks[] = {{false, true}, {false, false}, {true, true}, {true, false}};
/// Those with a picture: both appearances and both languages. What the other two show, the places tell.
constexpr Look pictured[] = {{false, true}, {true, false}};

/// The gallery as large as all of it, standing still.
class GalleryTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        // The time on the status line is that of the machine's locale, and a caret blinks.
        QLocale::setDefault(QLocale::c());
        QApplication::setCursorFlashTime(0);
        shown = std::make_unique<Gallery>();
        shown->setReducedMotion(true);
        shown->show();
    }
    static void TearDownTestSuite() { shown.reset(); }

    static void settle() {
        // Layouts, palettes and what they bring about in their turn.
        for (int turn = 0; turn < 5; ++turn)
            QCoreApplication::processEvents();
    }
    static void take(const Look& look) {
        shown->setDark(look.dark);
        shown->setEnglish(look.english);
        settle();
        shown->resize(shown->wholeSize());
        settle();
    }
    static QImage picture(const Look& look) {
        take(look);
        const QPoint corner = shown->board().mapTo(shown.get(), QPoint());
        return shown->grab(QRect(corner, shown->board().size()))
            .toImage()
            .convertToFormat(QImage::Format_RGB32);
    }
    static std::string places(const Look& look) {
        take(look);
        std::ostringstream lines;
        for (const auto& [name, place] : shown->board().specimens())
            lines << name.toStdString() << ": " << place.x() << ", " << place.y() << ", " << place.width()
                  << " x " << place.height() << "\n";
        return lines.str();
    }

    static std::unique_ptr<Gallery> shown;
};

std::unique_ptr<Gallery> GalleryTest::shown;

std::string contentOf(const std::string& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The first line in which two texts differ.
std::string difference(const std::string& one, const std::string& other) {
    std::istringstream left(one);
    std::istringstream right(other);
    std::string a;
    std::string b;
    do {
        a.clear();
        b.clear();
        std::getline(left, a);
        std::getline(right, b);
    } while (a == b && (left || right));
    return "\"" + a + "\" and \"" + b + "\"";
}

/// How many of a hundred dots of two pictures differ from all around that place of the other by more than so
/// many of the 255 steps of a colour.
double dotsUnlike(const QImage& one, const QImage& other, int steps) {
    const InkGrid::Tolerance allowed{.share = 0, .more = steps / 255.0};
    const InkGrid::Ink channels[] = {[](QRgb colour) { return qRed(colour) / 255.0; },
                                     [](QRgb colour) { return qGreen(colour) / 255.0; },
                                     [](QRgb colour) { return qBlue(colour) / 255.0; }};
    double most = 0;
    for (const InkGrid::Ink channel : channels) {
        const InkGrid left(one, 1, channel);
        const InkGrid right(other, 1, channel);
        most = std::max(most, 100.0 * left.cellsUnlike(right, allowed) / left.cells());
    }
    return most;
}

/// Whether the pictures are the same but for the smoothing of their edges: no line is missing or another,
/// even the faintest hairline, and no surface is, even that of the faintest hover.
bool looksAlike(const QImage& one, const QImage& other) {
    constexpr int ofHairlines = 12;
    constexpr double fewerThanLines = 1;
    constexpr int ofSurfaces = 4;
    constexpr double fewerThanSurfaces = 30;
    return one == other || (dotsUnlike(one, other, ofHairlines) <= fewerThanLines &&
                            dotsUnlike(one, other, ofSurfaces) <= fewerThanSurfaces);
}

/// The specimen with the ring that may lie around it.
QImage cut(const QImage& board, const QRect& place) {
    constexpr int ring = 5;
    return board.copy(place.adjusted(-ring, -ring, ring, ring));
}

TEST_F(GalleryTest, EverySpecimenHasItsPlaceAndSize) {
    for (const Look& look : looks) {
        const std::string now = places(look);
        if (qEnvironmentVariableIsSet("VANTRY_NEW_GOLDEN"))
            std::ofstream(look.places()) << now;
        // One text for both appearances: colours move nothing.
        const std::string before = contentOf(look.places());
        EXPECT_TRUE(now == before) << look.picture() << ": " << difference(now, before);
    }
}

TEST_F(GalleryTest, EverySpecimenLooksAsItDidWhenAPersonLookedAtIt) {
    for (const Look& look : pictured) {
        const QImage now = picture(look);
        const QString path = QString::fromStdString(look.picture());
        if (qEnvironmentVariableIsSet("VANTRY_NEW_GOLDEN")) {
            EXPECT_TRUE(now.save(path, "PNG", 0));
        }
        const QImage before = QImage(path).convertToFormat(QImage::Format_RGB32);
        ASSERT_EQ(now.size(), before.size()) << look.picture();
        for (const auto& [name, place] : shown->board().specimens())
            EXPECT_TRUE(looksAlike(cut(now, place), cut(before, place)))
                << look.picture() << ": " << name.toStdString();
    }
}

TEST_F(GalleryTest, NamesOfSpecimensAreUniqueAndTheirPlacesApart) {
    take(looks[0]);
    const auto specimens = shown->board().specimens();
    EXPECT_GT(specimens.size(), 100U);
    for (std::size_t i = 0; i < specimens.size(); ++i) {
        EXPECT_TRUE(shown->board().rect().contains(specimens[i].place)) << specimens[i].name.toStdString();
        EXPECT_FALSE(specimens[i].place.isEmpty()) << specimens[i].name.toStdString();
        for (std::size_t j = 0; j < i; ++j) {
            EXPECT_NE(specimens[i].name, specimens[j].name);
            EXPECT_FALSE(specimens[i].place.intersects(specimens[j].place))
                << specimens[i].name.toStdString() << " and " << specimens[j].name.toStdString();
        }
    }
}

/// No state can be taken for another, in either appearance: the comparison would tell.
TEST_F(GalleryTest, EveryStateOfAControlLooksDifferent) {
    for (const Look& look : looks) {
        const QImage board = picture(look);
        int compared = 0;
        const auto specimens = shown->board().specimens();
        for (const auto& one : specimens)
            for (const auto& other : specimens) {
                const QString section = one.name.section(QStringLiteral(" / "), 0, 0);
                const bool ofOneKind = section == other.name.section(QStringLiteral(" / "), 0, 0);
                const bool isNormal = one.name.endsWith(QStringLiteral("/ normal"));
                const QString state = other.name.section(QStringLiteral(" / "), 1);
                const bool isState =
                    std::any_of(gallery::allStates.begin() + 1, gallery::allStates.end(),
                                [&](gallery::State each) { return gallery::nameOf(each).in(true) == state; });
                if (!ofOneKind || !isNormal || !isState)
                    continue;
                ++compared;
                // Places may differ by a point in width.
                const QSize common = one.place.size().boundedTo(other.place.size());
                EXPECT_FALSE(looksAlike(cut(board, QRect(one.place.topLeft(), common)),
                                        cut(board, QRect(other.place.topLeft(), common))))
                    << look.picture() << ": " << one.name.toStdString() << " and "
                    << other.name.toStdString();
            }
        EXPECT_GT(compared, 25);
    }
}

/// The picture as another library of fonts might smooth it.
QImage softened(const QImage& picture) {
    QImage soft = picture;
    for (int y = 1; y + 1 < picture.height(); ++y)
        for (int x = 1; x + 1 < picture.width(); ++x) {
            const auto mixed = [&](int (*part)(QRgb)) {
                return (30 * part(picture.pixel(x, y)) + part(picture.pixel(x - 1, y)) +
                        part(picture.pixel(x + 1, y))) /
                       32;
            };
            soft.setPixel(x, y, qRgb(mixed(qRed), mixed(qGreen), mixed(qBlue)));
        }
    return soft;
}

TEST_F(GalleryTest, ASpecimenOfAnotherColourIsToldAndOneOfSofterEdgesIsNot) {
    const QImage board = picture(looks[0]);
    for (const auto& [name, place] : shown->board().specimens()) {
        const QImage now = cut(board, place);
        QImage darker = now;
        for (int y = 0; y < darker.height(); ++y)
            for (int x = 0; x < darker.width(); ++x) {
                const QRgb colour = darker.pixel(x, y);
                darker.setPixel(x, y, qRgb(std::max(0, qRed(colour) - 16), qGreen(colour), qBlue(colour)));
            }
        EXPECT_FALSE(looksAlike(now, darker)) << name.toStdString();
        EXPECT_TRUE(looksAlike(now, softened(now))) << name.toStdString();
    }
}

TEST_F(GalleryTest, TheSwitchesWorkWhileItIsOpen) {
    take({false, true});
    const auto press = [](const char* name) {
        const auto buttons = shown->findChildren<QAbstractButton*>();
        const auto found = std::find_if(buttons.begin(), buttons.end(), [&](QAbstractButton* button) {
            return button->accessibleName() == QString::fromUtf8(name);
        });
        ASSERT_NE(found, buttons.end()) << name;
        (*found)->click();
        settle();
    };
    press("Dark");
    EXPECT_EQ(Palette::of(shown->board()).canvas, Palette::dark().canvas);
    press("中文");
    EXPECT_FALSE(shown->board().isEnglish());
    press("浅色");
    EXPECT_EQ(Palette::of(shown->board()).canvas, Palette::light().canvas);
    press("English");
    EXPECT_TRUE(shown->board().isEnglish());
    EXPECT_TRUE(vantryReduceMotion());
    press("Reduce motion");
    EXPECT_FALSE(vantryReduceMotion());
    press("Reduce motion");
    EXPECT_TRUE(vantryReduceMotion());
}

}  // namespace
}  // namespace vantry::test
