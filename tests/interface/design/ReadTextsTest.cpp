// What is only read: labels, headings, pills and the other small parts of pages.

#include <gtest/gtest.h>

#include <QAccessible>
#include <QTest>
#include <QVBoxLayout>

#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/Card.h"
#include "Vantry/interface/design/CompletionLine.h"
#include "Vantry/interface/design/EmptyViewCard.h"
#include "Vantry/interface/design/FactRow.h"
#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/LinkCard.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/PageColumn.h"
#include "Vantry/interface/design/PageHeading.h"
#include "Vantry/interface/design/SectionLabel.h"
#include "Vantry/interface/design/StatusPill.h"
#include "Vantry/interface/design/VantryDesign.h"
#include "Vantry/interface/design/WorkspaceHeading.h"
#include "Vantry/interface/design/WorkspaceMetric.h"
#include "tests/interface/design/Darkest.h"
#include "tests/interface/design/HelpOver.h"

namespace vantry::test {
namespace {

const QString tricky = QStringLiteral("Tom & Jerry <b>x</b>");
const QString endless =
    QStringLiteral("A very long title that nobody would write but everybody pastes. ").repeated(30);

QString nameOf(QWidget& widget) {
    return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name);
}

/// Lays `part` out alone in a window of that width, at its own height.
void show(QWidget& window, QWidget* part, int width) {
    auto* column = new QVBoxLayout(&window);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(part);
    column->addStretch();
    window.resize(width, 600);
    window.show();
    for (int turn = 0; turn < 3; ++turn)
        QApplication::processEvents();
}

TEST(Label, ShowsAndSpeaksItsTextLetterByLetter) {
    Label label(VantryType::Role::body);
    label.setPlain(tricky);
    EXPECT_EQ(label.text(), tricky);
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
    EXPECT_EQ(nameOf(label), tricky);
}

TEST(Label, OneLineIsCutAndShownWholeAsHelp) {
    QWidget window;
    auto* label = new Label(VantryType::Role::body);
    label->setPlain(endless + tricky);
    show(window, label, 300);
    EXPECT_EQ(label->height(), VantryType::lineHeight(VantryType::Role::body));
    EXPECT_LE(label->width(), 300);
    EXPECT_TRUE(helpOver(*label).contains((endless + tricky).toHtmlEscaped()));
    label->setPlain(QStringLiteral("short"));
    EXPECT_TRUE(helpOver(*label).isEmpty());
    EXPECT_TRUE(label->toolTip().isEmpty()) << "tools would read it twice";
}

TEST(Label, AWrappedTextTakesTheLinesItNeedsOrThoseThatItMay) {
    Label label(VantryType::Role::body, &Palette::ink, Label::Length::wrapped);
    const int line = VantryType::lineHeight(VantryType::Role::body);
    label.setPlain(QStringLiteral("short"));
    EXPECT_EQ(label.heightForWidth(400), line);
    label.setPlain(endless);
    EXPECT_GT(label.heightForWidth(400), 5 * line);
    EXPECT_EQ(label.heightForWidth(400) % line, 0);
    EXPECT_GT(label.heightForWidth(200), label.heightForWidth(400));
    label.setMostLines(2);
    EXPECT_EQ(label.heightForWidth(400), 2 * line);
    label.setPlain(QStringLiteral("one\ntwo\nthree"));
    EXPECT_EQ(label.heightForWidth(400), 2 * line);
    label.setMostLines(0);
    EXPECT_EQ(label.heightForWidth(400), 3 * line);
}

TEST(Label, LinesAreEquallyHighInBothScripts) {
    Label label(VantryType::Role::label, &Palette::ink, Label::Length::wrapped);
    label.setPlain(QStringLiteral("Library"));
    const int latin = label.heightForWidth(300);
    label.setPlain(QStringLiteral("资料库"));
    EXPECT_EQ(label.heightForWidth(300), latin);
}

TEST(PageHeading, IsInTheTitleOfTheDesign) {
    EXPECT_EQ(VantryType::font(VantryDesign::title), VantryType::font(VantryType::Role::title));
    PageHeading heading({1, 1});
    const QFont shown = heading.findChildren<Label*>()[1]->font();
    EXPECT_EQ(shown, VantryType::font(VantryDesign::title));
    EXPECT_EQ(shown.pixelSize(), 24);
    EXPECT_EQ(shown.weight(), QFont::DemiBold);
}

TEST(PageHeading, ALongTitleStaysWithinItsLines) {
    QWidget window;
    auto* heading = new PageHeading({2, 1});
    heading->setTexts(QStringLiteral("Eyebrow"), endless, endless);
    show(window, heading, 430);
    EXPECT_LT(heading->height(), 140);
    int cut = 0;
    for (auto* label : heading->findChildren<Label*>())
        if (!helpOver(*label).isEmpty()) {
            ++cut;
            EXPECT_TRUE(helpOver(*label).contains(endless.toHtmlEscaped()));
        }
    EXPECT_EQ(cut, 2) << "the whole of title and subtitle as hover help";
}

TEST(PageHeading, HasItsHeightsWithAndWithoutASubtitle) {
    for (const bool withSubtitle : {true, false}) {
        QWidget window;
        auto* heading = new PageHeading({1, 1});
        heading->setTexts(QStringLiteral("Production desk"), tricky,
                          withSubtitle ? QStringLiteral("Director · Mei") : QString());
        show(window, heading, 600);
        EXPECT_EQ(heading->height(), withSubtitle ? 72 : 50) << "16, 32 and 20 with 2 between them";
        EXPECT_EQ(heading->findChildren<Label*>()[1]->text(), tricky);
        EXPECT_EQ(nameOf(*heading->findChildren<Label*>()[1]), tricky);
    }
}

TEST(WorkspaceHeading, StaysUnder240AtEveryWidth) {
    for (const int width : {430, 640, 1100}) {
        QWidget window;
        auto* heading = new WorkspaceHeading(2);
        heading->setTexts(QStringLiteral("Section"), endless,
                          QStringLiteral("line\n").repeated(20) + endless);
        auto* action = new Button(Button::Kind::primary, Glyph::plus);
        action->setPlain(QStringLiteral("New project"));
        heading->actions().addWidget(action);
        show(window, heading, width);
        EXPECT_LT(heading->height(), 240) << width;
        EXPECT_EQ(action->width(), action->sizeHint().width()) << width;
        EXPECT_EQ(action->mapTo(heading, QPoint(action->width(), 0)).x(), width) << "on the right edge";
        EXPECT_EQ(action->mapTo(heading, QPoint()).y(), Metrics::headingActionsDrop);
    }
}

TEST(StatusPill, HasACheckOnlyWhereItIsGood) {
    StatusPill pill(StatusKind::neutral);
    pill.setPlain(tricky);
    const int plain = pill.sizeHint().width();
    pill.setKind(StatusKind::warning);
    EXPECT_EQ(pill.sizeHint().width(), plain);
    pill.setKind(StatusKind::good);
    EXPECT_EQ(pill.sizeHint().width(), plain + 9 + 4);
    EXPECT_EQ(pill.font().pixelSize(), 11);
    EXPECT_EQ(pill.font().weight(), QFont::Medium);
    EXPECT_EQ(nameOf(pill), tricky);
    EXPECT_EQ(pill.textFormat(), Qt::PlainText);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&pill)->childCount(), 0) << "one text";
}

TEST(StatusPill, HasTheColourOfItsKind) {
    StatusPill pill(StatusKind::good);
    pill.setPlain(QStringLiteral("Saved"));
    pill.resize(pill.sizeHint());
    const Palette& palette = Palette::of(pill);
    const std::pair<StatusKind, QColor> kinds[] = {{StatusKind::neutral, palette.muted},
                                                   {StatusKind::good, palette.completed},
                                                   {StatusKind::warning, palette.warning}};
    for (const auto& [kind, colour] : kinds) {
        pill.setKind(kind);
        pill.resize(pill.sizeHint());
        const QImage image = pill.grab().toImage();
        int strongest = 0;
        QColor found;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) {
                const QColor here = image.pixelColor(x, y);
                const int strength = 255 - here.lightness();
                if (strength > strongest) {
                    strongest = strength;
                    found = here;
                }
            }
        EXPECT_NEAR(found.red(), colour.red(), 40);
        EXPECT_NEAR(found.green(), colour.green(), 40);
        EXPECT_NEAR(found.blue(), colour.blue(), 40);
    }
}

TEST(CompletionLine, SpeaksItsCountsAndFillsItsShare) {
    CompletionLine line;
    line.setDone(6, 21);
    EXPECT_EQ(nameOf(line), QStringLiteral("6 / 21"));
    EXPECT_EQ(line.sizeHint().height(), 3);
    const auto filled = [&line] {
        line.resize(210, 3);
        const QImage image = line.grab().toImage();
        const QColor done = Palette::of(line).completed;
        int count = 0;
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, image.height() / 2) == done ? 1 : 0;
        return count * 210.0 / image.width();
    };
    EXPECT_NEAR(filled(), 60, 3);
    line.setDone(0, 0);
    EXPECT_EQ(nameOf(line), QStringLiteral("0 / 0"));
    EXPECT_EQ(filled(), 0);
    line.setDone(21, 21);
    EXPECT_NEAR(filled(), 210, 3);
    line.setDone(0, 5);
    EXPECT_EQ(filled(), 0);
}

TEST(EmptyViewCard, KeepsItsTextsNarrowAndCentred) {
    QWidget window;
    auto* card = new EmptyViewCard(Glyph::folder);
    card->setTexts(tricky, endless.left(200));
    show(window, card, 1000);
    for (auto* label : card->findChildren<Label*>()) {
        EXPECT_LE(label->width(), 460);
        EXPECT_NEAR(label->mapTo(card, label->rect().center()).x(), card->rect().center().x(), 1);
        EXPECT_EQ(label->height(), label->heightForWidth(label->width())) << "nothing is clipped";
    }
    auto* title = card->findChildren<Label*>()[0];
    auto* subtitle = card->findChildren<Label*>()[1];
    EXPECT_EQ(title->mapTo(card, QPoint()).y(), 40 + 27 + 18);
    EXPECT_EQ(subtitle->mapTo(card, QPoint()).y(), title->mapTo(card, QPoint(0, title->height())).y() + 18);
    EXPECT_EQ(card->height(), subtitle->mapTo(card, QPoint(0, subtitle->height())).y() + 40);
}

TEST(Card, ShowsItsTitleOnlyWhenItHasOne) {
    QWidget window;
    auto* card = new Card;
    auto* inside = new QWidget;
    inside->setFixedHeight(50);
    card->content().addWidget(inside);
    show(window, card, 400);
    EXPECT_EQ(inside->geometry(), QRect(24, 24, 352, 50));
    EXPECT_EQ(card->height(), 98);
    card->setTitle(tricky);
    for (int turn = 0; turn < 3; ++turn)
        QApplication::processEvents();
    EXPECT_EQ(inside->y(), 24 + card->findChild<SectionLabel*>()->height() + 16);
    EXPECT_EQ(nameOf(*card->findChild<Label*>()), tricky);
}

TEST(SectionLabel, HasItsFactAtTheRightEdge) {
    QWidget window;
    auto* section = new SectionLabel;
    section->setTexts(tricky, QStringLiteral("3 of 4"));
    show(window, section, 400);
    auto* title = section->findChildren<Label*>()[0];
    auto* fact = section->findChildren<Label*>()[1];
    EXPECT_EQ(title->x(), 0);
    EXPECT_EQ(title->font().pixelSize(), 14);
    EXPECT_EQ(fact->geometry().right(), 399);
    EXPECT_EQ(fact->width(), fact->sizeHint().width());
    section->setTexts(tricky);
    EXPECT_FALSE(fact->isVisible());
}

TEST(WorkspaceMetrics, StandInTwoColumnsOrInOne) {
    QWidget window;
    auto* metrics = new WorkspaceMetrics({Glyph::folder, Glyph::camera, Glyph::checkCircle});
    metrics->tile(1).setTexts(QStringLiteral("20 / 54"), QStringLiteral("Complete"));
    show(window, metrics, 702);
    EXPECT_EQ(metrics->height(), 60 + 12 + 60);
    EXPECT_EQ(metrics->tile(1).y(), 0);
    EXPECT_EQ(metrics->tile(2).y(), 72);
    EXPECT_EQ(metrics->tile(1).findChildren<Label*>()[0]->text(), QStringLiteral("20 / 54"));
    window.resize(336, 600);
    for (int turn = 0; turn < 3; ++turn)
        QApplication::processEvents();
    EXPECT_EQ(metrics->height(), 3 * 60 + 2 * 12);
    EXPECT_EQ(metrics->tile(2).x(), 0);
}

TEST(FactRow, ShowsOnlyWhatItHasLetterByLetter) {
    QWidget window;
    auto* row = new FactRow(FactRow::Edge::card);
    FactRow::Content content;
    content.name = tricky;
    content.below = endless;
    row->setContent(content);
    show(window, row, 500);
    QStringList seen;
    for (auto* label : row->findChildren<Label*>())
        if (label->isVisible()) {
            seen.append(nameOf(*label));
            EXPECT_LE(label->mapTo(row, QPoint(label->width(), 0)).x(), 500 - Metrics::paddingCard);
            EXPECT_EQ(label->mapTo(row, QPoint()).x(), Metrics::paddingCard);
        }
    EXPECT_EQ(seen, (QStringList{tricky, endless}));
}

TEST(FactRow, HasItsSignBesideTheFirstTwoOfThreeLines) {
    QWidget window;
    auto* row = new FactRow(FactRow::Edge::text);
    FactRow::Content content;
    content.glyph = Glyph::document;
    content.name = QStringLiteral("Call Sheet");
    content.below = QStringLiteral("Sunday");
    show(window, row, 300);
    const auto middleOfSign = [&] {
        const QImage image = row->grab().toImage();
        const QColor plain = image.pixelColor(image.width() - 1, 0);
        int top = -1;
        int bottom = -1;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < Metrics::iconLarge; ++x)
                if (image.pixelColor(x, y) != plain) {
                    top = top < 0 ? y : top;
                    bottom = y;
                }
        return (top + bottom) / 2;
    };
    row->setContent(content);
    for (int turn = 0; turn < 3; ++turn)
        QApplication::processEvents();
    const int whole = row->height() / 2;
    EXPECT_NEAR(middleOfSign(), whole, 2);
    content.further = QStringLiteral("17:00");
    row->setContent(content);
    for (int turn = 0; turn < 3; ++turn)
        QApplication::processEvents();
    const int line = VantryType::lineHeight(VantryType::Role::label);
    const int nameAndBelow = VantryType::lineHeight(VantryType::Role::emphasis) + line;
    const int besideTwo = (row->height() - nameAndBelow - line) / 2 + nameAndBelow / 2;
    EXPECT_NEAR(middleOfSign(), besideTwo, 2);
}

TEST(FactRow, HasItsFactsMutedButForWhatItIsLookedAtFor) {
    QWidget window;
    auto* row = new FactRow(FactRow::Edge::text);
    FactRow::Content content;
    content.name = QStringLiteral("Crew & cast");
    content.below = QStringLiteral("18 crew · 9 cast");
    row->setContent(content);
    show(window, row, 300);
    const auto darkestOfFacts = [row] {
        for (auto* label : row->findChildren<Label*>())
            if (label->text() == QStringLiteral("18 crew · 9 cast"))
                return darkest(label->grab().toImage());
        return 0;
    };
    const Palette& palette = Palette::of(*row);
    EXPECT_NEAR(darkestOfFacts(), palette.muted.lightness(), 5);
    content.belowLeads = true;
    row->setContent(content);
    EXPECT_NEAR(darkestOfFacts(), palette.ink.lightness(), 5);
}

TEST(LinkCard, GrowsWithItsDetailAndSpeaksIt) {
    LinkCard card(Glyph::search);
    card.setTexts(tricky, endless);
    EXPECT_EQ(nameOf(card), tricky);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&card)->text(QAccessible::Description), endless);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&card)->role(), QAccessible::Button);
    EXPECT_GT(card.heightForWidth(300), card.heightForWidth(900));
}

TEST(PageColumn, HoldsItsContentCentredWithinThePageWidth) {
    QWidget page;
    PageColumn* body = crewPage(&page, PageColumn::Above::nothing);
    auto* part = new QWidget;
    part->setFixedHeight(3000);
    body->content().addWidget(part);
    page.show();
    for (const int width : {752, 1130, 1168, 1600, 2310}) {
        page.resize(width, 500);
        for (int turn = 0; turn < 3; ++turn)
            QApplication::processEvents();
        const QPoint place = part->mapTo(&page, QPoint());
        EXPECT_EQ(part->width(), std::min(width - 48, 1120)) << width;
        EXPECT_NEAR(place.x(), (width - part->width()) / 2.0, 7) << width;
        EXPECT_GE(place.x(), 24) << width;
        EXPECT_EQ(place.y(), 24);
    }
}

}  // namespace
}  // namespace vantry::test
