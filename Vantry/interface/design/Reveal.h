#pragma once

#include <QWidget>

#include "Vantry/interface/design/Transition.h"

namespace vantry {

/// Shows a widget by letting it come out from under what stands above it: as high as the shown share of it,
/// while the widget keeps its full height. What is not shown at all is hidden.
class Reveal final : public QWidget {
    Q_OBJECT

public:
    explicit Reveal(QWidget* parent);

    /// Once: what it shows becomes its child.
    void setWidget(QWidget* widget);
    void setShown(bool shown, bool moving);

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] int fullHeight(int width) const;
    [[nodiscard]] int shownPart(int height) const;
    void arrange();
    void follow();

    QWidget* content = nullptr;
    Transition share;
};

}  // namespace vantry
