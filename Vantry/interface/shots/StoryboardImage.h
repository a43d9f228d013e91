#pragma once

#include <QWidget>

#include "Vantry/interface/shots/StoryboardFrame.h"

namespace vantry {

/// Shows the storyboard frame of a shot, as large as it fits, in the middle. It is a picture and takes no
/// clicks.
class StoryboardImage final : public QWidget {
    Q_OBJECT

public:
    explicit StoryboardImage(VantryStore& store, QWidget* parent = nullptr);

    /// Shows that shot's frame. `name` is what assistive tools call it; `hint` stands in it, and is its
    /// description, while there is neither an image nor a drawing.
    void fill(const Shot& shot, const QString& name, const QString& hint);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    StoryboardFrame frame;
};

}  // namespace vantry
