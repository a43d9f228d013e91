#pragma once

#include <functional>

#include "Vantry/interface/pages/RecordPage.h"
#include "Vantry/interface/routes/PageFlag.h"

namespace vantry {

class Button;
class Card;
class DrawingSheet;
class Label;
class LabeledInput;
class ListCard;
class PanelOperation;
class ParametersEditor;
class RecordRemoval;
class ScheduleFields;
class ShotBrief;
class ShotFrameCard;
class ShotNavigation;
class SoundPicker;
class StatusPill;
class VantryDisclosure;
class WorkspaceHeading;
class WorkspaceSection;

/// The plan of one shot and the takes logged for it.
class ShotView final : public RecordPage {
    Q_OBJECT

public:
    ShotView(PageContext context, const Identifier& projectID, const Identifier& actID,
             const Identifier& shotID, QWidget* parent = nullptr);

protected:
    bool fill() override;

private:
    void makeHeading();
    [[nodiscard]] QWidget* makePlan();
    [[nodiscard]] QWidget* makeSound();
    [[nodiscard]] QWidget* makeParameters();
    [[nodiscard]] QWidget* makeParameterFields();
    [[nodiscard]] QWidget* makeTakes();
    [[nodiscard]] QWidget* makeActions();
    [[nodiscard]] TextBinding bind(Text Shot::*member) const;
    void change(const std::function<void(Shot&)>& change) const;
    void draw();
    void removeImage() const;
    void fillTexts(const Act& act, const Shot& shot);
    void fillTakes(const Shot& shot);
    void fillTake(QWidget& row, const QByteArray& key) const;
    void fillActions(const Shot& shot);

    const Identifier projectID;
    const Identifier actID;
    const Identifier shotID;
    PageFlag parametersOpen;
    WorkspaceHeading* heading;
    ShotNavigation* navigation;
    Button* newTake = nullptr;
    StatusPill* cancelled;
    StatusPill* retained;
    ShotFrameCard* frame;
    PanelOperation* importing;
    DrawingSheet* drawing = nullptr;  ///< once it was wanted
    ShotBrief* brief;
    Card* sound = nullptr;
    SoundPicker* mode = nullptr;
    LabeledInput* soundDescription = nullptr;
    ScheduleFields* schedule;
    VantryDisclosure* parameters = nullptr;
    ParametersEditor* parameterFields = nullptr;  ///< once they were wanted
    WorkspaceSection* takesTitle = nullptr;
    QWidget* noTakes = nullptr;
    Label* noTakesText = nullptr;
    Button* firstTake = nullptr;
    ListCard* takes = nullptr;
    WorkspaceSection* actionsTitle = nullptr;
    Button* insert = nullptr;
    Button* cancel = nullptr;
    RecordRemoval* removal = nullptr;
};

}  // namespace vantry
