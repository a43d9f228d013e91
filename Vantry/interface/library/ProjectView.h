#pragma once

#include <array>

#include "Vantry/interface/pages/RecordPage.h"
#include "Vantry/interface/routes/PageFlag.h"

namespace vantry {

class ExportMenu;
class ProjectDetails;
class RecordRemoval;
class WorkspaceHeading;
class WorkspaceTabs;

/// One production's desk, with five tabs. Each tab is remembered as it was left, and which one was open.
class ProjectView final : public RecordPage {
    Q_OBJECT

public:
    ProjectView(PageContext context, const Identifier& projectID, QWidget* parent = nullptr);

protected:
    bool fill() override;

private:
    void choose(int tab);
    void showTab(int tab);
    /// Gives the keyboard to the tabs when it is in `leaving`, which is about to go: Qt would hand it to
    /// whatever comes next, which may be on no page at all.
    void keepKeyboard(const QWidget& leaving);

    const Identifier projectID;
    PageChoice section;
    WorkspaceHeading* heading = nullptr;
    ExportMenu* documents = nullptr;
    WorkspaceTabs* tabs = nullptr;
    std::array<StorePage*, 5> pages{};
    ProjectDetails* details = nullptr;
    RecordRemoval* removal = nullptr;
    int shownTab = -1;
};

}  // namespace vantry
