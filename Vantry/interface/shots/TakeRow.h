#pragma once

#include "Vantry/interface/design/Glyph.h"
#include "Vantry/interface/design/Palette.h"
#include "Vantry/interface/design/PressableSurface.h"

namespace vantry {

class StatusPill;

/// One take of a shot: its number, verdict, stars and how its notes begin.
class TakeRow final : public PressableSurface {
    Q_OBJECT

public:
    struct Content {
        QString name;
        QString result;
        Glyph sign = Glyph::none;
        Palette::Token colour = &Palette::ink;  ///< of the verdict
        QString stars;
        QString notes;
        bool isHint = false;  ///< `notes` only says that there are none
        QString mark;         ///< of a retained version

        friend bool operator==(const Content&, const Content&) = default;
    };

    explicit TakeRow(QWidget* parent = nullptr);

    void setContent(const Content& content);

protected:
    void paintContent(QPainter& painter) const override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void arrange();

    Content content;
    StatusPill* pill;
};

}  // namespace vantry
