#pragma once

#include <functional>

#include <QWidget>

#include "Vantry/interface/design/FlagBinding.h"
#include "Vantry/interface/design/Glyph.h"
#include "Vantry/interface/design/Pressable.h"
#include "Vantry/interface/design/Transition.h"

class QVBoxLayout;

namespace vantry {

class Reveal;

/// The row of a disclosure that opens and closes it. It tells assistive tools which of both it is.
class DisclosureHeader final : public Pressable {
    Q_OBJECT

public:
    explicit DisclosureHeader(Glyph glyph, QWidget* parent);

    void setTexts(const QString& title, const QString& summary, bool english);
    void setExpanded(bool expanded);
    [[nodiscard]] bool isExpanded() const noexcept { return expanded; }
    /// What assistive tools are told of its state.
    [[nodiscard]] QString value() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintContent(QPainter& painter) const;

    const Glyph glyph;
    QString summary;
    bool english = false;
    bool expanded = false;
    Transition turn;
};

/// A card that shows a title, and its content when the person wants it. What is closed is out of reach for
/// keyboard and assistive tools as well. Whether it is open is a state of its own, or that of a binding.
class VantryDisclosure final : public QWidget {
    Q_OBJECT

public:
    explicit VantryDisclosure(Glyph glyph, QWidget* parent = nullptr);

    /// The title, what stands at the right of it or nothing, and the language of both.
    void setTexts(const QString& title, const QString& summary, bool english);
    /// What is shown when it is open; add to it.
    [[nodiscard]] QVBoxLayout& content() noexcept { return *column; }
    /// Has it made, with its texts, when it is opened for the first time: most never are.
    void setMaker(std::function<QWidget*()> make);

    /// Lets the state live elsewhere from now on, and shows it.
    void setBinding(FlagBinding target);
    /// Shows the bound state as it is now, without a move.
    void synchronize();

    [[nodiscard]] bool isExpanded() const;
    /// Opens or closes it, moving as a disclosure does.
    void setExpanded(bool expanded);

signals:
    void expandedChanged(bool expanded);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void show(bool expanded, bool moving);

    DisclosureHeader* header;
    Reveal* reveal;
    QVBoxLayout* column;
    FlagBinding binding;
    std::function<QWidget*()> make;
};

}  // namespace vantry
