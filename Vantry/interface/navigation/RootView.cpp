#include "Vantry/interface/navigation/RootView.h"

#include <QCloseEvent>
#include <QMenuBar>
#include <QShortcut>
#include <QSplitter>
#include <QVBoxLayout>

#include "Vantry/app/AppDelegate.h"
#include "Vantry/app/FieldSettling.h"
#include "Vantry/app/QtText.h"
#include "Vantry/interface/design/Appearance.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/VantryMotionPreference.h"
#include "Vantry/interface/design/VantryPageArrival.h"
#include "Vantry/interface/design/VantryStyle.h"
#include "Vantry/interface/library/LibraryView.h"
#include "Vantry/interface/library/ProjectView.h"
#include "Vantry/interface/navigation/Banner.h"
#include "Vantry/interface/navigation/CrumbBar.h"
#include "Vantry/interface/navigation/DoubledClickGuard.h"
#include "Vantry/interface/navigation/NewProjectSheet.h"
#include "Vantry/interface/navigation/Sidebar.h"
#include "Vantry/interface/navigation/StatusLine.h"
#include "Vantry/interface/navigation/StoreAlert.h"
#include "Vantry/interface/navigation/ToolBar.h"
#include "Vantry/interface/navigation/WindowActions.h"
#include "Vantry/interface/pages/Contained.h"
#include "Vantry/interface/pages/MissingView.h"
#include "Vantry/interface/pages/PanelOperation.h"
#include "Vantry/interface/routes/Crumbs.h"
#include "Vantry/interface/routes/PageEnvironment.h"
#include "Vantry/interface/settings/SettingsView.h"
#include "Vantry/interface/shots/ActView.h"
#include "Vantry/interface/shots/NewTake.h"
#include "Vantry/interface/shots/ShotView.h"
#include "Vantry/interface/shots/TakeView.h"
#include "Vantry/schedule/pages/SearchView.h"
#include "Vantry/schedule/pages/VantryCalendarView.h"

namespace vantry {

RootView::RootView(VantryStore& opened, AppDelegate& guard)
    : store(opened)
    , delegate(guard)
    , context{store, [this](const Route& route) { goWithKeyboard(route); }, [this] { refreshSoon(); },
              [this](const Route& route) { goWriting(route); }}
    , pageMemory(std::make_shared<PageMemory>())
    , places([this](const Route& route) { pageMemory->active = route; }) {
    pageMemory->onChange([this] { refreshSoon(); });
    VantryStyle::install();
    appearance = new Appearance(this);
    motion = new VantryMotionPreference(this);
    setWindowTitle(QStringLiteral("Vantry"));
    setMinimumSize(Metrics::windowMinimumWidth, Metrics::windowMinimumHeight);
    resize(Metrics::windowWidth, Metrics::windowHeight);

    actions = new WindowActions(store, *menuBar());
    backup = new PanelOperation(store, *this);
    auto* splitter = new QSplitter(this);
    splitter->setHandleWidth(Metrics::hairline);
    splitter->setChildrenCollapsible(false);
    sidebar = new Sidebar(splitter);
    splitter->addWidget(sidebar);
    splitter->addWidget(makeDetail());
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({Metrics::sidebarIdeal, Metrics::windowWidth - Metrics::sidebarIdeal});
    // The splitter turned their order round.
    sidebar->lower();
    setCentralWidget(splitter);
    newProject = new NewProjectSheet(this);
    alert = new StoreAlert(store, *this);

    connect(&store, &VantryStore::changed, this, &RootView::refreshSoon);
    connect(actions, &WindowActions::backWanted, this, &RootView::goBack);
    connect(actions, &WindowActions::homeWanted, this, [this] { go(Route::library()); });
    connect(actions, &WindowActions::undoWanted, this, &RootView::undo);
    connect(actions, &WindowActions::exportWanted, this,
            [this] { backup->start([this] { store.exportBackup(); }); });
    connect(actions, &WindowActions::importWanted, this,
            [this] { backup->start([this] { store.importBackup(); }); });
    connect(actions, &WindowActions::quitWanted, this, &RootView::close);
    connect(sidebar, &Sidebar::routePressed, this, &RootView::go);
    connect(sidebar, &Sidebar::newProjectPressed, newProject, &NewProjectSheet::start);
    connect(sidebar, &Sidebar::newTakePressed, this, [this](const Route& shot) {
        // Who makes takes in the tree stays there with the keyboard.
        PageContext inTree = context;
        inTree.go = [this](const Route& route) { go(route); };
        perform([&] { startNewTake(inTree, *shot.projectID(), *shot.actID(), *shot.shotID()); });
    });
    connect(crumbBar, &CrumbBar::routePressed, this, &RootView::goWithKeyboard);
    connect(newProject, &NewProjectSheet::createPressed, this, &RootView::createProject);
    new DoubledClickGuard([this] { return page; }, this);
    // The key for it on every desktop; Qt itself knows only Alt.
    auto* menuKey = new QShortcut(Qt::Key_F10, this);
    connect(menuKey, &QShortcut::activated, menuBar(),
            [bar = menuBar()] { bar->setActiveAction(bar->actions().constFirst()); });
    showPage();
    page->setFocus(Qt::OtherFocusReason);
}

RootView::~RootView() = default;

QWidget* RootView::makeDetail() {
    auto* detail = new QWidget;
    auto* column = new QVBoxLayout(detail);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    // In the order in which the keyboard and assistive tools walk through them.
    auto* toolBar = new ToolBar(*actions, detail);
    banner = new Banner(detail);
    crumbBar = new CrumbBar(detail);
    statusLine = new StatusLine(detail);
    pagePlace = new QVBoxLayout;
    column->addWidget(toolBar);
    column->addWidget(banner);
    column->addWidget(crumbBar);
    column->addLayout(pagePlace, 1);
    column->addWidget(statusLine);
    return detail;
}

Page* RootView::makePage(const Route& route) {
    const auto project = route.projectID().value_or(Identifier());
    const auto act = route.actID().value_or(Identifier());
    const auto shot = route.shotID().value_or(Identifier());
    switch (route.place()) {
    case Route::Place::library:
        return new LibraryView(context, [this] { newProject->start(); });
    case Route::Place::project:
        return new ProjectView(context, project);
    case Route::Place::act:
        return new ActView(context, project, act);
    case Route::Place::shot:
        return new ShotView(context, project, act, shot);
    case Route::Place::take:
        return new TakeView(context, project, act, shot, *route.takeID());
    case Route::Place::search:
        return new SearchView(context);
    case Route::Place::calendar:
        return new VantryCalendarView(context);
    case Route::Place::settings:
        return new SettingsView(context);
    }
    return new MissingView(context);
}

void RootView::showPage() {
    Page* const old = page;
    QWidget* const focused = focusWidget();
    const bool onCrumb = focused != nullptr && crumbBar->isAncestorOf(focused);
    const bool hadFocus = onCrumb || (old != nullptr && old->isAncestorOf(focused));
    // The crumb of the place that is reached goes off, and would pass the keyboard on to whatever comes next.
    if (onCrumb)
        focused->clearFocus();
    page = makePage(places.route());
    new PageEnvironment(*page, pageMemory, places.route());
    pagePlace->addWidget(page);
    page->stackUnder(statusLine);
    if (old != nullptr) {
        pagePlace->removeWidget(old);
        old->hide();
        old->deleteLater();
    }
    refreshNow();
    page->show();
    VantryPageArrival::begin(*page);
    // From here the next Tab reaches the page's first control, wherever the old page had the keyboard.
    if (hadFocus)
        page->setFocus(Qt::OtherFocusReason);
}

bool RootView::flush() {
    // It belongs to the page that is left.
    settleField();
    return store.flush();
}

void RootView::go(const Route& route) {
    perform([&] {
        if (places.go(route, [this] { return flush(); }))
            showPage();
    });
}

void RootView::goWithKeyboard(const Route& route) {
    go(route);
    if (places.route() == route && page != nullptr && !page->isAncestorOf(focusWidget()))
        page->setFocus(Qt::OtherFocusReason);
}

void RootView::goWriting(const Route& route) {
    go(route);
    if (places.route() == route && page != nullptr)
        page->beginWriting();
}

void RootView::goBack() {
    perform([this] {
        if (places.goBack([this] { return flush(); }))
            showPage();
    });
}

void RootView::perform(const std::function<void()>& action) {
    // Marked first: an action that shows another page has brought all in line when it ends.
    refreshSoon();
    contain(store, action);
}

void RootView::undo() {
    perform([this] {
        settleField();
        store.undo();
    });
}

void RootView::createProject() {
    perform([this] {
        const Text name(trimmed(toText(newProject->name()).utf8()));
        if (name.empty() || !store.acceptCreation(VantryCreationAction::project()))
            return;
        const Identifier id = store.addProject(name, toText(newProject->director()));
        sidebar->expand(id);
        newProject->hide();
        // A second Return belongs to nothing, and surely not to the button that opened the sheet.
        page->setFocus(Qt::OtherFocusReason);
        go(Route::project(id));
    });
}

void RootView::refreshSoon() {
    if (refreshQueued)
        return;
    refreshQueued = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (refreshQueued)
                refreshNow();
        },
        Qt::QueuedConnection);
}

void RootView::refreshNow() {
    refreshQueued = false;
    contain(store, [this] {
        const bool english = store.english();
        const Route& route = places.route();
        appearance->setChoice(toQString(store.appearance()));
        motion->setChoice(store.reducesMotion());
        actions->refresh(places.canGoBack());
        sidebar->refresh(store.library(), route, english);
        banner->refresh(store.loadFailed(), english);
        crumbBar->refresh(crumbs(store.library(), route, english), route);
        page->refresh();
        statusLine->refresh(store);
        newProject->refresh(english, store.loadFailed());
        // The question of the guard tells the failure itself.
        if (!delegate.isAsking())
            alert->refresh();
    });
}

void RootView::closeEvent(QCloseEvent* event) {
    event->setAccepted(mayClose);
    if (!mayClose)
        endSoon();
}

void RootView::endSoon() {
    if (endQueued)
        return;
    endQueued = true;
    // The guard may ask, and no question may run inside the closing of a window: Qt would let a second close
    // pass behind it.
    QMetaObject::invokeMethod(
        this,
        [this] {
            contain(store, [this] { mayClose = delegate.shouldTerminate(); });
            endQueued = false;
            if (mayClose)
                close();
            mayClose = false;
            refreshSoon();
        },
        Qt::QueuedConnection);
}

void RootView::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (appeared)
        return;
    appeared = true;
    delegate.setStore(store);
    raise();
    activateWindow();
    refreshSoon();
}

}  // namespace vantry
