#pragma once

#include "Vantry/interface/design/PartsLayout.h"

namespace vantry {

/// The planning block of a shot: its frame, its brief and its sound. In a width of `breakpoint` or more there
/// are two equal columns, the frame over the sound at the left and the brief, as high as both, at the right;
/// in less there is one, in that order. It lays out exactly three parts, and none of another number.
class ShotPlanLayout final : public PartsLayout {
public:
    ShotPlanLayout(double gap, double breakpoint, QWidget* parent = nullptr);

    [[nodiscard]] int heightForWidth(int width) const override;
    void setGeometry(const QRect& rectangle) override;

private:
    /// Places the parts from `origin` if there is one to place them at, and answers the height of all.
    int arrange(int width, const QPoint* origin) const;

    const double gap;
    const double breakpoint;
};

}  // namespace vantry
