#include <QMenu>

#include "Vantry/interface/design/ControlText.h"
#include "Vantry/interface/design/RowButton.h"
#include "Vantry/interface/design/SegmentedChoice.h"
#include "Vantry/interface/design/StarRating.h"
#include "Vantry/interface/design/WorkspaceTabs.h"
#include "gallery/Sections.h"

namespace vantry::gallery {
namespace {

SegmentedChoice* makeResult(Board& board, Section& section, int chosen) {
    // In the order of the verdicts.
    const QList<Segment::Look> looks{{Glyph::dashedCircle, nullptr, &Palette::warning},
                                     {Glyph::check, &Palette::completed, nullptr},
                                     {Glyph::cross, &Palette::danger, nullptr}};
    auto* result = new SegmentedChoice(looks, SegmentedChoice::Size::large, section.place());
    board.say([result](bool english) {
        result->setName(english ? QStringLiteral("Take result") : QStringLiteral("拍摄结果"));
        result->setTitles({english ? QStringLiteral("Pending") : QStringLiteral("待定"),
                           QStringLiteral("Good"), QStringLiteral("NG")});
    });
    result->setChosen(chosen);
    return result;
}

void showResult(Board& board) {
    Section& section = board.section({"拍摄结果", "Take result"}, Board::Width::full);
    const Phrase captions[] = {{"待定", "Pending"}, {"Good", "Good"}, {"NG", "NG"}};
    for (int chosen = 0; chosen < static_cast<int>(std::size(captions)); ++chosen)
        section.add(makeResult(board, section, chosen), captions[chosen]);
    section.startRow();
    auto* used = makeResult(board, section, -1);
    const auto segments = used->findChildren<Segment*>();
    board.force(*segments[0], State::hover);
    board.force(*segments[1], State::focused);
    section.add(used, {"悬停 · 焦点", "hover · focused"});
    auto* off = makeResult(board, section, 1);
    for (Segment* segment : off->findChildren<Segment*>())
        board.force(*segment, State::disabled);
    section.add(off, {"停用", "disabled"});
}

void showRating(Board& board) {
    Section& section = board.section({"推荐程度", "Rating"}, Board::Width::full);
    const Phrase captions[] = {{"0 / 5", "0 / 5"}, {"3 / 5", "3 / 5"}, {"5 / 5", "5 / 5"}};
    const int stars[] = {0, 3, StarRating::count};
    for (std::size_t i = 0; i < std::size(stars); ++i) {
        auto* rating = new StarRating(section.place());
        rating->setStars(stars[i]);
        section.add(rating, captions[i]);
    }
    section.startRow();
    auto* used = new StarRating(section.place());
    used->setStars(1);
    board.force(used->star(2), State::hover);
    board.force(used->star(3), State::pressed);
    board.force(used->star(4), State::focused);
    board.force(used->star(StarRating::count), State::disabled);
    section.add(used, {"悬停 · 按下 · 焦点 · 停用", "hover · pressed · focused · disabled"});
}

void showTabs(Board& board) {
    Section& section = board.section({"页签与切换", "Tabs and switches"}, Board::Width::full);
    auto* tabs = new WorkspaceTabs(4, section.place());
    board.say([tabs](bool english) {
        tabs->setTitles(english ? QStringList{QStringLiteral("Overview"), QStringLiteral("People"),
                                              QStringLiteral("Call Sheet"), QStringLiteral("Details")}
                                : QStringList{QStringLiteral("拍摄总览"), QStringLiteral("剧组与演员"),
                                              QStringLiteral("Call Sheet"), QStringLiteral("项目信息")},
                        english);
    });
    tabs->setChosen(0);
    section.add(tabs, {"WorkspaceTabs", "WorkspaceTabs"});
    auto* choice =
        new SegmentedChoice({{Glyph::list}, {Glyph::grid}}, SegmentedChoice::Size::regular, section.place());
    board.say([choice](bool english) {
        choice->setName(english ? QStringLiteral("View") : QStringLiteral("视图"));
        choice->setTitles(english ? QStringList{QStringLiteral("List"), QStringLiteral("Grid")}
                                  : QStringList{QStringLiteral("清单"), QStringLiteral("网格")});
    });
    choice->setChosen(0);
    section.add(choice, {"切换", "switch"});
    auto* states = new SegmentedChoice({{}, {}, {}, {}, {}}, SegmentedChoice::Size::regular, section.place());
    const auto segments = states->findChildren<Segment*>();
    for (std::size_t i = 0; i < allStates.size(); ++i) {
        if (allStates[i] != State::normal)
            board.force(*segments[static_cast<qsizetype>(i)], allStates[i]);
    }
    board.say([states](bool english) {
        QStringList titles;
        for (const State state : allStates)
            titles.append(nameOf(state).in(english));
        states->setTitles(titles);
    });
    states->setChosen(0);
    section.add(states, {"各状态", "states"});
}

void showMenu(Board& board) {
    Section& section = board.section({"菜单", "Menu"});
    auto* menu = new RowMenu(section.place());
    // On the board it is a part like others, not a window.
    menu->setWindowFlags(Qt::Widget);
    const struct {
        Phrase text;
        bool enabled;
    } entries[] = {{{"上移", "Move up"}, false},
                   {{"下移", "Move down"}, true},
                   {{"在后面插镜", "Insert shot after"}, true}};
    const auto said = [&board](QAction* action, const Phrase& text) {
        board.say([action](const QString& shown) { action->setText(controlText(shown)); }, text);
    };
    for (const auto& [text, enabled] : entries) {
        auto* action = menu->addAction(QString());
        action->setEnabled(enabled);
        said(action, text);
    }
    menu->addSeparator();
    auto* cancel = menu->addAction(QString());
    cancel->setCheckable(true);
    cancel->setChecked(true);
    said(cancel, {"取消拍摄（保留记录）", "Cancel shot (keep records)"});
    said(menu->addDestructive(QString()), {"移除关联", "Remove reference"});
    menu->setActiveAction(menu->actions().at(1));
    menu->setAttribute(Qt::WA_TransparentForMouseEvents);
    section.add(menu, {"RowMenu · 第二项悬停", "RowMenu · second entry hovered"});
}

}  // namespace

void showChoices(Board& board) {
    showResult(board);
    showRating(board);
    showTabs(board);
    showMenu(board);
}

}  // namespace vantry::gallery
