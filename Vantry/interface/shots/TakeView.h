#pragma once

#include <functional>

#include "Vantry/interface/pages/RecordPage.h"
#include "Vantry/interface/routes/PageFlag.h"

namespace vantry {

class Button;
class Label;
class ParagraphField;
class ParametersEditor;
class RecordRemoval;
class ShotNavigation;
class StatusPill;
class TakeMedia;
class TakeReference;
class TakeResultBar;
class VantryDisclosure;
class WorkspaceHeading;

/// The log of one take, built for speed on set: verdict, rating, free notes, media names, the next take.
class TakeView final : public RecordPage {
    Q_OBJECT

public:
    TakeView(PageContext context, const Identifier& projectID, const Identifier& actID,
             const Identifier& shotID, const Identifier& takeID, QWidget* parent = nullptr);

    void beginWriting() override;

protected:
    bool fill() override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void makeHeading();
    [[nodiscard]] QWidget* makeNotes();
    [[nodiscard]] QWidget* makeParameters();
    [[nodiscard]] QWidget* makeParameterFields();
    [[nodiscard]] QWidget* makeFoot();
    [[nodiscard]] TextBinding bind(Text VantryTake::*member) const;
    void changeTake(const std::function<void(VantryTake&)>& change) const;
    void connectParts();
    void recordDefaults() const;
    void fitNotes();
    void fillTexts(const Shot& shot, const VantryTake& take);

    const Identifier projectID;
    const Identifier actID;
    const Identifier shotID;
    const Identifier takeID;
    PageFlag parametersOpen;
    WorkspaceHeading* heading;
    ShotNavigation* navigation;
    Button* newTake = nullptr;
    StatusPill* retained;
    TakeResultBar* result;
    ParagraphField* notes = nullptr;
    Label* notesHint = nullptr;
    TakeReference* reference;
    TakeMedia* media;
    VantryDisclosure* parameters = nullptr;
    ParametersEditor* parameterFields = nullptr;  ///< once they were wanted
    Button* back = nullptr;
    Button* next = nullptr;
    RecordRemoval* removal = nullptr;
};

}  // namespace vantry
