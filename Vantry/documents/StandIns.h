#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Vantry/documents/CairoOwned.h"

namespace vantry {

/// Glyphs of a document's own for characters that no font writes: each reads as its text in every viewer.
/// Also the pictures that are drawn in the place of some.
///
/// The glyphs are a font of the document, since a viewer finds a text by the font's table of characters;
/// marked content, which could say the same, is not read by all of them.
class StandIns {
public:
    StandIns();
    StandIns(const StandIns&) = delete;
    StandIns& operator=(const StandIns&) = delete;
    ~StandIns() = default;

    /// Draws an empty box in place of a text that no font has, its bottom left corner on the base line at
    /// that place. All quantities are points.
    void drawBox(cairo_t* context, std::string_view utf8, double size, double width, double x, double y);
    /// The picture of that name, made by `make` when it is asked for first. A document keeps it once.
    [[nodiscard]] cairo_surface_t* picture(const std::string& name,
                                           const std::function<OwnedSurface()>& make);
    /// Puts a text at that place that nobody sees, beside a picture of it.
    void putUnseen(cairo_t* context, std::string_view utf8, double size, double x, double y);

private:
    struct Glyph {
        bool isBox = false;
        double width = 0;  ///< of the box, in parts of the size
    };

    static cairo_status_t render(cairo_scaled_font_t* font, unsigned long glyph, cairo_t* context,
                                 cairo_text_extents_t* extents);
    void show(cairo_t* context, const Glyph& glyph, std::string_view utf8, double size, double x, double y);

    Owned<cairo_font_face_t, cairo_font_face_destroy> face;
    std::unordered_map<std::string, unsigned long> numbers;  ///< by kind and text
    std::vector<Glyph> glyphs;
    std::unordered_map<std::string, OwnedSurface> pictures;
};

}  // namespace vantry
