#include "Vantry/interface/design/StoredText.h"

#include <algorithm>
#include <vector>

namespace vantry {
namespace {

constexpr QChar paragraphEnd = QChar::ParagraphSeparator;
constexpr QChar carriageReturn(u'\r');
constexpr QChar lineFeed(u'\n');

/// Whether cutting `text` in front of `at` would tear a surrogate pair.
bool insidePair(const QString& text, qsizetype at) {
    return at > 0 && at < text.size() && text[at - 1].isHighSurrogate() && text[at].isLowSurrogate();
}

bool endsParagraph(QChar character) {
    return character == carriageReturn || character == lineFeed || character == paragraphEnd ||
           character == QChar(0xFDD0) || character == QChar(0xFDD1);
}

/// The places in `stored` at which the characters of its paragraph form begin, and its end.
struct Form {
    QString shown;
    std::vector<qsizetype> starts;
};

Form formOf(const QString& stored) {
    Form form;
    form.shown.reserve(stored.size());
    form.starts.reserve(static_cast<std::size_t>(stored.size()) + 1);
    for (qsizetype at = 0; at < stored.size(); ++at) {
        form.starts.push_back(at);
        if (stored[at] == carriageReturn && at + 1 < stored.size() && stored[at + 1] == lineFeed)
            ++at;
        form.shown.append(endsParagraph(stored[at]) ? paragraphEnd : stored[at]);
    }
    form.starts.push_back(stored.size());
    return form;
}

}  // namespace

QString paragraphForm(const QString& stored) {
    return formOf(stored).shown;
}

Stretch changedStretch(const QString& before, const QString& after) {
    const qsizetype shorter = std::min(before.size(), after.size());
    qsizetype head = 0;
    while (head < shorter && before[head] == after[head])
        ++head;
    while (insidePair(before, head) || insidePair(after, head))
        --head;
    qsizetype tail = 0;
    while (tail < shorter - head && before[before.size() - 1 - tail] == after[after.size() - 1 - tail])
        ++tail;
    while (insidePair(before, before.size() - tail) || insidePair(after, after.size() - tail))
        --tail;
    return {head, before.size() - tail - head, after.mid(head, after.size() - tail - head)};
}

QString storedWithEdit(const QString& stored, const QString& shown) {
    const Form form = formOf(stored);
    if (form.shown == shown)
        return stored;
    Stretch stretch = changedStretch(form.shown, shown);
    stretch.inserted.replace(paragraphEnd, lineFeed);
    const auto start = [&form](qsizetype at) { return form.starts[static_cast<std::size_t>(at)]; };
    QString head = stored.left(start(stretch.at));
    const QString rest = stretch.inserted + stored.mid(start(stretch.at + stretch.removed));
    // A CR that comes to stand in front of an LF would become one paragraph end with it: it takes an LF of
    // its own.
    if (head.endsWith(carriageReturn) && rest.startsWith(lineFeed))
        head.append(lineFeed);
    return head + rest;
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

}  // namespace vantry
