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

private:
    struct Step {
        Label* slash = nullptr;  ///< none in front of the first
        Button* button = nullptr;
        Route route;
    };

    void addStep();

    QHBoxLayout* row;
    std::vector<Step> steps;
};

}  // namespace vantry
