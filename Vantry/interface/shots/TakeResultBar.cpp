#include "Vantry/interface/shots/TakeResultBar.h"

#include <QEvent>

#include "Vantry/interface/design/ControlText.h"
#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/SegmentedChoice.h"
#include "Vantry/interface/design/StarRating.h"
#include "Vantry/interface/shots/ShotTexts.h"

namespace vantry {
namespace {

/// A title over its control.
int blockHeight() {
    return VantryType::lineHeight(VantryType::Role::caption) + Metrics::gapInline + Metrics::resultHeight;
}

}  // namespace

TakeResultBar::TakeResultBar(QWidget* parent)
    : QWidget(parent)
    , resultTitle(new Label(VantryType::Role::caption, &Palette::muted, Label::Length::cut, this))
    // In the order of the verdicts.
    , result(new SegmentedChoice({{Glyph::dashedCircle, nullptr, &Palette::warning},
                                  {Glyph::check, &Palette::completed, nullptr},
                                  {Glyph::cross, &Palette::danger, nullptr}},
                                 SegmentedChoice::Size::large, this))
    , ratingTitle(new Label(VantryType::Role::caption, &Palette::muted, Label::Length::cut, this))
    , stars(new StarRating(this)) {
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    connect(result, &SegmentedChoice::chosen, this,
            [this](int index) { emit resultChosen(static_cast<TakeResult>(index)); });
    connect(stars, &StarRating::pressed, this, &TakeResultBar::starPressed);
}

bool TakeResultBar::fitsBeside(int width) const {
    return width >= result->sizeHint().width() + Metrics::gapField + stars->sizeHint().width();
}

int TakeResultBar::heightForWidth(int width) const {
    return fitsBeside(width) ? blockHeight() : 2 * blockHeight() + Metrics::gapField;
}

QSize TakeResultBar::sizeHint() const {
    return {result->sizeHint().width() + Metrics::gapField + stars->sizeHint().width(), blockHeight()};
}

bool TakeResultBar::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest)
        arrange();
    return QWidget::event(event);
}

void TakeResultBar::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    arrange();
}

void TakeResultBar::arrange() {
    const int titleHeight = VantryType::lineHeight(VantryType::Role::caption);
    const auto place = [&](Label& title, QWidget& control, int left, int top, int width) {
        title.setGeometry(left, top, width, titleHeight);
        control.setGeometry(left, top + titleHeight + Metrics::gapInline, width, Metrics::resultHeight);
    };
    if (fitsBeside(width())) {
        const int starsWidth = stars->sizeHint().width();
        place(*resultTitle, *result, 0, 0, result->sizeHint().width());
        place(*ratingTitle, *stars, width() - starsWidth, 0, starsWidth);
    } else {
        place(*resultTitle, *result, 0, 0, width());
        place(*ratingTitle, *stars, 0, blockHeight() + Metrics::gapField, width());
    }
}

void TakeResultBar::refresh(const VantryTake& take, bool english) {
    const auto text = [english](QStringView zh, QStringView en) { return (english ? en : zh).toString(); };
    resultTitle->setPlain(text(u"拍摄结果", u"Take result"));
    result->setName(text(u"拍摄结果", u"Take result"));
    result->setTitles({resultWord(TakeResult::pending, english), resultWord(TakeResult::good, english),
                       resultWord(TakeResult::ng, english)});
    result->setChosen(static_cast<int>(take.result));
    const QString rating = text(u"推荐程度 · Good 代表本镜完成", u"Rating · Good completes the shot");
    ratingTitle->setPlain(rating);
    stars->setAccessibleName(rating);
    for (int number = 1; number <= StarRating::count; ++number) {
        StarButton& star = stars->star(number);
        star.setTexts(QString::number(number) + text(u" 星", u" stars"), text(u"已选择", u"Selected"),
                      text(u"未选择", u"Not selected"));
        setHelp(star, text(u"再次点击可清除星级", u"Click again to clear the rating"));
    }
    stars->setStars(static_cast<int>(take.stars));
}

}  // namespace vantry
