#include "Vantry/interface/shots/TakeMedia.h"

#include <algorithm>

#include <QAbstractTextDocumentLayout>
#include <QTextDocument>

#include "Vantry/interface/design/Card.h"
#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/LabeledInput.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/ParagraphEditor.h"
#include "Vantry/interface/shots/SoundPicker.h"

namespace vantry {

TakeMedia::TakeMedia(const std::function<TextBinding(Text VantryTake::*)>& bind, QWidget* parent)
    : QWidget(parent)
    , card(new Card)
    , mode(new SoundPicker)
    , camera(new ParagraphField(Metrics::namesHeight, ParagraphField::Title::caption))
    , mixer(new LabeledInput)
    , mixerLine(makeMixer())
    , kept(new Label(VantryType::Role::caption, &Palette::warning, Label::Length::wrapped)) {
    auto* lines = new QVBoxLayout(this);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->addWidget(card);
    for (QWidget* part : std::initializer_list<QWidget*>{mode, camera, mixerLine, kept})
        card->content().addWidget(part);
    card->content().addStretch();
    camera->editor().setBinding(bind(&VantryTake::cameraFile));
    mixer->field().setBinding(bind(&VantryTake::mixerFile));
    fitCameraNames();
    connect(&camera->editor(), &ParagraphEditor::focusChanged, this, [this] { fillCameraTitle(); });
    connect(camera->editor().document()->documentLayout(), &QAbstractTextDocumentLayout::documentSizeChanged,
            this, [this] { fitCameraNames(); });
    connect(mode, &SoundPicker::chosen, this, &TakeMedia::modeChosen);
}

QWidget* TakeMedia::makeMixer() {
    auto* holder = new QWidget;
    auto* row = new QHBoxLayout(holder);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Metrics::gapField);
    soundNumber = new Label(VantryType::Role::caption, &Palette::muted);
    soundNumber->setMinimumWidth(Metrics::soundTakeWidth);
    soundNumber->setFixedHeight(Metrics::controlHeight);
    row->addWidget(mixer, 1);
    row->addWidget(soundNumber, 0, Qt::AlignBottom);
    return holder;
}

/// High enough for two names, and for as many as there are up to four.
void TakeMedia::fitCameraNames() {
    constexpr int more = 2;
    const int highest = Metrics::namesHeight + more * VantryType::paragraphLineHeight();
    const int wanted = static_cast<int>(camera->editor().document()->size().height()) + 2 * Metrics::ring;
    camera->setFixedHeight(camera->titleHeight() + std::clamp(wanted, Metrics::namesHeight, highest));
}

void TakeMedia::refresh(const VantryTake& take, bool english) {
    const auto text = [english](QStringView zh, QStringView en) { return (english ? en : zh).toString(); };
    isEnglish = english;
    card->setTitle(text(u"素材记录", u"Media references"));
    mode->fill(take.soundMode, english);
    fillCameraTitle();
    camera->editor().synchronize();
    mixer->setCaption(text(u"Mixer 素材名", u"Mixer media name"));
    mixer->field().synchronize();
    const bool hasPicture = take.soundMode != SoundMode::roomTone;
    const bool hasSound = take.soundMode != SoundMode::mos;
    camera->setVisible(hasPicture);
    mixerLine->setVisible(hasSound);
    soundNumber->setVisible(take.soundNumber.has_value());
    soundNumber->setPlain(text(u"声音 Take ", u"Sound take ") +
                          QString::number(take.soundNumber.value_or(0)));
    kept->setPlain(text(u"此前填写的素材名仍保留，可切回查看。",
                        u"Earlier media names are retained. Switch back to view them."));
    kept->setVisible((!hasPicture && !take.cameraFile.empty()) || (!hasSound && !take.mixerFile.empty()));
}

void TakeMedia::fillCameraTitle() {
    const QString hint =
        isEnglish ? QStringLiteral(" · One camera per line") : QStringLiteral(" · 多机位分行填写");
    camera->setTitle(isEnglish ? QStringLiteral("Camera media names") : QStringLiteral("相机素材名"),
                     camera->editor().hasFocus() ? hint : QString());
}

}  // namespace vantry
