#include "Vantry/interface/design/ControlText.h"

#include <QWidget>

namespace vantry {

QString controlText(const QString& plain) {
    QString text = plain;
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

QString singleLine(const QString& plain) {
    QString line = plain;
    line.replace(QLatin1String("\r\n"), QLatin1String(" "));
    for (const QChar end : {QChar(QLatin1Char('\n')), QChar(QLatin1Char('\r')), QChar(QChar::LineSeparator),
                            QChar(QChar::ParagraphSeparator)})
        line.replace(end, QLatin1Char(' '));
    return line;
}

QString asHelp(const QString& plain) {
    if (plain.isEmpty())
        return {};
    // Left to itself Qt breaks even a short text, to make it less wide.
    constexpr qsizetype oneLine = 48;
    const QString style = plain.size() <= oneLine ? QStringLiteral(" style='white-space:nowrap'") : QString();
    return QStringLiteral("<span%1>%2</span>").arg(style, plain.toHtmlEscaped());
}

void setHelp(QWidget& widget, const QString& plain) {
    if (widget.toolTip() != asHelp(plain))
        widget.setToolTip(asHelp(plain));
    // Without a description of its own a control would read its hover help out, markup and all.
    widget.setAccessibleDescription(plain);
}

}  // namespace vantry
