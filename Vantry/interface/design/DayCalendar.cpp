#include "Vantry/interface/design/DayCalendar.h"

#include <QEvent>
#include <QLayout>
#include <QPainter>
#include <QTextCharFormat>
#include <QToolButton>

#include "Vantry/interface/design/ButtonStyles.h"
#include "Vantry/interface/design/FocusRing.h"
#include "Vantry/interface/design/Glyph.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/Palette.h"
#include "Vantry/interface/design/VantryType.h"

namespace vantry {
namespace {

constexpr qreal otherMonthOpacity = 0.75;

QIcon iconOf(Glyph glyph, const QColor& colour, qreal scale) {
    QPixmap picture(QSize(Metrics::icon, Metrics::icon) * scale);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paintGlyph(painter, glyph, QRectF(0, 0, Metrics::icon, Metrics::icon), colour);
    return picture;
}

}  // namespace

DayCalendar::DayCalendar(QWidget* parent)
    : QCalendarWidget(parent) {
    setFirstDayOfWeek(Qt::Monday);
    setVerticalHeaderFormat(NoVerticalHeader);
    setHorizontalHeaderFormat(ShortDayNames);
    setFont(VantryType::font(VantryType::Role::label));
    constexpr int edge = Metrics::hairline + Metrics::paddingMenu;
    layout()->setContentsMargins(edge, edge, edge, edge);
    constexpr int columns = 7;
    constexpr int rows = 7;  // the names of the days and six weeks
    setFixedSize(columns * Metrics::controlHeight + 2 * edge,
                 Metrics::controlHeight + rows * Metrics::menuItemHeight + 2 * edge);
    adopt();
}

void DayCalendar::changeEvent(QEvent* event) {
    QCalendarWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        adopt();
}

void DayCalendar::adopt() {
    const Palette& palette = Palette::of(*this);
    QTextCharFormat days;
    days.setForeground(palette.ink);
    for (const auto day :
         {Qt::Monday, Qt::Tuesday, Qt::Wednesday, Qt::Thursday, Qt::Friday, Qt::Saturday, Qt::Sunday})
        setWeekdayTextFormat(day, days);
    QTextCharFormat header;
    header.setForeground(palette.muted);
    header.setBackground(palette.card);
    header.setFont(VantryType::font(VantryType::Role::caption));
    setHeaderTextFormat(header);
    if (auto* bar = findChild<QWidget*>(QStringLiteral("qt_calendar_navigationbar"))) {
        // Qt fills it with the colour of a selection and writes in that of selected text.
        QPalette colours = bar->palette();
        colours.setColor(QPalette::Highlight, palette.card);
        colours.setColor(QPalette::HighlightedText, palette.ink);
        if (colours != bar->palette())
            bar->setPalette(colours);
        bar->setFixedHeight(Metrics::controlHeight);
    }
    const std::pair<const char*, Glyph> ways[] = {{"qt_calendar_prevmonth", Glyph::chevronLeft},
                                                  {"qt_calendar_nextmonth", Glyph::chevronRight}};
    for (const auto& [name, glyph] : ways)
        if (auto* way = findChild<QToolButton*>(QString::fromLatin1(name))) {
            way->setIcon(iconOf(glyph, palette.ink, devicePixelRatioF()));
            way->setFixedSize(Metrics::controlHeight, Metrics::controlHeight);
        }
}

void DayCalendar::paintCell(QPainter* painter, const QRect& rect, QDate date) const {
    const Palette& palette = Palette::of(*this);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->fillRect(rect, palette.card);
    const bool isToday = date == QDate::currentDate();
    const bool isChosen = date == selectedDate();
    const QRectF place =
        QRectF(rect).adjusted(Metrics::gapLines, Metrics::gapLines, -Metrics::gapLines, -Metrics::gapLines);
    if (isChosen) {
        paintShape(*painter, place, {.fill = palette.selected}, Metrics::radiusControl);
        paintRing(*painter, place, Metrics::radiusControl, palette.link);
    }
    painter->setFont(
        VantryType::font(VantryType::Role::label, isToday || isChosen ? QFont::DemiBold : QFont::Medium));
    QColor ink = palette.ink;
    if (isToday) {
        QRectF disc(0, 0, Metrics::toggleHeight, Metrics::toggleHeight);
        disc.moveCenter(place.center());
        painter->setPen(Qt::NoPen);
        painter->setBrush(palette.ink);
        painter->drawEllipse(disc);
        ink = palette.canvas;
    } else if (date.month() != monthShown()) {
        ink = palette.muted;
        painter->setOpacity(otherMonthOpacity);
    }
    painter->setPen(ink);
    painter->drawText(rect, Qt::AlignCenter, QString::number(date.day()));
    painter->restore();
}

void DayCalendar::paintEvent(QPaintEvent*) {
    const Palette& palette = Palette::of(*this);
    QPainter painter(this);
    painter.fillRect(rect(), palette.rule);
    painter.fillRect(
        rect().adjusted(Metrics::hairline, Metrics::hairline, -Metrics::hairline, -Metrics::hairline),
        palette.card);
}

}  // namespace vantry
