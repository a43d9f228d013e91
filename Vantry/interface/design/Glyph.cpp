#include "Vantry/interface/design/Glyph.h"

#include <algorithm>
#include <array>
#include <cmath>

#include <QCache>
#include <QFile>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

#include "Vantry/app/QtText.h"
#include "Vantry/interface/design/Metrics.h"

namespace vantry {
namespace {

constexpr std::array sources{
    GlyphSource{Glyph::library, "books.vertical", "library"},
    GlyphSource{Glyph::folder, "folder", "folder"},
    GlyphSource{Glyph::folderFilled, "folder.fill", "folder", true},
    GlyphSource{Glyph::film, "film.stack", "film"},
    GlyphSource{Glyph::camera, "camera", "camera"},
    GlyphSource{Glyph::waveform, "waveform", "audio-lines"},
    GlyphSource{Glyph::document, "doc.text", "file-text"},
    GlyphSource{Glyph::file, "doc", "file"},
    GlyphSource{Glyph::unknownFile, "doc.questionmark", "file-question-mark"},
    GlyphSource{Glyph::link, "link", "link"},
    GlyphSource{Glyph::eye, "eye", "eye"},
    GlyphSource{Glyph::plus, "plus", "plus"},
    GlyphSource{Glyph::check, "checkmark", "check"},
    GlyphSource{Glyph::checkCircle, "checkmark.circle", "circle-check"},
    GlyphSource{Glyph::dashedCircle, "circle.dotted", "circle-dashed"},
    GlyphSource{Glyph::warning, "exclamationmark.triangle", "triangle-alert"},
    GlyphSource{Glyph::cross, "", "x"},
    GlyphSource{Glyph::crossCircle, "xmark.circle.fill", "circle-x"},
    GlyphSource{Glyph::overdue, "clock.badge.exclamationmark", "clock-alert"},
    GlyphSource{Glyph::star, "", "star"},
    GlyphSource{Glyph::chevronLeft, "chevron.left", "chevron-left"},
    GlyphSource{Glyph::chevronRight, "chevron.right", "chevron-right"},
    GlyphSource{Glyph::chevronDown, "chevron.down", "chevron-down"},
    GlyphSource{Glyph::chevronsUpDown, "", "chevrons-up-down"},
    GlyphSource{Glyph::house, "house", "house"},
    GlyphSource{Glyph::search, "magnifyingglass", "search"},
    GlyphSource{Glyph::zoomOut, "minus.magnifyingglass", "zoom-out"},
    GlyphSource{Glyph::zoomIn, "plus.magnifyingglass", "zoom-in"},
    GlyphSource{Glyph::calendar, "calendar", "calendar"},
    GlyphSource{Glyph::settings, "gearshape", "settings"},
    GlyphSource{Glyph::arrowRight, "arrow.right", "arrow-right"},
    GlyphSource{Glyph::arrowUpRight, "arrow.up.right", "arrow-up-right"},
    GlyphSource{Glyph::undo, "arrow.uturn.backward", "undo-2"},
    GlyphSource{Glyph::reload, "arrow.clockwise", "rotate-cw"},
    GlyphSource{Glyph::sync, "arrow.triangle.2.circlepath", "refresh-cw"},
    GlyphSource{Glyph::enlarge, "arrow.up.left.and.arrow.down.right", "move-diagonal-2"},
    GlyphSource{Glyph::sliders, "slider.horizontal.3", "sliders-horizontal"},
    GlyphSource{Glyph::people, "person.2", "users"},
    GlyphSource{Glyph::photo, "photo", "image"},
    GlyphSource{Glyph::pen, "pencil.tip", "pen-tool"},
    GlyphSource{Glyph::trash, "trash", "trash-2"},
    GlyphSource{Glyph::more, "ellipsis", "ellipsis"},
    GlyphSource{Glyph::share, "square.and.arrow.up", "share"},
    GlyphSource{Glyph::upload, "", "upload"},
    GlyphSource{Glyph::download, "", "download"},
    GlyphSource{Glyph::list, "list.bullet.rectangle", "layout-list"},
    GlyphSource{Glyph::grid, "square.grid.2x2", "layout-grid"},
    GlyphSource{Glyph::disc, "circle.fill", "", true},
    GlyphSource{Glyph::square, "square.fill", "", true},
    GlyphSource{Glyph::drive, "internaldrive", "hard-drive"},
    GlyphSource{Glyph::globe, "globe", "globe"},
    GlyphSource{Glyph::contrast, "circle.lefthalf.filled", "contrast"},
    GlyphSource{Glyph::handle, "", "grip-vertical"},
    GlyphSource{Glyph::pause, "", "circle-pause"},
};

constexpr bool standsInOrder() {
    int number = static_cast<int>(Glyph::none);
    return std::all_of(sources.begin(), sources.end(), [&number](const GlyphSource& source) {
        return static_cast<int>(source.glyph) == ++number;
    });
}
static_assert(standsInOrder(), "a sign is found by its number");

/// Thin signs look lighter than thick ones of the same stroke, so small ones get more. In units of the grid
/// of 24 on which all are drawn.
double strokeWidth(double size) {
    if (size <= 14)
        return 2.4;
    if (size <= 18)
        return 2.0;
    return size <= 24 ? 1.75 : 1.6;
}

/// All that two pictures of signs may differ in.
struct PictureKey {
    Glyph glyph;
    double stroke;
    int pixels;  ///< of one side
    QRgb colour;
    bool filled;

    friend bool operator==(const PictureKey&, const PictureKey&) = default;
    friend size_t qHash(const PictureKey& key, size_t seed) {
        return qHashMulti(seed, static_cast<int>(key.glyph), key.stroke, key.pixels, key.colour, key.filled);
    }
};

/// The drawing of a sign in those lines and that colour. It has neither when the resource file lacks it.
QByteArray drawingOf(const PictureKey& key) {
    const GlyphSource& source = sources[static_cast<std::size_t>(key.glyph) - 1];
    QFile file(QStringLiteral(":/icons/%1.svg").arg(toQString(source.drawing)));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray colour = QColor(key.colour).name().toLatin1();
    QByteArray drawing = file.readAll();
    drawing.replace("currentColor", colour);
    drawing.replace("stroke-width=\"2\"", "stroke-width=\"" + QByteArray::number(key.stroke) + '"');
    if (key.filled)
        drawing.replace("fill=\"none\"", "fill=\"" + colour + '"');
    return drawing;
}

QPixmap pictureOf(const PictureKey& key) {
    constexpr int mostKept = 512;
    static QCache<PictureKey, QPixmap> kept(mostKept);
    if (const QPixmap* picture = kept.object(key))
        return *picture;
    QPixmap picture(key.pixels, key.pixels);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    QSvgRenderer(drawingOf(key)).render(&painter, picture.rect());
    painter.end();
    kept.insert(key, new QPixmap(picture));
    return picture;
}

void paintDot(QPainter& painter, const QPointF& middle, const QColor& colour, double radius) {
    QRectF place(0, 0, Metrics::markSize, Metrics::markSize);
    place.moveCenter(middle);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawRoundedRect(place, radius, radius);
}

void paintPicture(QPainter& painter, PictureKey key, const QRectF& place) {
    const QTransform toDevice = painter.deviceTransform();
    const double scale = toDevice.m11();
    if (toDevice.type() > QTransform::TxScale || scale <= 0 || toDevice.m22() != scale) {
        // Turned, as a chevron is on its way: a picture would lose its edges.
        QSvgRenderer(drawingOf(key)).render(&painter, place);
        return;
    }
    key.pixels = static_cast<int>(std::lround(place.width() * scale));
    if (key.pixels < 1)
        return;
    // On whole pixels of the screen, or its lines would be smeared.
    const double half = key.pixels / 2.0;
    const QPointF middle = toDevice.map(place.center());
    const QRectF pixels(std::round(middle.x() - half), std::round(middle.y() - half), key.pixels, key.pixels);
    const QPixmap picture = pictureOf(key);
    painter.drawPixmap(toDevice.inverted().mapRect(pixels), picture, picture.rect());
}

}  // namespace

std::span<const GlyphSource> glyphSources() {
    return sources;
}

void paintGlyph(QPainter& painter, Glyph glyph, const QRectF& place, const QColor& colour, bool filled) {
    if (glyph == Glyph::none)
        return;
    painter.save();
    const GlyphSource& source = sources[static_cast<std::size_t>(glyph) - 1];
    if (source.drawing.empty()) {
        const double radius = glyph == Glyph::disc ? Metrics::markSize / 2.0 : Metrics::radiusMark;
        paintDot(painter, place.center(), colour, radius);
    } else {
        const double side = std::min(place.width(), place.height());
        QRectF middle(0, 0, side, side);
        middle.moveCenter(place.center());
        painter.setOpacity(painter.opacity() * colour.alphaF());
        paintPicture(painter, {glyph, strokeWidth(side), 0, colour.rgb(), filled || source.filled}, middle);
    }
    painter.restore();
}

}  // namespace vantry
