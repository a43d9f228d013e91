#pragma once

#include "Vantry/interface/design/Pressable.h"
#include "Vantry/interface/design/WorkspaceMetric.h"
#include "tests/interface/window/WindowFixture.h"

namespace vantry::test {

/// What the tests of the home page and of a production's desk read from the page on screen.
class DeskTest : public WindowTest {
protected:
    [[nodiscard]] static QString spoken(QWidget& widget, QAccessible::Text kind) {
        return QAccessible::queryAccessibleInterface(&widget)->text(kind);
    }
    void expectShown(const QStringList& texts) const {
        for (const QString& text : texts)
            EXPECT_NE(find<Label>(page(), text), nullptr) << text.toStdString();
    }
    /// What is told of the row or card of that name.
    [[nodiscard]] QString detailOf(const QString& name) const {
        return spoken(get<Pressable>(name, &page()), QAccessible::Description);
    }
    /// The numbers of the tiles.
    [[nodiscard]] QStringList metrics() const {
        QStringList numbers;
        for (auto* tile : page().findChildren<WorkspaceMetric*>())
            numbers.append(tile->findChild<Label*>()->text());
        return numbers;
    }
};

}  // namespace vantry::test
