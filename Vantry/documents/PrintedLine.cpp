#include "Vantry/documents/PrintedLine.h"

#include <algorithm>

#include <hb-ot.h>
#include <hb.h>

namespace vantry {
namespace {

constexpr double boxEdge = 0.5;

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

double widthOf(const PangoGlyphItem& run) {
    return points(pango_glyph_string_get_width(run.glyphs));
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

/// Draws a run whose glyphs do not carry their text into the document, and the text beside it.
void drawUnreadable(cairo_t* context, PangoLayout* layout, PangoGlyphItem* run, double x, double y) {
    const char* const text = pango_layout_get_text(layout);
    const UnseenText unseen(layout);
    if (!hasUnknown(*run)) {
        cairo_move_to(context, x, y);
        pango_cairo_show_glyph_string(context, run->item->analysis.font, run->glyphs);
    }
    const double height =
        points(pango_font_description_get_size(pango_layout_get_font_description(layout))) / 2;
    PangoGlyphItemIter cluster;
    for (gboolean more = pango_glyph_item_iter_init_start(&cluster, run, text); more != 0;
         more = pango_glyph_item_iter_next_cluster(&cluster)) {
        const auto [first, last] = std::minmax(cluster.start_glyph, cluster.end_glyph);
        double left = x;
        double width = 0;
        const bool backwards = cluster.start_glyph > cluster.end_glyph;
        for (int i = 0; i < run->glyphs->num_glyphs; ++i) {
            const double advance = points(run->glyphs->glyphs[i].geometry.width);
            const bool inside = backwards ? i > first && i <= last : i >= first && i < last;
            if (inside)
                width += advance;
            else if (backwards ? i <= first : i < first)
                left += advance;
        }
        if (hasUnknown(*run))
            drawBox(context, left, y, width, height);
        unseen.write(context, text + cluster.start_index, cluster.end_index - cluster.start_index, left, y);
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
            drawUnreadable(context, line->layout, run, x, y);
        } else {
            cairo_move_to(context, x, y);
            pango_cairo_show_glyph_item(context, text, run);
        }
        x += widthOf(*run);
    }
}

}  // namespace vantry
