#pragma once

#include <QDateTimeEdit>

namespace vantry {

/// A field for a day and a time of day, with a calendar to choose the day from. It knows no zone: it shows
/// and gives what a calendar and a clock on the wall show. A turn of the wheel scrolls the page and changes
/// nothing.
class DateTimeField final : public QDateTimeEdit {
    Q_OBJECT

public:
    explicit DateTimeField(QWidget* parent = nullptr);

    /// The way in which the language writes it.
    void setEnglish(bool english);
    /// Shows that reading of calendar and clock, unless it does already; says nothing.
    void setReading(const QDateTime& reading);
    /// The calendar that it opens; made when it is wanted first.
    QCalendarWidget& calendar();

    /// Wide enough for every day in both languages.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

public slots:
    /// Takes what was typed so far for the whole of it: an hour of which one digit stands there is that hour.
    void settle() { interpretText(); }

signals:
    /// The person changed it.
    void edited(const QDateTime& reading);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    bool english = false;
    bool hasCalendar = false;
    bool synchronizing = false;
};

}  // namespace vantry
