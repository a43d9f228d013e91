#include "Vantry/documents/DocumentName.h"

#include <QChar>
#include <QString>
#include <QTextBoundaryFinder>

#include "Vantry/app/QtText.h"

namespace vantry {
namespace {

constexpr std::size_t longestName = 255;

/// As many whole characters, as a reader sees them (UAX #29), as fit into `bytes`.
QString shortened(const QString& text, std::size_t bytes) {
    if (static_cast<std::size_t>(text.toUtf8().size()) <= bytes)
        return text;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype end = 0;
    while (finder.toNextBoundary() != -1 &&
           static_cast<std::size_t>(QStringView(text).left(finder.position()).toUtf8().size()) <= bytes)
        end = finder.position();
    return text.left(end);
}

}  // namespace

std::string documentName(const Text& title, std::string_view ending) {
    QString name = toQString(title);
    for (QChar& character : name)
        if (character == QLatin1Char('/') || character.category() == QChar::Other_Control)
            character = QLatin1Char('-');
    const std::size_t room = longestName - std::min(longestName, ending.size());
    return shortened(name, room).toStdString().append(ending);
}

}  // namespace vantry
