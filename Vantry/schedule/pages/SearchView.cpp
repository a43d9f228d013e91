#include "Vantry/schedule/pages/SearchView.h"

#include "Vantry/interface/design/PageColumn.h"
#include "Vantry/interface/design/WorkspaceHeading.h"

namespace vantry {

SearchView::SearchView(PageContext given, QWidget* parent)
    : StorePage(std::move(given), parent) {
    PageColumn* column = crewPage(this, PageColumn::Above::nothing);
    heading = new WorkspaceHeading(2, column->body());
    column->content().addWidget(heading);
    column->content().addStretch();
}

void SearchView::refresh() {
    const QString title = text(u"搜索", u"Search");
    setAccessibleName(title);
    heading->setTexts(text(u"跨项目检索", u"Across productions"), title,
                      text(u"从镜号、素材名或一句笔记找到现场记录。",
                           u"Find the record behind a shot code, filename or note."));
}

}  // namespace vantry
