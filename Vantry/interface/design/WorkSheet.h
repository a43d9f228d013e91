#pragma once

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "Vantry/interface/design/SheetWindow.h"

namespace vantry {

class Label;

/// A sheet to work in: its title and actions in a header, what is worked on in the middle, and a footer or
/// none. Header and footer keep their height, the middle takes what is left. Without a footer the middle has
/// the surface of the sheet.
class WorkSheet : public SheetWindow {
    Q_OBJECT

public:
    enum class Footer { none, text, buttons };

    /// `wanted` is its size where the window has room for it.
    WorkSheet(const QSize& wanted, Footer footer, QWidget* parent);

    /// One line, cut where there is no room; it names the sheet.
    void setTitle(const QString& title);
    /// At the right of the header.
    [[nodiscard]] QHBoxLayout& actions() noexcept { return *actionRow; }
    /// The middle, without a margin.
    [[nodiscard]] QVBoxLayout& content() noexcept { return *column; }
    [[nodiscard]] QHBoxLayout& footer() noexcept { return *footerRow; }

protected:
    [[nodiscard]] QSize wantedSize() override { return wanted; }
    /// The size of the middle.
    [[nodiscard]] QSize contentSize() const;
    void paintEvent(QPaintEvent* event) override;

private:
    const QSize wanted;
    const int footerHeight;
    Label* heading;
    QHBoxLayout* actionRow;
    QVBoxLayout* column;
    QHBoxLayout* footerRow;
};

}  // namespace vantry
