#pragma once

#include <QWidget>

namespace vantry {

class Button;
class Card;
class StoryboardPreview;
class VantryStore;
struct Shot;

/// The frame of a shot with what makes it: an image from a file or dropped on it, and a drawing. It says what
/// the person wants and changes nothing.
class ShotFrameCard final : public QWidget {
    Q_OBJECT

public:
    explicit ShotFrameCard(VantryStore& store, QWidget* parent = nullptr);

    void refresh(const Shot& shot, bool english);

signals:
    void importWanted();
    /// The file at `path` was dropped on the frame.
    void imageDropped(const QString& path);
    void drawWanted();
    void removeWanted();

private:
    Card* card;
    StoryboardPreview* frame;
    Button* importImage;
    Button* draw;
    Button* remove;
};

}  // namespace vantry
