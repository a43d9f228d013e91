#include "Vantry/interface/design/SegmentedChoice.h"

#include <algorithm>

#include <QFocusEvent>
#include <QHBoxLayout>
#include <QPainter>

#include "Vantry/interface/design/Accessibility.h"
#include "Vantry/interface/design/ControlText.h"
#include "Vantry/interface/design/KeyboardFocus.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/VantryType.h"

namespace vantry {

Segment::Segment(const Look& appearance, QSize smallest, QWidget* parent)
    : QRadioButton(parent)
    , look(appearance)
    , least(smallest) {
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Fixed);
}

void Segment::setPlain(const QString& plain) {
    if (shown == plain)
        return;
    shown = plain;
    setText(controlText(plain));
    setAccessibleName(plain);
    updateGeometry();
    update();
}

QFont Segment::textFont() const {
    const bool large = least.height() > Metrics::controlHeight;
    const QFont::Weight weight = isChecked() || large ? QFont::DemiBold : QFont::Medium;
    return VantryType::font(large ? VantryType::Role::emphasis : VantryType::Role::label, weight);
}

QSize Segment::sizeHint() const {
    // Measured in the weight of the chosen one, so that nothing moves when the choice does.
    QFont widest = textFont();
    widest.setWeight(QFont::DemiBold);
    int width = QFontMetrics(widest).horizontalAdvance(shown) + 2 * Metrics::paddingField;
    if (look.glyph != Glyph::none)
        width += Metrics::iconLarge + Metrics::gapInline;
    return {std::max(width, least.width()), least.height()};
}

void Segment::focusInEvent(QFocusEvent* event) {
    cameByKeyboard = isKeyboardFocus(event->reason(), cameByKeyboard);
    QRadioButton::focusInEvent(event);
}

void Segment::paintSurface(QPainter& painter) const {
    const Palette& palette = Palette::of(*this);
    const auto shape = [this](qreal inset) { return QRectF(rect()).adjusted(inset, inset, -inset, -inset); };
    if (!isChecked()) {
        if (!underMouse())
            return;
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette.hover);
        painter.drawRoundedRect(rect(), Metrics::radiusControl, Metrics::radiusControl);
        return;
    }
    const qreal width = look.outline != nullptr ? Metrics::ring : Metrics::hairline;
    const QColor outline = look.outline != nullptr ? palette.*look.outline : palette.rule;
    painter.setPen(look.fill != nullptr ? QPen(Qt::NoPen) : QPen(outline, width));
    painter.setBrush(look.fill != nullptr ? palette.*look.fill : palette.card);
    painter.drawRoundedRect(shape(look.fill != nullptr ? 0 : width / 2), Metrics::radiusControl,
                            Metrics::radiusControl);
}

void Segment::paintEvent(QPaintEvent*) {
    const Palette& palette = Palette::of(*this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintSurface(painter);

    QColor colour = palette.muted;
    if (isChecked())
        colour = look.fill != nullptr      ? palette.canvas
                 : look.outline != nullptr ? palette.*look.outline
                                           : palette.ink;
    painter.setFont(textFont());
    const int textWidth = painter.fontMetrics().horizontalAdvance(shown);
    const int signWidth = look.glyph == Glyph::none ? 0 : Metrics::iconLarge + Metrics::gapInline;
    const qreal left = (width() - textWidth - signWidth) / 2.0;
    paintGlyph(painter, look.glyph,
               QRectF(left, (height() - Metrics::iconLarge) / 2.0, Metrics::iconLarge, Metrics::iconLarge),
               colour);
    painter.setPen(colour);
    painter.drawText(QRectF(left + signWidth, 0, textWidth + 1, height()), Qt::AlignLeft | Qt::AlignVCenter,
                     shown);

    if (hasFocus() && cameByKeyboard) {
        constexpr qreal half = Metrics::ring / 2.0;
        const bool solid = isChecked() && look.fill != nullptr;
        painter.setPen(QPen(solid ? palette.canvas : palette.link, Metrics::ring));
        painter.setBrush(Qt::NoBrush);
        const qreal inset = solid ? Metrics::ring + half : half;
        painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), Metrics::radiusControl,
                                Metrics::radiusControl);
    }
}

SegmentedChoice::SegmentedChoice(const QList<Segment::Look>& looks, Size size, QWidget* parent)
    : QWidget(parent) {
    installAccessibility();
    const int track = Metrics::gapTrack;
    const bool large = size == Size::large;
    const QSize least(large ? Metrics::resultWidth : 0,
                      (large ? Metrics::resultHeight : Metrics::controlHeight) - 2 * track);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(track, track, track, track);
    row->setSpacing(track);
    for (const Segment::Look& look : looks) {
        auto* segment = new Segment(look, least, this);
        const int index = static_cast<int>(segments.size());
        connect(segment, &Segment::clicked, this, [this, index] { emit chosen(index); });
        row->addWidget(segment);
        segments.append(segment);
    }
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void SegmentedChoice::setName(const QString& name) {
    setAccessibleName(name);
}

void SegmentedChoice::setTitles(const QStringList& titles) {
    for (qsizetype index = 0; index < segments.size() && index < titles.size(); ++index)
        segments[index]->setPlain(titles[index]);
}

void SegmentedChoice::setChosen(int index) {
    if (index >= 0 && index < segments.size() && !segments[index]->isChecked())
        segments[index]->setChecked(true);
}

void SegmentedChoice::paintEvent(QPaintEvent*) {
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
