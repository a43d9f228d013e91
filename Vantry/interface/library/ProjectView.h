#pragma once

#include "Vantry/interface/pages/RecordPage.h"

namespace vantry {

class Button;
class Card;
class EmptyCard;
class ExportMenu;
class LabeledInput;
class PageHeading;
class ParagraphField;
class RecordRemoval;
class RowList;

/// One production's desk: its acts and what it is.
class ProjectView final : public RecordPage {
    Q_OBJECT

public:
    ProjectView(PageContext context, const Identifier& projectID, QWidget* parent = nullptr);

protected:
    bool fill() override;

private:
    [[nodiscard]] QWidget* makeOverview(QWidget* parent);
    [[nodiscard]] QWidget* makeDetails(QWidget* parent);
    [[nodiscard]] TextBinding bind(Text Project::*member) const;
    void fillTexts(const Project& project);
    void addAct() const;

    const Identifier projectID;
    PageHeading* heading = nullptr;
    ExportMenu* documents = nullptr;
    EmptyCard* empty = nullptr;
    RowList* acts = nullptr;
    Button* add = nullptr;
    Card* details = nullptr;
    LabeledInput* title = nullptr;
    LabeledInput* director = nullptr;
    ParagraphField* notes = nullptr;
    RecordRemoval* removal = nullptr;
};

}  // namespace vantry
