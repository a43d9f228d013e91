#pragma once

#include <QLabel>

#include "Vantry/interface/design/Palette.h"
#include "Vantry/interface/design/VantryType.h"

namespace vantry {

/// A short text, such as a time, whose digits all have the same width: it does not tremble while they change.
/// It is shown letter by letter on one line, which is never cut.
class TabularLabel final : public QLabel {
    Q_OBJECT

public:
    explicit TabularLabel(VantryType::Role role, Palette::Token colour, QWidget* parent = nullptr);

    /// Shows `plain`, which assistive tools read too.
    void setPlain(const QString& plain);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// The room that the letter takes.
    [[nodiscard]] qreal advance(QChar letter) const;

    const VantryType::Role role;
    const Palette::Token colour;
};

}  // namespace vantry
