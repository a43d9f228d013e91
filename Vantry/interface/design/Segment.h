#pragma once

#include <QRadioButton>

#include "Vantry/interface/design/FamilyNavigationDot.h"
#include "Vantry/interface/design/Glyph.h"
#include "Vantry/interface/design/Palette.h"

namespace vantry {

class ControlStates;

/// One of the choices of a strip.
class Segment final : public QRadioButton {
    Q_OBJECT

public:
    /// How the segment looks when it is the chosen one: without a colour of its own it is the lightest place
    /// of the strip.
    struct Look {
        Glyph glyph = Glyph::none;
        Palette::Token fill = nullptr;     ///< solid, with text in the canvas colour
        Palette::Token outline = nullptr;  ///< hollow
    };
    /// What kind of strip it belongs to.
    enum class Kind { regular, large, tab };

    Segment(const Look& look, Kind kind, QWidget* parent);

    void setPlain(const QString& plain);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    [[nodiscard]] bool hitButton(const QPoint& position) const override { return rect().contains(position); }
    void checkStateSet() override;
    void nextCheckState() override;

private:
    [[nodiscard]] QFont textFont() const;
    [[nodiscard]] int iconSize() const;
    void followChoice();
    void paintSurface(QPainter& painter, qreal hovered, qreal selected) const;
    void paintContent(QPainter& painter, const QColor& colour) const;

    const Look look;
    const Kind kind;
    QString shown;
    ControlStates* states;
    FamilyNavigationDot dot;
};

}  // namespace vantry
