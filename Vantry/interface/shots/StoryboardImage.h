#pragma once

#include <optional>
#include <vector>

#include <QWidget>

#include "VantryCore/records/Shot.h"

namespace vantry {

class VantryStore;

/// The storyboard frame of a shot, always 16:9: its image whole, and its drawing over it. An image that is no
/// longer there leaves the frame empty.
class StoryboardImage final : public QWidget {
    Q_OBJECT

public:
    explicit StoryboardImage(VantryStore& store, QWidget* parent = nullptr);

    /// Shows that shot's frame. `name` is what assistive tools call it; `hint` stands in it while there is
    /// neither an image nor a drawing.
    void fill(const Shot& shot, const QString& name, const QString& hint);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// The largest frame that fits, in the middle.
    [[nodiscard]] QRectF frame() const;
    [[nodiscard]] bool isEmpty() const { return !imageKey && strokes.empty(); }
    void paintHint(QPainter& painter, const QRectF& place) const;
    void paintImage(QPainter& painter, const QRectF& place) const;
    void paintStrokes(QPainter& painter, const QRectF& place) const;

    VantryStore& store;
    std::optional<Text> imageKey;
    std::vector<Stroke> strokes;
    QString shownHint;
};

}  // namespace vantry
