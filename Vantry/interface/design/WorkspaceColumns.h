#pragma once

#include "Vantry/interface/design/PartsLayout.h"

namespace vantry {

/// Parts of one kind in two columns of at least a least width, or in one where two do not fit; row by row,
/// each row as high as its tallest part.
class WorkspaceColumns final : public PartsLayout {
public:
    /// `minimum` is the least width of a column; `gap` lies between columns and between rows.
    WorkspaceColumns(int minimum, int gap, QWidget* parent = nullptr);

    [[nodiscard]] int heightForWidth(int width) const override;
    void setGeometry(const QRect& rectangle) override;

private:
    const int minimum;
    const int gap;
};

}  // namespace vantry
