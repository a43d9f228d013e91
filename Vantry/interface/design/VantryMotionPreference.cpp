#include "Vantry/interface/design/VantryMotionPreference.h"

#include "Vantry/interface/design/DesktopMotion.h"
#include "Vantry/interface/design/VantryReducedMotionKey.h"

namespace vantry {

VantryMotionPreference::VantryMotionPreference(QObject* parent)
    : QObject(parent)
    , desktop(new DesktopMotion(this)) {
    connect(desktop, &DesktopMotion::changed, this, &VantryMotionPreference::apply);
    apply();
}

VantryMotionPreference::~VantryMotionPreference() {
    wish(false);
}

void VantryMotionPreference::setChoice(bool reduced) {
    choice = reduced;
    apply();
}

bool VantryMotionPreference::isReducedByDesktop() const {
    return desktop->isReduced();
}

void VantryMotionPreference::apply() {
    wish(choice || desktop->isReduced());
}

void VantryMotionPreference::wish(bool reduced) {
    if (wished != reduced)
        VantryReducedMotionKey::wishes += reduced ? 1 : -1;
    wished = reduced;
}

}  // namespace vantry
