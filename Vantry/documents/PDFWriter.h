#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include <QByteArray>

#include "Vantry/documents/DocumentFlow.h"
#include "VantryCore/records/Moment.h"

namespace vantry {

/// The page flow of all documents: A4, from top to bottom, into memory. Texts come out of the PDF as they
/// went in, Chinese too. The same calls with the same moment make the same bytes.
class PDFWriter final : public DocumentFlow {
public:
    /// Gives the bytes of the image file of a key, or none.
    using ImageSource = std::function<std::string(const Text& key)>;

    /// Opens page 1. `made` goes into the file as the moment of its making. Throws VantryError invalidBackup
    /// when there is nothing to draw on.
    explicit PDFWriter(Moment made, ImageSource images = {});
    ~PDFWriter() override;

    // All quantities are points; places are measured from the top left corner.
    static constexpr double width = 595.28;
    static constexpr double height = 841.89;
    static constexpr double margin = 45;
    static constexpr double textWidth = width - 2 * margin;
    static constexpr double top = 50;
    static constexpr double bottom = height - 55;
    static constexpr double frameHeight = textWidth * 9 / 16;

    using DocumentFlow::text;
    /// NUL and other control characters become blanks; what is no character of Unicode, or no UTF-8, becomes
    /// U+FFFD.
    void text(const std::string& utf8, double size, bool bold) override;
    void advance(double points) override { y += points; }
    void ensure(double points) override;
    void storyboard(const Shot& shot) override;

    /// Where the next line begins.
    [[nodiscard]] double cursor() const noexcept { return y; }
    /// The number of the current page, from 1.
    [[nodiscard]] int pageNumber() const noexcept { return page; }
    /// Ends the last page with its footer and gives the file. Nothing can be written afterwards. Throws
    /// VantryError invalidBackup when the file could not be made.
    [[nodiscard]] QByteArray finish();

private:
    struct Canvas;

    void newPage();
    void footer();
    void paragraph(std::string_view utf8, double size, bool bold);
    std::size_t writeLines(double size, bool toTheEnd);

    QByteArray data;
    std::unique_ptr<Canvas> canvas;
    ImageSource imageOf;
    double y = top;
    int page = 1;
};

}  // namespace vantry
