#pragma once

#include <QCalendarWidget>

namespace vantry {

/// A month to choose a day from, which begins on Monday: the calendar of the toolkit in the look of the
/// interface.
class DayCalendar final : public QCalendarWidget {
    Q_OBJECT

public:
    explicit DayCalendar(QWidget* parent = nullptr);

protected:
    void paintCell(QPainter* painter, const QRect& rect, QDate date) const override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    /// Takes the colours of the appearance on.
    void adopt();
};

}  // namespace vantry
