#include "Vantry/documents/PrintedLine.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

#include <hb-ot.h>
#include <hb.h>

#include "Vantry/documents/CairoOwned.h"

namespace vantry {
namespace {

constexpr double boxEdge = 0.5;
constexpr double pictureSharpness = 4;  ///< pixels a point

double points(int pangoUnits) {
    return static_cast<double>(pangoUnits) / PANGO_SCALE;
}

bool isUnknown(const PangoGlyphInfo& glyph) {
    return (glyph.glyph & PANGO_GLYPH_UNKNOWN_FLAG) != 0;
}

bool hasUnknown(const PangoGlyphItem& run) {
    return std::any_of(run.glyphs->glyphs, run.glyphs->glyphs + run.glyphs->num_glyphs, isUnknown);
}

/// Whether the font's glyphs are pictures, which a PDF keeps without their text.
bool hasPictures(PangoFont* font) {
    hb_face_t* const face = hb_font_get_face(pango_font_get_hb_font(font));
    return hb_ot_color_has_png(face) != 0 || hb_ot_color_has_layers(face) != 0 ||
           hb_ot_color_has_svg(face) != 0;
}

/// Some glyphs of a run that stand for some of its characters.
struct Cluster {
    PangoGlyphInfo* glyphs;
    int count;
    const char* text;
    int bytes;
    double left;  ///< from the run's left end, in points
    double width;

    [[nodiscard]] bool isUnknown() const { return std::any_of(glyphs, glyphs + count, vantry::isUnknown); }
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
        list.push_back({glyphs + first, end - first, text + place.start_index,
                        place.end_index - place.start_index, widthOf(glyphs, first),
                        widthOf(glyphs + first, end - first)});
    }
    return list;
}

/// Puts characters into the document that nobody sees there: a blank of the layout's own font that reads as
/// them.
class UnseenText {
public:
    explicit UnseenText(PangoLayout* layout) {
        PangoContext* const context = pango_layout_get_context(layout);
        font = pango_context_load_font(context, pango_layout_get_font_description(layout));
        if (font != nullptr)
            hb_font_get_nominal_glyph(pango_font_get_hb_font(font), ' ', &blank);
    }
    UnseenText(const UnseenText&) = delete;
    UnseenText& operator=(const UnseenText&) = delete;
    ~UnseenText() { g_clear_object(&font); }

    void write(cairo_t* context, const char* utf8, int bytes, double x, double y) const {
        if (font == nullptr || blank == 0)
            return;
        cairo_set_scaled_font(context, pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(font)));
        const cairo_glyph_t glyph{blank, x, y};
        const cairo_text_cluster_t cluster{bytes, 1};
        cairo_show_text_glyphs(context, utf8, bytes, &glyph, 1, &cluster, 1, {});
    }

private:
    PangoFont* font = nullptr;
    hb_codepoint_t blank = 0;
};

/// An empty box in place of a character that no font has.
void drawBox(cairo_t* context, double x, double y, double width, double height) {
    cairo_save(context);
    cairo_set_line_width(context, boxEdge);
    cairo_rectangle(context, x + boxEdge, y - height, std::max(width - 2 * boxEdge, boxEdge), height);
    cairo_stroke(context);
    cairo_restore(context);
}

/// Draws a glyph that is a picture as sharp as print shows it: left to Cairo, it would have a pixel a point.
void drawPicture(cairo_t* context, PangoFont* font, const Cluster& cluster, double x, double y) {
    std::vector<int> logClusters(static_cast<std::size_t>(cluster.count));
    PangoGlyphString glyphs{cluster.count, cluster.glyphs, logClusters.data(), cluster.count};
    PangoRectangle ink;
    pango_glyph_string_extents(&glyphs, font, &ink, nullptr);
    const auto pixels = [](int pangoUnits) {
        return static_cast<int>(std::ceil(points(pangoUnits) * pictureSharpness)) + 1;
    };
    const OwnedSurface picture(
        cairo_image_surface_create(CAIRO_FORMAT_ARGB32, pixels(ink.width), pixels(ink.height)));
    const OwnedContext canvas(cairo_create(picture.get()));
    cairo_scale(canvas.get(), pictureSharpness, pictureSharpness);
    cairo_move_to(canvas.get(), -points(ink.x), -points(ink.y));
    pango_cairo_show_glyph_string(canvas.get(), font, &glyphs);
    cairo_surface_flush(picture.get());
    cairo_save(context);
    cairo_translate(context, x + points(ink.x), y + points(ink.y));
    cairo_scale(context, 1 / pictureSharpness, 1 / pictureSharpness);
    cairo_set_source_surface(context, picture.get(), 0, 0);
    cairo_paint(context);
    cairo_restore(context);
}

/// Draws a run whose glyphs do not carry their text into the document, and the text beside it.
void drawUnreadable(cairo_t* context, PangoLayout* layout, PangoGlyphItem& run, double x, double y) {
    const UnseenText unseen(layout);
    const double size = points(pango_font_description_get_size(pango_layout_get_font_description(layout)));
    for (const Cluster& cluster : clustersOf(run, pango_layout_get_text(layout))) {
        if (cluster.isUnknown())
            drawBox(context, x + cluster.left, y, cluster.width, size / 2);
        else
            drawPicture(context, run.item->analysis.font, cluster, x + cluster.left, y);
        unseen.write(context, cluster.text, cluster.bytes, x + cluster.left, y);
    }
}

}  // namespace

PrintedLine::PrintedLine(PangoLayoutIter* lines)
    : line(pango_layout_iter_get_line_readonly(lines)) {
    PangoRectangle extents;
    pango_layout_iter_get_line_extents(lines, nullptr, &extents);
    above = points(pango_layout_iter_get_baseline(lines) - extents.y);
    below = points(extents.height) - above;
    for (const GSList* run = line->runs; run != nullptr; run = run->next) {
        hb_font_extents_t font;
        PangoFont* const of = static_cast<PangoGlyphItem*>(run->data)->item->analysis.font;
        if (of != nullptr && hb_font_get_h_extents(pango_font_get_hb_font(of), &font) != 0)
            gap = std::max(gap, points(font.line_gap));
    }
}

void PrintedLine::draw(cairo_t* context, double x, double y) const {
    const char* const text = pango_layout_get_text(line->layout);
    for (const GSList* next = line->runs; next != nullptr; next = next->next) {
        auto* const run = static_cast<PangoGlyphItem*>(next->data);
        if (hasUnknown(*run) || hasPictures(run->item->analysis.font)) {
            drawUnreadable(context, line->layout, *run, x, y);
        } else {
            cairo_move_to(context, x, y);
            pango_cairo_show_glyph_item(context, text, run);
        }
        x += widthOf(run->glyphs->glyphs, run->glyphs->num_glyphs);
    }
}

}  // namespace vantry
