#pragma once

#include <span>
#include <string_view>

#include <QColor>
#include <QRectF>

class QPainter;

namespace vantry {

/// The signs of the interface. They are decoration: whatever one says is also said by a word or a name.
enum class Glyph {
    none,
    library,
    folder,
    folderFilled,
    film,
    camera,
    waveform,
    document,
    file,
    unknownFile,
    link,
    eye,
    plus,
    check,
    checkCircle,
    dashedCircle,
    warning,
    cross,
    crossCircle,
    overdue,
    star,
    chevronLeft,
    chevronRight,
    chevronDown,
    chevronsUpDown,
    house,
    search,
    zoomOut,
    zoomIn,
    calendar,
    settings,
    arrowRight,
    arrowUpRight,
    undo,
    reload,
    sync,
    enlarge,
    sliders,
    people,
    photo,
    pen,
    trash,
    more,
    share,
    upload,
    download,
    list,
    grid,
    disc,
    square,
    drive,
    globe,
    contrast,
    handle,
    pause,
};

/// Where a sign comes from.
struct GlyphSource {
    Glyph glyph;
    std::string_view symbol;  ///< its name in the vocabulary of pages, empty for the few that have none
    std::string_view
        drawing;          ///< the file ":/icons/" and this and ".svg"; empty for the painted disc and square
    bool filled = false;  ///< its outline is filled, wherever it is shown
};

/// Every sign but `none`, in the order of their declaration.
[[nodiscard]] std::span<const GlyphSource> glyphSources();

/// Draws the sign into the middle of `place` with lines of `colour`, whose width goes with the size; `filled`
/// fills its outline as well. Sharp on every scale of the screen, and cheap: a picture is made once.
void paintGlyph(QPainter& painter, Glyph glyph, const QRectF& place, const QColor& colour,
                bool filled = false);

}  // namespace vantry
