#include "Vantry/interface/design/DateTimeField.h"

#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QWheelEvent>

#include "Vantry/interface/design/DayCalendar.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/VantryFieldStyle.h"
#include "Vantry/interface/design/VantryType.h"

namespace vantry {

DateTimeField::DateTimeField(QWidget* parent)
    : QDateTimeEdit(parent) {
    setFont(VantryType::font(VantryType::Role::body));
    // Nor does a turn of the wheel take the keyboard.
    setFocusPolicy(Qt::StrongFocus);
    setTimeSpec(Qt::UTC);
    // The whole range of the toolkit: whatever is stored is shown as far as it can be.
    setDateTimeRange(QDateTime(QDate(100, 1, 1), QTime(0, 0), Qt::UTC),
                     QDateTime(QDate(9999, 12, 31), QTime(23, 59), Qt::UTC));
    setMinimumHeight(VantryFieldStyle::minimumHeight);
    setCalendarPopup(true);
    connect(this, &QDateTimeEdit::dateTimeChanged, this, [this](const QDateTime& reading) {
        if (!synchronizing)
            emit edited(reading);
    });
    setEnglish(true);
}

void DateTimeField::setEnglish(bool wanted) {
    if (english == wanted)
        return;
    english = wanted;
    const QScopedValueRollback guard(synchronizing, true);
    const QLocale language = english ? QLocale(QLocale::English, QLocale::UnitedKingdom)
                                     : QLocale(QLocale::Chinese, QLocale::China);
    setLocale(language);
    if (hasCalendar)
        calendar();
    setDisplayFormat(english ? QStringLiteral("d MMM yyyy, HH:mm") : QStringLiteral("yyyy年M月d日 HH:mm"));
}

QCalendarWidget& DateTimeField::calendar() {
    if (!hasCalendar)
        setCalendarWidget(new DayCalendar);
    hasCalendar = true;
    QCalendarWidget& shown = *calendarWidget();
    shown.setLocale(locale());
    shown.setFirstDayOfWeek(Qt::Monday);
    return shown;
}

QSize DateTimeField::sizeHint() const {
    return {Metrics::startFieldWidth, Metrics::controlHeight};
}

void DateTimeField::mousePressEvent(QMouseEvent* event) {
    calendar();
    QDateTimeEdit::mousePressEvent(event);
}

void DateTimeField::setReading(const QDateTime& reading) {
    if (dateTime() == reading)
        return;
    const QScopedValueRollback guard(synchronizing, true);
    setDateTime(reading);
}

void DateTimeField::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

}  // namespace vantry
