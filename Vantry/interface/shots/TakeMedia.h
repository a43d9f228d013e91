#pragma once

#include <functional>

#include <QWidget>

#include "Vantry/interface/design/TextBinding.h"
#include "VantryCore/records/VantryTake.h"

namespace vantry {

class Card;
class Label;
class LabeledInput;
class ParagraphField;
class SoundPicker;

/// What was recorded of a take: its sound mode, and the names of the media that this mode has. The names of
/// media that it has not are kept, and said to be.
class TakeMedia final : public QWidget {
    Q_OBJECT

public:
    /// `bind` gives the way to one of the texts of the take.
    explicit TakeMedia(const std::function<TextBinding(Text VantryTake::*)>& bind, QWidget* parent = nullptr);

    void refresh(const VantryTake& take, bool english);

signals:
    void modeChosen(vantry::SoundMode mode);

private:
    [[nodiscard]] QWidget* makeMixer();
    void fillCameraTitle();
    void fitCameraNames();

    Card* card;
    SoundPicker* mode;
    ParagraphField* camera;
    LabeledInput* mixer;
    Label* soundNumber = nullptr;
    QWidget* mixerLine;
    Label* kept;
    bool isEnglish = false;
};

}  // namespace vantry
