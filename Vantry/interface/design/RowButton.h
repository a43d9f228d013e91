#pragma once

#include <QAction>
#include <QMenu>

#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/PressableSurface.h"

namespace vantry {

/// What a row shows.
struct RowContent {
    Glyph glyph = Glyph::none;
    QString title;
    QString detail;          ///< a line of facts below, also the accessible description
    bool struckOut = false;  ///< what the row stands for is off

    friend bool operator==(const RowContent&, const RowContent&) = default;
};

/// One row of a list: a sign, a name, a line of facts; pressing it leads to what it stands for.
class RowButton final : public PressableSurface {
    Q_OBJECT

public:
    explicit RowButton(QWidget* parent = nullptr);

    void setContent(const RowContent& content);
    /// Marks it as the chosen one of its list.
    void setSelected(bool selected);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintContent(QPainter& painter) const override;

private:
    RowContent content;
};

/// Opens the menu of the row that it stands in.
class RowMenuButton final : public Pressable {
    Q_OBJECT

public:
    explicit RowMenuButton(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// An entry of a menu that takes something away: it is shown in the colour of danger.
class DestructiveAction final : public QAction {
    Q_OBJECT

public:
    using QAction::QAction;
};

/// The menu of a row. The key that opened it may still be held: its repetitions choose nothing.
class RowMenu final : public QMenu {
    Q_OBJECT

public:
    using QMenu::QMenu;

    /// What takes something away, with `title` as it is: the last entry, behind a line.
    QAction* addDestructive(const QString& title);

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace vantry
