#pragma once

#include <QProgressBar>

#include "Vantry/interface/design/Transition.h"

namespace vantry {

/// How much of something is done, as a thin bar. Its name is "6 / 21".
class CompletionLine final : public QProgressBar {
    Q_OBJECT

public:
    explicit CompletionLine(QWidget* parent = nullptr);

    /// Nothing of nothing is an empty bar.
    void setDone(int done, int total);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Transition share;  ///< what is filled, from 0 to 1
    bool hasShown = false;
};

}  // namespace vantry
