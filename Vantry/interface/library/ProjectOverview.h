#pragma once

#include <functional>

#include "Vantry/interface/pages/StorePage.h"
#include "VantryCore/records/Project.h"

namespace vantry {

class Button;
class Card;
class EmptyViewCard;
class FactRow;
class Label;
class ListCard;
class WorkspaceMetrics;

/// What a production has got to: its acts and, at their side, its numbers, people and next call sheet.
class ProjectOverview final : public StorePage {
    Q_OBJECT

public:
    /// `openTab` shows another tab of the production's page.
    ProjectOverview(PageContext context, const Identifier& projectID, std::function<void(int)> openTab,
                    QWidget* parent = nullptr);

    void refresh() override;

private:
    [[nodiscard]] QWidget* makeActs();
    [[nodiscard]] QWidget* makeSummary(FactRow*& facts, Button*& button, int tab);
    void addAct() const;
    void fillAct(QWidget& row, const QByteArray& key) const;
    void fillSummaries(const Project& project);

    const Identifier projectID;
    const std::function<void(int)> openTab;
    WorkspaceMetrics* metrics = nullptr;
    EmptyViewCard* empty = nullptr;
    ListCard* acts = nullptr;
    Button* add = nullptr;
    Label* note = nullptr;
    FactRow* people = nullptr;
    Button* openPeople = nullptr;
    FactRow* callSheet = nullptr;
    Button* openCallSheets = nullptr;
};

}  // namespace vantry
