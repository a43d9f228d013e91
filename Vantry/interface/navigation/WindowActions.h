#pragma once

#include <QObject>

class QAction;
class QActionGroup;
class QMenu;
class QMenuBar;

namespace vantry {

class VantryStore;

/// The window's actions and its menu. An action is one object wherever it is shown, so that a shortcut has
/// one owner.
class WindowActions final : public QObject {
    Q_OBJECT

public:
    WindowActions(VantryStore& store, QMenuBar& bar);

    /// Texts, marks and what can be used now.
    void refresh(bool canGoBack);

    [[nodiscard]] QAction& back() noexcept { return *backAction; }
    [[nodiscard]] QAction& home() noexcept { return *homeAction; }
    [[nodiscard]] QAction& undo() noexcept { return *undoAction; }
    [[nodiscard]] QAction& save() noexcept { return *saveAction; }

signals:
    void backWanted();
    void homeWanted();
    void undoWanted();
    void exportWanted();
    void importWanted();
    void quitWanted();

private:
    [[nodiscard]] QAction* add(QMenu* menu);
    void addChoice(QMenu* menu, QActionGroup* group, const char* value);

    VantryStore& store;
    QMenu* file;
    QMenu* edit;
    QMenu* view;
    QMenu* languageMenu;
    QMenu* appearanceMenu;
    QActionGroup* languages;
    QActionGroup* appearances;
    QAction* backAction;
    QAction* homeAction;
    QAction* undoAction;
    QAction* saveAction;
    QAction* exportAction;
    QAction* importAction;
    QAction* quitAction = nullptr;
};

}  // namespace vantry
