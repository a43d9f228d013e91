#pragma once

#include <QString>

namespace vantry {

// How a text that is stored and a field that shows it stay one text. All functions are pure; none cuts a
// surrogate pair in two, and all but `clusterStart` take a long text at the speed at which it is copied.

/// `stored` as a document of paragraphs shows it: each CR LF, CR, LF and each of the noncharacters U+FDD0 and
/// U+FDD1 is one paragraph end U+2029, everything else is itself.
[[nodiscard]] QString paragraphForm(const QString& stored);

/// One stretch that makes one text of another: `removed` characters at `at` give way to `inserted`.
struct Stretch {
    qsizetype at = 0;
    qsizetype removed = 0;
    QString inserted;
};

/// The smallest stretch that makes `after` of `before`, by common beginning and common end.
[[nodiscard]] Stretch changedStretch(const QString& before, const QString& after);

/// `stored` after that change of its paragraph form: what lies outside of the stretch keeps its line ends.
/// New paragraph ends are LF.
[[nodiscard]] QString storedWithEdit(const QString& stored, const Stretch& change);

/// The text nearest to `stored` whose paragraph form is `shown`. With `shown` the paragraph form of `stored`
/// it is `stored`.
[[nodiscard]] QString storedWithEdit(const QString& stored, const QString& shown);

/// What `theirs` becomes when the change from `base` to `mine` is made in it. Where both changed the same
/// stretch nothing that was written on either side is lost: `theirs` stands, with the new text behind it.
[[nodiscard]] QString mergedEdit(const QString& base, const QString& mine, const QString& theirs);

/// Where the character that a person sees (the grapheme cluster of UAX #29) begins to which the place `at` in
/// `text` belongs: `at` itself unless it is inside of one.
[[nodiscard]] qsizetype clusterStart(const QString& text, qsizetype at);

}  // namespace vantry
