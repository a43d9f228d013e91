#pragma once

#include <optional>
#include <utility>

#include <QLabel>

#include "Vantry/interface/design/Palette.h"
#include "Vantry/interface/design/VantryType.h"

namespace vantry {

/// A text that is only read. It is shown letter by letter, never as markup; its lines have the height of the
/// role in every script. It asks for nothing and takes no clicks.
class Label final : public QLabel {
    Q_OBJECT

public:
    /// What a text does that is longer than its place: one line cut at the end, with the whole of it as hover
    /// help, or as many lines as it takes.
    enum class Length { cut, wrapped };

    explicit Label(VantryType::Role role, Palette::Token colour = &Palette::ink, Length length = Length::cut,
                   QWidget* parent = nullptr);

    /// Shows `plain`, which assistive tools read too.
    void setPlain(const QString& plain);
    /// A wrapped text is cut behind so many lines, with the whole of it as hover help; 0 is no limit.
    void setMostLines(int lines);
    void setColour(Palette::Token token);
    void setStruckOut(bool struck);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] bool hasHeightForWidth() const override { return length == Length::wrapped; }
    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void forgetSizes();
    /// The one line of a text that may be cut, cut or not.
    [[nodiscard]] QString shownLine() const;
    /// Whether something of the text is not to be seen.
    [[nodiscard]] bool isCut() const;

    const VantryType::Role role;
    Palette::Token colour;
    const Length length;
    int mostLines = 0;
    // What the text takes, until it or its font changes: layouts ask many times.
    mutable std::optional<QSize> hint;
    mutable std::optional<std::pair<int, int>> heightAtWidth;
};

}  // namespace vantry
