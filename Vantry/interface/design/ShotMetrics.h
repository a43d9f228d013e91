#pragma once

namespace vantry {

/// The lengths of the pages on which shots are planned and takes logged, in points; `Metrics` has them all.
struct ShotMetrics {
    static constexpr int shotRowHeight = 112;
    static constexpr int shotColumns = 3;  ///< of the grid, at most
    static constexpr int threeShotsFrom = 1000;
    static constexpr int twoShotsFrom = 560;
    static constexpr int handleInset = 8;      ///< what a row is dragged by, from its edge
    static constexpr int rowFrameWidth = 156;  ///< a frame in a row
    static constexpr int smallFrameWidth = 128;
    static constexpr int planFrameWidth = 420;  ///< the frame of a narrow shot page
    static constexpr int takeFrameWidth = 236;  ///< and of a narrow take page
    static constexpr int rowButtonsWidth = 96;  ///< buttons of a narrow row, above each other
    static constexpr int briefLabelWidth = 92;
    static constexpr int briefLabelWidthChinese = 64;
    static constexpr int startFieldWidth = 240;
    static constexpr int durationFieldWidth = 170;
    static constexpr int soundTakeWidth = 84;
    static constexpr int aroundNotes = 440;  ///< of a take's page, what is not its notes
    static constexpr int takeRowHeight = 56;
    static constexpr int takeNameWidth = 76;
    static constexpr int takeResultWidth = 72;
    static constexpr int takeStarsWidth = 32;
    static constexpr int chooserRowHeight = 52;
    static constexpr int chooserWidth = 560;
    static constexpr int chooserHeight = 640;

    // Storyboard frames.
    static constexpr int enlargeMark = 24;  ///< the square at the corner of a frame
    static constexpr int enlargeInset = 6;  ///< from both edges
    static constexpr int iconMark = 14;     ///< the sign on it
    static constexpr int viewerWidth = 1120;
    static constexpr int viewerHeight = 760;
    static constexpr int viewerSpace = 32;  ///< around a frame at 100%, both sides together
    static constexpr int viewerStep = 48;   ///< of the keyboard and the wheel, while it is scrolled
    static constexpr int zoomWidth = 48;    ///< the percentage
    static constexpr int drawingWidth = 1120;
    static constexpr int drawingHeight = 795;
};

}  // namespace vantry
