#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/Card.h"
#include "Vantry/interface/design/CompletionLine.h"
#include "Vantry/interface/design/EmptyViewCard.h"
#include "Vantry/interface/design/FactRow.h"
#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/LinkCard.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/PageHeading.h"
#include "Vantry/interface/design/RowList.h"
#include "Vantry/interface/design/SectionLabel.h"
#include "Vantry/interface/design/StatusPill.h"
#include "Vantry/interface/design/VantryDisclosure.h"
#include "Vantry/interface/design/VantryTextField.h"
#include "Vantry/interface/design/WorkspaceHeading.h"
#include "Vantry/interface/design/WorkspaceMetric.h"
#include "gallery/Sections.h"

namespace vantry::gallery {
namespace {

const Phrase longTitle{"一场从黄昏拍到天亮、谁也说不清什么时候收工的夜戏：码头、雾、灯船与迟到的摆渡人",
                       "The night that was shot from dusk to dawn, and of which nobody could say when it "
                       "would wrap: the quay, the fog, the lightship and the ferryman who came late"};

void showHeadings(Board& board) {
    Section& section = board.section({"标题", "Headings"}, Board::Width::full);
    auto* workspace = new WorkspaceHeading(1, section.place());
    auto* action = new Button(Button::Kind::primary, Glyph::plus, workspace);
    workspace->actions().addWidget(action);
    board.say([workspace, action](bool english) {
        workspace->setTexts(english ? QStringLiteral("Production") : QStringLiteral("项目"),
                            english ? QStringLiteral("Fog Harbour") : QStringLiteral("雾港"),
                            english ? QStringLiteral("Director: Lin Xiaoyu · 3 acts · 21 shots")
                                    : QStringLiteral("导演：林晓雨 · 3 幕 · 21 镜"));
        action->setPlain(english ? QStringLiteral("Add act") : QStringLiteral("添加幕"));
    });
    section.add(workspace, {"WorkspaceHeading", "WorkspaceHeading"}, 1);
    section.startRow();
    auto* page = new PageHeading({.titleLines = 2, .subtitleLines = 2}, section.place());
    board.say([page](bool english) {
        const QString title = longTitle.in(english);
        page->setTexts(english ? QStringLiteral("Shot 20B") : QStringLiteral("镜头 20B"), title,
                       (title + QStringLiteral(" · ")).repeated(6));
    });
    section.add(page, {"PageHeading · 各两行", "PageHeading · two lines each"}, 1);
    section.startRow();
    auto* label = new SectionLabel(section.place());
    board.say([label](bool english) {
        label->setTexts(english ? QStringLiteral("Sound plan") : QStringLiteral("声音计划"),
                        english ? QStringLiteral("Sync") : QStringLiteral("同期"));
    });
    section.add(label, {"SectionLabel", "SectionLabel"}, 1);
    auto* part = new WorkspaceSection(section.place());
    board.say([part](bool english) {
        part->setTexts(english ? QStringLiteral("Coming up") : QStringLiteral("接下来的拍摄"),
                       english ? QStringLiteral("3 shoots") : QStringLiteral("3 场"));
    });
    section.add(part, {"WorkspaceSection", "WorkspaceSection"}, 1);
}

void showPills(Board& board) {
    Section& section = board.section({"状态与进度", "StatusPill, CompletionLine"});
    const std::pair<StatusKind, Phrase> pills[] = {
        {StatusKind::good, {"已完成", "Complete"}},
        {StatusKind::warning, {"本镜已取消拍摄 · 记录仍保留", "Shoot cancelled · Records retained"}},
        {StatusKind::neutral, {"待拍", "To shoot"}}};
    const Phrase kinds[] = {{"good", "good"}, {"warning", "warning"}, {"neutral", "neutral"}};
    for (std::size_t i = 0; i < std::size(pills); ++i) {
        auto* pill = new StatusPill(pills[i].first, section.place());
        board.say([pill](const QString& said) { pill->setPlain(said); }, pills[i].second);
        section.add(pill, kinds[i]);
    }
    const std::pair<int, int> progress[] = {{0, 0}, {6, 21}, {21, 21}};
    const Phrase counts[] = {{"0 / 0", "0 / 0"}, {"6 / 21", "6 / 21"}, {"21 / 21", "21 / 21"}};
    section.startRow();
    for (std::size_t i = 0; i < std::size(progress); ++i) {
        auto* line = new CompletionLine(section.place());
        line->setDone(progress[i].first, progress[i].second);
        section.add(line, counts[i], 1);
    }
}

void showDisclosures(Board& board) {
    Section& section = board.section({"折叠", "VantryDisclosure"});
    for (const bool open : {false, true}) {
        if (open)
            section.startRow();
        auto* disclosure = new VantryDisclosure(Glyph::sliders, section.place());
        board.say([disclosure, open](bool english) {
            disclosure->setTexts(
                open ? (english ? QStringLiteral("Lens, camera & recording")
                                : QStringLiteral("镜头、相机与录制参数"))
                     : (english ? QStringLiteral("Project defaults") : QStringLiteral("项目默认参数")),
                open ? QString()
                     : (english ? QStringLiteral("Open to view or edit") : QStringLiteral("点击填写或查看")),
                english);
        });
        auto* field = new VantryTextField(disclosure);
        board.say([field](const QString& said) { field->setTitle(said); },
                  {"焦段 (mm)", "Focal length (mm)"});
        disclosure->content().addWidget(field);
        disclosure->setExpanded(open);
        section.add(disclosure, open ? Phrase{"打开", "open"} : Phrase{"收起", "closed"}, 1);
    }
}

void showCards(Board& board) {
    Section& metrics = board.section({"数字", "WorkspaceMetric"});
    auto* tiles = new WorkspaceMetrics({Glyph::camera, Glyph::checkCircle}, metrics.place());
    board.say([tiles](bool english) {
        tiles->tile(0).setTexts(QStringLiteral("124"),
                                english ? QStringLiteral("Planned shots") : QStringLiteral("计划镜头"));
        tiles->tile(1).setTexts(QStringLiteral("20 / 54"),
                                english ? QStringLiteral("Complete") : QStringLiteral("拍摄完成"));
    });
    metrics.add(tiles, {"WorkspaceMetrics", "WorkspaceMetrics"}, 1);

    Section& cards = board.section({"卡片", "Card"});
    auto* card = new Card(cards.place());
    auto* text = new Label(VantryType::Role::body, &Palette::ink, Label::Length::wrapped, card);
    card->content().addWidget(text);
    board.say([card](const QString& said) { card->setTitle(said); }, {"备注", "Note"});
    board.say([text](const QString& said) { text->setPlain(said); }, longTitle);
    cards.add(card, {"Card", "Card"}, 1);

    Section& empty = board.section({"空白", "EmptyViewCard"});
    auto* nothing = new EmptyViewCard(Glyph::calendar, empty.place());
    board.say([nothing](bool english) {
        nothing->setTexts(english ? QStringLiteral("No upcoming shoots") : QStringLiteral("暂无后续排期"),
                          english ? QStringLiteral("Set a date and time in a shot plan to see it here.")
                                  : QStringLiteral("在分镜中设置日期与时间，安排会出现在这里。"));
    });
    empty.add(nothing, {"EmptyViewCard", "EmptyViewCard"}, 1);

    Section& links = board.section({"入口", "LinkCard"}, Board::Width::full);
    for (const State state : allStates) {
        auto* link = new LinkCard(Glyph::people, links.place());
        board.say([link](bool english) {
            link->setTexts(english ? QStringLiteral("People") : QStringLiteral("剧组与演员"),
                           english ? QStringLiteral("12 crew · 4 cast")
                                   : QStringLiteral("剧组 12 人 · 演员 4 人"));
        });
        links.add(link, state, 1);
    }
}

void showLists(Board& board) {
    Section& section = board.section({"列表", "RowList"});
    auto* list = new RowList(section.place());
    board.say([list](bool english) {
        list->setRows(
            {{"act",
              {Glyph::film,
               english ? QStringLiteral("Act Two · Night Passage") : QStringLiteral("第二幕 夜航"),
               english ? QStringLiteral("21 shots · 6 done / 15 remaining")
                       : QStringLiteral("21 镜 · 6 完成 / 15 未完"),
               false},
              {}},
             {"shot",
              {Glyph::camera, QStringLiteral("Tom & Jerry <b>x</b>"), QStringLiteral("7 Take · 4★"), true},
              english ? QStringLiteral("More") : QStringLiteral("更多")}});
    });
    section.add(list, {"一行有菜单，一行已取消", "one with a menu, cancelled"}, 1);

    Section& rows = board.section({"行", "RowButton"}, Board::Width::full);
    const auto addRow = [&](const Phrase& caption, bool selected) {
        auto* button = new RowButton(rows.place());
        board.say([button](bool english) {
            button->setContent({Glyph::folder,
                                english ? QStringLiteral("Fog Harbour") : QStringLiteral("雾港"),
                                english ? QStringLiteral("3 acts") : QStringLiteral("3 幕"), false});
        });
        button->setSelected(selected);
        rows.add(button, caption, 1);
        return button;
    };
    for (const State state : allStates) {
        auto* button = addRow(nameOf(state), false);
        if (state != State::normal)
            board.force(*button, state);
    }
    addRow({"已选", "selected"}, true);

    Section& facts = board.section({"只读行", "FactRow"});
    auto* row = new FactRow(FactRow::Edge::text, facts.place());
    board.say([row](bool english) {
        row->setContent(
            {.glyph = Glyph::document,
             .above = english ? QStringLiteral("Director of photography") : QStringLiteral("摄影指导"),
             .name = english ? QStringLiteral("Chen Zhou") : QStringLiteral("陈舟"),
             .below = QStringLiteral("chen@example.com"),
             .remark = english ? QStringLiteral("Unit A") : QStringLiteral("A 组")});
    });
    facts.add(row, {"FactRow", "FactRow"}, 1);
}

}  // namespace

void showPageParts(Board& board) {
    showPills(board);
    showHeadings(board);
    showDisclosures(board);
    showCards(board);
    showLists(board);
}

}  // namespace vantry::gallery
