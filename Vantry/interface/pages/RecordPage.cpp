#include "Vantry/interface/pages/RecordPage.h"

#include <QStackedLayout>

#include "Vantry/interface/design/PageColumn.h"
#include "Vantry/interface/pages/MissingView.h"
#include "Vantry/interface/pages/RecordRemoval.h"

namespace vantry {

RecordPage::RecordPage(PageContext given, QWidget* parent)
    : StorePage(std::move(given), parent)
    , body(new PageColumn(PageColumn::Above::crumbs, this))
    , missing(new MissingView(context, this))
    , stack(new QStackedLayout(this)) {
    stack->addWidget(body);
    stack->addWidget(missing);
}

void RecordPage::refresh() {
    if (fill()) {
        stack->setCurrentWidget(body);
        return;
    }
    if (removal != nullptr)
        removal->withdraw();
    // Whoever holds a key down must not press the next best button.
    if (body->isAncestorOf(focusWidget()))
        setFocus(Qt::OtherFocusReason);
    missing->refresh();
    setAccessibleName(missing->accessibleName());
    stack->setCurrentWidget(missing);
}

RecordRemoval* RecordPage::makeRemoval(const Route& parent, std::function<void()> remove) {
    return removal = new RecordRemoval(context, *this, parent, std::move(remove));
}

}  // namespace vantry
