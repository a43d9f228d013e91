#include <QAction>
#include <QPainter>
#include <QVBoxLayout>

#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/Sheet.h"
#include "Vantry/interface/design/Surface.h"
#include "Vantry/interface/navigation/Banner.h"
#include "Vantry/interface/navigation/CrumbBar.h"
#include "Vantry/interface/navigation/LibraryTree.h"
#include "Vantry/interface/navigation/LibraryTreeModel.h"
#include "Vantry/interface/navigation/NavigationRow.h"
#include "Vantry/interface/navigation/StatusLine.h"
#include "Vantry/interface/navigation/ToolButton.h"
#include "Vantry/interface/routes/Crumbs.h"
#include "gallery/Sample.h"
#include "gallery/Sections.h"

namespace vantry::gallery {
namespace {

/// The surface of the sidebar.
class SidebarSurface final : public QWidget {
public:
    explicit SidebarSurface(QWidget* parent)
        : QWidget(parent)
        , column(new QVBoxLayout(this)) {
        column->setContentsMargins(Metrics::paddingSidebar, Metrics::paddingSidebar, Metrics::paddingSidebar,
                                   Metrics::paddingSidebar);
        column->setSpacing(Metrics::gapLines);
    }
    void add(QWidget* widget) { column->addWidget(widget); }

protected:
    void paintEvent(QPaintEvent*) override {
        const Palette& palette = Palette::of(*this);
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        paintSurface(painter, rect(),
                     {palette.navigation, palette.rule, Metrics::hairline, Metrics::radiusTrack});
    }

private:
    QVBoxLayout* column;
};

void showToolbar(Board& board) {
    Section& section = board.section({"工具栏", "Toolbar"});
    for (const State state : allStates) {
        auto* action = new QAction(section.place());
        board.say([action](const QString& said) { action->setText(said); },
                  {"撤销结构修改", "Undo structure change"});
        action->setEnabled(state != State::disabled);
        section.add(new ToolButton(*action, Glyph::undo, section.place()), state);
    }
}

void showSidebar(Board& board) {
    Section& section = board.section({"侧栏行", "Sidebar row"});
    auto* surface = new SidebarSurface(section.place());
    const auto addRow = [&](State state, bool chosen) {
        auto* row = new NavigationRow(Glyph::calendar, surface);
        const Phrase name = chosen ? Phrase{"已选", "selected"} : nameOf(state);
        board.say([row, name](bool english) {
            row->setPlain((english ? QStringLiteral("Calendar · ") : QStringLiteral("日历 · ")) +
                          name.in(english));
        });
        row->setChosen(chosen);
        surface->add(row);
        if (state != State::normal)
            board.force(*row, state);
    };
    for (const State state : allStates)
        addRow(state, false);
    addRow(State::normal, true);
    section.add(surface, {"NavigationRow", "NavigationRow"}, 1);
}

void showTree(Board& board, Sample& sample) {
    constexpr int rows = 6;
    Section& section = board.section({"目录树", "Contents tree"});
    auto* surface = new SidebarSurface(section.place());
    auto* tree = new LibraryTree(surface);
    auto* model = new LibraryTreeModel(tree);
    tree->setModel(model);
    tree->setFixedHeight(rows * Metrics::treeRowHeight);
    surface->add(tree);
    board.say([tree, model, &sample](bool english) {
        model->refresh(sample.saved().library(), english);
        tree->expandAll();
        tree->setPlace(model->indexOf(sample.place()));
    });
    section.add(surface, {"LibraryTree", "LibraryTree"}, 1);
}

void showEdges(Board& board, Sample& sample) {
    Section& section =
        board.section({"路径、状态行与横幅", "Crumbs, status line and banner"}, Board::Width::full);
    auto* crumbBar = new CrumbBar(section.place());
    board.say([crumbBar, &sample](bool english) {
        crumbBar->refresh(crumbs(sample.saved().library(), sample.place(), english), sample.place());
    });
    section.add(crumbBar, {"CrumbBar", "CrumbBar"}, 1);
    const std::pair<VantryStore*, Phrase> stores[] = {{&sample.saved(), {"已存", "saved"}},
                                                      {&sample.pending(), {"待存", "unsaved"}},
                                                      {&sample.failed(), {"保存失败", "save failed"}}};
    for (const auto& [store, name] : stores) {
        section.startRow();
        auto* line = new StatusLine(section.place());
        board.say([line, store = store](bool english) {
            store->setLanguage(english ? "en" : "zh");
            line->refresh(*store);
        });
        section.add(line, name, 1);
    }
    section.startRow();
    auto* banner = new Banner(section.place());
    board.say([banner](bool english) { banner->refresh(true, english); });
    section.add(banner, {"Banner", "Banner"}, 1);
}

void showSheets(Board& board) {
    Section& section = board.section({"弹窗（按下打开）", "Sheets (press to open)"});
    auto* tell = new Button(Button::Kind::quiet, Glyph::none, section.place());
    board.say([tell](const QString& said) { tell->setPlain(said); }, {"提示…", "Alert…"});
    QObject::connect(tell, &Button::clicked, tell, [&board, tell] {
        const bool english = board.isEnglish();
        auto* sheet = new AlertSheet(tell->window());
        sheet->setAttribute(Qt::WA_DeleteOnClose);
        sheet->setTexts(english ? QStringLiteral("Done") : QStringLiteral("完成"),
                        english ? QStringLiteral("The backup was written.") : QStringLiteral("备份已写好。"),
                        english ? QStringLiteral("OK") : QStringLiteral("好"));
        sheet->open();
    });
    section.add(tell, {"AlertSheet", "AlertSheet"});
    auto* ask = new Button(Button::Kind::quiet, Glyph::none, section.place());
    board.say([ask](const QString& said) { ask->setPlain(said); }, {"询问…", "Question…"});
    QObject::connect(ask, &Button::clicked, ask, [&board, ask] {
        const bool english = board.isEnglish();
        auto* sheet = new QuestionSheet(ask->window());
        sheet->setAttribute(Qt::WA_DeleteOnClose);
        sheet->setTexts(english ? QStringLiteral("Delete “Take 7”?") : QStringLiteral("删除“Take 7”？"),
                        english ? QStringLiteral("Cancel") : QStringLiteral("取消"),
                        english ? QStringLiteral("Delete") : QStringLiteral("删除"));
        sheet->ask();
    });
    section.add(ask, {"QuestionSheet", "QuestionSheet"});
}

}  // namespace

void showFrame(Board& board, Sample& sample) {
    showToolbar(board);
    showSidebar(board);
    showTree(board, sample);
    showSheets(board);
    showEdges(board, sample);
}

}  // namespace vantry::gallery
