#pragma once

#include "Vantry/interface/design/Glyph.h"
#include "Vantry/interface/design/Pressable.h"

namespace vantry {

/// A card that leads somewhere: a sign, a title, and what is to be found there.
class LinkCard final : public Pressable {
    Q_OBJECT

public:
    explicit LinkCard(Glyph glyph, QWidget* parent = nullptr);

    void setTexts(const QString& title, const QString& detail);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Glyph glyph;
    QString detail;
};

/// Paints the card of a control that is pressed as a whole.
void paintPressedCard(QPainter& painter, const QRect& place, const Palette& palette,
                      const ControlState& state);

}  // namespace vantry
