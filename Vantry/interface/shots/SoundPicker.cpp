#include "Vantry/interface/shots/SoundPicker.h"

#include <QVBoxLayout>

#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/SegmentedChoice.h"

namespace vantry {

SoundPicker::SoundPicker(QWidget* parent)
    : QWidget(parent)
    , caption(new Label(VantryType::Role::caption, &Palette::muted, Label::Length::cut, this))
    , choice(new SegmentedChoice({{}, {}, {}}, SegmentedChoice::Size::regular, this))
    , note(new Label(VantryType::Role::caption, &Palette::muted, Label::Length::wrapped, this)) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Metrics::gapCaption);
    column->addWidget(caption);
    column->addWidget(choice);
    column->addWidget(note);
    connect(choice, &SegmentedChoice::chosen, this,
            [this](int index) { emit chosen(static_cast<SoundMode>(index)); });
}

void SoundPicker::fill(SoundMode mode, bool english) {
    const QString name = english ? QStringLiteral("Sound") : QStringLiteral("声音");
    caption->setPlain(name);
    choice->setName(name);
    choice->setTitles({english ? QStringLiteral("Sync sound") : QStringLiteral("同期声"),
                       QStringLiteral("MOS"), QStringLiteral("Room Tone")});
    choice->setChosen(static_cast<int>(mode));
    note->setPlain(english ? QStringLiteral("MOS is a silent take. Room Tone records sound only.")
                           : QStringLiteral("MOS 为无声拍摄，Room Tone 仅记录声音"));
}

}  // namespace vantry
