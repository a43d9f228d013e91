#pragma once

#include "Vantry/interface/pages/StorePage.h"

namespace vantry {

class WorkspaceHeading;

/// The person's preferences and the way to their data. It has its heading so far.
class SettingsView final : public StorePage {
    Q_OBJECT

public:
    explicit SettingsView(PageContext context, QWidget* parent = nullptr);

    void refresh() override;

private:
    WorkspaceHeading* heading;
};

}  // namespace vantry
