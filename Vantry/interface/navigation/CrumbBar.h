#pragma once

#include <vector>

#include <QList>
#include <QWidget>

#include "Vantry/interface/routes/Crumbs.h"

class QHBoxLayout;

namespace vantry {

class Button;
class Label;

/// The trail above a page. Each step leads to its place; the one that is on screen leads nowhere.
class CrumbBar final : public QWidget {
    Q_OBJECT

public:
    explicit CrumbBar(QWidget* parent = nullptr);

    void refresh(const std::vector<Crumb>& trail, const Route& route);

signals:
    void routePressed(const vantry::Route& route);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Step {
        Label* slash = nullptr;  ///< none in front of the first
        Button* button = nullptr;
        Route route;
    };

    void addStep();
    /// Where there is not room for all, short titles stay whole and long ones share what is left.
    void share();

    QHBoxLayout* row;
    std::vector<Step> steps;
};

}  // namespace vantry
