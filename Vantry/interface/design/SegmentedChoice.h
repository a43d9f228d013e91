#pragma once

#include <QList>
#include <QRadioButton>
#include <QStringList>
#include <QWidget>

#include "Vantry/interface/design/Glyph.h"
#include "Vantry/interface/design/Palette.h"

namespace vantry {

/// One of the choices of a SegmentedChoice.
class Segment final : public QRadioButton {
    Q_OBJECT

public:
    /// How the segment looks when it is the chosen one.
    struct Look {
        Glyph glyph = Glyph::none;
        Palette::Token fill = nullptr;     ///< solid, with text in the canvas colour
        Palette::Token outline = nullptr;  ///< hollow
    };

    Segment(const Look& look, QSize least, QWidget* parent);

    void setPlain(const QString& plain);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    [[nodiscard]] bool hitButton(const QPoint& position) const override { return rect().contains(position); }
    void focusInEvent(QFocusEvent* event) override;

private:
    [[nodiscard]] QFont textFont() const;
    void paintSurface(QPainter& painter) const;

    const Look look;
    const QSize least;
    QString shown;
    bool cameByKeyboard = false;
};

/// A strip of choices of which one is set. For assistive tools it is a named group of radio buttons; the
/// arrow keys move within it.
class SegmentedChoice final : public QWidget {
    Q_OBJECT

public:
    /// A strip of controls, or the large one of a page's main decision.
    enum class Size { regular, large };

    SegmentedChoice(const QList<Segment::Look>& looks, Size size, QWidget* parent = nullptr);

    /// Names the group.
    void setName(const QString& name);
    void setTitles(const QStringList& titles);
    /// Shows that choice as the one that is set; tells nobody.
    void setChosen(int index);

signals:
    /// The person chose; also sent for the choice that is set already.
    void chosen(int index);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QList<Segment*> segments;
};

}  // namespace vantry
