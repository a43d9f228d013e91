#pragma once

#include "Vantry/interface/design/PartsLayout.h"

namespace vantry {

/// A main part and a side part: beside each other where there is room, the side below the main part where the
/// page is narrow. It is made for exactly two parts and gives any other number no room.
class VantryWorkLayout final : public PartsLayout {
public:
    VantryWorkLayout(int sideWidth, int gap, QWidget* parent = nullptr);

    [[nodiscard]] int heightForWidth(int width) const override;
    void setGeometry(const QRect& rectangle) override;

private:
    const int sideWidth;
    const int gap;
};

}  // namespace vantry
