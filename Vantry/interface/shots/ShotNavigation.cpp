#include "Vantry/interface/shots/ShotNavigation.h"

#include <QHBoxLayout>

#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/shots/ShotChooser.h"
#include "Vantry/interface/shots/ShotOrder.h"

namespace vantry {

ShotNavigation::ShotNavigation(PageContext given, const Identifier& project, const Identifier& shot,
                               QWidget* parent)
    : StorePage(std::move(given), parent)
    , projectID(project)
    , shotID(shot)
    , previous(new Button(Button::Kind::quiet, Glyph::chevronLeft, this))
    , position(new Button(Button::Kind::quiet, Glyph::none, this))
    , next(new Button(Button::Kind::quiet, Glyph::none, this)) {
    position->setTrailing(Glyph::chevronsUpDown);
    next->setTrailing(Glyph::chevronRight);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Metrics::gapTrack);
    for (Button* button : {previous, position, next}) {
        button->setPressedOnce();
        row->addWidget(button);
    }
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(previous, &Button::clicked, this, performing([this](bool) { goToNeighbor(-1); }));
    connect(next, &Button::clicked, this, performing([this](bool) { goToNeighbor(1); }));
    connect(position, &Button::clicked, this, performing([this](bool) { choose(); }));
}

void ShotNavigation::choose() {
    if (chooser == nullptr) {
        chooser = new ShotChooser(store(), projectID, shotID, this);
        connect(chooser, &ShotChooser::chosen, this,
                performing([this](const Identifier& act, const Identifier& chosen) {
                    if (!store().flush())
                        return;
                    chooser->hide();
                    go(Route::shot(projectID, act, chosen));
                }));
    }
    chooser->choose();
}

void ShotNavigation::setCompact(bool compact) {
    previous->setCompact(compact);
    next->setCompact(compact);
}

bool ShotNavigation::hasNext() const {
    return next->isEnabled();
}

void ShotNavigation::goToNeighbor(int step) const {
    if (!store().flush())
        return;
    const auto project = store().project(projectID);
    if (!project)
        return;
    if (const auto found = ShotOrder(*project).neighbor(shotID, step))
        go(Route::shot(projectID, found->act->id, found->shot->id));
}

void ShotNavigation::refresh() {
    const auto project = store().project(projectID);
    if (!project)
        return;
    const ShotOrder order(*project);
    setAccessibleName(text(u"切换分镜", u"Switch shot"));
    previous->setPlain(text(u"上一镜", u"Previous shot"));
    next->setPlain(text(u"下一镜", u"Next shot"));
    previous->setEnabled(order.neighbor(shotID, -1).has_value());
    next->setEnabled(order.neighbor(shotID, 1).has_value());
    const auto index = order.indexOf(shotID);
    const QString place = QStringLiteral("%1 / %2").arg(index ? *index + 1 : 0).arg(order.ordered().size());
    position->setPlain(place);
    position->setAccessibleName(text(u"选择分镜", u"Choose shot"));
    position->setAccessibleDescription(place);
    if (chooser != nullptr)
        chooser->refresh();
}

}  // namespace vantry
