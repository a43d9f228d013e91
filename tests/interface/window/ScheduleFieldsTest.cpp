// When a shot is planned, on its page.

#include <cmath>

#include <QCalendarWidget>
#include <QWheelEvent>

#include "Vantry/interface/design/DateTimeField.h"
#include "Vantry/interface/design/VantryToggle.h"
#include "Vantry/interface/design/VantryType.h"
#include "Vantry/schedule/rules/ShootSchedule.h"
#include "VantryCore/records/Calendar.h"
#include "VantryCore/records/ClockReading.h"
#include "tests/interface/window/WindowFixture.h"

namespace vantry::test {
namespace {

const QString wrong = QStringLiteral("时长需为 1–10080 分钟。");

class ScheduleFieldsTest : public WindowTest {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        makeTake();
        go(shotRoute());
    }
    [[nodiscard]] VantryToggle& toggle() const {
        return get<VantryToggle>(QStringLiteral("安排拍摄"), &page());
    }
    [[nodiscard]] DateTimeField* start() const {
        return find<DateTimeField>(page(), QStringLiteral("开始时间"));
    }
    [[nodiscard]] QLineEdit& duration() const {
        return get<QLineEdit>(QStringLiteral("拍摄时长（分钟）"), &page());
    }
    void type(const QString& text) const {
        duration().setFocus();
        duration().selectAll();
        QTest::keyClicks(&duration(), text);
        settle();
    }
    void schedule(Moment moment, std::int64_t minutes = 45) const {
        store->updateShot(project, act, shot, [&](Shot& record) {
            record.scheduledAt = moment;
            record.durationMinutes = minutes;
        });
        settle();
    }
    /// A moment of the machine's calendar.
    static Moment at(int year, int month, int day, int hour, int minute, double seconds = 0) {
        const auto found = Calendar(Zone::machine()).momentShowing({year, month, day, hour, minute, 0});
        return Moment{found.value().seconds + seconds};
    }
};

TEST_F(ScheduleFieldsTest, AShotIsPlannedFromThisMinuteOnAndTakenOffAgain) {
    EXPECT_FALSE(toggle().isChecked());
    EXPECT_EQ(start(), nullptr) << "nothing to fill in yet";
    clock.advance(12345);
    const bool couldUndo = store->canUndo();
    toggle().click();
    settle();
    ASSERT_TRUE(shotRecord().scheduledAt);
    EXPECT_EQ(std::fmod(shotRecord().scheduledAt->seconds, 60.0), 0);
    EXPECT_LE(shotRecord().scheduledAt->seconds, store->now().seconds);
    EXPECT_GT(shotRecord().scheduledAt->seconds, store->now().seconds - 60);
    EXPECT_EQ(duration().text(), QStringLiteral("30"));
    ASSERT_NE(start(), nullptr);
    toggle().click();
    settle();
    EXPECT_FALSE(shotRecord().scheduledAt);
    EXPECT_EQ(start(), nullptr);
    EXPECT_EQ(store->canUndo(), couldUndo) << "no structural change";
}

TEST_F(ScheduleFieldsTest, ItsQuestionTurnsTheSwitchToo) {
    auto& question = get<Label>(QStringLiteral("安排拍摄"), &page());
    QTest::mouseClick(&question, Qt::LeftButton);
    settle();
    EXPECT_TRUE(shotRecord().scheduledAt);
    QTest::mouseClick(&question, Qt::LeftButton);
    settle();
    EXPECT_FALSE(shotRecord().scheduledAt);
}

TEST_F(ScheduleFieldsTest, TheStartIsShownAndWrittenInWholeMinutes) {
    schedule(at(2026, 11, 21, 20, 30, 42.5));
    EXPECT_EQ(start()->dateTime(), QDateTime(QDate(2026, 11, 21), QTime(20, 30), Qt::UTC));
    EXPECT_EQ(start()->text(), QStringLiteral("2026年11月21日 20:30"));
    EXPECT_EQ(shotRecord().scheduledAt, at(2026, 11, 21, 20, 30, 42.5)) << "looking changes nothing";
    start()->setFocus();
    start()->setSelectedSection(QDateTimeEdit::HourSection);
    QTest::keyClick(start(), Qt::Key_Up);
    settle();
    EXPECT_EQ(shotRecord().scheduledAt, at(2026, 11, 21, 21, 30));
    EXPECT_EQ(shotRecord().durationMinutes, 45);
    store->setLanguage("en");
    settle();
    auto* english = find<DateTimeField>(page(), QStringLiteral("Start time"));
    ASSERT_NE(english, nullptr);
    EXPECT_EQ(english->text(), QStringLiteral("21 Nov 2026, 21:30"));
    EXPECT_EQ(shotRecord().scheduledAt, at(2026, 11, 21, 21, 30));
}

TEST_F(ScheduleFieldsTest, AnHourOfOneDigitIsThatHourWhenItIsSaved) {
    for (const bool byClick : {true, false}) {
        schedule(at(2026, 11, 21, 23, 5));
        start()->setFocus();
        start()->setSelectedSection(QDateTimeEdit::HourSection);
        QTest::keyClick(start(), Qt::Key_1);
        if (byClick)
            click(QStringLiteral("保存"));
        else
            press(Qt::Key_S, Qt::ControlModifier);
        EXPECT_EQ(shotRecord().scheduledAt, at(2026, 11, 21, 1, 5));
        EXPECT_FALSE(store->hasUnsavedChanges());
        EXPECT_TRUE(start()->hasFocus());
    }
}

TEST_F(ScheduleFieldsTest, AnHourOfOneDigitIsThatHourWhenTheProgramEndsOrThePlanIsTakenOff) {
    schedule(at(2026, 11, 21, 23, 5));
    const auto typeHour = [this] {
        start()->setFocus();
        start()->setSelectedSection(QDateTimeEdit::HourSection);
        QTest::keyClick(start(), Qt::Key_1);
    };
    typeHour();
    QTest::mouseClick(&toggle(), Qt::LeftButton);
    settle();
    EXPECT_FALSE(shotRecord().scheduledAt);
    EXPECT_EQ(QApplication::focusWidget(), &toggle()) << "the keyboard stays beside what went away";
    toggle().click();
    settle();
    EXPECT_EQ(shotRecord().scheduledAt, at(2026, 11, 21, 1, 5));
    schedule(at(2026, 11, 21, 23, 5));
    typeHour();
    window->close();
    settle();
    EXPECT_EQ(shotRecord().scheduledAt, at(2026, 11, 21, 1, 5));
    EXPECT_FALSE(store->hasUnsavedChanges());
}

TEST_F(ScheduleFieldsTest, ATurnOfTheWheelChangesNothingAndTakesNoKeyboard) {
    schedule(at(2026, 11, 21, 20, 30));
    EXPECT_EQ(start()->focusPolicy(), Qt::StrongFocus) << "not by the wheel";
    start()->setFocus();
    QWheelEvent turn(QPointF(20, 20), start()->mapToGlobal(QPointF(20, 20)), {}, {0, 120}, {}, {},
                     Qt::NoScrollPhase, false);
    QApplication::sendEvent(start(), &turn);
    settle();
    EXPECT_EQ(shotRecord().scheduledAt, at(2026, 11, 21, 20, 30));
}

TEST_F(ScheduleFieldsTest, APlanThatWasTakenOffComesBackWithItsStart) {
    schedule(at(2026, 11, 25, 21, 8));
    const int place = toggle().mapTo(&page(), QPoint()).y();
    toggle().click();
    settle();
    EXPECT_FALSE(shotRecord().scheduledAt);
    EXPECT_EQ(toggle().mapTo(&page(), QPoint()).y(), place) << "the switch stays where it is";
    toggle().click();
    settle();
    EXPECT_EQ(shotRecord().scheduledAt, at(2026, 11, 25, 21, 8));
}

TEST_F(ScheduleFieldsTest, APlanThatWasTakenOffElsewhereDoesNotComeBack) {
    schedule(at(2026, 11, 21, 20, 30));
    toggle().click();
    settle();
    schedule(at(2026, 12, 1, 9, 0));
    store->updateShot(project, act, shot, [](Shot& record) { record.scheduledAt.reset(); });
    settle();
    toggle().click();
    settle();
    EXPECT_EQ(shotRecord().scheduledAt,
              ShootSchedule::normalizedToMinute(store->now(), Calendar(Zone::machine())));
}

TEST_F(ScheduleFieldsTest, ADurationIsStoredWhenItCanBe) {
    const struct {
        const char* typed;
        std::int64_t stored;
        bool isWrong;
    } cases[] = {{"90", 90, false},   {"0", 45, true},    {"10081", 45, true},      {"10080", 10080, false},
                 {" 12 ", 12, false}, {"word", 45, true}, {"-5", 45, true},         {"1", 1, false},
                 {"1.5", 45, true},   {"", 45, true},     {"99999999999", 45, true}};
    for (const auto& entry : cases) {
        schedule(at(2026, 11, 21, 20, 30), 44);
        schedule(at(2026, 11, 21, 20, 30), 45);
        duration().clear();
        type(QString::fromUtf8(entry.typed));
        EXPECT_EQ(shows(wrong), entry.isWrong) << entry.typed;
        EXPECT_EQ(duration().text(), QString::fromUtf8(entry.typed)) << "what was typed stays";
        EXPECT_EQ(shotRecord().durationMinutes, entry.stored) << entry.typed;
    }
}

TEST_F(ScheduleFieldsTest, AWrongEntryLeavesTheDurationThatWasEnteredBefore) {
    schedule(at(2026, 11, 21, 20, 30), 45);
    type(QStringLiteral("60"));
    press(Qt::Key_Return);
    type(QStringLiteral("10081"));
    EXPECT_EQ(shotRecord().durationMinutes, 60);
    EXPECT_TRUE(shows(wrong));
}

TEST_F(ScheduleFieldsTest, AWrongDurationStaysInSightUntilAnotherComes) {
    schedule(at(2026, 11, 21, 20, 30), 45);
    duration().clear();
    type(QStringLiteral("word"));
    get<QLineEdit>(QStringLiteral("标题"), &page()).setFocus();
    store->updateShot(project, act, shot, [](Shot& record) { record.framing = "close"; });
    settle();
    EXPECT_EQ(duration().text(), QStringLiteral("word"));
    EXPECT_TRUE(shows(wrong));
    EXPECT_EQ(shotRecord().durationMinutes, 45);
    schedule(at(2026, 11, 21, 20, 30), 60);
    EXPECT_EQ(duration().text(), QStringLiteral("60"));
    EXPECT_FALSE(shows(wrong));
}

TEST_F(ScheduleFieldsTest, WhatIsWrongIsToldInOneLineAndMovesNothingElse) {
    schedule(at(2026, 11, 21, 20, 30), 45);
    for (const char* language : {"zh", "en"}) {
        store->setLanguage(language);
        window->resize(1000, 680);
        settle();
        auto& field = get<QLineEdit>(store->english() ? QStringLiteral("Shoot duration in minutes")
                                                      : QStringLiteral("拍摄时长（分钟）"),
                                     &page());
        const QPoint before = field.mapTo(&page(), QPoint());
        field.setText(QStringLiteral("99999"));
        settle();
        const auto* told = find<QLabel>(
            page(), store->english() ? QStringLiteral("Use a duration between 1 and 10080 minutes.") : wrong);
        ASSERT_NE(told, nullptr);
        EXPECT_EQ(told->height(), VantryType::lineHeight(VantryType::Role::caption)) << language;
        EXPECT_EQ(field.mapTo(&page(), QPoint()), before) << language;
        field.setText(QStringLiteral("45"));
        settle();
    }
}

TEST_F(ScheduleFieldsTest, WhatIsFarAwayIsShownAsFarAsItGoesAndKept) {
    const Moment far{4e11};
    schedule(far);
    EXPECT_EQ(start()->dateTime().date().year(), 9999);
    store->updateShot(project, act, shot, [](Shot& record) { record.title = "x"; });
    settle();
    EXPECT_EQ(shotRecord().scheduledAt, far);
}

TEST_F(ScheduleFieldsTest, TheCalendarOpensInItsLanguageFromMonday) {
    schedule(at(2026, 11, 21, 20, 30));
    EXPECT_EQ(start()->calendar().firstDayOfWeek(), Qt::Monday);
    EXPECT_EQ(start()->calendar().locale().language(), QLocale::Chinese);
    store->setLanguage("en");
    settle();
    EXPECT_EQ(find<DateTimeField>(page(), QStringLiteral("Start time"))->calendar().locale().language(),
              QLocale::English);
}

}  // namespace
}  // namespace vantry::test
