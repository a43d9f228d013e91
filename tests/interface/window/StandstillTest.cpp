// Language and appearance change on what is there; nothing is made anew for it.

#include <QPointer>
#include <QScrollBar>

#include "Vantry/interface/design/VantryMotionPreference.h"
#include "Vantry/interface/design/VantryPageArrival.h"
#include "tests/interface/window/WindowFixture.h"

namespace vantry::test {
namespace {

class StandstillTest : public WindowTest {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        makeTake();
        for (int count = 0; count < 30; ++count)
            store->addAct(store->addProject(Text("Production " + std::to_string(count)), ""));
        settle();
    }
    struct Seen {
        QPointer<QWidget> widget;
        std::string what;
    };
    /// Everything in the window that can be seen.
    [[nodiscard]] std::vector<Seen> seen() const {
        std::vector<Seen> all;
        for (auto* widget : window->findChildren<QWidget*>())
            if (widget->isVisible())
                all.push_back({widget, widget->metaObject()->className() + std::string(" ") +
                                           widget->accessibleName().toStdString()});
        return all;
    }
    void change() {
        store->setLanguage(store->english() ? "zh" : "en");
        store->setAppearance(store->english() ? "dark" : "light");
        settle();
    }
};

TEST_F(StandstillTest, EveryWidgetOfEveryPageStays) {
    // A picture that moves is no widget that has to stay.
    VantryMotionPreference still;
    still.setChoice(true);
    click(QStringLiteral("全部展开"));
    go(Route::search());
    for (const Route& place :
         {Route::library(), Route::project(project), Route::act(project, act), shotRoute(), takeRoute(),
          Route::search(), Route::calendar(), Route::settings(), Route::project(Identifier::random())}) {
        go(place);
        ASSERT_TRUE(QTest::qWaitFor([&] { return window->findChildren<VantryPageArrival*>().isEmpty(); }));
        const auto before = seen();
        for (int times = 0; times < 2; ++times) {
            change();
            for (const auto& [widget, what] : before) {
                ASSERT_FALSE(widget.isNull()) << what << " was made anew";
                EXPECT_TRUE(widget->isVisible()) << what;
            }
        }
    }
}

TEST_F(StandstillTest, ScrollFocusAndSelectionOfTheTreeStay) {
    click(QStringLiteral("全部展开"));
    go(takeRoute());
    tree().setFocus();
    tree().setCurrentIndex(tree().model()->index(12, 0));
    tree().verticalScrollBar()->setValue(444);
    const QModelIndex current = tree().currentIndex();
    const QModelIndexList selected = tree().selectionModel()->selectedIndexes();
    for (int times = 0; times < 2; ++times) {
        change();
        EXPECT_EQ(tree().verticalScrollBar()->value(), 444);
        EXPECT_EQ(tree().currentIndex(), current);
        EXPECT_EQ(tree().selectionModel()->selectedIndexes(), selected);
        EXPECT_TRUE(tree().hasFocus());
    }
}

TEST_F(StandstillTest, AComposedWordStaysWhereItIs) {
    go(takeRoute());
    notes().setFocus();
    QTest::keyClicks(&notes(), QStringLiteral("ab"));
    QInputMethodEvent compose(QStringLiteral("zhun"), {});
    QApplication::sendEvent(&notes(), &compose);
    auto& editor = notes();
    change();
    EXPECT_TRUE(editor.isComposing());
    EXPECT_TRUE(editor.hasFocus());
    commit(editor, QStringLiteral("准"));
    EXPECT_EQ(editor.toPlainText(), QStringLiteral("ab准"));
}

TEST_F(StandstillTest, AnOpenSheetChangesToo) {
    clickOnPage(QStringLiteral("新建项目"));
    auto& name = get<QLineEdit>(QStringLiteral("项目名称"), QApplication::activeModalWidget());
    QTest::keyClicks(&name, QStringLiteral("Night"));
    name.setSelection(1, 2);
    change();
    EXPECT_EQ(&get<QLineEdit>(QStringLiteral("Project name"), QApplication::activeModalWidget()), &name);
    EXPECT_EQ(name.text(), QStringLiteral("Night"));
    EXPECT_EQ(name.selectedText(), QStringLiteral("ig"));
    EXPECT_TRUE(name.hasFocus());
}

}  // namespace
}  // namespace vantry::test
