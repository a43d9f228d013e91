#pragma once

#include <vector>

#include "Vantry/interface/design/PartsLayout.h"

namespace vantry {

/// A page's parts in their reading order. Where the page is narrow they stand below each other in that order;
/// where it is wide, those of the side stand in a column of their own at the right. It is one page, laid out
/// by its width, so focus and assistive tools keep the reading order in both.
class DeskLayout final : public PartsLayout {
public:
    enum class Place { main, side };

    /// `gap` lies between the columns.
    DeskLayout(int sideWidth, int gap, QWidget* parent = nullptr);

    /// `above` is the space over the part, unless it is the first of its column.
    void addPart(QWidget* part, Place place, int above);

    /// An item that comes another way stands in the main column.
    void addItem(QLayoutItem* item) override;
    QLayoutItem* takeAt(int index) override;
    [[nodiscard]] int heightForWidth(int width) const override;
    void setGeometry(const QRect& rectangle) override;

private:
    struct Role {
        const QLayoutItem* part;
        Place place;
        int above;
    };

    [[nodiscard]] const Role& roleOf(const QLayoutItem& part) const;
    /// Places the parts from `origin` if there is one to place them at, and answers the height of all.
    int arrange(int width, const QPoint* origin) const;

    const int sideWidth;
    const int gap;
    std::vector<Role> roles;
};

}  // namespace vantry
