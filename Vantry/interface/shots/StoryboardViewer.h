#pragma once

#include <optional>

#include "Vantry/interface/design/WorkSheet.h"
#include "VantryCore/records/Identifier.h"
#include "VantryCore/records/Text.h"

class QScrollArea;

namespace vantry {

class Button;
class Label;
class StoryboardImage;
class TabularLabel;
class VantryStore;

/// A shot's storyboard frame as large as the window allows, and up to four times as large, to look around in.
/// It follows the store by itself: the shot, the language, the appearance. It goes when the shot has gone.
///
/// Zoomed, the middle of what is seen stays in the middle. Ctrl with plus, minus and 0, and the wheel with
/// Ctrl, zoom too; arrow keys and the wheel alone scroll.
class StoryboardViewer final : public WorkSheet {
    Q_OBJECT

public:
    static constexpr double smallest = 1;
    static constexpr double largest = 4;
    static constexpr double step = 0.5;

    /// Shows the shot over the window, which then owns the sheet; does nothing when there is no such shot.
    static void open(VantryStore& store, const Identifier& shotID, QWidget& window);

    [[nodiscard]] double zoom() const noexcept { return zoomed; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    StoryboardViewer(VantryStore& store, const Identifier& shotID, QWidget* window);

    void makeHeader();
    void makeKeys();
    void refreshSoon();
    void refresh();
    void refreshZoom();
    void setZoom(double zoom);
    void fetch();
    /// The width of the frame that the window has room for.
    [[nodiscard]] double fitWidth() const;
    /// Gives the frame its size; what is in the middle of the view stays there.
    void layOut();
    void scroll(Qt::Orientation orientation, int steps);

    VantryStore& store;
    const Identifier shotID;
    double zoomed = smallest;
    int turned = 0;  ///< how far the wheel was turned since the last step of the zoom
    bool refreshQueued = false;
    std::optional<Text> key;  ///< of the image
    Button* zoomOut;
    TabularLabel* percentage;
    Button* zoomIn;
    Button* fitToWindow;
    Button* dismiss;
    Label* hint;
    QScrollArea* view;
    StoryboardImage* image;
};

}  // namespace vantry
