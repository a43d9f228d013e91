#pragma once

#include <QToolButton>

#include "Vantry/interface/design/Glyph.h"

namespace vantry {

class ControlStates;

/// A button of the toolbar: a sign alone, named and explained by its action's text.
class ToolButton final : public QToolButton {
    Q_OBJECT

public:
    ToolButton(QAction& action, Glyph glyph, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void takeName();

    const Glyph glyph;
    ControlStates* states;
};

}  // namespace vantry
