#include "Vantry/documents/PrintedLine.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <string>
#include <string_view>
#include <vector>

#include <hb-ot.h>
#include <hb.h>

#include "Vantry/documents/CairoOwned.h"
#include "Vantry/documents/StandIns.h"
#include "VantryCore/records/Text.h"

namespace vantry {
namespace {

constexpr double pictureSharpness = 4;  ///< pixels a point

double points(int pangoUnits) {
    return static_cast<double>(pangoUnits) / PANGO_SCALE;
}

/// Whether the font's glyphs are pictures, which a PDF keeps without their text.
bool hasPictures(PangoFont* font) {
    hb_face_t* const face = hb_font_get_face(pango_font_get_hb_font(font));
    return hb_ot_color_has_png(face) != 0 || hb_ot_color_has_layers(face) != 0 ||
           hb_ot_color_has_svg(face) != 0;
}

bool isUnknown(const PangoGlyphInfo& glyph) {
    return (glyph.glyph & PANGO_GLYPH_UNKNOWN_FLAG) != 0;
}

bool isEmpty(const PangoGlyphInfo& glyph) {
    return glyph.glyph == PANGO_GLYPH_EMPTY;
}

/// Some glyphs of a run that stand for some of its characters.
struct Cluster {
    PangoGlyphInfo* glyphs;
    int count;
    std::string_view text;
    double left;  ///< from the run's left end, in points
    double width;

    [[nodiscard]] bool isUnknown() const { return std::any_of(glyphs, glyphs + count, vantry::isUnknown); }
    [[nodiscard]] bool isEmpty() const { return std::all_of(glyphs, glyphs + count, vantry::isEmpty); }
};

double widthOf(const PangoGlyphInfo* glyphs, int count) {
    return std::accumulate(glyphs, glyphs + count, 0.0, [](double sum, const PangoGlyphInfo& glyph) {
        return sum + points(glyph.geometry.width);
    });
}

std::vector<Cluster> clustersOf(PangoGlyphItem& run, const char* text) {
    std::vector<Cluster> list;
    PangoGlyphItemIter place;
    for (gboolean more = pango_glyph_item_iter_init_start(&place, &run, text); more != 0;
         more = pango_glyph_item_iter_next_cluster(&place)) {
        // A run from right to left is walked from its last glyph to its first.
        const bool backwards = place.start_glyph > place.end_glyph;
        const int first = backwards ? place.end_glyph + 1 : place.start_glyph;
        const int end = backwards ? place.start_glyph + 1 : place.end_glyph;
        PangoGlyphInfo* const glyphs = run.glyphs->glyphs;
        list.push_back(
            {glyphs + first,
             end - first,
             {text + place.start_index, static_cast<std::size_t>(place.end_index - place.start_index)},
             widthOf(glyphs, first),
             widthOf(glyphs + first, end - first)});
    }
    return list;
}

/// Tells a picture from all others of the document.
std::string pictureName(PangoFont* font, const Cluster& cluster) {
    const Owned<PangoFontDescription, pango_font_description_free> description(
        pango_font_describe_with_absolute_size(font));
    const Owned<char, g_free> face(pango_font_description_to_string(description.get()));
    std::string name = face.get();
    for (const PangoGlyphInfo* glyph = cluster.glyphs; glyph != cluster.glyphs + cluster.count; ++glyph)
        name += " " + std::to_string(glyph->glyph);
    return name;
}

/// Draws a glyph that is a picture as sharp as print shows it: left to Cairo, it would have a pixel a point.
void drawPicture(cairo_t* context, PangoFont* font, const Cluster& cluster, StandIns& standIns, double x,
                 double y) {
    std::vector<int> logClusters(static_cast<std::size_t>(cluster.count));
    PangoGlyphString glyphs{cluster.count, cluster.glyphs, logClusters.data(), cluster.count};
    PangoRectangle ink;
    pango_glyph_string_extents(&glyphs, font, &ink, nullptr);
    const std::string name = pictureName(font, cluster);
    const auto make = [&] {
        const auto pixels = [](int pangoUnits) {
            return static_cast<int>(std::ceil(points(pangoUnits) * pictureSharpness)) + 1;
        };
        OwnedSurface picture(
            cairo_image_surface_create(CAIRO_FORMAT_ARGB32, pixels(ink.width), pixels(ink.height)));
        const OwnedContext canvas(cairo_create(picture.get()));
        cairo_scale(canvas.get(), pictureSharpness, pictureSharpness);
        cairo_move_to(canvas.get(), -points(ink.x), -points(ink.y));
        pango_cairo_show_glyph_string(canvas.get(), font, &glyphs);
        cairo_surface_flush(picture.get());
        attachBytes(picture.get(), CAIRO_MIME_TYPE_UNIQUE_ID, name);
        return picture;
    };
    cairo_surface_t* const picture = standIns.picture(name, make);
    cairo_save(context);
    cairo_translate(context, x + points(ink.x), y + points(ink.y));
    cairo_scale(context, 1 / pictureSharpness, 1 / pictureSharpness);
    cairo_set_source_surface(context, picture, 0, 0);
    cairo_paint(context);
    cairo_restore(context);
}

/// Draws glyphs of a font with the text that they stand for.
void drawGlyphs(cairo_t* context, PangoFont* font, const Cluster& cluster, double x, double y) {
    std::vector<cairo_glyph_t> shown;
    for (const PangoGlyphInfo* glyph = cluster.glyphs; glyph != cluster.glyphs + cluster.count; ++glyph) {
        if (!isEmpty(*glyph))
            shown.push_back(
                {glyph->glyph, x + points(glyph->geometry.x_offset), y + points(glyph->geometry.y_offset)});
        x += points(glyph->geometry.width);
    }
    const cairo_text_cluster_t whole{static_cast<int>(cluster.text.size()), static_cast<int>(shown.size())};
    cairo_set_scaled_font(context, pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(font)));
    cairo_show_text_glyphs(context, cluster.text.data(), whole.num_bytes, shown.data(), whole.num_glyphs,
                           &whole, 1, {});
}

/// Whether characters that nobody sees have no glyph. The blank at the end of a line has none either, and
/// needs none.
bool isUnseen(const Cluster& cluster) {
    return cluster.isEmpty() && !isBlank(cluster.text);
}

/// Whether drawing the run's glyphs alone would leave its text, or some of it, out of the document.
bool losesText(PangoGlyphItem& run, const char* text) {
    const PangoGlyphInfo* const glyphs = run.glyphs->glyphs;
    const PangoGlyphInfo* const end = glyphs + run.glyphs->num_glyphs;
    if (hasPictures(run.item->analysis.font) || std::any_of(glyphs, end, isUnknown))
        return true;
    if (std::none_of(glyphs, end, isEmpty))
        return false;
    const auto clusters = clustersOf(run, text);
    return std::any_of(clusters.begin(), clusters.end(), isUnseen);
}

/// Draws such a run with stand-ins for what no font writes.
void drawWithStandIns(cairo_t* context, PangoLayout* layout, PangoGlyphItem& run, StandIns& standIns,
                      double x, double y) {
    PangoFont* const font = run.item->analysis.font;
    const bool arePictures = hasPictures(font);
    const double size = points(pango_font_description_get_size(pango_layout_get_font_description(layout)));
    for (const Cluster& cluster : clustersOf(run, pango_layout_get_text(layout))) {
        const double left = x + cluster.left;
        if (cluster.isUnknown()) {
            standIns.drawBox(context, cluster.text, size, cluster.width, left, y);
        } else if (cluster.isEmpty()) {
            if (isUnseen(cluster))
                standIns.putUnseen(context, cluster.text, size, left, y);
        } else if (arePictures) {
            drawPicture(context, font, cluster, standIns, left, y);
            standIns.putUnseen(context, cluster.text, size, left, y);
        } else {
            drawGlyphs(context, font, cluster, left, y);
        }
    }
}

}  // namespace

PrintedLine::PrintedLine(PangoLayoutLine* line)
    : line(line) {
    PangoRectangle extents;
    pango_layout_line_get_extents(line, nullptr, &extents);
    above = points(-extents.y);
    below = points(extents.height) - above;
    for (const GSList* run = line->runs; run != nullptr; run = run->next) {
        hb_font_extents_t font;
        PangoFont* const of = static_cast<PangoGlyphItem*>(run->data)->item->analysis.font;
        if (of != nullptr && hb_font_get_h_extents(pango_font_get_hb_font(of), &font) != 0)
            gap = std::max(gap, points(font.line_gap));
    }
}

void PrintedLine::draw(cairo_t* context, double x, double y, StandIns& standIns) const {
    const char* const text = pango_layout_get_text(line->layout);
    for (const GSList* next = line->runs; next != nullptr; next = next->next) {
        auto* const run = static_cast<PangoGlyphItem*>(next->data);
        if (losesText(*run, text)) {
            drawWithStandIns(context, line->layout, *run, standIns, x, y);
        } else {
            cairo_move_to(context, x, y);
            pango_cairo_show_glyph_item(context, text, run);
        }
        x += widthOf(run->glyphs->glyphs, run->glyphs->num_glyphs);
    }
}

}  // namespace vantry
