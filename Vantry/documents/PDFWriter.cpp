#include "Vantry/documents/PDFWriter.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <new>
#include <string_view>
#include <utility>

#include <cairo-pdf.h>

#include "Vantry/documents/CairoOwned.h"
#include "Vantry/documents/FramePicture.h"
#include "Vantry/documents/PrintedLine.h"
#include "Vantry/documents/StandIns.h"
#include "VantryCore/persistence/VantryError.h"
#include "VantryCore/records/ClockReading.h"

namespace vantry {
namespace {

/// Chinese is named, or punctuation behind Latin would have its Japanese form.
constexpr const char* textFamilies = "Helvetica,Noto Sans CJK SC,PingFang SC";
constexpr double footerSize = 9;
constexpr double footerRise = 25;  // of its baseline above the bottom edge
constexpr double strokeWidth = 1.5;

/// Long paragraphs are laid out in pieces of so many bytes: Pango takes time by the square of a piece.
constexpr std::size_t pieceSize = 2048;

cairo_status_t append(void* data, const unsigned char* bytes, unsigned int length) {
    try {
        static_cast<QByteArray*>(data)->append(reinterpret_cast<const char*>(bytes), length);
        return CAIRO_STATUS_SUCCESS;
    } catch (const std::bad_alloc&) {
        return CAIRO_STATUS_NO_MEMORY;
    }
}

void setFont(PangoLayout* layout, const char* family, double size, bool bold) {
    const OwnedFont font(pango_font_description_new());
    pango_font_description_set_family_static(font.get(), family);
    pango_font_description_set_weight(font.get(), bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
    pango_font_description_set_absolute_size(font.get(), size * PANGO_SCALE);
    pango_layout_set_font_description(layout, font.get());
}

/// A layout that measures in points and never rounds to the pixels of a screen.
OwnedLayout makeLayout(cairo_t* canvas) {
    OwnedLayout layout(pango_cairo_create_layout(canvas));
    PangoContext* const context = pango_layout_get_context(layout.get());
    pango_cairo_context_set_resolution(context, 72);
    const OwnedFontOptions options(cairo_font_options_create());
    cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_OFF);
    cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_NONE);
    pango_cairo_context_set_font_options(context, options.get());
    pango_context_set_round_glyph_positions(context, FALSE);
    // Records are mostly Chinese in an English document as well; without this their shapes are Japanese.
    pango_context_set_language(context, pango_language_from_string("zh-cn"));
    return layout;
}

/// The most bytes of whole characters, at most `size`.
std::size_t wholeCharacters(std::string_view utf8, std::size_t size) {
    if (size >= utf8.size())
        return utf8.size();
    while (size > 0 && (static_cast<unsigned char>(utf8[size]) & 0xC0U) == 0x80)
        --size;
    return size;
}

/// Whether a character stands for nothing (Unicode 2.4, "noncharacters"): Cairo refuses them.
bool isNoncharacter(char32_t c) {
    return (c >= 0xFDD0 && c <= 0xFDEF) || (c & 0xFFFEU) == 0xFFFE;
}

bool isControl(char32_t c) {
    return c != U'\n' && c != U'\r' && c != U'\t' && (c < 0x20 || (c >= 0x7F && c <= 0x9F));
}

/// What can be printed. Pango ends a text at its first NUL and draws other controls as boxes; a line end of
/// two characters is one.
std::string printable(const std::string& utf8) {
    std::string text;
    text.reserve(utf8.size());
    const char* at = utf8.data();
    const char* const end = at + utf8.size();
    while (at < end) {
        const gunichar c = g_utf8_get_char_validated(at, end - at);
        const bool isValid = c != static_cast<gunichar>(-1) && c != static_cast<gunichar>(-2);
        // A NUL is told apart from the end of a text by the length alone.
        const char* const next = isValid && *at != '\0' ? g_utf8_next_char(at) : at + 1;
        const bool endsLineWithNext = *at == '\r' && next < end && *next == '\n';
        if (*at == '\0' || (isValid && isControl(c)))
            text += ' ';
        else if (!isValid || isNoncharacter(c))
            text += "\uFFFD";
        else if (!endsLineWithNext)
            text.append(at, next);
        at = next;
    }
    return text;
}

}  // namespace

struct PDFWriter::Canvas {
    StandIns standIns;
    OwnedSurface surface;
    OwnedContext context;
    OwnedLayout paragraph;
    OwnedLayout footer;
};

PDFWriter::PDFWriter(Moment made, ImageSource images)
    : canvas(std::make_unique<Canvas>())
    , imageOf(std::move(images)) {
    canvas->surface.reset(cairo_pdf_surface_create_for_stream(append, &data, width, height));
    canvas->context.reset(cairo_create(canvas->surface.get()));
    if (cairo_status(canvas->context.get()) != CAIRO_STATUS_SUCCESS)
        throw VantryError(VantryError::Case::invalidBackup);
    cairo_pdf_surface_set_metadata(canvas->surface.get(), CAIRO_PDF_METADATA_TITLE, "Vantry");
    cairo_pdf_surface_set_metadata(canvas->surface.get(), CAIRO_PDF_METADATA_CREATOR, "Vantry");
    const ClockReading clock = readClock(made, *Zone::find("UTC"));
    cairo_pdf_surface_set_metadata(canvas->surface.get(), CAIRO_PDF_METADATA_CREATE_DATE,
                                   (clock.dayText() + "T" + clock.timeText() + ":00Z").c_str());
    canvas->paragraph = makeLayout(canvas->context.get());
    pango_layout_set_width(canvas->paragraph.get(), static_cast<int>(std::lround(textWidth * PANGO_SCALE)));
    pango_layout_set_wrap(canvas->paragraph.get(), PANGO_WRAP_WORD_CHAR);
    canvas->footer = makeLayout(canvas->context.get());
    setFont(canvas->footer.get(), "sans-serif", footerSize, false);
}

PDFWriter::~PDFWriter() = default;

void PDFWriter::newPage() {
    footer();
    cairo_show_page(canvas->context.get());
    ++page;
    y = top;
}

void PDFWriter::ensure(double points) {
    if (y + points > bottom)
        newPage();
}

void PDFWriter::text(const std::string& utf8, double size, bool bold) {
    const std::string text = printable(utf8);
    std::string_view rest = text;
    while (true) {
        const std::size_t end = rest.find('\n');
        paragraph(rest.substr(0, end), size, bold);
        if (end == std::string_view::npos)
            return;
        rest.remove_prefix(end + 1);
    }
}

void PDFWriter::paragraph(std::string_view utf8, double size, bool bold) {
    if (utf8.empty()) {
        ensure(size + 6);
        y += size + 6;
        return;
    }
    PangoLayout* const layout = canvas->paragraph.get();
    setFont(layout, textFamilies, size, bold);
    while (!utf8.empty()) {
        const std::size_t taken = wholeCharacters(utf8, pieceSize);
        pango_layout_set_text(layout, utf8.data(), static_cast<int>(taken));
        utf8.remove_prefix(writeLines(size, taken == utf8.size()));
    }
    y += 4;
}

/// Writes the lines of the layout and answers how many bytes of its text they hold. Unless it goes to the end
/// of the paragraph, the last line is left out, since more may belong to it.
std::size_t PDFWriter::writeLines(double size, bool toTheEnd) {
    PangoLayout* const layout = canvas->paragraph.get();
    cairo_t* const context = canvas->context.get();
    const GSList* const lines = pango_layout_get_lines_readonly(layout);
    for (const GSList* next = lines; next != nullptr; next = next->next) {
        const PrintedLine line(static_cast<PangoLayoutLine*>(next->data));
        // Characters without width may fill a piece and no line: such a line ends where the piece does.
        if (next->next == nullptr && next != lines) {
            if (!toTheEnd)
                return static_cast<std::size_t>(line.start());
            // What follows a line end at the end of the paragraph is no line.
            if (line.length() == 0)
                break;
        }
        const double lineHeight = std::max(size * 1.5, line.ascent() + line.descent() + line.leading() + 3);
        ensure(lineHeight);
        cairo_set_source_rgb(context, 0, 0, 0);  // a footer may have come in between
        line.draw(context, margin, y + line.ascent(), canvas->standIns);
        y += lineHeight;
    }
    return std::strlen(pango_layout_get_text(layout));
}

void PDFWriter::footer() {
    cairo_t* const context = canvas->context.get();
    PangoLayout* const layout = canvas->footer.get();
    const std::string text = "Vantry  ·  " + std::to_string(page);
    pango_layout_set_text(layout, text.data(), static_cast<int>(text.size()));
    cairo_set_source_rgb(context, 0.5, 0.5, 0.5);
    PrintedLine(pango_layout_get_line_readonly(layout, 0))
        .draw(context, margin, height - footerRise, canvas->standIns);
}

void PDFWriter::storyboard(const Shot& shot) {
    FramePicture picture(textWidth, frameHeight);
    if (shot.imageKey && imageOf)
        picture.load(imageOf(*shot.imageKey), shot.imageKey->utf8());
    if (picture.isNull() && shot.strokes.empty())
        return;
    ensure(frameHeight + 10);
    cairo_t* const context = canvas->context.get();
    cairo_save(context);
    cairo_translate(context, margin, y);
    cairo_set_source_rgb(context, 0.96, 0.96, 0.96);
    cairo_rectangle(context, 0, 0, textWidth, frameHeight);
    cairo_fill(context);
    picture.draw(context);
    cairo_set_source_rgb(context, 0, 0, 0);
    cairo_set_line_width(context, strokeWidth);
    for (const auto& stroke : shot.strokes) {
        if (stroke.points.size() == 1) {
            cairo_arc(context, stroke.points[0].x * textWidth, stroke.points[0].y * frameHeight,
                      strokeWidth / 2, 0, 2 * G_PI);
            cairo_fill(context);
            continue;
        }
        for (const auto& point : stroke.points)
            cairo_line_to(context, point.x * textWidth, point.y * frameHeight);
        cairo_stroke(context);
    }
    cairo_restore(context);
    y += frameHeight + 12;
}

QByteArray PDFWriter::finish() {
    footer();
    cairo_show_page(canvas->context.get());
    const bool drawn = cairo_status(canvas->context.get()) == CAIRO_STATUS_SUCCESS;
    canvas->paragraph.reset();
    canvas->footer.reset();
    canvas->context.reset();
    cairo_surface_finish(canvas->surface.get());
    if (!drawn || cairo_surface_status(canvas->surface.get()) != CAIRO_STATUS_SUCCESS)
        throw VantryError(VantryError::Case::invalidBackup);
    return std::move(data);
}

}  // namespace vantry
