#include "Vantry/interface/pages/RecordPage.h"

#include <QStackedLayout>

#include "Vantry/interface/design/PageColumn.h"
#include "Vantry/interface/pages/MissingView.h"

namespace vantry {

RecordPage::RecordPage(PageContext given, QWidget* parent)
    : StorePage(std::move(given), parent)
    , body(new PageColumn(this))
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
    missing->refresh();
    setAccessibleName(missing->accessibleName());
    stack->setCurrentWidget(missing);
}

}  // namespace vantry
