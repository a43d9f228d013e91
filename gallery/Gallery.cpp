#include "gallery/Gallery.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QScrollArea>
#include <QVBoxLayout>

#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/SegmentedChoice.h"
#include "Vantry/interface/design/VantryBrandMark.h"
#include "Vantry/interface/design/VantryToggle.h"
#include "gallery/Sections.h"

namespace vantry::gallery {

Gallery::Gallery()
    : header(makeHeader())
    , shown(new Board) {
    showTokens(*shown);
    showControls(*shown);
    showChoices(*shown);
    showPageParts(*shown);
    showFrame(*shown, sample);
    auto* area = new QScrollArea(this);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setWidget(shown);
    area->viewport()->setAutoFillBackground(false);
    shown->setAutoFillBackground(false);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(header);
    column->addWidget(area, 1);
    setWindowTitle(QStringLiteral("Vantry gallery"));
    resize(Metrics::windowWidth, Metrics::windowHeight);
    setDark(false);
    setEnglish(true);
    setReducedMotion(false);
}

QWidget* Gallery::makeHeader() {
    auto* bar = new QWidget(this);
    title = new Label(VantryType::Role::title, &Palette::ink, Label::Length::cut, bar);
    appearance = new SegmentedChoice({{}, {}}, SegmentedChoice::Size::regular, bar);
    language = new SegmentedChoice({{}, {}}, SegmentedChoice::Size::regular, bar);
    language->setTitles({QStringLiteral("中文"), QStringLiteral("English")});
    stillness = new VantryToggle(bar);
    stillnessName = new Label(VantryType::Role::label, &Palette::ink, Label::Length::cut, bar);
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(Metrics::paddingPage, Metrics::gapCard, Metrics::paddingPage, Metrics::gapCard);
    row->setSpacing(Metrics::gapCard);
    row->addWidget(new VantryBrandMark(bar));
    row->addWidget(title);
    row->addStretch();
    for (QWidget* part : std::initializer_list<QWidget*>{appearance, language, stillnessName, stillness})
        row->addWidget(part);
    QObject::connect(appearance, &SegmentedChoice::chosen, this, [this](int index) { setDark(index == 1); });
    QObject::connect(language, &SegmentedChoice::chosen, this, [this](int index) { setEnglish(index == 1); });
    QObject::connect(stillness, &VantryToggle::toggled, this, [this](bool on) { setReducedMotion(on); });
    return bar;
}

void Gallery::setDark(bool dark) {
    appearance->setChosen(dark ? 1 : 0);
    appearanceOfAll.setChoice(dark ? QStringLiteral("dark") : QStringLiteral("light"));
}

void Gallery::setEnglish(bool english) {
    language->setChosen(english ? 1 : 0);
    appearance->setName(english ? QStringLiteral("Appearance") : QStringLiteral("外观"));
    appearance->setTitles(english ? QStringList{QStringLiteral("Light"), QStringLiteral("Dark")}
                                  : QStringList{QStringLiteral("浅色"), QStringLiteral("深色")});
    language->setName(english ? QStringLiteral("Language") : QStringLiteral("语言"));
    const QString still = english ? QStringLiteral("Reduce motion") : QStringLiteral("减弱动态效果");
    stillnessName->setPlain(still);
    stillness->setName(still);
    title->setPlain(english ? QStringLiteral("Vantry components") : QStringLiteral("Vantry 组件"));
    shown->setEnglish(english);
}

void Gallery::setReducedMotion(bool reduced) {
    stillness->setChecked(reduced);
    motion.setChoice(reduced);
}

QSize Gallery::wholeSize() const {
    const int width = shown->minimumWidth();
    return {width, header->sizeHint().height() + shown->layout()->totalHeightForWidth(width)};
}

void Gallery::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(rect(), Palette::of(*this).canvas);
}

}  // namespace vantry::gallery
