#include "Vantry/interface/design/StarRating.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QPainter>

#include "Vantry/interface/design/Accessibility.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/Palette.h"

namespace vantry {

StarButton::StarButton(QWidget* parent)
    : Pressable(parent) {
    setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Fixed);
}

void StarButton::setLit(bool nowLit) {
    if (lit == nowLit)
        return;
    lit = nowLit;
    update();
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
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (isHovered() || isDown()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(isDown() ? palette.selected : palette.hover);
        painter.drawRoundedRect(rect(), Metrics::radiusControl, Metrics::radiusControl);
    }
    const QRectF place((width() - Metrics::iconStar) / 2.0, (height() - Metrics::iconStar) / 2.0,
                       Metrics::iconStar, Metrics::iconStar);
    paintGlyph(painter, Glyph::star, place, lit ? palette.ink : palette.muted, lit);
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
    painter.setRenderHint(QPainter::Antialiasing);
    constexpr qreal half = Metrics::hairline / 2.0;
    painter.setPen(QPen(palette.rule, Metrics::hairline));
    painter.setBrush(palette.navigation);
    painter.drawRoundedRect(QRectF(rect()).adjusted(half, half, -half, -half), Metrics::radiusTrack,
                            Metrics::radiusTrack);
}

}  // namespace vantry
