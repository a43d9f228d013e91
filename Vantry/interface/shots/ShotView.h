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
class RowList;
class SoundPicker;
class StoryboardImage;

/// The plan of one shot and the takes logged for it.
class ShotView final : public RecordPage {
    Q_OBJECT

public:
    ShotView(PageContext context, const Identifier& projectID, const Identifier& actID,
             const Identifier& shotID, QWidget* parent = nullptr);

protected:
    bool fill() override;

private:
    [[nodiscard]] QWidget* makeBrief(QWidget* parent);
    [[nodiscard]] QWidget* makeFrame(QWidget* parent);
    [[nodiscard]] QWidget* makeSound(QWidget* parent);
    void makeTakes(QWidget* body);
    void makeActions(QWidget* body);
    [[nodiscard]] TextBinding bind(Text Shot::*member) const;
    void fillTexts(const Act& act, const Shot& shot);
    void fillFrame(const Shot& shot);
    void fillTakes(const Shot& shot);
    void fillActions(const Shot& shot);

    const Identifier projectID;
    const Identifier actID;
    const Identifier shotID;
    WorkspaceHeading* heading = nullptr;
    Button* newTake = nullptr;
    Label* cancelled = nullptr;
    Label* retained = nullptr;
    Card* brief = nullptr;
    LabeledInput* code = nullptr;
    LabeledInput* title = nullptr;
    ParagraphField* description = nullptr;
    LabeledInput* framing = nullptr;
    LabeledInput* movement = nullptr;
    Card* frame = nullptr;
    StoryboardImage* image = nullptr;
    Button* importImage = nullptr;
    Button* removeImage = nullptr;
    Card* sound = nullptr;
    SoundPicker* mode = nullptr;
    LabeledInput* soundDescription = nullptr;
    Label* takesTitle = nullptr;
    Label* noTakes = nullptr;
    RowList* takes = nullptr;
    Label* actionsTitle = nullptr;
    Button* insert = nullptr;
    Button* cancel = nullptr;
    RecordRemoval* removal = nullptr;
};

}  // namespace vantry
