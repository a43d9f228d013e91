#pragma once

#include <functional>

#include <QObject>

class QWidget;

namespace vantry {

class VantryStore;

/// Runs what opens a panel of the system, once the event that asked for it is done: a tool that pressed the
/// entry of a menu is not held up until the panel closes, and no menu stays open over it.
class PanelOperation final : public QObject {
    Q_OBJECT

public:
    /// For what the person starts on `owner`, which keeps this; `store` must outlive it.
    PanelOperation(VantryStore& store, QWidget& owner);

    /// Runs `operation` soon, with all texts as they are, the one being composed too. Does nothing while one
    /// waits or runs; what waits is forgotten when its owner leaves the screen.
    void start(std::function<void()> operation);

private:
    void run(const std::function<void()>& operation);

    VantryStore& store;
    QWidget& owner;
    bool busy = false;
};

}  // namespace vantry
