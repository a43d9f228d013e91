#pragma once

#include <QColor>
#include <QPalette>

class QWidget;

namespace vantry {

/// The colours of the interface by their roles, in one appearance. Pages ask for a role and never name a
/// colour themselves.
struct Palette {
    QColor ink;         ///< main text, primary button, brand mark
    QColor canvas;      ///< page background, text on a primary button
    QColor card;        ///< cards, fields, the status line
    QColor rule;        ///< hairlines and borders
    QColor navigation;  ///< sidebar, tracks
    QColor button;      ///< quiet button
    QColor hover;
    QColor selected;   ///< selected row, pressed quiet button
    QColor muted;      ///< secondary text
    QColor tint;       ///< soft panels
    QColor completed;  ///< done, saved, Good
    QColor link;       ///< links, focus ring, focused border
    QColor danger;     ///< failure, destructive actions
    QColor warning;    ///< pending, unsaved
    QColor editorInk;  ///< `ink` for what people write, as the platform's editors take it from their palette

    using Token = QColor Palette::*;

    [[nodiscard]] static const Palette& light();
    [[nodiscard]] static const Palette& dark();
    /// The one in force for `widget`, told from the lightness of its window colour. It follows a change of
    /// the application's palette by itself.
    [[nodiscard]] static const Palette& of(const QWidget& widget);
    [[nodiscard]] static const Palette& of(const QPalette& palette);
    /// Whether a window with this palette is a dark one.
    [[nodiscard]] static bool isDark(const QPalette& palette);

    /// What standard controls are painted with.
    [[nodiscard]] QPalette controls() const;
};

/// How well one colour can be read on the other, from 1 for the same to 21 for black on white: the contrast
/// ratio of WCAG 2. Opaque sRGB; the order does not matter.
[[nodiscard]] double contrast(const QColor& a, const QColor& b);
/// The relative luminance of WCAG 2, from 0 for black to 1 for white.
[[nodiscard]] double luminance(const QColor& colour);

}  // namespace vantry
