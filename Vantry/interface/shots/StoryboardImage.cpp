#include "Vantry/interface/shots/StoryboardImage.h"

#include <QAccessibleWidget>
#include <QPaintEvent>
#include <QPainter>

#include "Vantry/interface/design/Metrics.h"

namespace vantry {
namespace {

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
    auto* picture = qobject_cast<StoryboardImage*>(object);
    return picture != nullptr ? new QAccessibleWidget(picture, QAccessible::Graphic) : nullptr;
}

/// Makes known to assistive tools that the frame is a picture.
void installPicture() {
    static const bool installed = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    static_cast<void>(installed);
}

}  // namespace

StoryboardImage::StoryboardImage(VantryStore& store, QWidget* parent)
    : QWidget(parent)
    , frame(store) {
    installPicture();
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void StoryboardImage::fill(const Shot& shot, const QString& name, const QString& hint) {
    setAccessibleName(name);
    if (frame.fill(shot, hint))
        update();
    setAccessibleDescription(frame.isEmpty() ? hint : QString());
}

QSize StoryboardImage::sizeHint() const {
    return {Metrics::sideWidth, heightForWidth(Metrics::sideWidth)};
}

int StoryboardImage::heightForWidth(int width) const {
    return StoryboardFrame::heightFor(width);
}

void StoryboardImage::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    frame.paint(painter, StoryboardFrame::within(rect()), event->rect(), *this);
}

}  // namespace vantry
