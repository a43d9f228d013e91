#include "Vantry/interface/shots/StoryboardViewer.h"

#include <algorithm>
#include <cmath>

#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QWheelEvent>

#include "Vantry/app/VantryStore.h"
#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/TabularLabel.h"
#include "Vantry/interface/pages/Contained.h"
#include "Vantry/interface/shots/ShotTexts.h"
#include "Vantry/interface/shots/StoryboardImage.h"

namespace vantry {
namespace {

/// The shot as it is now, wherever it stands; null when it is not in the library.
const Shot* findShot(const Library& library, const Identifier& shotID) {
    for (const auto& project : library.projects)
        for (const auto& act : project->acts)
            for (const auto& shot : act->shots)
                if (shot->id == shotID)
                    return &*shot;
    return nullptr;
}

QSize sizeOfWidth(double width) {
    return {std::max(1, static_cast<int>(width)),
            std::max(1, StoryboardFrame::heightFor(static_cast<int>(width)))};
}

/// What lies in the middle of the view, as a share of the content's length.
double middleOf(const QScrollBar& bar, int content) {
    constexpr double half = 0.5;
    return bar.maximum() == 0 ? half : (bar.value() + bar.pageStep() / 2.0) / content;
}

void setMiddle(QScrollBar& bar, int content, double middle) {
    bar.setValue(static_cast<int>(std::lround(middle * content - bar.pageStep() / 2.0)));
}

}  // namespace

void StoryboardViewer::open(VantryStore& store, const Identifier& shotID, QWidget& window) {
    const Shot* const shot = findShot(store.library(), shotID);
    if (shot == nullptr)
        return;
    auto* viewer = new StoryboardViewer(store, shotID, &window);
    viewer->setAttribute(Qt::WA_DeleteOnClose);
    viewer->fit();
    viewer->refresh();
    viewer->dismiss->setFocus();
    viewer->QDialog::open();
}

StoryboardViewer::StoryboardViewer(VantryStore& source, const Identifier& shown, QWidget* window)
    : WorkSheet({Metrics::viewerWidth, Metrics::viewerHeight}, Footer::text, window)
    , store(source)
    , shotID(shown)
    , zoomOut(new Button(Button::Kind::quiet, Glyph::zoomOut, this))
    , percentage(new TabularLabel(VantryType::Role::label, &Palette::ink, this))
    , zoomIn(new Button(Button::Kind::quiet, Glyph::zoomIn, this))
    , fitToWindow(new Button(Button::Kind::quiet, Glyph::none, this))
    , dismiss(new Button(Button::Kind::primary, Glyph::none, this))
    , hint(new Label(VantryType::Role::caption, &Palette::muted, Label::Length::cut, this))
    , view(new QScrollArea(this))
    , image(new StoryboardImage(store)) {
    makeHeader();
    view->setFrameShape(QFrame::NoFrame);
    view->setAlignment(Qt::AlignCenter);
    view->setFocusPolicy(Qt::NoFocus);
    view->viewport()->setAutoFillBackground(false);
    view->setWidget(image);
    for (QScrollBar* bar : {view->horizontalScrollBar(), view->verticalScrollBar()})
        bar->setSingleStep(Metrics::viewerStep);
    view->viewport()->installEventFilter(this);
    content().addWidget(view);
    footer().addWidget(hint);
    makeKeys();
    connect(&store, &VantryStore::changed, this, &StoryboardViewer::refreshSoon);
}

void StoryboardViewer::makeHeader() {
    percentage->setFixedWidth(Metrics::zoomWidth);
    percentage->setAlignment(Qt::AlignCenter);
    dismiss->setPressedOnce();
    auto* strip = new QHBoxLayout;
    strip->setSpacing(Metrics::gapInline);
    for (QWidget* part : std::initializer_list<QWidget*>{zoomOut, percentage, zoomIn})
        strip->addWidget(part);
    actions().addLayout(strip);
    actions().addWidget(fitToWindow);
    actions().addWidget(dismiss);
    connect(zoomOut, &Button::clicked, this, [this] { setZoom(zoomed - step); });
    connect(zoomIn, &Button::clicked, this, [this] { setZoom(zoomed + step); });
    connect(fitToWindow, &Button::clicked, this, [this] { setZoom(smallest); });
    connect(dismiss, &Button::clicked, this, &StoryboardViewer::reject);
}

void StoryboardViewer::makeKeys() {
    const auto on = [this](const QKeySequence& keys, auto action) {
        auto* shortcut = new QShortcut(keys, this);
        connect(shortcut, &QShortcut::activated, this, action);
    };
    on(Qt::CTRL | Qt::Key_Plus, [this] { setZoom(zoomed + step); });
    on(Qt::CTRL | Qt::Key_Equal, [this] { setZoom(zoomed + step); });
    on(Qt::CTRL | Qt::Key_Minus, [this] { setZoom(zoomed - step); });
    on(Qt::CTRL | Qt::Key_0, [this] { setZoom(smallest); });
    on(Qt::Key_Left, [this] { scroll(Qt::Horizontal, -1); });
    on(Qt::Key_Right, [this] { scroll(Qt::Horizontal, 1); });
    on(Qt::Key_Up, [this] { scroll(Qt::Vertical, -1); });
    on(Qt::Key_Down, [this] { scroll(Qt::Vertical, 1); });
}

void StoryboardViewer::scroll(Qt::Orientation orientation, int steps) {
    QScrollBar& bar =
        orientation == Qt::Horizontal ? *view->horizontalScrollBar() : *view->verticalScrollBar();
    bar.setValue(bar.value() + steps * bar.singleStep());
}

void StoryboardViewer::refreshSoon() {
    if (refreshQueued)
        return;
    refreshQueued = true;
    QMetaObject::invokeMethod(
        this, [this] { contain(store, [this] { refresh(); }); }, Qt::QueuedConnection);
}

void StoryboardViewer::refresh() {
    refreshQueued = false;
    const Shot* const shot = findShot(store.library(), shotID);
    if (shot == nullptr) {
        reject();
        return;
    }
    const bool english = store.english();
    const auto text = [english](QStringView zh, QStringView en) { return (english ? en : zh).toString(); };
    const QString name = shotName(*shot);
    setTitle(name);
    image->fill(*shot, name, emptyFrameText(english));
    zoomOut->setPlain(text(u"缩小", u"Zoom out"));
    zoomIn->setPlain(text(u"放大", u"Zoom in"));
    fitToWindow->setPlain(text(u"适合窗口", u"Fit to window"));
    dismiss->setPlain(text(u"关闭", u"Close"));
    hint->setPlain(text(u"放大后可用触控板或滚动条移动查看；按 Esc 关闭。",
                        u"Scroll to explore when zoomed in. Press Esc to close."));
    refreshZoom();
    if (shot->imageKey != key) {
        key = shot->imageKey;
        fetch();
    }
}

void StoryboardViewer::fetch() {
    if (!key)
        return;
    // Decoded once, as large as it can be shown, and some more: no step of the zoom waits for it again, nor
    // does a window that grows a little.
    constexpr int spare = 512;
    const QSize size = sizeOfWidth(fitWidth() * largest) * devicePixelRatioF();
    static_cast<void>(
        store.image(key, {(size.width() / spare + 1) * spare, (size.height() / spare + 1) * spare}));
}

void StoryboardViewer::refreshZoom() {
    constexpr double hundred = 100;
    percentage->setPlain(QString::asprintf("%.0f%%", zoomed * hundred));
    // Who presses one of them by keyboard to its end stays with the other.
    if (zoomed >= largest && zoomIn->hasFocus()) {
        zoomOut->setEnabled(true);
        zoomOut->setFocus(Qt::TabFocusReason);
    } else if (zoomed <= smallest && zoomOut->hasFocus()) {
        zoomIn->setEnabled(true);
        zoomIn->setFocus(Qt::TabFocusReason);
    }
    zoomOut->setEnabled(zoomed > smallest);
    zoomIn->setEnabled(zoomed < largest);
}

void StoryboardViewer::setZoom(double zoom) {
    const double next = std::clamp(zoom, smallest, largest);
    if (next == zoomed)
        return;
    zoomed = next;
    refreshZoom();
    layOut();
}

double StoryboardViewer::fitWidth() const {
    constexpr double wide = 16;
    constexpr double high = 9;
    const QSize available = contentSize();
    return std::min<double>(available.width() - Metrics::viewerSpace,
                            (available.height() - Metrics::viewerSpace) * wide / high);
}

void StoryboardViewer::layOut() {
    QScrollBar& across = *view->horizontalScrollBar();
    QScrollBar& down = *view->verticalScrollBar();
    const double middleX = middleOf(across, image->width());
    const double middleY = middleOf(down, image->height());
    image->resize(sizeOfWidth(fitWidth() * zoomed));
    setMiddle(across, image->width(), middleX);
    setMiddle(down, image->height(), middleY);
}

bool StoryboardViewer::eventFilter(QObject* watched, QEvent* event) {
    if (watched != view->viewport())
        return WorkSheet::eventFilter(watched, event);
    if (event->type() == QEvent::Wheel) {
        const auto& wheel = *static_cast<QWheelEvent*>(event);
        if (!wheel.modifiers().testFlag(Qt::ControlModifier))
            return false;
        turned += wheel.angleDelta().y();
        const int steps = turned / QWheelEvent::DefaultDeltasPerStep;
        turned -= steps * QWheelEvent::DefaultDeltasPerStep;
        setZoom(zoomed + steps * step);
        return true;
    }
    return false;
}

void StoryboardViewer::resizeEvent(QResizeEvent* event) {
    WorkSheet::resizeEvent(event);
    layout()->activate();
    layOut();
}

}  // namespace vantry
