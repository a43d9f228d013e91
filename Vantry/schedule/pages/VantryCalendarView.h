#pragma once

#include "Vantry/interface/pages/StorePage.h"

namespace vantry {

class WorkspaceHeading;

/// The shoot days of all productions. It has its heading so far.
class VantryCalendarView final : public StorePage {
    Q_OBJECT

public:
    explicit VantryCalendarView(PageContext context, QWidget* parent = nullptr);

    void refresh() override;

private:
    WorkspaceHeading* heading;
};

}  // namespace vantry
