#pragma once

#include <QWidget>

#include "Vantry/interface/design/Glyph.h"

namespace vantry {

class Label;

/// What stands where there is nothing yet: a sign, a title and what to do.
class EmptyViewCard final : public QWidget {
    Q_OBJECT

public:
    explicit EmptyViewCard(Glyph glyph, QWidget* parent = nullptr);

    void setTexts(const QString& title, const QString& subtitle);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Glyph glyph;
    Label* title;
    Label* subtitle;
};

}  // namespace vantry
