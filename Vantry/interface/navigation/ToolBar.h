#pragma once

#include <QWidget>

namespace vantry {

class WindowActions;

/// The strip over the page: where to, at the left, and what keeps the work, at the right.
class ToolBar final : public QWidget {
    Q_OBJECT

public:
    ToolBar(WindowActions& actions, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace vantry
