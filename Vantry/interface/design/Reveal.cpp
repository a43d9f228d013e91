#include "Vantry/interface/design/Reveal.h"

#include <cmath>

#include <QEvent>
#include <QLayout>

#include "Vantry/interface/design/VantryMotion.h"

namespace vantry {

Reveal::Reveal(QWidget* parent)
    : QWidget(parent)
    , share(*parent, VantryMotion::disclosure(), 0, [this] { follow(); }) {
    // Not a fixed one: a layout would then hold the height of the hint, of another width, for the most.
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    hide();
}

void Reveal::setWidget(QWidget* widget) {
    content = widget;
    content->setParent(this);
    content->show();
    arrange();
}

void Reveal::setShown(bool shown, bool moving) {
    const double target = shown ? 1 : 0;
    if (moving)
        share.setTarget(target);
    else
        share.settle(target);
    follow();
}

void Reveal::follow() {
    setVisible(share.value() > 0 || share.target() > 0);
    updateGeometry();
    arrange();
}

int Reveal::fullHeight(int width) const {
    if (content == nullptr)
        return 0;
    return content->hasHeightForWidth() ||
                   (content->layout() != nullptr && content->layout()->hasHeightForWidth())
               ? content->heightForWidth(width)
               : content->sizeHint().height();
}

int Reveal::shownPart(int height) const {
    return static_cast<int>(std::lround(height * share.value()));
}

int Reveal::heightForWidth(int width) const {
    return shownPart(fullHeight(width));
}

QSize Reveal::sizeHint() const {
    const QSize full = content != nullptr ? content->sizeHint() : QSize(0, 0);
    return {full.width(), shownPart(full.height())};
}

QSize Reveal::minimumSizeHint() const {
    return {content != nullptr ? content->minimumSizeHint().width() : 0, 0};
}

void Reveal::arrange() {
    if (content != nullptr)
        content->setGeometry(0, 0, width(), fullHeight(width()));
}

bool Reveal::event(QEvent* event) {
    // The content wants another size; no layout of ours would tell.
    if (event->type() == QEvent::LayoutRequest) {
        updateGeometry();
        arrange();
    }
    return QWidget::event(event);
}

void Reveal::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    arrange();
}

}  // namespace vantry
