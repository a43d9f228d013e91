#include "Vantry/interface/design/CompletionLine.h"

#include <algorithm>

#include <QPainter>

#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/Palette.h"
#include "Vantry/interface/design/VantryMotion.h"

namespace vantry {

CompletionLine::CompletionLine(QWidget* parent)
    : QProgressBar(parent)
    , share(*this, VantryMotion::selection()) {
    setTextVisible(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void CompletionLine::setDone(int done, int total) {
    setRange(0, std::max(total, 1));
    setValue(std::clamp(done, 0, maximum()));
    setAccessibleName(QStringLiteral("%1 / %2").arg(done).arg(total));
    const double part = total > 0 ? static_cast<double>(value()) / maximum() : 0;
    // It does not grow from nothing when it appears.
    if (hasShown)
        share.setTarget(part);
    else
        share.settle(part);
    hasShown = true;
}

QSize CompletionLine::sizeHint() const {
    return {Metrics::sideWidth, Metrics::completionHeight};
}

QSize CompletionLine::minimumSizeHint() const {
    return {Metrics::completionHeight, Metrics::completionHeight};
}

void CompletionLine::paintEvent(QPaintEvent*) {
    const Palette& palette = Palette::of(*this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const qreal radius = height() / 2.0;
    painter.setBrush(palette.rule);
    painter.drawRoundedRect(rect(), radius, radius);
    const double part = share.value();
    if (part <= 0)
        return;
    painter.setBrush(palette.completed);
    painter.drawRoundedRect(QRectF(0, 0, std::max(part * width(), 2 * radius), height()), radius, radius);
}

}  // namespace vantry
