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
    return plain.isEmpty() ? QString() : QStringLiteral("<span>%1</span>").arg(plain.toHtmlEscaped());
}

void setHelp(QWidget& widget, const QString& plain) {
    if (widget.toolTip() != asHelp(plain))
        widget.setToolTip(asHelp(plain));
    // Without a description of its own a control would read its hover help out, markup and all.
    widget.setAccessibleDescription(plain);
}

}  // namespace vantry
