#include "tests/documents/PrintedFile.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QPainter>
#include <QPdfSelection>
#include <QProcess>

#include "Vantry/app/QtText.h"
#include "tests/support/Files.h"

namespace vantry::test {

QByteArray printed(const std::function<void(PDFWriter&)>& calls, PDFWriter::ImageSource images) {
    PDFWriter writer(made, std::move(images));
    calls(writer);
    return writer.finish();
}

PrintedFile::PrintedFile(const QByteArray& bytes) {
    QFile file(place());
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    file.close();
    document.load(place());
    EXPECT_EQ(document.status(), QPdfDocument::Status::Ready) << "this is no PDF";
    EXPECT_GT(document.pageCount(), 0);
}

QString PrintedFile::pageText(int page) const {
    return const_cast<QPdfDocument&>(document).getAllText(page).text();
}

QString PrintedFile::text() const {
    QString all;
    for (int page = 0; page < pageCount(); ++page)
        all += pageText(page) + QLatin1Char('\n');
    return all;
}

QString PrintedFile::textByPoppler() const {
    return QString::fromStdString(run(QStringLiteral("pdftotext"), {"-enc", "UTF-8", place(), "-"}));
}

QImage PrintedFile::look(int page, double dotsPerInch) const {
    const QSizeF points = document.pagePointSize(page);
    const QSize size(qRound(points.width() * dotsPerInch / 72), qRound(points.height() * dotsPerInch / 72));
    QImage paper(size, QImage::Format_RGB32);
    paper.fill(Qt::white);
    QPainter(&paper).drawImage(0, 0, const_cast<QPdfDocument&>(document).render(page, size));
    return paper;
}

std::string PrintedFile::toldBy(const QString& program, const QStringList& options) const {
    return run(program, options + QStringList(place()));
}

std::vector<std::string> PrintedFile::pictures() const {
    const QDir place(folder.path());
    static_cast<void>(
        run(QStringLiteral("pdfimages"), {"-all", this->place(), place.filePath(QStringLiteral("picture"))}));
    std::vector<std::string> files;
    for (const QString& name : place.entryList({QStringLiteral("picture-*")}, QDir::Files, QDir::Name))
        files.push_back(support::contentOf(place.filePath(name).toStdString()));
    return files;
}

std::vector<QStringList> PrintedFile::pictureList() const {
    QStringList lines = QString::fromStdString(toldBy(QStringLiteral("pdfimages"), {"-list"}))
                            .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    std::vector<QStringList> list;
    for (const QString& line : lines.mid(2))
        list.push_back(line.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    return list;
}

std::string PrintedFile::run(const QString& program, const QStringList& arguments) const {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(60000)) << program.toStdString() << " does not run";
    EXPECT_EQ(process.exitCode(), 0) << program.toStdString() << ": "
                                     << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput().toStdString();
}

QString withoutBlanks(const QString& text) {
    QString kept;
    std::copy_if(text.begin(), text.end(), std::back_inserter(kept), [](QChar c) { return !c.isSpace(); });
    return kept.normalized(QString::NormalizationForm_C);
}

QString withoutBlanks(const std::string& utf8) {
    return withoutBlanks(toQString(std::string_view(utf8)));
}

}  // namespace vantry::test
