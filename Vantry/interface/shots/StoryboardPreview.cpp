#include "Vantry/interface/shots/StoryboardPreview.h"

#include <QDragEnterEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QPainter>

#include "Vantry/app/FieldSettling.h"
#include "Vantry/app/QtText.h"
#include "Vantry/app/VantryStore.h"
#include "Vantry/interface/design/ControlStates.h"
#include "Vantry/interface/design/ControlText.h"
#include "Vantry/interface/design/FocusRing.h"
#include "Vantry/interface/design/Glyph.h"
#include "Vantry/interface/shots/ShotTexts.h"
#include "Vantry/interface/shots/StoryboardViewer.h"

namespace vantry {
namespace {

constexpr qreal fadedOpacity = 0.5;

/// The one file of this machine that is being dragged; empty when it is anything else.
QString draggedFile(const QDropEvent& event) {
    const QList<QUrl> urls = event.mimeData()->urls();
    if (urls.size() != 1 || !urls.front().isLocalFile() || !event.possibleActions().testFlag(Qt::CopyAction))
        return {};
    const QString path = urls.front().toLocalFile();
    return QFileInfo(path).isFile() ? path : QString();
}

}  // namespace

StoryboardPreview::StoryboardPreview(VantryStore& source, QWidget* parent)
    : Pressable(parent)
    , store(source)
    , frame(source) {
    setPressedOnce();
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    connect(this, &StoryboardPreview::clicked, this, &StoryboardPreview::enlarge);
}

void StoryboardPreview::fill(const Shot& shot, bool english) {
    const auto text = [english](QStringView zh, QStringView en) { return (english ? en : zh).toString(); };
    shotID = shot.id;
    setPlain(text(u"放大分镜图片", u"Enlarge storyboard") + QStringLiteral(" · ") + toQString(shot.code));
    setHelp(*this, text(u"点击放大查看", u"Click to enlarge"));
    const bool differs = frame.fill(shot, emptyFrameText(english));
    if (!differs && shot.cancelled == faded)
        return;
    faded = shot.cancelled;
    update();
}

QSize StoryboardPreview::sizeHint() const {
    return {Metrics::sideWidth, heightForWidth(Metrics::sideWidth)};
}

int StoryboardPreview::heightForWidth(int width) const {
    return StoryboardFrame::heightFor(width);
}

bool StoryboardPreview::hitButton(const QPoint& position) const {
    return StoryboardFrame::within(rect()).contains(position);
}

void StoryboardPreview::enlarge() {
    StoryboardViewer::open(store, shotID, *window());
}

void StoryboardPreview::dragEnterEvent(QDragEnterEvent* event) {
    const bool taken = !store.loadFailed() && !draggedFile(*event).isEmpty();
    event->setAccepted(taken);
    if (!taken)
        return;
    event->setDropAction(Qt::CopyAction);
    setDropTarget(true);
}

void StoryboardPreview::dragLeaveEvent(QDragLeaveEvent*) {
    setDropTarget(false);
}

void StoryboardPreview::dropEvent(QDropEvent* event) {
    setDropTarget(false);
    const QString path = store.loadFailed() ? QString() : draggedFile(*event);
    event->setAccepted(!path.isEmpty());
    if (path.isEmpty())
        return;
    // A copy, whatever was asked for: nobody takes the original away.
    event->setDropAction(Qt::CopyAction);
    settleField();
    emit dropped(path);
}

void StoryboardPreview::setDropTarget(bool target) {
    isDropTarget = target;
    update();
}

void StoryboardPreview::resizeEvent(QResizeEvent* event) {
    Pressable::resizeEvent(event);
    const QRectF place = StoryboardFrame::within(rect());
    states().setRing({place.left(), place.top(), width() - place.right(), height() - place.bottom()},
                     Metrics::radiusTrack, Metrics::ringGap);
}

void StoryboardPreview::paintEvent(QPaintEvent*) {
    const QRectF place = StoryboardFrame::within(rect());
    const Palette& palette = Palette::of(*this);
    ControlLook look = VantryQuietButtonStyle::look(palette, state());
    look.fill = Qt::transparent;
    look.opacity *= faded ? fadedOpacity : 1;
    paintPressed(look, [&](QPainter& painter) {
        frame.paint(painter, place, place, *this);
        paintShape(painter, place, look, Metrics::radiusTrack);
        paintMark(painter, place);
        if (isDropTarget)
            paintRing(painter, place, Metrics::radiusTrack, palette.link);
    });
}

void StoryboardPreview::paintMark(QPainter& painter, const QRectF& place) const {
    const Palette& palette = Palette::of(*this);
    constexpr int side = Metrics::enlargeMark;
    QRectF mark(0, 0, side, side);
    mark.moveBottomRight(place.bottomRight() - QPointF(Metrics::enlargeInset, Metrics::enlargeInset));
    painter.setPen(Qt::NoPen);
    painter.setBrush(mixed(palette.card, palette.hover, state().hovered));
    painter.drawRoundedRect(mark, Metrics::radiusControl, Metrics::radiusControl);
    QRectF sign(0, 0, Metrics::iconMark, Metrics::iconMark);
    sign.moveCenter(mark.center());
    paintGlyph(painter, Glyph::enlarge, sign, palette.ink);
}

}  // namespace vantry
