// The frame around the pages: crumbs, bars, the banner, the sheet of a new production.

#include <algorithm>
#include <array>
#include <cstdlib>

#include <QImage>
#include <QLocale>
#include <QPushButton>
#include <QScopeGuard>

#include "Vantry/interface/design/ControlText.h"
#include "Vantry/interface/design/Sheet.h"
#include "Vantry/interface/design/TabularLabel.h"
#include "Vantry/interface/navigation/Banner.h"
#include "Vantry/interface/navigation/CrumbBar.h"
#include "Vantry/interface/navigation/StatusLine.h"
#include "Vantry/interface/navigation/ToolBar.h"
#include "tests/interface/design/HelpOver.h"
#include "tests/interface/window/WindowFixture.h"

namespace vantry::test {
namespace {

const Text lovely = "Tom & Jerry <b>x</b>";

class FrameTest : public WindowTest {
protected:
    template <class Part>
    [[nodiscard]] Part& part() const {
        return *window->findChild<Part*>();
    }
    [[nodiscard]] std::vector<QAbstractButton*> crumbs() const {
        std::vector<QAbstractButton*> shown;
        for (auto* button : part<CrumbBar>().findChildren<QAbstractButton*>())
            if (button->isVisible())
                shown.push_back(button);
        return shown;
    }
    static QString descriptionOf(QWidget& widget) {
        return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Description);
    }
    [[nodiscard]] int left(const QWidget& widget) const { return widget.mapTo(window.get(), QPoint()).x(); }
    [[nodiscard]] int right(const QWidget& widget) const { return left(widget) + widget.width(); }
    /// The colour of the sign at the left of the status line: of those three the one that its strongest pixel
    /// is closest to.
    [[nodiscard]] Palette::Token statusSign() const {
        const QImage image = part<StatusLine>().grab(QRect(16, 1, 14, 27)).toImage();
        const Palette& palette = Palette::of(*window);
        const auto distance = [](const QColor& a, const QColor& b) {
            return std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) +
                   std::abs(a.blue() - b.blue());
        };
        QColor strongest = palette.card;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (distance(image.pixelColor(x, y), palette.card) > distance(strongest, palette.card))
                    strongest = image.pixelColor(x, y);
        const std::array tokens{&Palette::danger, &Palette::warning, &Palette::completed};
        return *std::min_element(tokens.begin(), tokens.end(), [&](Palette::Token a, Palette::Token b) {
            return distance(palette.*a, strongest) < distance(palette.*b, strongest);
        });
    }
    void expectStatus(const QString& text, Palette::Token sign) const {
        EXPECT_NE(find<Label>(part<StatusLine>(), text), nullptr) << text.toStdString();
        EXPECT_TRUE(statusSign() == sign) << text.toStdString();
    }
    [[nodiscard]] QString time() const {
        auto& label = part<TabularLabel>();
        return label.isVisible() ? label.text() : QString();
    }
};

TEST_F(FrameTest, CrumbsAreExactInEveryWay) {
    makeTake();
    store->updateProject(project, [](Project& record) { record.title = lovely; });
    store->updateAct(project, act, [](Act& record) { record.title = lovely; });
    store->updateShot(project, act, shot, [](Shot& record) {
        record.code = "7&";
        record.title = lovely;
    });
    go(takeRoute());
    const QString title = toQString(lovely);
    const QStringList expected{"资料库", title, title, "7& " + title};
    ASSERT_EQ(crumbs().size(), 4U);
    for (std::size_t at = 0; at < crumbs().size(); ++at) {
        auto* crumb = crumbs()[at];
        EXPECT_EQ(QAccessible::queryAccessibleInterface(crumb)->text(QAccessible::Name),
                  expected[static_cast<int>(at)]);
        EXPECT_TRUE(crumb->isEnabled());
        EXPECT_EQ(helpOver(*crumb), asHelp(expected[static_cast<int>(at)])) << "escaped";
        EXPECT_TRUE(descriptionOf(*crumb).isEmpty()) << "its name is not told twice";
    }
    int slashes = 0;
    for (auto* label : part<CrumbBar>().findChildren<Label*>())
        slashes += label->isVisible() && label->text() == QStringLiteral("/") ? 1 : 0;
    EXPECT_EQ(slashes, 3);
}

TEST_F(FrameTest, CrumbsEndInFrontOfARecordThatIsGone) {
    makeTake();
    go(takeRoute());
    store->updateAct(project, act, [](Act& record) { record.shots.clear(); });
    settle();
    EXPECT_EQ(crumbs().size(), 3U);
    EXPECT_TRUE(crumbs().back()->isEnabled());
    EXPECT_TRUE(shows(QStringLiteral("这条记录已删除")));
    store->removeProject(project);
    settle();
    EXPECT_FALSE(part<CrumbBar>().isVisible());
    EXPECT_EQ(route(), takeRoute()) << "nobody is sent away";
}

TEST_F(FrameTest, CrumbsStandOnThePagesEdgeAtEveryWidth) {
    makeTake();
    go(Route::act(project, act));
    for (const int width : {1000, 1380, 1700, 2560}) {
        window->resize(width, 900);
        settle();
        const auto* heading = find<Label>(page(), QStringLiteral("分镜工作台"));
        ASSERT_NE(heading, nullptr);
        constexpr int inButton = 6;
        EXPECT_EQ(left(*crumbs().front()) + inButton, left(*heading)) << width;
    }
}

TEST_F(FrameTest, LongCrumbsAreCutAndNeverLeaveTheWindow) {
    makeTake();
    const Text endless(std::string(400, 'W'));
    store->updateProject(project, [&](Project& record) { record.title = endless; });
    store->updateAct(project, act, [&](Act& record) { record.title = endless; });
    store->updateShot(project, act, shot, [&](Shot& record) { record.title = endless; });
    window->resize(1000, 680);
    go(takeRoute());
    EXPECT_EQ(window->size(), QSize(1000, 680));
    int end = 0;
    for (auto* crumb : crumbs()) {
        EXPECT_GE(left(*crumb), end);
        EXPECT_GE(crumb->width(), 28) << "there is something to press";
        end = right(*crumb);
    }
    EXPECT_LE(end, 1000 - 24);
    EXPECT_GE(crumbs().front()->width(), crumbs().front()->sizeHint().width()) << "a short one is whole";
}

TEST_F(FrameTest, TheBarsHaveTheirMeasures) {
    EXPECT_EQ(part<ToolBar>().height(), 48);
    EXPECT_EQ(part<StatusLine>().height(), 28);
    const int start = left(part<ToolBar>());
    for (const QString name : {"返回", "资料库", "撤销结构修改", "保存"}) {
        auto& button = get<QAbstractButton>(name, &part<ToolBar>());
        EXPECT_EQ(button.size(), QSize(44, 40));
        EXPECT_EQ(helpOver(button), asHelp(name)) << "always hover help, since there is no word";
        EXPECT_TRUE(descriptionOf(button).isEmpty()) << "its name is not told twice";
    }
    EXPECT_EQ(left(get<QAbstractButton>(QStringLiteral("返回"))), start + 16);
    EXPECT_EQ(right(get<QAbstractButton>(QStringLiteral("保存"))), right(part<ToolBar>()) - 16);
}

TEST_F(FrameTest, TheStatusLineSaysEachStateInBothLanguages) {
    makeTake();
    go(takeRoute());
    expectStatus("已存于本机", &Palette::completed);
    EXPECT_FALSE(time().isEmpty());
    QTest::keyClicks(&notes(), QStringLiteral("x"));
    settle();
    expectStatus("正在保存…", &Palette::warning);
    EXPECT_TRUE(time().isEmpty());
    store->setLanguage("en");
    settle();
    expectStatus("Saving…", &Palette::warning);
    disk.full = true;
    store->flush();
    settle();
    expectStatus("Not saved. Please retry", &Palette::danger);
    EXPECT_TRUE(time().isEmpty());
    answer(QStringLiteral("OK"));
    store->setLanguage("zh");
    settle();
    expectStatus("尚未保存，请重试", &Palette::danger);
    disk.full = false;
    store->flush();
    store->setLanguage("en");
    settle();
    expectStatus("Saved on this Mac", &Palette::completed);
    EXPECT_FALSE(time().isEmpty());
}

TEST_F(FrameTest, ALibraryThatCannotBeReadIsToldInTheBannerAndTheStatusLine) {
    EXPECT_FALSE(part<Banner>().isVisible());
    window.reset();
    std::filesystem::create_directories(root());
    support::putContent(file(), "invalid JSON");
    open();
    answer(QStringLiteral("好"));
    EXPECT_TRUE(part<Banner>().isVisible());
    EXPECT_EQ(part<Banner>().height(), 40);
    EXPECT_EQ(part<Banner>().width(), part<ToolBar>().width());
    expectStatus("资料库读取失败", &Palette::danger);
    store->setLanguage("en");
    settle();
    expectStatus("Library could not be read", &Palette::danger);
    EXPECT_TRUE(time().isEmpty());
    window->resize(1000, 680);
    settle();
    EXPECT_EQ(part<Banner>().height(), 40) << "one line even there";
}

TEST_F(FrameTest, TheTimeIsThatOfTheLocale) {
    const QLocale before;
    const auto restore = qScopeGuard([&] { QLocale::setDefault(before); });
    makeTake();
    const std::vector<std::pair<QLocale, QString>> expected{
        {QLocale(QLocale::English, QLocale::UnitedStates), "2:13 PM"},
        {QLocale(QLocale::Chinese, QLocale::China), "14:13"},
        {QLocale(QLocale::German, QLocale::Germany), "14:13"},
        {QLocale::c(), "14:13"}};
    for (const auto& [locale, text] : expected) {
        QLocale::setDefault(locale);
        window->refreshNow();
        EXPECT_EQ(time(), text) << locale.name().toStdString();
    }
}

TEST_F(FrameTest, DigitsOfTheTimeAreEquallyWide) {
    TabularLabel label(VantryType::Role::caption, &Palette::muted);
    label.setPlain(QStringLiteral("11:11"));
    const QSize narrow = label.sizeHint();
    label.setPlain(QStringLiteral("20:48"));
    EXPECT_EQ(label.sizeHint(), narrow);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&label)->text(QAccessible::Name), "20:48");
}

TEST_F(FrameTest, TheSheetOfANewProductionHasItsMeasuresAndWords) {
    clickOnPage(QStringLiteral("新建项目"));
    auto* sheet = topmost<Sheet>();
    ASSERT_NE(sheet, nullptr);
    EXPECT_EQ(sheet->width(), 420);
    EXPECT_EQ(sheet->windowTitle(), QStringLiteral("新建项目"));
    auto& name = get<QLineEdit>(QStringLiteral("项目名称"), sheet);
    auto& director = get<QLineEdit>(QStringLiteral("导演"), sheet);
    EXPECT_TRUE(name.hasFocus());
    EXPECT_EQ(name.mapTo(sheet, QPoint()).x(), 28);
    EXPECT_EQ(name.width(), 420 - 2 * 28);
    EXPECT_EQ(director.y() - name.geometry().bottom() - 1, 20);
    auto& cancel = get<QAbstractButton>(QStringLiteral("取消"), sheet);
    auto& create = get<QAbstractButton>(QStringLiteral("创建"), sheet);
    EXPECT_LT(cancel.geometry().right(), create.geometry().left());
    EXPECT_EQ(create.mapTo(sheet, create.rect().bottomRight()),
              QPoint(420 - 28 - 1, sheet->height() - 28 - 1));
    EXPECT_GE(cancel.width(), 88);
    EXPECT_TRUE(static_cast<QPushButton&>(create).isDefault());
    store->setLanguage("en");
    settle();
    EXPECT_EQ(sheet->windowTitle(), QStringLiteral("New project"));
    for (const QString word : {"Project name", "Director", "Cancel", "Create"})
        EXPECT_NE(find(*sheet, word), nullptr) << word.toStdString();
}

TEST_F(FrameTest, AFailedDeletionAsksOnceAndTheUndoBringsThePageBack) {
    makeTake();
    go(shotRoute());
    Page* const shown = &page();
    disk.full = true;
    clickOnPage(QStringLiteral("删除镜头…"));
    answer(QStringLiteral("删除"));
    answer(QStringLiteral("好"));
    EXPECT_TRUE(shows(QStringLiteral("这条记录已删除")));
    EXPECT_EQ(route(), shotRoute());
    window->close();
    settle();
    EXPECT_TRUE(window->isVisible()) << "it never went";
    EXPECT_EQ(questions.size(), 1U);
    if (QApplication::activeModalWidget() != nullptr)
        answer(QStringLiteral("好"));
    disk.full = false;
    click(QStringLiteral("撤销结构修改"));
    EXPECT_FALSE(shows(QStringLiteral("这条记录已删除")));
    EXPECT_EQ(&page(), shown) << "the page itself, not another one";
    EXPECT_EQ(questions.size(), 1U);
    EXPECT_FALSE(store->hasUnsavedChanges());
}

}  // namespace
}  // namespace vantry::test
