#pragma once

#include <functional>
#include <memory>

#include <QMainWindow>
#include <QPointer>

#include "Vantry/app/VantryStore.h"
#include "Vantry/interface/pages/PageContext.h"
#include "Vantry/interface/routes/Navigation.h"
#include "Vantry/interface/routes/PageMemory.h"

class QVBoxLayout;

namespace vantry {

class AppDelegate;
class Appearance;
class Banner;
class CrumbBar;
class NewProjectSheet;
class Page;
class PanelOperation;
class Sidebar;
class StatusLine;
class StoreAlert;
class VantryMotionPreference;
class WindowActions;

/// The one window: the sidebar, and a page for the place that is on screen. It owns the navigation, and with
/// it the rule that no page is left while its edits cannot be written.
///
/// A change of the store only marks; all that is visible is brought in line once, when the event that caused
/// it is done.
class RootView final : public QMainWindow {
    Q_OBJECT

public:
    /// Both must outlive the window.
    RootView(VantryStore& store, AppDelegate& delegate);
    ~RootView() override;

    [[nodiscard]] const Navigation& navigation() const noexcept { return places; }
    void go(const Route& route);
    void goBack();
    /// Brings all that is visible in line at once, without waiting for the event loop.
    void refreshNow();

protected:
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    [[nodiscard]] QWidget* makeDetail();
    [[nodiscard]] Page* makePage(const Route& route);
    void showPage();
    /// The keyboard goes along, wherever it is.
    void goWithKeyboard(const Route& route);
    void goWriting(const Route& route);
    void refreshSoon();
    void createProject();
    /// Runs what the person asked for; nothing that it throws gets further.
    void perform(const std::function<void()>& action);
    void undo();
    [[nodiscard]] bool flush();
    void endSoon();

    VantryStore& store;
    AppDelegate& delegate;
    const PageContext context;
    const std::shared_ptr<PageMemory> pageMemory;
    Navigation places;
    Appearance* appearance = nullptr;
    VantryMotionPreference* motion = nullptr;
    WindowActions* actions = nullptr;
    PanelOperation* backup = nullptr;
    Sidebar* sidebar = nullptr;
    Banner* banner = nullptr;
    CrumbBar* crumbBar = nullptr;
    QVBoxLayout* pagePlace = nullptr;
    QPointer<Page> page;
    StatusLine* statusLine = nullptr;
    NewProjectSheet* newProject = nullptr;
    StoreAlert* alert = nullptr;
    bool refreshQueued = false;
    bool endQueued = false;
    bool mayClose = false;
    bool appeared = false;
};

}  // namespace vantry
