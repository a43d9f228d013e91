#pragma once

#include <QString>

namespace vantry {

// How a text that is stored and a field that shows it stay one text. All functions are pure; none cuts a
// surrogate pair in two.

/// `stored` as a document of paragraphs shows it: each CR LF, CR, LF and each of the noncharacters U+FDD0 and
/// U+FDD1 is one paragraph end U+2029, everything else is itself.
[[nodiscard]] QString paragraphForm(const QString& stored);

/// The text nearest to `stored` whose paragraph form is `shown`: what lies outside the changed stretch keeps
/// its line ends. New paragraph ends are LF. With `shown` the paragraph form of `stored` it is `stored`.
[[nodiscard]] QString storedWithEdit(const QString& stored, const QString& shown);

/// What `theirs` becomes when the change from `base` to `mine` is made in it. Where both changed the same
/// stretch nothing that was written on either side is lost: `theirs` stands, with the new text behind it.
[[nodiscard]] QString mergedEdit(const QString& base, const QString& mine, const QString& theirs);

/// One stretch that makes `after` of `before`: `removed` characters at `at` give way to `inserted`.
struct Stretch {
    qsizetype at = 0;
    qsizetype removed = 0;
    QString inserted;
};

/// The smallest such stretch, by common beginning and common end.
[[nodiscard]] Stretch changedStretch(const QString& before, const QString& after);

}  // namespace vantry
