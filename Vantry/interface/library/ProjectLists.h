#pragma once

#include "Vantry/interface/pages/StorePage.h"
#include "VantryCore/records/Project.h"

namespace vantry {

class ListCard;
class SectionLabel;
class WorkspaceSection;

/// The people of a production, as they stand.
class ProjectPeople final : public StorePage {
    Q_OBJECT

public:
    ProjectPeople(PageContext context, const Identifier& projectID, QWidget* parent = nullptr);

    void refresh() override;

private:
    void fillCrew(QWidget& row, const QByteArray& key) const;
    void fillCast(QWidget& row, const QByteArray& key) const;

    const Identifier projectID;
    WorkspaceSection* heading;
    SectionLabel* crewTitle;
    ListCard* crew;
    SectionLabel* castTitle;
    ListCard* cast;
};

/// The call sheets of a production, by their days.
class ProjectCallSheets final : public StorePage {
    Q_OBJECT

public:
    ProjectCallSheets(PageContext context, const Identifier& projectID, QWidget* parent = nullptr);

    void refresh() override;

private:
    void fillSheet(QWidget& row, const QByteArray& key) const;

    const Identifier projectID;
    WorkspaceSection* heading;
    ListCard* sheets;
};

/// What a production refers to outside of the library.
class ProjectReferences final : public StorePage {
    Q_OBJECT

public:
    ProjectReferences(PageContext context, const Identifier& projectID, QWidget* parent = nullptr);

    void refresh() override;

private:
    void fillReference(QWidget& row, const QByteArray& key) const;

    const Identifier projectID;
    WorkspaceSection* heading;
    ListCard* references;
};

}  // namespace vantry
