#include "Vantry/interface/navigation/WindowActions.h"

#include <QAction>
#include <QActionGroup>
#include <QMenu>
#include <QMenuBar>

#include "Vantry/app/FieldSettling.h"
#include "Vantry/app/QtText.h"
#include "Vantry/app/VantryStore.h"
#include "Vantry/interface/design/ControlText.h"
#include "Vantry/interface/pages/Contained.h"

namespace vantry {
namespace {

void setPlain(QAction& action, const QString& plain) {
    action.setText(controlText(plain));
}

}  // namespace

WindowActions::WindowActions(VantryStore& opened, QMenuBar& bar)
    : QObject(&bar)
    , store(opened)
    , file(bar.addMenu(QString()))
    , edit(bar.addMenu(QString()))
    , view(bar.addMenu(QString()))
    , languageMenu(view->addMenu(QString()))
    , appearanceMenu(view->addMenu(QString()))
    , languages(new QActionGroup(this))
    , appearances(new QActionGroup(this))
    , backAction(add(nullptr))
    , homeAction(add(nullptr))
    , undoAction(add(edit))
    , saveAction(add(file))
    , exportAction(add(file))
    , importAction(add(file)) {
    file->addSeparator();
    quitAction = add(file);
    quitAction->setMenuRole(QAction::QuitRole);
    saveAction->setShortcut(Qt::CTRL | Qt::Key_S);
    quitAction->setShortcut(Qt::CTRL | Qt::Key_Q);
    for (const char* value : {"zh", "en"})
        addChoice(languageMenu, languages, value);
    for (const char* value : {"system", "light", "dark"})
        addChoice(appearanceMenu, appearances, value);

    connect(backAction, &QAction::triggered, this, &WindowActions::backWanted);
    connect(homeAction, &QAction::triggered, this, &WindowActions::homeWanted);
    connect(undoAction, &QAction::triggered, this, &WindowActions::undoWanted);
    connect(exportAction, &QAction::triggered, this, &WindowActions::exportWanted);
    connect(importAction, &QAction::triggered, this, &WindowActions::importWanted);
    connect(quitAction, &QAction::triggered, this, &WindowActions::quitWanted);
    connect(saveAction, &QAction::triggered, this, [this] {
        contain(store, [this] {
            settleField();
            store.flush();
        });
    });
    connect(languages, &QActionGroup::triggered, this, [this](QAction* action) {
        contain(store, [&] { store.setLanguage(toText(action->data().toString())); });
    });
    connect(appearances, &QActionGroup::triggered, this, [this](QAction* action) {
        contain(store, [&] { store.setAppearance(toText(action->data().toString())); });
    });
}

QAction* WindowActions::add(QMenu* menu) {
    auto* action = new QAction(this);
    action->setMenuRole(QAction::NoRole);
    if (menu != nullptr)
        menu->addAction(action);
    return action;
}

void WindowActions::addChoice(QMenu* menu, QActionGroup* group, const char* value) {
    QAction* action = add(menu);
    action->setCheckable(true);
    action->setData(QString::fromLatin1(value));
    group->addAction(action);
}

void WindowActions::refresh(bool canGoBack) {
    const bool english = store.english();
    const auto text = [english](QStringView zh, QStringView en) { return (english ? en : zh).toString(); };
    file->setTitle(text(u"文件", u"File"));
    edit->setTitle(text(u"编辑", u"Edit"));
    view->setTitle(text(u"显示", u"View"));
    languageMenu->setTitle(text(u"语言", u"Language"));
    appearanceMenu->setTitle(text(u"外观", u"Appearance"));
    setPlain(*backAction, text(u"返回", u"Back"));
    setPlain(*homeAction, text(u"资料库", u"Library"));
    setPlain(*undoAction, text(u"撤销结构修改", u"Undo structure change"));
    setPlain(*saveAction, text(u"保存", u"Save"));
    setPlain(*exportAction, text(u"导出备份…", u"Export backup…"));
    setPlain(*importAction, text(u"导入并合并…", u"Import and merge…"));
    setPlain(*quitAction, text(u"退出 Vantry", u"Quit Vantry"));
    backAction->setEnabled(canGoBack);
    undoAction->setEnabled(store.canUndo());
    exportAction->setEnabled(!store.loadFailed());
    importAction->setEnabled(!store.loadFailed());

    const QList<QAction*> languageChoices = languages->actions();
    setPlain(*languageChoices[0], QStringLiteral("中文"));
    setPlain(*languageChoices[1], QStringLiteral("English"));
    languageChoices[english ? 1 : 0]->setChecked(true);
    const QList<QAction*> appearanceChoices = appearances->actions();
    setPlain(*appearanceChoices[0], text(u"跟随系统", u"System"));
    setPlain(*appearanceChoices[1], text(u"浅色", u"Light"));
    setPlain(*appearanceChoices[2], text(u"深色", u"Dark"));
    const QString appearance = toQString(store.appearance());
    const int forced = appearance == QLatin1String("light") ? 1 : appearance == QLatin1String("dark") ? 2 : 0;
    appearanceChoices[forced]->setChecked(true);
}

}  // namespace vantry
