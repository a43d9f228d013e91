#pragma once

#include "Vantry/interface/pages/RecordPage.h"
#include "Vantry/interface/routes/PageFlag.h"

namespace vantry {

class Button;
class CompletionLine;
class EmptyViewCard;
class Label;
class LabeledInput;
class RecordRemoval;
class SectionLabel;
class SegmentedChoice;
class ShotSequence;
class ShotTile;
class WorkspaceHeading;

/// The storyboard desk of one act: the sequence of its shots.
class ActView final : public RecordPage {
    Q_OBJECT

public:
    ActView(PageContext context, const Identifier& projectID, const Identifier& actID,
            QWidget* parent = nullptr);

protected:
    bool fill() override;

private:
    [[nodiscard]] QWidget* makeNaming();
    [[nodiscard]] QWidget* makeSwitch();
    void makeSequence();
    void fillTexts(const Act& act);
    void fillTile(ShotTile& tile, const QByteArray& key) const;
    void addShot() const;
    void move(const QByteArray& key, const QByteArray& before) const;
    void showMenu(const Identifier& shotID, QWidget& opener);

    const Identifier projectID;
    const Identifier actID;
    PageChoice mode;
    WorkspaceHeading* heading;
    Button* add;
    LabeledInput* title = nullptr;
    Label* progress = nullptr;
    CompletionLine* line = nullptr;
    QWidget* sequenceLine = nullptr;
    SectionLabel* sequence = nullptr;
    SegmentedChoice* modes = nullptr;
    EmptyViewCard* empty = nullptr;
    ShotSequence* shots = nullptr;
    Label* note = nullptr;
    RecordRemoval* removal;
};

}  // namespace vantry
