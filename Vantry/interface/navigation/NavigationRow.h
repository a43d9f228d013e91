#pragma once

#include "Vantry/interface/design/Glyph.h"
#include "Vantry/interface/design/Pressable.h"

namespace vantry {

/// A fixed place of the sidebar: a sign and a word, marked while it is the place on screen.
class NavigationRow final : public Pressable {
    Q_OBJECT

public:
    explicit NavigationRow(Glyph glyph, QWidget* parent = nullptr);

    void setChosen(bool chosen);
    [[nodiscard]] bool isChosen() const noexcept { return chosen; }

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Glyph glyph;
    bool chosen = false;
};

}  // namespace vantry
