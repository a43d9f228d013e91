#pragma once

#include "Vantry/interface/pages/StorePage.h"

namespace vantry {

class WorkspaceHeading;

/// Finds records across all productions. It has its heading so far.
class SearchView final : public StorePage {
    Q_OBJECT

public:
    explicit SearchView(PageContext context, QWidget* parent = nullptr);

    void refresh() override;

private:
    WorkspaceHeading* heading;
};

}  // namespace vantry
