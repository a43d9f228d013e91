// A production from its name to its documents, by nothing but the window: what was typed is on disk in the
// end.

#include <QMenu>

#include "Vantry/interface/design/Sheet.h"
#include "VantryCore/records/Text.h"
#include "tests/interface/window/WindowFixture.h"

namespace vantry::test {
namespace {

constexpr int acts = 3;
constexpr int shotsOfAct[acts] = {13, 13, 14};
constexpr int takesOfShot = 3;

/// What the person typed and chose, as it has to be found again.
struct TypedTake {
    QString notes;
    TakeResult result = TakeResult::pending;
    int stars = 0;
};
struct TypedShot {
    QString title;
    std::vector<TypedTake> takes;
};
struct TypedAct {
    QString title;
    std::vector<TypedShot> shots;
};

class DayOnSetTest : public WindowTest {
protected:
    [[nodiscard]] QString word(const char* zh, const char* en) const {
        return QString::fromUtf8(store->english() ? en : zh);
    }
    /// Longer than any gate that keeps doubled presses out.
    void wait() { clock.advance(1000); }
    /// Types as a person does: letters by keys, line ends by Return, everything else through an input method.
    void type(QWidget& field, const QString& text) const {
        field.setFocus(Qt::OtherFocusReason);
        for (const QChar letter : text) {
            if (letter == QLatin1Char('\n'))
                QTest::keyClick(&field, Qt::Key_Return);
            else if (letter.unicode() < 0x80)
                QTest::keyClicks(&field, QString(letter));
            else
                commit(field, QString(letter));
        }
    }
    void fill(const QString& field, const QString& text) const {
        auto& line = get<QLineEdit>(field, &page());
        line.setFocus(Qt::OtherFocusReason);
        line.selectAll();
        type(line, text);
    }
    [[nodiscard]] ParagraphEditor& editor() const {
        return get<ParagraphEditor>(word("现场笔记 · 自由输入", "On-set notes · write freely"), &page());
    }
    void makeProduction() {
        clickOnPage(QStringLiteral("新建项目"));
        auto* sheet = QApplication::activeModalWidget();
        type(get<QLineEdit>(QStringLiteral("项目名称"), sheet), QStringLiteral("雾港 Fog Harbour"));
        type(get<QLineEdit>(QStringLiteral("导演"), sheet), QStringLiteral("林晓雨"));
        click(QStringLiteral("创建"), sheet);
        project = *route().projectID();
        for (int made = 0; made < acts; ++made) {
            wait();
            clickOnPage(QStringLiteral("新增幕"));
        }
    }
    /// One take on the page of its shot or of the take before it.
    void logTake(TypedShot& plan, int number) {
        wait();
        press(Qt::Key_Return, Qt::ControlModifier);
        ++logged;
        TypedTake typed;
        typed.notes =
            QStringLiteral("%1：焦点准确 é, usable #%2\n第二句 second line").arg(plan.title).arg(number);
        if (logged == 40)
            compose(typed);
        else
            type(editor(), typed.notes);
        typed.result = static_cast<TakeResult>(logged % 3);
        const QString results[] = {word("待定", "Pending"), QStringLiteral("Good"), QStringLiteral("NG")};
        clickOnPage(results[logged % 3]);
        typed.stars = logged % 6;
        if (typed.stars > 0)
            clickOnPage(QString::number(typed.stars) + word(" 星", " stars"));
        plan.takes.push_back(typed);
    }
    /// Notes through a composition, which an autosave and a look at the language run across.
    void compose(TypedTake& typed) {
        type(editor(), QStringLiteral("A "));
        for (const char* preedit : {"z", "zhun", "zhun que"}) {
            QInputMethodEvent composing(QString::fromUtf8(preedit), {});
            QApplication::sendEvent(&editor(), &composing);
            clock.advance(400);
            settle();
        }
        commit(editor(), QStringLiteral("准确"));
        type(editor(), QStringLiteral(" B"));
        typed.notes = QStringLiteral("A 准确 B");
    }
    /// All shots of an act, each behind the one before it.
    void shootAct(int number) {
        openTab(Route::project(project), word("拍摄总览", "Overview"));
        clickOnPage(QStringLiteral("第 %1 幕").arg(number + 1));
        TypedAct plan{QStringLiteral("Act %1 · 夜航").arg(number + 1), {}};
        fill(word("幕名称", "Act name"), plan.title);
        for (int made = 0; made < shotsOfAct[number]; ++made) {
            wait();
            if (made == 0)
                clickOnPage(word("新增分镜", "Add shot"));
            else
                clickOnPage(word("在本镜后插镜", "Insert shot after"));
            TypedShot shotPlan{QStringLiteral("镜头 %1-%2 Tom & Jerry").arg(number + 1).arg(made + 1), {}};
            fill(word("标题", "Title"), shotPlan.title);
            for (int at = 1; at <= takesOfShot; ++at)
                logTake(shotPlan, at);
            wait();
            clickOnPage(word("返回镜头", "Back to shot"));
            plan.shots.push_back(std::move(shotPlan));
        }
        typed.push_back(std::move(plan));
    }
    /// Another machine's backup, with a production of its own.
    void importBackup() {
        {
            Surroundings around;
            around.panels = &panels;
            VantryStore other(folder / "Other", around);
            other.addProject("另一台机器", "Mei");
            panels.choice = folder / "other.vantry";
            other.exportBackup();
        }
        choose(word("导入并合并…", "Import and merge…"));
        auto* notice = topmost<AlertSheet>();
        ASSERT_NE(notice, nullptr);
        QTest::keyClick(notice, Qt::Key_Escape);
        settle();
        EXPECT_EQ(store->library().projects.size(), 2U);
    }
    /// The take on the page goes and comes back; what is typed in between stays.
    void deleteAndUndo() {
        const Route place = route();
        clickOnPage(word("删除本条…", "Delete take…"));
        answer(word("删除", "Delete"));
        EXPECT_NE(route(), place);
        fill(word("景别", "Framing"), QStringLiteral("特写"));
        click(word("撤销结构修改", "Undo structure change"));
        EXPECT_EQ(get<QLineEdit>(word("景别", "Framing"), &page()).text(), QStringLiteral("特写"));
        go(place);
    }
    void exportDocuments() {
        store->updateProject(
            project, [this](Project& record) { record.setCallSheets({CallSheet::make(store->now())}); });
        go(Route::project(project));
        for (const char* name : {"plan.pdf", "report.pdf", "sheet.pdf"}) {
            panels.choice = folder / name;
            clickOnPage(word("导出 PDF", "Export PDF"));
            const QPointer<QMenu> menu(qobject_cast<QMenu*>(QApplication::activePopupWidget()));
            ASSERT_NE(menu, nullptr);
            const int entry = std::string_view(name) == "plan.pdf" ? 0 : 1;
            QAction* action = std::string_view(name) == "sheet.pdf"
                                  ? menu->actions().back()->menu()->actions().front()
                                  : menu->actions().at(entry);
            action->trigger();
            if (menu)
                menu->close();
            settle();
            EXPECT_TRUE(support::contentOf(folder / name).starts_with("%PDF-")) << name;
        }
        EXPECT_EQ(desktop.opened.size(), 3U);
    }
    static void expectText(const Text& stored, const QString& typed) {
        EXPECT_EQ(composed(stored.utf8()), composed(typed.toStdString()));
    }
    void expectOnDisk() const {
        const Library library = DiskStore::read(file());
        const Project* held = findRecord(library.projects, project);
        ASSERT_NE(held, nullptr);
        expectText(held->title, QStringLiteral("雾港 Fog Harbour"));
        expectText(held->director, QStringLiteral("林晓雨"));
        ASSERT_EQ(held->acts.size(), typed.size());
        for (std::size_t at = 0; at < typed.size(); ++at)
            expectAct(*held->acts[at], typed[at]);
        EXPECT_EQ(library, store->library());
    }
    static void expectAct(const Act& act, const TypedAct& plan) {
        expectText(act.title, plan.title);
        ASSERT_EQ(act.shots.size(), plan.shots.size());
        for (std::size_t at = 0; at < plan.shots.size(); ++at) {
            const Shot& shot = *act.shots[at];
            expectText(shot.title, plan.shots[at].title);
            ASSERT_EQ(shot.takes.size(), plan.shots[at].takes.size());
            for (std::size_t number = 0; number < shot.takes.size(); ++number) {
                const VantryTake& take = *shot.takes[number];
                const TypedTake& logged = plan.shots[at].takes[number];
                expectText(take.notes, logged.notes);
                EXPECT_EQ(take.result, logged.result);
                EXPECT_EQ(take.stars, logged.stars);
                EXPECT_EQ(take.number, static_cast<std::int64_t>(number) + 1);
            }
        }
    }

    std::vector<TypedAct> typed;
    int logged = 0;
};

TEST_F(DayOnSetTest, WhatWasTypedIsOnDisk) {
    makeProduction();
    shootAct(0);
    importBackup();
    store->setLanguage("en");
    settle();
    shootAct(1);
    clickOnPage(QStringLiteral("Take 02"));
    deleteAndUndo();
    store->setLanguage("zh");
    settle();
    shootAct(2);
    EXPECT_EQ(logged, 120);
    exportDocuments();
    window->close();
    settle();
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(questions.empty());
    expectOnDisk();
}

}  // namespace
}  // namespace vantry::test
