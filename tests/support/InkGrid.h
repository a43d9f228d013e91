#pragma once

#include <algorithm>
#include <vector>

#include <QImage>

namespace vantry::test {

/// How much ink there is in each cell of a picture, from 0 to 1, softened so that a shift of a dot or two
/// does not count.
class InkGrid {
public:
    /// How much ink a colour is, from 0 to 1.
    using Ink = double (*)(QRgb colour);

    /// Cells are `cell` dots wide and high.
    InkGrid(const QImage& picture, int cell, Ink inkOf)
        : across((picture.width() + cell - 1) / cell)
        , down((picture.height() + cell - 1) / cell)
        , ink(static_cast<std::size_t>(across * down)) {
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                at(x / cell, y / cell) += inkOf(picture.pixel(x, y)) / (cell * cell);
    }
    /// By how much cells may differ and still be alike: a share of the ink that is there, and a little more.
    struct Tolerance {
        double share = 0;
        double more = 0;
    };
    /// How many cells the pictures have in which they differ by more than that; all, when their sizes differ.
    [[nodiscard]] int cellsUnlike(const InkGrid& other, const Tolerance& allowed) const {
        if (across != other.across || down != other.down)
            return std::max(across * down, 1);
        int count = 0;
        for (int y = 0; y < down; ++y)
            for (int x = 0; x < across; ++x)
                count += isUnlike(other, x, y, allowed) || other.isUnlike(*this, x, y, allowed) ? 1 : 0;
        return count;
    }
    [[nodiscard]] int cells() const noexcept { return across * down; }

private:
    [[nodiscard]] double& at(int x, int y) { return ink[static_cast<std::size_t>(y * across + x)]; }
    [[nodiscard]] double at(int x, int y) const { return ink[static_cast<std::size_t>(y * across + x)]; }
    /// Whether this cell has more or less ink than anything in and around that place of the other picture.
    [[nodiscard]] bool isUnlike(const InkGrid& other, int x, int y, const Tolerance& allowed) const {
        double least = 1;
        double most = 0;
        for (int i = std::max(0, y - 1); i <= std::min(down - 1, y + 1); ++i)
            for (int j = std::max(0, x - 1); j <= std::min(across - 1, x + 1); ++j) {
                least = std::min(least, other.at(j, i));
                most = std::max(most, other.at(j, i));
            }
        return at(x, y) > most * (1 + allowed.share) + allowed.more ||
               at(x, y) < least * (1 - allowed.share) - allowed.more;
    }

    int across;
    int down;
    std::vector<double> ink;
};

}  // namespace vantry::test
