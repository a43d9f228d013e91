#include "Vantry/interface/shots/TakeReference.h"

#include <QEvent>
#include <QPainter>

#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/CellPainting.h"
#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/shots/StoryboardFrame.h"
#include "Vantry/interface/shots/StoryboardPreview.h"

namespace vantry {
namespace {

using Role = VantryType::Role;

bool isNarrow(int width) {
    return width < Metrics::sideWidth;
}

}  // namespace

TakeReference::TakeReference(VantryStore& store, QWidget* parent)
    : QWidget(parent)
    , title(new Label(Role::label, &Palette::ink, Label::Length::cut, this))
    , frame(new StoryboardPreview(store, this))
    , plan(new Button(Button::Kind::inlined, Glyph::none, this)) {
    plan->setTrailing(Glyph::arrowRight);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    connect(plan, &Button::clicked, this, &TakeReference::planWanted);
}

int TakeReference::heightForWidth(int width) const {
    const int above =
        VantryType::lineHeight(isNarrow(width) ? Role::caption : Role::label) + Metrics::gapInline;
    const int below = isNarrow(width) ? Metrics::gapTrack + Metrics::inlineHeight : 0;
    return above + StoryboardFrame::heightFor(width) + below;
}

QSize TakeReference::sizeHint() const {
    return {Metrics::sideWidth, heightForWidth(Metrics::sideWidth)};
}

bool TakeReference::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest)
        arrange();
    return QWidget::event(event);
}

void TakeReference::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    arrange();
}

void TakeReference::arrange() {
    const bool narrow = isNarrow(width());
    const int line = VantryType::lineHeight(narrow ? Role::caption : Role::label);
    const int frameHeight = StoryboardFrame::heightFor(width());
    const QSize planSize = plan->sizeHint();
    frame->setGeometry(0, line + Metrics::gapInline, width(), frameHeight);
    title->setFont(narrow ? VantryType::font(Role::caption) : VantryType::font(Role::label, QFont::DemiBold));
    title->setColour(narrow ? &Palette::muted : &Palette::ink);
    if (narrow) {
        title->setGeometry(0, 0, width(), line);
        plan->setGeometry(
            {{-Metrics::paddingInline, line + Metrics::gapInline + frameHeight + Metrics::gapTrack},
             planSize});
        return;
    }
    const int sign = Metrics::icon + Metrics::gapInline;
    title->setGeometry(sign, 0, width() - sign - planSize.width(), line);
    plan->setGeometry(
        {{width() - planSize.width() + Metrics::paddingInline, (line - planSize.height()) / 2}, planSize});
}

void TakeReference::paintEvent(QPaintEvent*) {
    if (isNarrow(width()))
        return;
    QPainter painter(this);
    paintSign(painter, {0, 0, Metrics::icon, VantryType::lineHeight(Role::label)}, Glyph::photo,
              Metrics::icon, Palette::of(*this).ink);
}

void TakeReference::refresh(const Shot& shot, bool english) {
    title->setPlain(english ? QStringLiteral("Shot reference") : QStringLiteral("分镜参考"));
    frame->fill(shot, english);
    plan->setPlain(english ? QStringLiteral("View shot plan") : QStringLiteral("查看分镜计划"));
}

}  // namespace vantry
