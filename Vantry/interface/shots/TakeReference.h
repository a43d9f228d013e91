#pragma once

#include <QWidget>

namespace vantry {

class Button;
class Label;
class StoryboardPreview;
class VantryStore;
struct Shot;

/// The frame of the shot that a take belongs to, with the way to its plan. As wide as it stands beside the
/// log the way is beside the title, narrower below the frame.
class TakeReference final : public QWidget {
    Q_OBJECT

public:
    explicit TakeReference(VantryStore& store, QWidget* parent = nullptr);

    void refresh(const Shot& shot, bool english);

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return QSize(0, 0); }

signals:
    void planWanted();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void arrange();

    Label* title;
    StoryboardPreview* frame;
    Button* plan;
};

}  // namespace vantry
