#pragma once

#include "Vantry/interface/design/Glyph.h"
#include "Vantry/interface/design/PressableSurface.h"

namespace vantry {

/// A card that leads somewhere: a sign, a title, and what is to be found there.
class LinkCard final : public PressableSurface {
    Q_OBJECT

public:
    explicit LinkCard(Glyph glyph, QWidget* parent = nullptr);

    void setTexts(const QString& title, const QString& detail);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    void paintContent(QPainter& painter) const override;

private:
    const Glyph glyph;
    QString detail;
};

}  // namespace vantry
