#pragma once

#include <QWidget>

#include "Vantry/interface/design/Glyph.h"
#include "Vantry/interface/design/Palette.h"

namespace vantry {

class Label;
class TabularLabel;
class VantryStore;

/// The foot of the window: whether everything is on disk, told by shape, word and colour, and since when.
class StatusLine final : public QWidget {
    Q_OBJECT

public:
    explicit StatusLine(QWidget* parent = nullptr);

    void refresh(const VantryStore& store);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Label* state;
    TabularLabel* time;
    Glyph glyph = Glyph::none;
    Palette::Token colour = &Palette::completed;
};

}  // namespace vantry
