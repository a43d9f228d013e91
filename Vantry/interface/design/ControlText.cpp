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

void setHelp(QWidget& widget, const QString& plain) {
    const QString help =
        plain.isEmpty() ? QString() : QStringLiteral("<span>%1</span>").arg(plain.toHtmlEscaped());
    if (widget.toolTip() != help)
        widget.setToolTip(help);
    // Without a description of its own a control would read its hover help out, markup and all.
    widget.setAccessibleDescription(plain);
}

}  // namespace vantry
