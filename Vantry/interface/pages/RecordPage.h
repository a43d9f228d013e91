#pragma once

#include "Vantry/interface/pages/StorePage.h"

class QStackedLayout;

namespace vantry {

class MissingView;
class PageColumn;
class RecordRemoval;

/// The page of one record. While the record is there it shows its content, and the missing page in its place
/// while it is not; the content stays alive meanwhile, so that an undo finds it as it was.
class RecordPage : public StorePage {
    Q_OBJECT

public:
    void refresh() final;

protected:
    explicit RecordPage(PageContext context, QWidget* parent = nullptr);

    [[nodiscard]] PageColumn& column() noexcept { return *body; }
    /// Gives the page the way to delete its record; see RecordRemoval.
    [[nodiscard]] RecordRemoval* makeRemoval(const Route& parent, std::function<void()> remove);
    /// Brings the content in line with the record. Answers false, and changes nothing, when it is gone.
    virtual bool fill() = 0;

private:
    PageColumn* body;
    MissingView* missing;
    QStackedLayout* stack;
    RecordRemoval* removal = nullptr;
};

}  // namespace vantry
