#pragma once

#include "Vantry/interface/design/PartsLayout.h"

namespace vantry {

/// The log of a take, in the order of the keyboard: reference, result bar, notes, media, parameters, foot.
/// Where the page is wide, reference and media stand in a column at the right. Where it is narrow, the
/// reference stands at the left of the result bar and everything else below. It lays out exactly six parts.
class TakeLayout final : public PartsLayout {
public:
    explicit TakeLayout(QWidget* parent);

    [[nodiscard]] int heightForWidth(int width) const override;
    void setGeometry(const QRect& rectangle) override;

private:
    /// Places the parts from `origin` if there is one to place them at, and answers the height of all.
    int arrange(int width, const QPoint* origin) const;
};

}  // namespace vantry
