#pragma once

#include <functional>

#include "Vantry/interface/pages/StorePage.h"

namespace vantry {

class Button;
class EmptyCard;
class PageHeading;
class RowList;

/// The home page: all productions.
class LibraryView final : public StorePage {
    Q_OBJECT

public:
    LibraryView(PageContext context, const std::function<void()>& newProject, QWidget* parent = nullptr);

    void refresh() override;

private:
    PageHeading* heading;
    Button* newProject;
    EmptyCard* empty;
    RowList* productions;
};

}  // namespace vantry
