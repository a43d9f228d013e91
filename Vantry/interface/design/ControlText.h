#pragma once

#include <QString>

class QWidget;

namespace vantry {

/// `plain` for a button, an action, a tab or a menu, where a single "&" would mark a key: each is doubled.
[[nodiscard]] QString controlText(const QString& plain);

/// `plain` on one line: each line end becomes a blank.
[[nodiscard]] QString singleLine(const QString& plain);

/// `plain` as the text of hover help: shown letter by letter even where it looks like markup.
[[nodiscard]] QString asHelp(const QString& plain);

/// Shows `plain` as hover help and, where it says more than the widget's name, gives it to assistive tools as
/// the description: set the name first. The empty text shows none.
void setHelp(QWidget& widget, const QString& plain);

}  // namespace vantry
