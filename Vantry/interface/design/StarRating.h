#pragma once

#include <array>

#include <QWidget>

#include "Vantry/interface/design/Button.h"

namespace vantry {

/// One star of a rating: a button whose value tells whether it is lit.
class StarButton final : public Pressable {
    Q_OBJECT

public:
    explicit StarButton(QWidget* parent = nullptr);

    void setLit(bool lit);
    /// What assistive tools are told: the name, and the value for a star that is lit or not.
    void setTexts(const QString& name, const QString& litText, const QString& unlitText);
    [[nodiscard]] const QString& value() const { return lit ? litText : unlitText; }

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString litText;
    QString unlitText;
    bool lit = false;
};

/// Five stars of which the first ones are lit. It decides nothing: it says which star was pressed.
class StarRating final : public QWidget {
    Q_OBJECT

public:
    static constexpr int count = 5;

    explicit StarRating(QWidget* parent = nullptr);

    [[nodiscard]] StarButton& star(int number) { return *stars[static_cast<std::size_t>(number - 1)]; }
    void setStars(int lit);

signals:
    void pressed(int number);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::array<StarButton*, count> stars{};
};

}  // namespace vantry
