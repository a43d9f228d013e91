#pragma once

#include "Vantry/interface/pages/StorePage.h"
#include "Vantry/interface/routes/PageFlag.h"
#include "VantryCore/records/Project.h"

namespace vantry {

class Button;
class Label;
class LabeledInput;
class ParagraphField;
class ParametersEditor;
class VantryDisclosure;
class WorkspaceSection;

/// What a production is: its name, who directs it, notes, and the settings that new records begin with.
class ProjectDetails final : public StorePage {
    Q_OBJECT

public:
    /// `removal` is the button that deletes the production; it stands at the foot.
    ProjectDetails(PageContext context, const Identifier& projectID, Button& removal,
                   QWidget* parent = nullptr);

    void refresh() override;

private:
    [[nodiscard]] TextBinding bind(Text Project::*member) const;

    const Identifier projectID;
    WorkspaceSection* heading;
    LabeledInput* title;
    LabeledInput* director;
    ParagraphField* notes;
    VantryDisclosure* defaults;
    Label* defaultsNote;
    ParametersEditor* parameters;
    PageFlag defaultsOpen;
};

}  // namespace vantry
