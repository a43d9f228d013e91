#pragma once

#include <functional>

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QWidget>

namespace vantry {

/// Keeps the second press of a double click from a page that the first one led to: it was not meant for what
/// has come to stand under the pointer.
class DoubledClickGuard final : public QObject {
    Q_OBJECT

public:
    /// Watches the presses on the page that `page` answers, from now on.
    DoubledClickGuard(std::function<QWidget*()> page, QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const std::function<QWidget*()> page;
    QPointer<QWidget> pressedPage;
    QPoint pressedAt;
    quint64 pressedWhen = 0;
};

}  // namespace vantry
