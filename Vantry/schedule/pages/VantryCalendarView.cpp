#include "Vantry/schedule/pages/VantryCalendarView.h"

#include "Vantry/interface/design/PageColumn.h"
#include "Vantry/interface/design/WorkspaceHeading.h"

namespace vantry {

VantryCalendarView::VantryCalendarView(PageContext given, QWidget* parent)
    : StorePage(std::move(given), parent) {
    PageColumn* column = crewPage(this, PageColumn::Above::nothing);
    heading = new WorkspaceHeading(2, column->body());
    column->content().addWidget(heading);
    column->content().addStretch();
}

void VantryCalendarView::refresh() {
    const QString title = text(u"日历", u"Calendar");
    setAccessibleName(title);
    heading->setTexts(
        text(u"拍摄计划", u"Shoot planner"), title,
        text(u"选一天，看当天每一镜与通告单。", u"Choose a day. See every shot and call time."));
}

}  // namespace vantry
