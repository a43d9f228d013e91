#include "Vantry/interface/design/StoredText.h"

#include <random>

#include <QTextCursor>
#include <QTextDocument>

#include "tests/interface/design/ParagraphFixture.h"

namespace vantry::test {
namespace {

#define EXPECT_TEXT(actual, expected) EXPECT_EQ(codes(actual), codes(expected))

class RandomText {
public:
    explicit RandomText(unsigned seed)
        : generator(seed) {}

    int number(int below) { return static_cast<int>(generator() % static_cast<unsigned>(below)); }
    QString text(int longest) {
        static const QStringList parts{
            QStringLiteral("a"),    QStringLiteral("b"),    QStringLiteral("\r"),   QStringLiteral("\n"),
            QStringLiteral("\r\n"), QString(QChar(u'\0')),  QString(QChar(0x2028)), QString(QChar(0x2029)),
            QString(QChar(0xFDD0)), QString(QChar(0xFFFC)), QStringLiteral("🙂"), QStringLiteral("🙃"),
            QStringLiteral("中"),   QString(QChar(0xA0)),   QStringLiteral("\t"),   QString(QChar(0xFEFF))};
        QString text;
        for (int count = number(longest + 1); count > 0; --count)
            text += parts[number(static_cast<int>(parts.size()))];
        return text;
    }
    /// `text` with one stretch replaced, as typing does; no surrogate pair is cut.
    QString edited(const QString& text) {
        const auto boundary = [&](int at) {
            return at > 0 && at < text.size() && text[at].isLowSurrogate() ? at - 1 : at;
        };
        const int from = boundary(number(static_cast<int>(text.size()) + 1));
        const int to = std::max(from, boundary(from + number(static_cast<int>(text.size()) - from + 1)));
        return text.left(from) + paragraphForm(this->text(3)) + text.mid(to);
    }

private:
    std::mt19937 generator;
};

TEST(StoredTextTest, TheParagraphFormIsWhatADocumentHolds) {
    RandomText random(1);
    for (int round = 0; round < 500; ++round) {
        const QString stored = random.text(12);
        QTextDocument document;
        QTextCursor(&document).insertText(stored);
        EXPECT_TEXT(document.toRawText(), paragraphForm(stored)) << codes(stored);
    }
}

TEST(StoredTextTest, AnUntouchedTextStaysAsItIsStored) {
    RandomText random(2);
    for (int round = 0; round < 500; ++round) {
        const QString stored = random.text(12);
        EXPECT_TEXT(storedWithEdit(stored, paragraphForm(stored)), stored);
    }
}

TEST(StoredTextTest, WhatIsStoredAfterAnEditIsShownAsItWasWritten) {
    RandomText random(3);
    for (int round = 0; round < 3000; ++round) {
        const QString stored = random.text(10);
        const QString shown = random.edited(paragraphForm(stored));
        EXPECT_TEXT(paragraphForm(storedWithEdit(stored, shown)), shown) << codes(stored);
    }
}

TEST(StoredTextTest, LineEndsOutsideTheEditStay) {
    const QString stored = QStringLiteral("one\r\ntwo\rthree\u2028four\u2029five\nsix");
    QString shown = paragraphForm(stored);
    shown.insert(shown.indexOf(QStringLiteral("three")) + 5, QStringLiteral("!"));
    EXPECT_TEXT(storedWithEdit(stored, shown), QStringLiteral("one\r\ntwo\rthree!\u2028four\u2029five\nsix"));
}

TEST(StoredTextTest, ANewParagraphBehindALoneCarriageReturnStaysOne) {
    EXPECT_TEXT(storedWithEdit(QStringLiteral("a\rb"), QStringLiteral("a\u2029\u2029b")),
                QStringLiteral("a\r\n\nb"));
    EXPECT_TEXT(storedWithEdit(QStringLiteral("a\rX\nb"), QStringLiteral("a\u2029\u2029b")),
                QStringLiteral("a\r\n\nb"));
}

TEST(StoredTextTest, AChangedStretchNeverCutsASurrogatePair) {
    const Stretch stretch = changedStretch(QStringLiteral("a🙂b"), QStringLiteral("a🙃b"));
    EXPECT_EQ(stretch.at, 1);
    EXPECT_EQ(stretch.removed, 2);
    EXPECT_TEXT(stretch.inserted, QStringLiteral("🙃"));
    RandomText random(4);
    for (int round = 0; round < 2000; ++round) {
        const QString before = random.text(8);
        const QString after = random.text(8);
        const Stretch change = changedStretch(before, after);
        QString made = before;
        made.replace(change.at, change.removed, change.inserted);
        EXPECT_TEXT(made, after);
        EXPECT_TRUE(change.inserted.isValidUtf16()) << codes(before) << "| " << codes(after);
    }
}

TEST(StoredTextTest, ChangesOfBothSidesMeetInOneText) {
    const auto merged = [](const char* base, const char* mine, const char* theirs) {
        return mergedEdit(QString::fromUtf8(base), QString::fromUtf8(mine), QString::fromUtf8(theirs))
            .toStdString();
    };
    EXPECT_EQ(merged("one two three", "ONE two three", "one two THREE"), "ONE two THREE");
    EXPECT_EQ(merged("one two three", "one two THREE", "ONE two three"), "ONE two THREE");
    EXPECT_EQ(merged("one", "one more", "one"), "one more");
    EXPECT_EQ(merged("one", "one", "two"), "two");
    EXPECT_EQ(merged("", "mine", "theirs"), "theirsmine") << "nothing that was written is lost";
    EXPECT_EQ(merged("word", "wide", "wired"), "wireided") << "nothing that was written is lost";
}

TEST(StoredTextTest, ALongTextIsEditedWhereItWasChanged) {
    QStringList lines;
    for (int line = 0; line < 2000; ++line)
        lines.append(QStringLiteral("line %1").arg(line));
    const QString stored = lines.join(QStringLiteral("\r\n"));
    for (const int line : {0, 1, 50, 51, 52, 1000, 1999}) {
        QStringList changed = lines;
        changed[line] += QStringLiteral(" 🙂");
        EXPECT_TEXT(storedWithEdit(stored, changed.join(QChar(0x2029))), changed.join(QStringLiteral("\r\n")))
            << line;
    }
}

TEST(StoredTextTest, AClusterBeginsWhereAPersonSeesItBegin) {
    const QString text = QStringLiteral("a🇨🇳👩‍👩‍👧e\u0301\u2029b");
    const QList<qsizetype> starts{0, 1, 5, 13, 15, 16, 17};
    for (qsizetype at = 0; at <= text.size(); ++at) {
        const auto next = std::upper_bound(starts.begin(), starts.end(), at);
        EXPECT_EQ(clusterStart(text, at), *std::prev(next)) << at;
    }
}

}  // namespace
}  // namespace vantry::test
