#pragma once

#include <QPointer>
#include <QWidget>

namespace vantry {

class AlertSheet;
class VantryStore;

/// Shows the store's error, else its notice, in an alert over whatever sheet is topmost. The alert follows
/// the store: another text replaces the one on screen, a text that is gone takes the alert with it, and the
/// alert's button clears the text.
class StoreAlert final : public QObject {
    Q_OBJECT

public:
    StoreAlert(VantryStore& store, QWidget& window);

    void refresh();

private:
    void clear();

    VantryStore& store;
    QWidget& window;
    QPointer<AlertSheet> alert;
    bool showsError = false;
};

}  // namespace vantry
