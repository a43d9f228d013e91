#include "Vantry/interface/design/StarRating.h"

#include <utility>

#include <QAccessible>
#include <QHBoxLayout>
#include <QPainter>

#include "Vantry/interface/design/Accessibility.h"
#include "Vantry/interface/design/ControlStates.h"
#include "Vantry/interface/design/Surface.h"
#include "Vantry/interface/design/VantryMotion.h"

namespace vantry {

StarButton::StarButton(QWidget* parent)
    : Pressable(VantryMotion::selection(), parent) {
    setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Fixed);
}

void StarButton::setLit(bool nowLit) {
    if (lit == nowLit)
        return;
    lit = nowLit;
    states().setSelected(lit);
    QAccessibleEvent event(this, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&event);
}

void StarButton::setTexts(const QString& name, const QString& whenLit, const QString& whenUnlit) {
    setPlain(name);
    litText = whenLit;
    unlitText = whenUnlit;
}

QSize StarButton::sizeHint() const {
    return {Metrics::starWidth, Metrics::resultHeight - 2 * Metrics::gapTrack};
}

void StarButton::paintEvent(QPaintEvent*) {
    const Palette& palette = Palette::of(*this);
    ControlState now = state();
    const qreal light = std::exchange(now.selected, 0);
    const ControlLook look = VantryRowButtonStyle::look(palette, now);
    paintPressed(look, [&](QPainter& painter) {
        paintShape(painter, rect(), look, Metrics::radiusControl);
        const QRectF place((width() - Metrics::iconStar) / 2.0,
                           (height() - Metrics::iconStar) / 2.0 + Metrics::starDrop, Metrics::iconStar,
                           Metrics::iconStar);
        const auto star = [&](qreal share, bool filled) {
            painter.setOpacity(share);
            paintGlyph(painter, Glyph::star, place, filled ? palette.ink : palette.muted, filled);
        };
        // The full one lies over the empty one, so that nothing thins out on the way.
        if (light < 1)
            star(1, false);
        if (light > 0)
            star(light, true);
        painter.setOpacity(1);
    });
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (showsFocus())
        paintFocus(painter, rect(), Metrics::radiusControl);
}

StarRating::StarRating(QWidget* parent)
    : QWidget(parent) {
    installAccessibility();
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(Metrics::gapTrack, Metrics::gapTrack, Metrics::gapTrack, Metrics::gapTrack);
    row->setSpacing(Metrics::gapTrack);
    for (int number = 1; number <= count; ++number) {
        auto* button = new StarButton(this);
        connect(button, &StarButton::clicked, this, [this, number] { emit pressed(number); });
        row->addWidget(button);
        stars[static_cast<std::size_t>(number - 1)] = button;
    }
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void StarRating::setStars(int lit) {
    for (int number = 1; number <= count; ++number)
        star(number).setLit(number <= lit);
}

void StarRating::paintEvent(QPaintEvent*) {
    const Palette& palette = Palette::of(*this);
    QPainter painter(this);
    paintSurface(painter, rect(),
                 {palette.navigation, palette.rule, Metrics::hairline, Metrics::radiusTrack});
}

}  // namespace vantry
