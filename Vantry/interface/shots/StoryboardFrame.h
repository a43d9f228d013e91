#pragma once

#include <optional>
#include <vector>

#include <QPainterPath>
#include <QPixmap>
#include <QRectF>
#include <QString>

#include "VantryCore/records/Shot.h"

class QImage;
class QPainter;
class QWidget;

namespace vantry {

struct Palette;
class VantryStore;

/// The storyboard frame of a shot, always 16:9, for the widget that shows it: the image whole, and the
/// drawing over it. An image that is no longer there leaves the frame empty. What was painted is kept, so
/// that painting it again costs no more than a picture, and a stroke more costs no more than that stroke.
class StoryboardFrame {
public:
    explicit StoryboardFrame(VantryStore& store);

    /// The largest frame that fits into `space`, in the middle.
    [[nodiscard]] static QRectF within(const QRectF& space);
    /// The outline of the frame at `place`, with its round corners.
    [[nodiscard]] static QPainterPath shapeOf(const QRectF& place);
    /// The height of a frame of that width.
    [[nodiscard]] static int heightFor(int width);

    /// Shows the image and the drawing of that shot. `hint` stands in it while there is neither; it is left
    /// out where the frame is too small for it. Answers whether there is something else to see.
    [[nodiscard]] bool fill(const Shot& shot, const QString& hint);
    /// What stands in it while it has neither image nor drawing; the empty text: nothing.
    void setHint(const QString& hint);
    /// Shows that drawing instead. Answers whether it is another one.
    bool setStrokes(const std::vector<Stroke>& strokes);
    /// Whether it has neither an image, even one whose file has gone, nor a drawing.
    [[nodiscard]] bool isEmpty() const { return !imageKey && strokes.empty(); }

    /// Paints it at `place`, which is a frame of `widget`; nothing outside of `exposed` is needed.
    void paint(QPainter& painter, const QRectF& place, const QRectF& exposed, const QWidget& widget);

private:
    /// What the kept picture was painted for.
    struct Look {
        QSizeF size;
        qreal scale = 0;
        const Palette* palette = nullptr;
        qint64 image = 0;

        bool operator==(const Look&) const = default;
    };

    [[nodiscard]] QImage imageFor(const QSizeF& size, qreal scale) const;
    void bringPictureInLine(const Look& look, const QImage& image);
    void repaintStale(const QRectF& place, const QImage& image);
    void paintContent(QPainter& painter, const QRectF& place, const QRectF& exposed, const Palette& palette,
                      const QImage& image) const;
    void paintStrokes(QPainter& painter, const QRectF& place, const QRectF& exposed, const Palette& palette,
                      std::size_t first) const;
    void paintHint(QPainter& painter, const QRectF& place, const Palette& palette) const;

    VantryStore& store;
    std::optional<Text> imageKey;
    std::vector<Stroke> strokes;
    std::vector<QRectF> bounds;  ///< of each stroke
    QString shownHint;
    QPixmap picture;  ///< what was painted last; null when it has to be painted anew
    Look pictured;
    std::size_t inPicture = 0;  ///< how many of the strokes are in the picture
    std::vector<QRectF> stale;  ///< the parts of it where strokes are gone, in fractions
};

}  // namespace vantry
