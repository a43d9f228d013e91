#pragma once

#include <QWidget>

#include "Vantry/interface/design/Appearance.h"
#include "Vantry/interface/design/VantryMotionPreference.h"
#include "gallery/Sample.h"

namespace vantry {
class Label;
class SegmentedChoice;
class VantryToggle;
}  // namespace vantry

namespace vantry::gallery {

class Board;

/// A window with all components of the design system, where appearance, language and motion are switched
/// while it is open.
class Gallery final : public QWidget {
public:
    Gallery();

    void setDark(bool dark);
    void setEnglish(bool english);
    void setReducedMotion(bool reduced);

    [[nodiscard]] Board& board() noexcept { return *shown; }
    /// How large the window has to be to show all of the board at once.
    [[nodiscard]] QSize wholeSize() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QWidget* makeHeader();

    Sample sample;
    Appearance appearanceOfAll;
    VantryMotionPreference motion;
    Label* title = nullptr;
    SegmentedChoice* appearance = nullptr;
    SegmentedChoice* language = nullptr;
    VantryToggle* stillness = nullptr;
    Label* stillnessName = nullptr;
    QWidget* header;
    Board* shown;
};

}  // namespace vantry::gallery
