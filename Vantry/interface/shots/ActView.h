#pragma once

#include "Vantry/interface/pages/RecordPage.h"

namespace vantry {

class Button;
class EmptyViewCard;
class Label;
class LabeledInput;
class WorkspaceHeading;
class RecordRemoval;
class RowList;

/// The storyboard desk of one act: the sequence of its shots.
class ActView final : public RecordPage {
    Q_OBJECT

public:
    ActView(PageContext context, const Identifier& projectID, const Identifier& actID,
            QWidget* parent = nullptr);

protected:
    bool fill() override;

private:
    void fillTexts(const Act& act);
    [[nodiscard]] QString facts(const Shot& shot) const;
    void addShot() const;
    void showMenu(const Identifier& shotID, QWidget& opener);

    const Identifier projectID;
    const Identifier actID;
    WorkspaceHeading* heading;
    Button* add;
    LabeledInput* title;
    Label* progress;
    Label* sequence;
    EmptyViewCard* empty;
    RowList* shots;
    RecordRemoval* removal;
};

}  // namespace vantry
