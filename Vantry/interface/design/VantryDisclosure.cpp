#include "Vantry/interface/design/VantryDisclosure.h"

#include <algorithm>

#include <QAccessible>
#include <QPainter>
#include <QVBoxLayout>

#include "Vantry/interface/design/Accessibility.h"
#include "Vantry/interface/design/CellPainting.h"
#include "Vantry/interface/design/ControlText.h"
#include "Vantry/interface/design/Reveal.h"
#include "Vantry/interface/design/Surface.h"
#include "Vantry/interface/design/VantryMotion.h"
#include "Vantry/interface/design/VantryType.h"

namespace vantry {
namespace {

constexpr int titleHeight = Metrics::gapSection;
constexpr qreal halfTurn = 180;

QFont titleFont() {
    return VantryType::font(VantryType::Role::label, QFont::DemiBold);
}

}  // namespace

DisclosureHeader::DisclosureHeader(Glyph sign, QWidget* parent)
    : Pressable(VantryMotion::selection(), parent)
    , glyph(sign)
    , turn(*this, VantryMotion::disclosure()) {
    installAccessibility();
    setPressedOnce();
    setFont(titleFont());
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void DisclosureHeader::setTexts(const QString& title, const QString& behind, bool inEnglish) {
    setPlain(title);
    if (summary == behind && english == inEnglish)
        return;
    summary = behind;
    english = inEnglish;
    setAccessibleDescription(summary);
    update();
}

void DisclosureHeader::setExpanded(bool now) {
    if (expanded == now)
        return;
    expanded = now;
    turn.setTarget(expanded ? 1 : 0);
    QAccessible::State changed;
    changed.expanded = true;
    QAccessibleStateChangeEvent stateEvent(this, changed);
    QAccessible::updateAccessibility(&stateEvent);
    QAccessibleEvent textEvent(this, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&textEvent);
}

QString DisclosureHeader::value() const {
    if (english)
        return expanded ? QStringLiteral("Expanded") : QStringLiteral("Collapsed");
    return expanded ? QStringLiteral("已展开") : QStringLiteral("已收起");
}

QSize DisclosureHeader::sizeHint() const {
    const int texts =
        lineWidth(titleFont(), plain()) + lineWidth(VantryType::font(VantryType::Role::caption), summary);
    return {texts + 2 * (Metrics::paddingDisclosure + Metrics::disclosureIcon) + 3 * Metrics::gapDisclosure,
            titleHeight + 2 * Metrics::paddingDisclosure};
}

QSize DisclosureHeader::minimumSizeHint() const {
    return {Metrics::controlHeight * 2, sizeHint().height()};
}

void DisclosureHeader::paintEvent(QPaintEvent*) {
    const Palette& palette = Palette::of(*this);
    const ControlLook look = VantryRowButtonStyle::look(palette, state());
    constexpr qreal inset = Metrics::gapCaption;
    constexpr qreal radius = Metrics::radiusCard - inset;
    const QRectF surface = QRectF(rect()).adjusted(inset, inset, -inset, -inset);
    QPainter painter(this);
    paintAsOne(painter, rect(), look.opacity, 1, [&](QPainter& inside) {
        paintShape(inside, surface, look, radius);
        paintContent(inside);
    });
    painter.setRenderHint(QPainter::Antialiasing);
    if (showsFocus())
        paintFocus(painter, surface, radius);
}

void DisclosureHeader::paintContent(QPainter& painter) const {
    const Palette& palette = Palette::of(*this);
    constexpr int icon = Metrics::disclosureIcon;
    const qreal top = (height() - icon) / 2.0;
    int left = Metrics::paddingDisclosure;
    if (glyph != Glyph::none) {
        paintGlyph(painter, glyph, QRectF(left, top, icon, icon), palette.ink);
        left += icon + Metrics::gapDisclosure;
    }
    const QPointF middle(width() - Metrics::paddingDisclosure - icon / 2.0, height() / 2.0);
    painter.save();
    painter.translate(middle);
    painter.rotate(halfTurn * turn.value());
    paintGlyph(painter, Glyph::chevronDown, QRectF(-icon / 2.0, -icon / 2.0, icon, icon), palette.ink);
    painter.restore();

    const int right = width() - Metrics::paddingDisclosure - icon - Metrics::gapDisclosure;
    const auto line = [&](const QString& text, const QRect& place, Qt::Alignment alignment) {
        painter.drawText(place, static_cast<int>(alignment | Qt::AlignVCenter),
                         lineWithin(painter.font(), text, place.width()));
    };
    painter.setFont(titleFont());
    painter.setPen(palette.ink);
    const QString title = singleLine(plain());
    const int titleWidth = std::min(lineWidth(painter.font(), title), right - left);
    line(title, QRect(left, 0, titleWidth, height()), Qt::AlignLeft);
    const int from = left + titleWidth + Metrics::gapDisclosure;
    if (from >= right)
        return;
    painter.setFont(VantryType::font(VantryType::Role::caption));
    painter.setPen(palette.muted);
    // What opening it is for is seen once it is open.
    if (!expanded)
        line(singleLine(summary), QRect(from, 0, right - from, height()), Qt::AlignRight);
}

VantryDisclosure::VantryDisclosure(Glyph glyph, QWidget* parent)
    : QWidget(parent)
    , header(new DisclosureHeader(glyph, this))
    , reveal(new Reveal(this)) {
    auto* inner = new QWidget;
    column = new QVBoxLayout(inner);
    column->setContentsMargins(Metrics::paddingDisclosure, 0, Metrics::paddingDisclosure,
                               Metrics::paddingDisclosure);
    column->setSpacing(Metrics::gapField);
    reveal->setWidget(inner);
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->setSpacing(0);
    outer->addWidget(header);
    outer->addWidget(reveal);
    // Not a fixed one: a layout would then hold the height of the hint, of another width, for the most.
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    connect(header, &DisclosureHeader::clicked, this, [this] { setExpanded(!isExpanded()); });
}

void VantryDisclosure::setTexts(const QString& title, const QString& summary, bool english) {
    header->setTexts(title, summary, english);
}

void VantryDisclosure::setMaker(std::function<QWidget*()> maker) {
    make = std::move(maker);
    if (make && header->isExpanded())
        column->addWidget(std::exchange(make, {})());
}

void VantryDisclosure::setBinding(FlagBinding target) {
    binding = std::move(target);
    synchronize();
}

void VantryDisclosure::synchronize() {
    show(isExpanded(), false);
}

bool VantryDisclosure::isExpanded() const {
    return binding.read ? binding.read() : header->isExpanded();
}

void VantryDisclosure::setExpanded(bool expanded) {
    const bool was = isExpanded();
    if (was != expanded && binding.write)
        binding.write(expanded);
    show(expanded, true);
    if (was != expanded)
        emit expandedChanged(expanded);
}

void VantryDisclosure::show(bool expanded, bool moving) {
    if (header->isExpanded() == expanded)
        return;
    // The keyboard stays with what is on screen.
    if (!expanded && reveal->isAncestorOf(focusWidget()))
        header->setFocus(Qt::OtherFocusReason);
    if (expanded && make)
        column->addWidget(std::exchange(make, {})());
    header->setExpanded(expanded);
    reveal->setShown(expanded, moving);
}

void VantryDisclosure::paintEvent(QPaintEvent*) {
    const Palette& palette = Palette::of(*this);
    QPainter painter(this);
    paintSurface(painter, rect(), {palette.card, palette.rule, Metrics::hairline, Metrics::radiusCard});
}

}  // namespace vantry
