#include "Vantry/interface/design/SegmentedChoice.h"

#include <algorithm>

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>

#include "Vantry/interface/design/Accessibility.h"
#include "Vantry/interface/design/KeyboardFocus.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/Surface.h"

namespace vantry {
namespace {

Segment::Kind segmentKind(SegmentedChoice::Size size) {
    switch (size) {
    case SegmentedChoice::Size::large:
        return Segment::Kind::large;
    case SegmentedChoice::Size::tabs:
        return Segment::Kind::tab;
    case SegmentedChoice::Size::regular:
        break;
    }
    return Segment::Kind::regular;
}

}  // namespace

SegmentedChoice::SegmentedChoice(const QList<Segment::Look>& looks, Size size, QWidget* parent)
    : QWidget(parent) {
    installAccessibility();
    const int track = Metrics::gapTrack;
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(track, track, track, track);
    row->setSpacing(size == Size::tabs ? Metrics::gapInline : track);
    for (const Segment::Look& look : looks) {
        auto* segment = new Segment(look, segmentKind(size), this);
        const int index = static_cast<int>(segments.size());
        connect(segment, &Segment::clicked, this, [this, index] { emit chosen(index); });
        connect(segment, &Segment::toggled, this, &SegmentedChoice::followChoice);
        row->addWidget(segment);
        segments.append(segment);
    }
    setSizePolicy(size == Size::tabs ? QSizePolicy::Fixed : QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void SegmentedChoice::setName(const QString& name) {
    setAccessibleName(name);
}

void SegmentedChoice::setTitles(const QStringList& titles) {
    for (qsizetype index = 0; index < segments.size() && index < titles.size(); ++index)
        segments[index]->setPlain(titles[index]);
}

void SegmentedChoice::setChosen(int index) {
    if (index >= 0 && index < segments.size() && !segments[index]->isChecked())
        segments[index]->setChecked(true);
}

int SegmentedChoice::chosenIndex() const {
    const auto set = std::find_if(segments.cbegin(), segments.cend(),
                                  [](const Segment* segment) { return segment->isChecked(); });
    return set == segments.cend() ? -1 : static_cast<int>(set - segments.cbegin());
}

void SegmentedChoice::followChoice() {
    if (chosenIndex() < 0)
        return;
    for (Segment* segment : segments)
        segment->setFocusPolicy(segment->isChecked() ? buttonFocus : Qt::NoFocus);
    // An arrow key brings the keyboard along itself, and shows where it is.
    QMetaObject::invokeMethod(this, &SegmentedChoice::bringKeyboard, Qt::QueuedConnection);
}

/// The keyboard goes along with a choice that was made with the mouse, or elsewhere.
void SegmentedChoice::bringKeyboard() {
    const bool hasKeyboard = std::any_of(segments.cbegin(), segments.cend(),
                                         [](const Segment* segment) { return segment->hasFocus(); });
    if (hasKeyboard)
        focusChosen(Qt::OtherFocusReason);
}

void SegmentedChoice::focusChosen(Qt::FocusReason reason) {
    if (Segment* const chosen = segments.value(chosenIndex()))
        chosen->setFocus(reason);
}

void SegmentedChoice::keyPressEvent(QKeyEvent* event) {
    const bool toFirst = event->key() == Qt::Key_Home;
    if (segments.isEmpty() || (!toFirst && event->key() != Qt::Key_End)) {
        QWidget::keyPressEvent(event);
        return;
    }
    Segment& wanted = *(toFirst ? segments.first() : segments.last());
    wanted.setFocus(Qt::TabFocusReason);
    if (!wanted.isChecked())
        wanted.click();
}

void SegmentedChoice::paintEvent(QPaintEvent*) {
    const Palette& palette = Palette::of(*this);
    QPainter painter(this);
    paintSurface(painter, rect(),
                 {palette.navigation, palette.rule, Metrics::hairline, Metrics::radiusTrack});
}

}  // namespace vantry
