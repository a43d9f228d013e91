#pragma once

#include "Vantry/interface/design/Button.h"

namespace vantry {

/// What a row shows.
struct RowContent {
    Glyph glyph = Glyph::none;
    QString title;
    QString detail;          ///< a line of facts below, also the accessible description
    bool struckOut = false;  ///< what the row stands for is off

    friend bool operator==(const RowContent&, const RowContent&) = default;
};

/// One row of a list: a sign, a name, a line of facts; pressing it leads to what it stands for.
class RowButton final : public Pressable {
    Q_OBJECT

public:
    explicit RowButton(QWidget* parent = nullptr);

    void setContent(const RowContent& content);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    RowContent content;
};

}  // namespace vantry
