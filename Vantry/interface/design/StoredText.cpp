#include "Vantry/interface/design/StoredText.h"

#include <algorithm>
#include <cstring>

#include <QStringBuilder>
#include <QTextBoundaryFinder>

namespace vantry {
namespace {

constexpr QChar paragraphEnd = QChar::ParagraphSeparator;
constexpr QChar carriageReturn(u'\r');
constexpr QChar lineFeed(u'\n');

/// Whether cutting `text` in front of `at` would tear a surrogate pair.
bool insidePair(const QString& text, qsizetype at) {
    return at > 0 && at < text.size() && text[at - 1].isHighSurrogate() && text[at].isLowSurrogate();
}

/// So many characters are looked at in one go.
constexpr qsizetype span = 512;

bool equal(const QChar* a, const QChar* b, qsizetype count) {
    return std::memcmp(a, b, static_cast<std::size_t>(count) * sizeof(QChar)) == 0;
}

/// How many characters the texts that begin there have in common, of `limit`.
qsizetype commonStart(const QChar* a, const QChar* b, qsizetype limit) {
    qsizetype count = 0;
    while (limit - count >= span && equal(a + count, b + count, span))
        count += span;
    while (count < limit && a[count] == b[count])
        ++count;
    return count;
}

/// The same for the texts that end there.
qsizetype commonEnd(const QChar* a, const QChar* b, qsizetype limit) {
    qsizetype count = 0;
    while (limit - count >= span && equal(a - count - span, b - count - span, span))
        count += span;
    while (count < limit && *(a - count - 1) == *(b - count - 1))
        ++count;
    return count;
}

/// Where in `stored` the character stands that is at `place` in its paragraph form.
qsizetype storedPlace(const QString& stored, qsizetype place) {
    qsizetype at = place;
    for (qsizetype found = stored.indexOf(carriageReturn); found >= 0 && found < at;
         found = stored.indexOf(carriageReturn, found + 1))
        if (found + 1 < stored.size() && stored[found + 1] == lineFeed)
            ++at;
    return at;
}

}  // namespace

QString paragraphForm(const QString& stored) {
    QString form = stored;
    if (form.contains(carriageReturn)) {
        form.replace(QStringLiteral("\r\n"), QString(paragraphEnd));
        form.replace(carriageReturn, paragraphEnd);
    }
    for (const QChar end : {lineFeed, QChar(0xFDD0), QChar(0xFDD1)})
        form.replace(end, paragraphEnd);
    return form;
}

Stretch changedStretch(const QString& before, const QString& after) {
    const qsizetype shorter = std::min(before.size(), after.size());
    qsizetype head = commonStart(before.constData(), after.constData(), shorter);
    while (insidePair(before, head) || insidePair(after, head))
        --head;
    qsizetype tail = commonEnd(before.constEnd(), after.constEnd(), shorter - head);
    while (insidePair(before, before.size() - tail) || insidePair(after, after.size() - tail))
        --tail;
    return {head, before.size() - tail - head, after.mid(head, after.size() - tail - head)};
}

QString storedWithEdit(const QString& stored, const Stretch& change) {
    QString inserted = change.inserted;
    inserted.replace(paragraphEnd, lineFeed);
    const qsizetype start = storedPlace(stored, change.at);
    const qsizetype end = storedPlace(stored, change.at + change.removed);
    const QChar behind = !inserted.isEmpty() ? inserted.front() : end < stored.size() ? stored[end] : QChar();
    // A CR that comes to stand in front of an LF would become one paragraph end with it: it takes an LF of
    // its own.
    if (start > 0 && stored[start - 1] == carriageReturn && behind == lineFeed)
        inserted.prepend(lineFeed);
    return QStringView(stored).left(start) % inserted % QStringView(stored).mid(end);
}

QString storedWithEdit(const QString& stored, const QString& shown) {
    const QString form = paragraphForm(stored);
    return form == shown ? stored : storedWithEdit(stored, changedStretch(form, shown));
}

QString mergedEdit(const QString& base, const QString& mine, const QString& theirs) {
    if (theirs == base)
        return mine;
    const Stretch own = changedStretch(base, mine);
    const Stretch other = changedStretch(base, theirs);
    QString merged = theirs;
    if (own.at + own.removed <= other.at && own.at < other.at) {
        merged.replace(own.at, own.removed, own.inserted);
        return merged;
    }
    const qsizetype grown = other.inserted.size() - other.removed;
    if (own.at >= other.at + other.removed) {
        merged.replace(own.at + grown, own.removed, own.inserted);
        return merged;
    }
    merged.insert(other.at + other.inserted.size(), own.inserted);
    return merged;
}

qsizetype clusterStart(const QString& text, qsizetype at) {
    if (at <= 0 || at >= text.size())
        return at;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    finder.setPosition(at);
    return finder.isAtBoundary() ? at : finder.toPreviousBoundary();
}

}  // namespace vantry
