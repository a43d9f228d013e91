#include "Vantry/interface/navigation/Banner.h"

#include <QPainter>
#include <QVBoxLayout>

#include "Vantry/interface/design/Glyph.h"
#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/Metrics.h"

namespace vantry {

Banner::Banner(QWidget* parent)
    : QWidget(parent)
    , text(new Label(VantryType::Role::label, &Palette::canvas, Label::Length::wrapped, this)) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Metrics::paddingPage + Metrics::iconLarge + Metrics::gapField,
                               Metrics::gapInline, Metrics::paddingPage, Metrics::gapInline);
    column->addWidget(text);
    setMinimumHeight(Metrics::bannerHeight);
    hide();
}

void Banner::refresh(bool loadFailed, bool english) {
    text->setPlain(
        english ? QStringLiteral("Data could not be read. Writing is disabled to protect the original. "
                                 "Open the data folder in Settings.")
                : QStringLiteral("数据读取失败。为保护原数据，当前禁止写入；请在设置中打开数据文件夹检查。"));
    setVisible(loadFailed);
}

void Banner::paintEvent(QPaintEvent*) {
    const Palette& palette = Palette::of(*this);
    QPainter painter(this);
    painter.fillRect(rect(), palette.danger);
    paintGlyph(painter, Glyph::warning,
               QRectF(Metrics::paddingPage, (height() - Metrics::iconLarge) / 2.0, Metrics::iconLarge,
                      Metrics::iconLarge),
               palette.canvas);
}

}  // namespace vantry
