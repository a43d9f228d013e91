#include "Vantry/interface/design/ControlText.h"

#include <QCoreApplication>
#include <QHelpEvent>
#include <QPointer>
#include <QToolTip>
#include <QVariant>
#include <QWidget>

namespace vantry {
namespace {

constexpr const char* helpProperty = "vantryHoverHelp";

/// Shows the hover help of widgets that have no tool tip: that one is also read out by tools.
class HoverHelp final : public QObject {
public:
    using QObject::QObject;

    /// Shows `plain` over the widget; the empty text shows nothing.
    static void set(QWidget& widget, const QString& plain) {
        static const QPointer<HoverHelp> all = new HoverHelp(QCoreApplication::instance());
        if (widget.property(helpProperty).toString() == plain)
            return;
        widget.setProperty(helpProperty, plain);
        if (all != nullptr)
            widget.installEventFilter(all);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::ToolTip)
            return false;
        const QString plain = watched->property(helpProperty).toString();
        if (plain.isEmpty())
            return false;
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), asHelp(plain),
                           static_cast<QWidget*>(watched));
        return true;
    }
};

}  // namespace

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
    // A name is not told twice.
    const bool isName = plain == widget.accessibleName();
    HoverHelp::set(widget, isName ? plain : QString());
    const QString tip = isName ? QString() : asHelp(plain);
    if (widget.toolTip() != tip)
        widget.setToolTip(tip);
    // Without a description of its own a control would read its tool tip out, markup and all.
    widget.setAccessibleDescription(isName ? QString() : plain);
}

}  // namespace vantry
