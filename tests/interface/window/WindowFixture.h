#pragma once

#include <chrono>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QTest>

#include "Vantry/app/AppDelegate.h"
#include "Vantry/app/Desktop.h"
#include "Vantry/app/FilePanels.h"
#include "Vantry/app/QtText.h"
#include "Vantry/app/VantryApplication.h"
#include "Vantry/app/VantryStore.h"
#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/Page.h"
#include "Vantry/interface/design/ParagraphEditor.h"
#include "Vantry/interface/navigation/LibraryTree.h"
#include "Vantry/interface/navigation/RootView.h"
#include "VantryCore/persistence/DiskStore.h"
#include "tests/support/Files.h"

namespace vantry::test {

/// A clock that stands still until a test moves it.
class ManualClock final : public Clock {
public:
    Moment now() override { return Moment{static_cast<double>(milliseconds) / 1000.0}; }
    double uptime() override { return static_cast<double>(milliseconds) / 1000.0; }
    std::unique_ptr<DelayedCall> callAfter(std::chrono::milliseconds delay,
                                           std::function<void()> call) override {
        const Due due{milliseconds + delay.count(), next++};
        calls[due] = std::move(call);
        return std::make_unique<Cancel>(*this, due);
    }
    /// Lets that much time pass and runs what falls due on the way.
    void advance(long long duration) {
        const long long end = milliseconds + duration;
        while (!calls.empty() && calls.begin()->first.first <= end) {
            milliseconds = calls.begin()->first.first;
            const auto call = std::move(calls.begin()->second);
            calls.erase(calls.begin());
            call();
        }
        milliseconds = end;
    }

private:
    using Due = std::pair<long long, int>;
    struct Cancel final : DelayedCall {
        Cancel(ManualClock& owner, Due when)
            : clock(owner)
            , due(when) {}
        ~Cancel() override { clock.calls.erase(due); }
        ManualClock& clock;
        Due due;
    };

    std::map<Due, std::function<void()>> calls;
    long long milliseconds = 800000000000;
    int next = 0;
};

/// A disk that can be full.
class FullDisk final : public FileOperations {
public:
    int createForWriting(const std::filesystem::path& path) override {
        if (full)
            throw std::system_error(ENOSPC, std::generic_category(), path.string());
        return FileOperations::createForWriting(path);
    }
    bool full = false;
};

/// A person in front of a chooser of files: takes the file that the test says, and may do things meanwhile.
class FakePanels final : public FilePanels {
public:
    std::optional<std::filesystem::path> open(Content content, bool) override {
        return choose(content, "open");
    }
    std::optional<std::filesystem::path> save(Content content, const std::string& suggestedName,
                                              bool) override {
        suggested = suggestedName;
        return choose(content, "save");
    }

    std::optional<std::filesystem::path> choice;
    std::function<void()> whileOpen;
    bool isOpen = false;
    std::string suggested;
    std::vector<std::string> asked;  ///< what was asked for, such as "open image"

private:
    std::optional<std::filesystem::path> choose(Content content, const std::string& what) {
        asked.push_back(what + (content == Content::image ? " image"
                                : content == Content::pdf ? " pdf"
                                                          : " backup"));
        isOpen = true;
        if (whileOpen)
            whileOpen();
        isOpen = false;
        return choice;
    }
};

/// A desktop that remembers what it was asked to open.
class RecordingDesktop final : public Desktop {
public:
    bool open(const std::filesystem::path& document) override {
        opened.push_back(document);
        return true;
    }
    std::vector<std::filesystem::path> opened;
};

/// The real window over a real store in a folder of its own, in a world that the test moves: it finds a
/// control by the name that assistive tools hear, and clicks and types as a person does.
class WindowTest : public testing::Test {
protected:
    void SetUp() override { open(); }

    void open(bool systemClock = false) {
        Surroundings around;
        around.clock = systemClock ? nullptr : &clock;
        around.keys = &VantryApplication::instance();
        around.disk = &disk;
        around.panels = &panels;
        around.desktop = &desktop;
        window.reset();
        store = std::make_unique<VantryStore>(root(), around);
        store->setLanguage(language);
        delegate = std::make_unique<AppDelegate>([this](const Text& reason) {
            questions.push_back(reason.utf8());
            if (whileAsking)
                whileAsking();
            return answerQuit;
        });
        delegate->refuseWhile([this] { return panels.isOpen; });
        window = std::make_unique<RootView>(*store, *delegate);
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
        activate();
    }
    void TearDown() override {
        window.reset();
        settle();
    }

    /// What a window manager does when a dialog has closed.
    void activate() const {
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        settle();
    }

    [[nodiscard]] std::filesystem::path root() const { return folder / "Data"; }
    [[nodiscard]] std::filesystem::path file() const { return root() / "library.json"; }

    /// Lets everything that is queued happen.
    static void settle() {
        for (int turn = 0; turn < 8; ++turn) {
            QCoreApplication::sendPostedEvents();
            QCoreApplication::processEvents();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }

    /// A production with an act, a shot and a take.
    void makeTake() {
        project = store->addProject("候车室", "林若水");
        act = store->addAct(project);
        shot = store->addShot(project, act);
        take = store->addTake(project, act, shot);
        store->flush();
        settle();
    }
    [[nodiscard]] Route takeRoute() const { return Route::take(project, act, shot, take); }
    [[nodiscard]] Route shotRoute() const { return Route::shot(project, act, shot); }
    void go(const Route& route) {
        window->go(route);
        settle();
    }
    /// Goes to a production and shows that tab of its page.
    void openTab(const Route& production, const QString& title) {
        go(production);
        get<QAbstractButton>(title, &page()).click();
        settle();
    }
    [[nodiscard]] const Route& route() const { return window->navigation().route(); }
    [[nodiscard]] Page& page() const {
        for (auto* candidate : window->findChildren<Page*>())
            if (candidate->isVisible() && qobject_cast<Page*>(candidate->parentWidget()) == nullptr)
                return *candidate;
        throw std::runtime_error("no page is on screen");
    }
    [[nodiscard]] LibraryTree& tree() const { return *window->findChild<LibraryTree*>(); }

    /// The visible widget of that type which assistive tools know by that name; null when there is none.
    template <class Widget = QWidget>
    [[nodiscard]] static Widget* find(QWidget& within, const QString& name) {
        for (auto* candidate : within.findChildren<Widget*>()) {
            if (!candidate->isVisible())
                continue;
            const auto* spoken = QAccessible::queryAccessibleInterface(candidate);
            if (spoken != nullptr && spoken->text(QAccessible::Name) == name)
                return candidate;
        }
        return nullptr;
    }
    template <class Widget = QWidget>
    [[nodiscard]] Widget& get(const QString& name, QWidget* within = nullptr) const {
        auto* found = find<Widget>(within != nullptr ? *within : *window, name);
        if (found == nullptr)
            throw std::runtime_error("nothing is called " + name.toStdString());
        return *found;
    }
    [[nodiscard]] bool shows(const QString& text) const { return find<QLabel>(*window, text) != nullptr; }

    void click(const QString& name, QWidget* within = nullptr) const {
        QTest::mouseClick(&get<QAbstractButton>(name, within), Qt::LeftButton);
        settle();
    }
    void clickOnPage(const QString& name) const { click(name, &page()); }
    [[nodiscard]] ParagraphEditor& notes() const {
        return get<ParagraphEditor>(QStringLiteral("现场笔记 · 自由输入"));
    }
    /// Writes as an input method does when its composition ends: any text, in one go.
    static void commit(QWidget& editor, const QString& text) {
        QInputMethodEvent event;
        event.setCommitString(text);
        QApplication::sendEvent(&editor, &event);
    }
    /// One press of a key with what is focused, or its repetition while it is held.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, bool repeated = false) const {
        if (!window->isActiveWindow() && QApplication::activeModalWidget() == nullptr)
            activate();
        QWidget* target = QApplication::focusWidget() != nullptr ? QApplication::focusWidget() : window.get();
        QTest::simulateEvent(target, true, key, modifiers, QString(), repeated);
        settle();
    }
    /// The sheet on top of everything.
    template <class Sheet>
    [[nodiscard]] static Sheet* topmost() {
        return qobject_cast<Sheet*>(QApplication::activeModalWidget());
    }
    /// Presses a button of the question on screen.
    void answer(const QString& name) const { click(name, QApplication::activeModalWidget()); }
    /// Chooses from the window's menu.
    void choose(const QString& entry) const {
        for (auto* action : window->menuBar()->findChildren<QAction*>())
            if (action->text() == entry && action->isEnabled()) {
                action->trigger();
                settle();
                return;
            }
        throw std::runtime_error("the menu does not offer " + entry.toStdString());
    }
    [[nodiscard]] const Shot& shotRecord() const { return *(held = store->shot(project, act, shot)); }
    [[nodiscard]] VantryTake takeRecord() const { return *store->take(project, act, shot, take); }

    support::TemporaryFolder folder;
    ManualClock clock;
    FullDisk disk;
    FakePanels panels;
    RecordingDesktop desktop;
    Text language = "zh";
    bool answerQuit = false;
    std::function<void()> whileAsking;
    std::vector<std::string> questions;
    std::unique_ptr<VantryStore> store;
    std::unique_ptr<AppDelegate> delegate;
    std::unique_ptr<RootView> window;
    Identifier project, act, shot, take;

private:
    mutable std::shared_ptr<const Shot> held;
};

}  // namespace vantry::test
