#include "Vantry/interface/settings/SettingsView.h"

#include "Vantry/interface/design/PageColumn.h"
#include "Vantry/interface/design/WorkspaceHeading.h"

namespace vantry {

SettingsView::SettingsView(PageContext given, QWidget* parent)
    : StorePage(std::move(given), parent) {
    PageColumn* column = crewPage(this, PageColumn::Above::nothing);
    heading = new WorkspaceHeading(2, column->body());
    column->content().addWidget(heading);
    column->content().addStretch();
}

void SettingsView::refresh() {
    const QString title = text(u"设置", u"Settings");
    setAccessibleName(title);
    heading->setTexts(
        QStringLiteral("Vantry"), title,
        text(u"工作习惯与本机数据，分开管理。", u"Your workspace preferences and your local data."));
}

}  // namespace vantry
