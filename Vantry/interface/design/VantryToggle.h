#pragma once

#include <QCheckBox>

#include "Vantry/interface/design/Transition.h"

namespace vantry {

class ControlStates;

/// A switch for one yes or no, whose question stands beside it. It is a check box to assistive tools; Return
/// turns it as well as the space bar, a held one once.
class VantryToggle final : public QCheckBox {
    Q_OBJECT

public:
    explicit VantryToggle(QWidget* parent = nullptr);

    /// The question that it answers.
    void setName(const QString& name) { setAccessibleName(name); }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    [[nodiscard]] bool hitButton(const QPoint& position) const override { return rect().contains(position); }

private:
    ControlStates* states;
};

}  // namespace vantry
