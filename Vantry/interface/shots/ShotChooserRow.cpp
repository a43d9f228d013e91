#include "Vantry/interface/shots/ShotChooserRow.h"

#include "Vantry/interface/design/CellPainting.h"
#include "Vantry/interface/design/ControlStates.h"
#include "Vantry/interface/design/ControlText.h"
#include "Vantry/interface/pages/JoinedFacts.h"

namespace vantry {

ShotChooserRow::ShotChooserRow(QWidget* parent)
    : PressableSurface(Shape::denseRow, parent) {}

void ShotChooserRow::setContent(const Content& wanted) {
    if (content == wanted)
        return;
    content = wanted;
    setPlain(content.name);
    setHelp(*this, content.name);
    setAccessibleDescription(joinedFacts({content.act, content.state}));
    states().setSelected(content.current);
    update();
}

void ShotChooserRow::paintContent(QPainter& painter) const {
    using Role = VantryType::Role;
    const Palette& palette = Palette::of(*this);
    const int actHeight = VantryType::lineHeight(Role::caption);
    const int nameHeight = VantryType::lineHeight(Role::emphasis);
    const QFont caption = VantryType::font(Role::caption);
    int right = width() - Metrics::gapBlock;
    if (content.current) {
        right -= Metrics::icon;
        paintSign(painter, {right, 0, Metrics::icon, height()}, Glyph::check, Metrics::icon, palette.ink);
    }
    if (!content.state.isEmpty()) {
        const int stateWidth = lineWidth(caption, content.state);
        right -= stateWidth + (content.current ? Metrics::gapField : 0);
        paintLine(painter, {right, (height() - actHeight) / 2, stateWidth, actHeight}, caption, palette.muted,
                  content.state);
    }
    QRect place(Metrics::gapBlock, (height() - actHeight - nameHeight) / 2,
                right - Metrics::gapField - Metrics::gapBlock, actHeight);
    paintLine(painter, place, caption, palette.muted, content.act);
    place = {place.left(), place.top() + actHeight, place.width(), nameHeight};
    paintLine(painter, place, VantryType::font(Role::emphasis), palette.ink, content.name);
}

}  // namespace vantry
