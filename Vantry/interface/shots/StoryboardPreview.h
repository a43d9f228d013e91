#pragma once

#include "Vantry/interface/design/Pressable.h"
#include "Vantry/interface/shots/StoryboardFrame.h"

namespace vantry {

/// The small storyboard frame of a shot, which is pressed to see it large: the viewer then opens over the
/// window by itself. Of a cancelled shot it is faded.
///
/// A page that takes images calls `setAcceptDrops(true)`: a single file can then be dropped on the frame.
/// Anything else, and anything while the library could not be read, is refused.
class StoryboardPreview final : public Pressable {
    Q_OBJECT

public:
    explicit StoryboardPreview(VantryStore& store, QWidget* parent = nullptr);

    /// Shows that shot's frame and names it after the shot.
    void fill(const Shot& shot, bool english);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return QSize(0, 0); }
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;

signals:
    /// A file was dropped: its path on this machine. What is being composed has been taken into its text.
    void dropped(const QString& path);

protected:
    bool hitButton(const QPoint& position) const override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void enlarge();
    void setDropTarget(bool target);
    void paintMark(QPainter& painter, const QRectF& place) const;

    VantryStore& store;
    StoryboardFrame frame;
    Identifier shotID;
    bool faded = false;
    bool isDropTarget = false;
};

}  // namespace vantry
