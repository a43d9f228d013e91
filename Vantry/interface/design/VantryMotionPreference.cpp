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
    VantryReducedMotionKey::value = VantryReducedMotionKey::defaultValue;
}

void VantryMotionPreference::setChoice(bool reduced) {
    choice = reduced;
    apply();
}

bool VantryMotionPreference::isReducedByDesktop() const {
    return desktop->isReduced();
}

void VantryMotionPreference::apply() {
    VantryReducedMotionKey::value = choice || desktop->isReduced();
}

}  // namespace vantry
