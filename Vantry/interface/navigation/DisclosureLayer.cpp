#include "Vantry/interface/navigation/DisclosureLayer.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include <QPainter>

#include "Vantry/interface/design/VantryMotion.h"

namespace vantry {

DisclosureLayer::DisclosureLayer(QWidget& viewport, Palette::Token colour)
    : QWidget(&viewport)
    , ground(colour)
    , motion(viewport, VantryMotion::disclosure(), 1, [this] {
        update();
        if (motion.value() == motion.target() && motion.target() == 1)
            finish();
    }) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_OpaquePaintEvent);
    hide();
}

void DisclosureLayer::begin() {
    finish();
    before = vantryReduceMotion() || !parentWidget()->isVisible() ? QPixmap() : parentWidget()->grab();
}

void DisclosureLayer::fade() {
    height = 0;
    run(parentWidget()->rect());
}

void DisclosureLayer::slide(int top, int rows) {
    const QRect below = parentWidget()->rect().adjusted(0, std::max(top, 0), 0, 0);
    height = std::clamp(rows, -below.height(), below.height());
    if (below.isEmpty() || height == 0)
        before = QPixmap();
    run(below);
}

void DisclosureLayer::run(const QRect& place) {
    if (before.isNull())
        return;
    after = parentWidget()->grab();
    setGeometry(place);
    raise();
    show();
    motion.settle(0);
    motion.setTarget(1);
}

void DisclosureLayer::interrupt() {
    if (!isHidden())
        finish();
}

void DisclosureLayer::finish() {
    motion.settle(1);
    hide();
    before = QPixmap();
    after = QPixmap();
}

void DisclosureLayer::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Palette::of(*this).*ground);
    const double done = motion.value();
    const auto draw = [&](const QPixmap& picture, int from, int to, int size) {
        const QRect source(0, y() + from, width(), size);
        painter.setClipRect(QRect(0, to, width(), size));
        painter.drawPixmap(-source.left(), to - source.top(), picture);
    };
    if (height == 0) {
        painter.setOpacity(1 - done);
        draw(before, 0, 0, this->QWidget::height());
        painter.setOpacity(done);
        draw(after, 0, 0, this->QWidget::height());
        return;
    }
    // The one picture has the rows that come or go, the other what moves below them.
    const bool opens = height > 0;
    const int shown = static_cast<int>(std::lround(std::abs(height) * (opens ? done : 1 - done)));
    draw(opens ? after : before, 0, 0, shown);
    draw(opens ? before : after, 0, shown, this->QWidget::height() - shown);
}

}  // namespace vantry
