#include "Vantry/documents/StandIns.h"

#include <algorithm>

namespace vantry {
namespace {

// In parts of the size.
constexpr double boxEdge = 0.045;
constexpr double boxHeight = 0.6;
/// Cairo leaves out a glyph without ink, and with it its text; nobody sees this much.
constexpr double unseenInk = 0.001;

const cairo_user_data_key_t ownerKey{};

}  // namespace

StandIns::StandIns()
    : face(cairo_user_font_face_create()) {
    cairo_font_face_set_user_data(face.get(), &ownerKey, this, nullptr);
    cairo_user_font_face_set_render_glyph_func(face.get(), render);
}

cairo_status_t StandIns::render(cairo_scaled_font_t* font, unsigned long glyph, cairo_t* context,
                                cairo_text_extents_t* extents) {
    const auto* owner = static_cast<const StandIns*>(
        cairo_font_face_get_user_data(cairo_scaled_font_get_font_face(font), &ownerKey));
    if (owner == nullptr || glyph >= owner->glyphs.size())
        return CAIRO_STATUS_USER_FONT_ERROR;
    const Glyph& shape = owner->glyphs[glyph];
    extents->x_advance = shape.width;
    if (shape.isBox) {
        cairo_set_line_width(context, boxEdge);
        cairo_rectangle(context, boxEdge, -boxHeight, std::max(shape.width - 2 * boxEdge, boxEdge),
                        boxHeight);
        cairo_stroke(context);
    } else {
        cairo_rectangle(context, 0, -unseenInk, unseenInk, unseenInk);
        cairo_fill(context);
    }
    return CAIRO_STATUS_SUCCESS;
}

void StandIns::show(cairo_t* context, const Glyph& glyph, std::string_view utf8, double size, double x,
                    double y) {
    const auto [known, isNew] =
        numbers.try_emplace((glyph.isBox ? "b" : "u") + std::string(utf8), glyphs.size());
    if (isNew)
        glyphs.push_back(glyph);
    const cairo_glyph_t shown{known->second, x, y};
    const cairo_text_cluster_t cluster{static_cast<int>(utf8.size()), 1};
    cairo_set_font_face(context, face.get());
    cairo_set_font_size(context, size);
    cairo_show_text_glyphs(context, utf8.data(), static_cast<int>(utf8.size()), &shown, 1, &cluster, 1, {});
}

void StandIns::drawBox(cairo_t* context, std::string_view utf8, double size, double width, double x,
                       double y) {
    show(context, {true, width / size}, utf8, size, x, y);
}

void StandIns::putUnseen(cairo_t* context, std::string_view utf8, double size, double x, double y) {
    show(context, {}, utf8, size, x, y);
}

cairo_surface_t* StandIns::picture(const std::string& name, const std::function<OwnedSurface()>& make) {
    const auto [known, isNew] = pictures.try_emplace(name);
    if (isNew)
        known->second = make();
    return known->second.get();
}

}  // namespace vantry
