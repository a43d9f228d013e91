#include "Vantry/interface/shots/ScheduleFields.h"

#include <algorithm>
#include <utility>

#include <QApplication>
#include <QDateTime>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QScopedValueRollback>

#include "Vantry/app/FieldSettling.h"
#include "Vantry/interface/design/Card.h"
#include "Vantry/interface/design/Compose.h"
#include "Vantry/interface/design/DateTimeField.h"
#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/VantryTextField.h"
#include "Vantry/interface/design/VantryToggle.h"
#include "Vantry/schedule/rules/ShootSchedule.h"
#include "VantryCore/records/ClockReading.h"

namespace vantry {
namespace {

/// What a shot takes that is not there to say.
constexpr std::int64_t usualMinutes = 30;

Calendar machineCalendar() {
    return Calendar(Zone::machine());
}

QDateTime readingOf(Moment moment) {
    const ClockReading clock = readClock(moment, Zone::machine());
    return {QDate(static_cast<int>(std::clamp<std::int64_t>(clock.year, 100, 9999)), clock.month, clock.day),
            QTime(clock.hour, clock.minute), Qt::UTC};
}

/// The moment at which calendar and clock show that; behind a change that leaves that time out, the first one
/// that there is.
std::optional<Moment> momentOf(QDateTime reading) {
    constexpr int longestGap = 180;  // minutes
    for (int minute = 0; minute <= longestGap; ++minute) {
        const QDate day = reading.date();
        const QTime time = reading.time();
        const auto found = machineCalendar().momentShowing(
            {day.year(), day.month(), day.day(), time.hour(), time.minute(), 0});
        if (found)
            return found;
        reading = reading.addSecs(60);
    }
    return std::nullopt;
}

/// A switch with its question, which turns it as well.
class ToggleLine final : public QWidget {
public:
    explicit ToggleLine(VantryToggle& turned)
        : toggle(turned) {}

protected:
    void mouseReleaseEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
            toggle.click();
    }
    void mousePressEvent(QMouseEvent* event) override {
        settleField();
        event->accept();
    }

private:
    VantryToggle& toggle;
};

}  // namespace

ScheduleFields::ScheduleFields(PageContext given, const Identifier& project, const Identifier& act,
                               const Identifier& shot, QWidget* parent)
    : StorePage(std::move(given), parent)
    , projectID(project)
    , actID(act)
    , shotID(shot)
    , card(new Card)
    , toggle(new VantryToggle)
    , toggleTitle(new Label(VantryType::Role::label)) {
    auto* lines = new QVBoxLayout(this);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->addWidget(card);
    auto* switching = new ToggleLine(*toggle);
    auto* question = new QHBoxLayout(switching);
    question->setContentsMargins(0, 0, 0, 0);
    question->setSpacing(Metrics::gapField);
    question->addWidget(toggle);
    question->addWidget(toggleTitle);
    switching->setFixedHeight(Metrics::controlHeight);
    auto* row = new QHBoxLayout;
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Metrics::gapSection);
    row->addWidget(switching, 0, Qt::AlignBottom);
    row->addWidget(makeFields());
    row->addStretch();
    card->content().addLayout(row);
    wrong = new Label(VantryType::Role::caption, &Palette::danger, Label::Length::wrapped);
    card->content().addWidget(wrong);
    connect(toggle, &VantryToggle::clicked, this, performing([this](bool on) { turn(on); }));
    connect(start, &DateTimeField::edited, this,
            performing([this](const QDateTime& reading) { setStart(reading); }));
    // Not textEdited alone: dictation and other assistive tools set the text without any key.
    const auto settle = [this] {
        if (!isWrong && shownMinutes)
            settledMinutes = *shownMinutes;
    };
    connect(duration, &VantryTextField::editingFinished, this, settle);
    connect(duration, &VantryTextField::settled, this, settle);
    connect(duration, &VantryTextField::textChanged, this, performing([this](const QString& typed) {
                if (!filling)
                    typeDuration(typed);
            }));
}

QWidget* ScheduleFields::makeFields() {
    startTitle = new Label(VantryType::Role::caption, &Palette::muted);
    start = new DateTimeField;
    durationTitle = new Label(VantryType::Role::caption, &Palette::muted);
    duration = new VantryTextField;
    duration->setFixedWidth(Metrics::durationFieldWidth);
    fields = row(Metrics::gapSection, {column(Metrics::gapCaption, {startTitle, start}),
                                       column(Metrics::gapCaption, {durationTitle, duration})});
    QSizePolicy policy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    // The switch stays where it is.
    policy.setRetainSizeWhenHidden(true);
    fields->setSizePolicy(policy);
    return fields;
}

void ScheduleFields::change(const std::function<void(Shot&)>& change) const {
    store().updateShot(projectID, actID, shotID, change);
}

void ScheduleFields::turn(bool scheduled) {
    const Moment now = ShootSchedule::normalizedToMinute(store().now(), machineCalendar());
    change([&](Shot& shot) {
        if (!scheduled)
            lastStart = std::exchange(shot.scheduledAt, std::nullopt);
        else if (!shot.scheduledAt)
            shot.scheduledAt = lastStart.value_or(now);
    });
}

void ScheduleFields::setStart(const QDateTime& reading) {
    const auto moment = momentOf(reading);
    if (!moment)
        return;
    const Moment minute = ShootSchedule::normalizedToMinute(*moment, machineCalendar());
    change([&](Shot& shot) {
        if (shot.scheduledAt)
            shot.scheduledAt = minute;
    });
}

void ScheduleFields::typeDuration(const QString& typed) {
    const auto minutes = ShootSchedule::typedMinutes(typed.toStdString());
    isWrong = !minutes || !ShootSchedule::isDuration(*minutes);
    wrong->setVisible(isWrong);
    // What was stored on the way to a wrong entry was none that the person meant.
    storeDuration(isWrong ? settledMinutes : *minutes);
}

void ScheduleFields::storeDuration(std::int64_t minutes) {
    shownMinutes = minutes;
    change([&](Shot& shot) { shot.durationMinutes = minutes; });
}

void ScheduleFields::fillDuration(const Shot* shot) {
    const std::int64_t stored = shot != nullptr ? shot->durationMinutes : usualMinutes;
    // What the person types stays, also what is wrong with it, until another duration comes from elsewhere.
    if (shownMinutes == stored)
        return;
    shownMinutes = stored;
    settledMinutes = stored;
    isWrong = false;
    const QScopedValueRollback guard(filling, true);
    duration->setText(QString::number(stored));
}

void ScheduleFields::refresh() {
    const auto shot = store().shot(projectID, actID, shotID);
    const bool scheduled = shot && shot->scheduledAt;
    card->setTitle(text(u"拍摄安排", u"Shoot schedule"),
                   text(u"设置日期与时间后，会自动显示在日历。",
                        u"Set a date and time to show this shot in the calendar."));
    setAccessibleName(text(u"拍摄安排", u"Shoot schedule"));
    toggleTitle->setPlain(text(u"安排拍摄", u"Schedule a shot"));
    toggle->setName(text(u"安排拍摄", u"Schedule a shot"));
    toggle->setAccessibleDescription(text(u"设置日期与时间后，会自动显示在日历。",
                                          u"Set a date and time to show this shot in the calendar."));
    toggle->setChecked(scheduled);
    // The keyboard stays with what is on screen.
    if (!scheduled && fields->isAncestorOf(QApplication::focusWidget()))
        toggle->setFocus(Qt::OtherFocusReason);
    fields->setVisible(scheduled);
    startTitle->setPlain(text(u"开始时间", u"Start time"));
    start->setAccessibleName(text(u"开始时间", u"Start time"));
    start->setEnglish(store().english());
    if (scheduled) {
        start->setReading(readingOf(*shot->scheduledAt));
        // Taken off elsewhere, it does not come back here.
        lastStart.reset();
    }
    durationTitle->setPlain(text(u"拍摄时长（分钟）", u"Shoot duration in minutes"));
    duration->setAccessibleName(text(u"拍摄时长（分钟）", u"Shoot duration in minutes"));
    fillDuration(shot.get());
    wrong->setPlain(text(u"时长需为 1–10080 分钟。", u"Use a duration between 1 and 10080 minutes."));
    wrong->setVisible(scheduled && isWrong);
}

}  // namespace vantry
