#pragma once

#include "Vantry/interface/pages/RecordPage.h"

namespace vantry {

class Button;
class Card;
class Label;
class LabeledInput;
class WorkspaceHeading;
class ParagraphField;
class RecordRemoval;
class SegmentedChoice;
class SoundPicker;
class StarRating;

/// The log of one take, built for speed on set: verdict, rating, free notes, media names, the next take.
class TakeView final : public RecordPage {
    Q_OBJECT

public:
    TakeView(PageContext context, const Identifier& projectID, const Identifier& actID,
             const Identifier& shotID, const Identifier& takeID, QWidget* parent = nullptr);

protected:
    bool fill() override;

private:
    [[nodiscard]] QWidget* makeLog(QWidget* parent);
    [[nodiscard]] QWidget* makeResultBar(QWidget* parent);
    [[nodiscard]] QWidget* makeMedia(QWidget* parent);
    [[nodiscard]] TextBinding bind(Text VantryTake::*member) const;
    void makeFoot(QWidget* body);
    void changeTake(const std::function<void(VantryTake&)>& change) const;
    void fillResultBar(const VantryTake& take);
    void fillMedia(const VantryTake& take);
    void fillCameraTitle();

    const Identifier projectID;
    const Identifier actID;
    const Identifier shotID;
    const Identifier takeID;
    WorkspaceHeading* heading = nullptr;
    Button* newTake = nullptr;
    Label* retained = nullptr;
    Label* resultTitle = nullptr;
    SegmentedChoice* result = nullptr;
    Label* ratingTitle = nullptr;
    StarRating* stars = nullptr;
    ParagraphField* notes = nullptr;
    Label* notesHint = nullptr;
    Card* media = nullptr;
    SoundPicker* mode = nullptr;
    ParagraphField* cameraFile = nullptr;
    LabeledInput* mixerFile = nullptr;
    Label* soundNumber = nullptr;
    Label* kept = nullptr;
    Button* back = nullptr;
    RecordRemoval* removal = nullptr;
};

}  // namespace vantry
