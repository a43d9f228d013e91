#include "Vantry/interface/design/SheetWindow.h"

#include <QApplication>
#include <QEvent>
#include <QPainter>

#include "Vantry/interface/design/Accessibility.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/Palette.h"
#include "Vantry/interface/design/Surface.h"
#include "Vantry/interface/design/VantrySheetFrame.h"

namespace vantry {
namespace {

/// Lies over a window while a sheet is open, so that the sheet alone catches the eye.
class Layer final : public QWidget {
public:
    explicit Layer(QWidget* window)
        : QWidget(window)
        , radius(qobject_cast<SheetWindow*>(window) != nullptr ? Metrics::radiusPanel : 0) {
        setGeometry(window->rect());
        raise();
        show();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        constexpr qreal inLight = 0.42;
        constexpr qreal inDark = 0.74;
        const bool dark = Palette::isDark(palette());
        const Palette& colours = Palette::of(*this);
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setOpacity(dark ? inDark : inLight);
        painter.setPen(Qt::NoPen);
        painter.setBrush(dark ? colours.canvas : colours.ink);
        painter.drawRoundedRect(rect(), radius, radius);
    }

private:
    const int radius;
};

}  // namespace

SheetWindow::SheetWindow(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint) {
    installAccessibility();
    setWindowModality(Qt::WindowModal);
    setAttribute(Qt::WA_TranslucentBackground);
}

SheetWindow::~SheetWindow() {
    disappear();
}

QWidget* SheetWindow::topmostOver(QWidget& window) {
    QWidget* const topmost = QApplication::activeModalWidget();
    return topmost != nullptr ? topmost : &window;
}

bool SheetWindow::event(QEvent* event) {
    const bool handled = QDialog::event(event);
    if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Show)
        fit();
    if (event->type() == QEvent::Show)
        appear();
    else if (event->type() == QEvent::Hide)
        disappear();
    return handled;
}

void SheetWindow::appear() {
    if (parentWidget() == nullptr || layer != nullptr)
        return;
    under = parentWidget()->window();
    under->installEventFilter(this);
    layer = new Layer(under);
    place();
}

void SheetWindow::disappear() {
    if (under != nullptr)
        under->removeEventFilter(this);
    delete layer;
}

void SheetWindow::fit() {
    setFixedSize(VantrySheetFrame::size(wantedSize(), parentWidget()));
}

void SheetWindow::place() {
    move(under->mapToGlobal(under->rect().center()) - rect().center());
}

bool SheetWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == under && layer != nullptr &&
        (event->type() == QEvent::Resize || event->type() == QEvent::Move)) {
        layer->setGeometry(under->rect());
        fit();
        place();
    }
    return QDialog::eventFilter(watched, event);
}

void SheetWindow::paintEvent(QPaintEvent*) {
    const Palette& palette = Palette::of(*this);
    QPainter painter(this);
    paintSurface(painter, rect(), {palette.canvas, palette.rule, Metrics::hairline, Metrics::radiusPanel});
}

void SheetWindow::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    setMask(roundedRegion(size(), Metrics::radiusPanel));
    if (layer != nullptr)
        place();
}

}  // namespace vantry
