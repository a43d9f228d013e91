#pragma once

#include <string>

#include <cairo.h>
#include <pango/pangocairo.h>

#include "Vantry/app/Owned.h"

namespace vantry {

using OwnedSurface = Owned<cairo_surface_t, cairo_surface_destroy>;
using OwnedContext = Owned<cairo_t, cairo_destroy>;
using OwnedFontOptions = Owned<cairo_font_options_t, cairo_font_options_destroy>;
using OwnedLayout = Owned<PangoLayout, g_object_unref>;
using OwnedFont = Owned<PangoFontDescription, pango_font_description_free>;

/// Gives a document these bytes beside the pixels of a surface. Does nothing without bytes or surface.
void attachBytes(cairo_surface_t* surface, const char* type, std::string bytes);

}  // namespace vantry
