#pragma once

#include <functional>
#include <memory>

#include "Vantry/interface/pages/StorePage.h"
#include "Vantry/schedule/rules/Locations.h"

namespace vantry {

class Button;
class DelayedCall;
class EmptyViewCard;
class LazyCells;
class LinkCard;
class ListCard;
class WorkspaceHeading;
class WorkspaceMetrics;
class WorkspaceSection;

/// The home page: what there is, and what comes next.
class LibraryView final : public StorePage {
    Q_OBJECT

public:
    /// `startProject` opens the sheet for a new production.
    LibraryView(PageContext context, const std::function<void()>& startProject, QWidget* parent = nullptr);
    ~LibraryView() override;

    void refresh() override;

private:
    [[nodiscard]] QWidget* makeProductions();
    [[nodiscard]] QWidget* makeUpcoming();
    void fillTexts();
    void waitForEnd();
    void fillProduction(QWidget& card, const QByteArray& key) const;
    void fillUpcoming(QWidget& row, const QByteArray& key) const;
    [[nodiscard]] const ShotLocation* upcomingShot(const QByteArray& key) const;

    std::vector<ShotLocation> next;  ///< the shots that come up, as of the last refresh
    std::unique_ptr<DelayedCall> nextEnd;
    WorkspaceHeading* heading = nullptr;
    Button* newProject = nullptr;
    WorkspaceMetrics* metrics = nullptr;
    EmptyViewCard* empty = nullptr;
    QWidget* productionsBlock = nullptr;
    WorkspaceSection* productionsTitle = nullptr;
    LazyCells* productions = nullptr;
    WorkspaceSection* upcomingTitle = nullptr;
    EmptyViewCard* noUpcoming = nullptr;
    ListCard* upcoming = nullptr;
    Button* openCalendar = nullptr;
    LinkCard* search = nullptr;
};

}  // namespace vantry
