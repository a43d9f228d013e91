#include "Vantry/interface/shots/DrawingSheet.h"

#include <algorithm>
#include <utility>

#include <QShortcut>

#include "Vantry/app/VantryStore.h"
#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/pages/Contained.h"
#include "Vantry/interface/shots/DrawingSurface.h"
#include "Vantry/interface/shots/ShotTexts.h"

namespace vantry {
namespace {

/// Keeps a surface as large as fits, in the middle. Its size is a multiple of 16:9, so that the frame fills
/// it to the last point.
class SurfacePlace final : public QWidget {
public:
    explicit SurfacePlace(DrawingSurface& held)
        : surface(held) {
        surface.setParent(this);
    }

protected:
    void resizeEvent(QResizeEvent*) override {
        constexpr int wide = 16;
        constexpr int high = 9;
        const QRect free = rect().adjusted(Metrics::paddingSheet, Metrics::paddingSheet,
                                           -Metrics::paddingSheet, -Metrics::paddingSheet);
        const int unit = std::max(1, std::min(free.width() / wide, free.height() / high));
        QRect place(0, 0, unit * wide, unit * high);
        place.moveCenter(free.center());
        surface.setGeometry(place);
    }

private:
    DrawingSurface& surface;
};

}  // namespace

DrawingSheet::DrawingSheet(VantryStore& source, QWidget* parent)
    : WorkSheet({Metrics::drawingWidth, Metrics::drawingHeight}, Footer::buttons, parent)
    , store(source)
    , drawingSurface(new DrawingSurface(source))
    , undo(new Button(Button::Kind::quiet, Glyph::undo, this))
    , clear(new Button(Button::Kind::destructive, Glyph::trash, this))
    , cancel(new Button(Button::Kind::quiet, Glyph::none, this))
    , confirm(new Button(Button::Kind::primary, Glyph::none, this)) {
    content().addWidget(new SurfacePlace(*drawingSurface));
    makeButtons();
    // At once: there is nothing here that could be changed twice in one turn.
    connect(&store, &VantryStore::changed, this, [this] {
        if (isVisible())
            refresh();
    });
}

void DrawingSheet::makeButtons() {
    actions().addWidget(undo);
    footer().addWidget(clear);
    footer().addStretch();
    footer().addWidget(cancel);
    footer().addWidget(confirm);
    for (Button* button : {clear, cancel, confirm})
        button->setPressedOnce();
    connect(undo, &Button::clicked, drawingSurface, &DrawingSurface::undo);
    connect(clear, &Button::clicked, drawingSurface, &DrawingSurface::clear);
    connect(cancel, &Button::clicked, this, &DrawingSheet::reject);
    connect(confirm, &Button::clicked, this, &DrawingSheet::saveAndClose);
    connect(new QShortcut(QKeySequence::Undo, this), &QShortcut::activated, drawingSurface,
            &DrawingSurface::undo);
}

void DrawingSheet::present(const Shot& shot, std::function<void(const std::vector<Stroke>&)> whenSaved) {
    if (isVisible())
        return;
    save = std::move(whenSaved);
    refresh();
    drawingSurface->present(shot);
    // Return saves, but not the Return that opened the sheet and is still held.
    confirm->setFocus();
    open();
}

void DrawingSheet::refresh() {
    const bool english = store.english();
    const auto text = [english](QStringView zh, QStringView en) { return (english ? en : zh).toString(); };
    const QString title = text(u"绘制分镜", u"Draw storyboard");
    setTitle(title);
    drawingSurface->setAccessibleName(title);
    drawingSurface->setHint(emptyFrameText(english));
    undo->setPlain(text(u"撤销笔画", u"Undo stroke"));
    clear->setPlain(text(u"清空绘图", u"Clear drawing"));
    cancel->setPlain(text(u"取消", u"Cancel"));
    confirm->setPlain(text(u"保存分镜", u"Save storyboard"));
}

void DrawingSheet::saveAndClose() {
    drawingSurface->endStroke();
    // Once: what is called may bring the sheet up anew.
    if (const auto once = std::exchange(save, nullptr))
        contain(store, [&] { once(drawingSurface->drawing().strokes()); });
    accept();
}

}  // namespace vantry
