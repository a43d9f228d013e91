#pragma once

#include "Vantry/interface/design/Glyph.h"
#include "Vantry/interface/design/Pressable.h"

namespace vantry {

/// A button with a text and, if wanted, a sign in front of it or behind it.
class Button : public Pressable {
    Q_OBJECT

public:
    /// Primary: the one main action of a page. Quiet: what is usual there. Destructive: a quiet one that
    /// takes something away. Inlined: links and second actions. Crumb: a small link that is cut where there
    /// is no room.
    enum class Kind { primary, quiet, destructive, inlined, crumb };

    explicit Button(Kind kind, Glyph glyph = Glyph::none, QWidget* parent = nullptr);

    /// A sign behind the text: where it leads, or that it opens something.
    void setTrailing(Glyph glyph);
    /// Shows its sign alone; the text stays its name and becomes its hover help.
    void setCompact(bool compact);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] ControlLook look() const;
    [[nodiscard]] int padding() const;
    void paintContent(QPainter& painter, const QColor& colour) const;

    const Kind kind;
    const Glyph glyph;
    Glyph trailing = Glyph::none;
    bool compact = false;
};

}  // namespace vantry
