#include "Vantry/documents/menu/ExportMenu.h"

#include <algorithm>

#include "Vantry/app/QtText.h"
#include "Vantry/app/VantryStore.h"
#include "Vantry/documents/CallSheetPDF.h"
#include "Vantry/documents/PDFExport.h"
#include "Vantry/interface/design/ControlText.h"
#include "Vantry/interface/design/RowButton.h"
#include "Vantry/interface/pages/Contained.h"
#include "Vantry/interface/pages/PanelOperation.h"

namespace vantry {

ExportMenu::ExportMenu(VantryStore& opened, const Identifier& project, QWidget* parent)
    : Button(Kind::quiet, Glyph::share, parent)
    , store(opened)
    , projectID(project)
    , saving(new PanelOperation(opened, *this)) {
    setOpensMenu();
    setTrailing(Glyph::chevronDown);
    connect(this, &ExportMenu::clicked, this, [this] { contain(store, [this] { open(); }); });
}

void ExportMenu::refresh() {
    setPlain(text(u"导出 PDF", u"Export PDF"));
}

QString ExportMenu::text(QStringView zh, QStringView en) const {
    return (store.english() ? en : zh).toString();
}

void ExportMenu::open() {
    const auto project = store.project(projectID);
    if (!project)
        return;
    auto* menu = new RowMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setAccessibleName(plain());
    addDocuments(*menu);
    addCallSheets(*menu, *project);
    // Both end on the page's right edge.
    menu->popup(mapToGlobal(QPoint(width() - menu->sizeHint().width(), height())));
}

void ExportMenu::addDocuments(QMenu& menu) {
    const auto add = [&](const QString& title, bool report) {
        connect(menu.addAction(controlText(title)), &QAction::triggered, this, [this, report] {
            saving->start([this, report] {
                if (const auto project = store.project(projectID))
                    PDFExport::save(project, report, store);
            });
        });
    };
    add(text(u"分镜计划 PDF · 给 DP", u"Storyboard PDF · for DP"), false);
    add(text(u"拍摄报告 PDF · 给导演", u"Shoot report PDF · for director"), true);
}

void ExportMenu::addCallSheets(QMenu& menu, const Project& project) {
    QMenu* sheets = menu.addMenu(QStringLiteral("Call Sheet PDF"));
    std::vector<const CallSheet*> byDate;
    for (const auto& sheet : project.callSheets())
        byDate.push_back(&sheet);
    std::stable_sort(byDate.begin(), byDate.end(),
                     [](const auto* a, const auto* b) { return a->date < b->date; });
    if (byDate.empty())
        sheets->addAction(text(u"请先新建通告单", u"Create a call sheet first"))->setEnabled(false);
    for (const CallSheet* sheet : byDate) {
        const QString title = QString::fromStdString(CallSheetPDF::dateText(*sheet)) + QStringLiteral(" · ") +
                              toQString((*sheet)["version"]);
        connect(sheets->addAction(controlText(title)), &QAction::triggered, this, [this, id = sheet->id] {
            saving->start([this, id] {
                if (const auto current = store.project(projectID))
                    CallSheetPDF::save(current, id, store);
            });
        });
    }
}

}  // namespace vantry
