#include "Vantry/interface/shots/ShotFrameCard.h"

#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/Card.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/PartsLayout.h"
#include "Vantry/interface/shots/StoryboardFrame.h"
#include "Vantry/interface/shots/StoryboardPreview.h"

namespace vantry {
namespace {

/// The frame and three buttons: below it in one line, the last at the right; or, where there is more width
/// than a frame should take, at its right below each other, the last at its foot.
class FrameLayout final : public PartsLayout {
public:
    explicit FrameLayout(QWidget* parent)
        : PartsLayout(parent) {}

    [[nodiscard]] int heightForWidth(int width) const override {
        return isWide(width) ? StoryboardFrame::heightFor(Metrics::planFrameWidth)
                             : StoryboardFrame::heightFor(width) + Metrics::gapCard + Metrics::controlHeight;
    }
    void setGeometry(const QRect& place) override {
        QLayout::setGeometry(place);
        const auto parts = shownParts();
        if (parts.size() != 4)
            return;
        if (isWide(place.width()))
            arrangeBeside(parts, place);
        else
            arrangeBelow(parts, place);
    }

private:
    static bool isWide(int width) {
        return width >= Metrics::planFrameWidth + Metrics::gapCard + 2 * Metrics::dialogButtonWidth;
    }
    static void arrangeBeside(const std::vector<QLayoutItem*>& parts, const QRect& place) {
        const int height = StoryboardFrame::heightFor(Metrics::planFrameWidth);
        parts[0]->setGeometry({place.left(), place.top(), Metrics::planFrameWidth, height});
        const int left = place.left() + Metrics::planFrameWidth + Metrics::gapCard;
        QRect button(left, place.top(), place.right() + 1 - left, Metrics::controlHeight);
        parts[1]->setGeometry(button);
        parts[2]->setGeometry(button.translated(0, Metrics::controlHeight + Metrics::gapInline));
        parts[3]->setGeometry(button.translated(0, height - Metrics::controlHeight));
    }
    static void arrangeBelow(const std::vector<QLayoutItem*>& parts, const QRect& place) {
        const int height = StoryboardFrame::heightFor(place.width());
        parts[0]->setGeometry({place.left(), place.top(), place.width(), height});
        const int top = place.top() + height + Metrics::gapCard;
        int left = place.left();
        for (std::size_t at = 1; at < 3; ++at) {
            const int width = parts[at]->sizeHint().width();
            parts[at]->setGeometry({left, top, width, Metrics::controlHeight});
            left += width + Metrics::gapInline;
        }
        const int width = parts[3]->sizeHint().width();
        parts[3]->setGeometry({place.right() + 1 - width, top, width, Metrics::controlHeight});
    }
};

}  // namespace

ShotFrameCard::ShotFrameCard(VantryStore& store, QWidget* parent)
    : QWidget(parent)
    , card(new Card)
    , frame(new StoryboardPreview(store))
    , importImage(new Button(Button::Kind::quiet, Glyph::photo))
    , draw(new Button(Button::Kind::quiet, Glyph::pen))
    , remove(new Button(Button::Kind::destructive, Glyph::trash)) {
    auto* lines = new QVBoxLayout(this);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->addWidget(card);
    auto* desk = new QWidget;
    auto* parts = new FrameLayout(desk);
    for (QWidget* part : std::initializer_list<QWidget*>{frame, importImage, draw, remove})
        parts->addWidget(part);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    desk->setSizePolicy(policy);
    card->content().addWidget(desk);
    card->content().addStretch();
    for (Button* button : {importImage, draw, remove}) {
        button->setPressedOnce();
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    }
    frame->setAcceptDrops(true);
    connect(frame, &StoryboardPreview::dropped, this, &ShotFrameCard::imageDropped);
    connect(importImage, &Button::clicked, this, &ShotFrameCard::importWanted);
    connect(draw, &Button::clicked, this, &ShotFrameCard::drawWanted);
    connect(remove, &Button::clicked, this, &ShotFrameCard::removeWanted);
}

void ShotFrameCard::refresh(const Shot& shot, bool english) {
    const auto text = [english](QStringView zh, QStringView en) { return (english ? en : zh).toString(); };
    card->setTitle(text(u"画面", u"Frame"));
    frame->fill(shot, english);
    importImage->setPlain(text(u"导入", u"Import"));
    draw->setPlain(text(u"绘图", u"Draw"));
    remove->setPlain(text(u"移除图片", u"Remove image"));
    remove->setEnabled(shot.imageKey || !shot.strokes.empty());
}

}  // namespace vantry
