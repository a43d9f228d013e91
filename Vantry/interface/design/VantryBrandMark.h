#pragma once

#include <QPixmap>
#include <QWidget>

namespace vantry {

/// The brand mark, a perforated page, in the ink of the appearance. It keeps its proportions in the middle of
/// whatever place it is given. It is decoration: assistive tools pass over it, and so do clicks.
///
/// The picture comes from the resource file and is read once. The program cannot run without it and ends when
/// it is missing.
class VantryBrandMark final : public QWidget {
    Q_OBJECT

public:
    explicit VantryBrandMark(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPixmap tinted;  ///< as it was painted last
    QRgb tint = 0;
};

}  // namespace vantry
