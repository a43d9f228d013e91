#pragma once

#include <functional>
#include <string>
#include <vector>

#include <QByteArray>
#include <QImage>
#include <QPdfDocument>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include "Vantry/documents/PDFWriter.h"

namespace vantry::test {

/// The moment that all documents of these tests are made at.
inline constexpr Moment made{813'000'000};

/// The file of a document that these calls write.
[[nodiscard]] QByteArray printed(const std::function<void(PDFWriter&)>& calls,
                                 PDFWriter::ImageSource images = {});

/// A document that is read back as other programs read it: by the library behind Qt (PDFium) and by the
/// programs of Poppler.
class PrintedFile {
public:
    explicit PrintedFile(const QByteArray& bytes);
    PrintedFile(const std::function<void(PDFWriter&)>& calls, PDFWriter::ImageSource images = {})
        : PrintedFile(printed(calls, std::move(images))) {}

    [[nodiscard]] int pageCount() const { return document.pageCount(); }
    /// The text of one page, from 0, as Qt gives it.
    [[nodiscard]] QString pageText(int page) const;
    /// The text of all pages as Qt gives it.
    [[nodiscard]] QString text() const;
    /// The text of all pages as pdftotext gives it; each page ends with a form feed.
    [[nodiscard]] QString textByPoppler() const;
    /// A page as it looks on white paper.
    [[nodiscard]] QImage look(int page, double dotsPerInch) const;

    /// What a program writes about the file, whose place is put behind the options.
    [[nodiscard]] std::string toldBy(const QString& program, const QStringList& options = {}) const;
    /// The files of the pictures, in their own form where they have one, in the order of the pages.
    [[nodiscard]] std::vector<std::string> pictures() const;
    /// The lines of `pdfimages -list` below its head, each split at its blanks.
    [[nodiscard]] std::vector<QStringList> pictureList() const;

private:
    [[nodiscard]] QString place() const { return folder.filePath(QStringLiteral("document.pdf")); }
    [[nodiscard]] std::string run(const QString& program, const QStringList& arguments) const;

    QTemporaryDir folder;
    QPdfDocument document;
};

/// The text in its composed form, without blanks and line ends: where a line is broken is the page's
/// business.
[[nodiscard]] QString withoutBlanks(const QString& text);
[[nodiscard]] QString withoutBlanks(const std::string& utf8);

}  // namespace vantry::test
