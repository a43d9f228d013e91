#pragma once

#include <QVBoxLayout>
#include <QWidget>

#include "Vantry/interface/design/Glyph.h"
#include "Vantry/interface/design/Label.h"

namespace vantry {

/// A surface for things that belong together and can be edited or opened, with or without a title.
class Card final : public QWidget {
    Q_OBJECT

public:
    explicit Card(QWidget* parent = nullptr);

    void setTitle(const QString& title);
    /// Where the content goes, from the top.
    [[nodiscard]] QVBoxLayout& content() noexcept { return *column; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QVBoxLayout* column;
    Label* label;
};

/// What stands where there is nothing yet: a sign, a title and what to do.
class EmptyCard final : public QWidget {
    Q_OBJECT

public:
    explicit EmptyCard(Glyph glyph, QWidget* parent = nullptr);

    void setTexts(const QString& title, const QString& subtitle);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Glyph glyph;
    Label* title;
    Label* subtitle;
};

}  // namespace vantry
