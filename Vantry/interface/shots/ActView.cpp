#include "Vantry/interface/shots/ActView.h"

#include <functional>

#include "Vantry/app/QtText.h"
#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/CompletionLine.h"
#include "Vantry/interface/design/Compose.h"
#include "Vantry/interface/design/ControlText.h"
#include "Vantry/interface/design/EmptyViewCard.h"
#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/LabeledInput.h"
#include "Vantry/interface/design/PageColumn.h"
#include "Vantry/interface/design/RowButton.h"
#include "Vantry/interface/design/SectionLabel.h"
#include "Vantry/interface/design/SegmentedChoice.h"
#include "Vantry/interface/design/WorkspaceHeading.h"
#include "Vantry/interface/pages/RecordRemoval.h"
#include "Vantry/interface/pages/RowKey.h"
#include "Vantry/interface/pages/ShootTime.h"
#include "Vantry/interface/shots/NewTake.h"
#include "Vantry/interface/shots/ShotActions.h"
#include "Vantry/interface/shots/ShotSequence.h"
#include "Vantry/interface/shots/ShotTexts.h"
#include "Vantry/interface/shots/ShotTile.h"

namespace vantry {

ActView::ActView(PageContext given, const Identifier& project, const Identifier& act, QWidget* parent)
    : RecordPage(std::move(given), parent)
    , projectID(project)
    , actID(act)
    , mode(*this, "shot-board-mode")
    , heading(new WorkspaceHeading(2))
    , add(new Button(Button::Kind::primary, Glyph::plus)) {
    heading->actions().addWidget(add);
    auto& content = column().content();
    content.addWidget(heading);
    content.addWidget(makeNaming());
    makeSequence();
    removal = makeRemoval(Route::project(projectID), [this] {
        store().updateProject(projectID, [this](Project& record) {
            std::erase_if(record.acts, [this](const auto& held) { return held->id == actID; });
        });
    });
    content.addWidget(leading(&removal->button()));
    content.addStretch();
    connect(add, &Button::clicked, this, performing([this](bool) { addShot(); }));
}

QWidget* ActView::makeNaming() {
    title = new LabeledInput;
    progress = new Label(VantryType::Role::caption, &Palette::muted);
    line = new CompletionLine;
    title->field().setBinding(binding(
        [this]() -> std::optional<Text> {
            const auto found = store().act(projectID, actID);
            return found ? std::optional(found->title) : std::nullopt;
        },
        [this](const Text& text) {
            store().updateAct(projectID, actID, [&](Act& record) { record.title = text; });
        }));
    QWidget* const counts = ::vantry::column(Metrics::gapInline, {progress, line});
    // The bar stands a field's padding above the foot of the field.
    counts->layout()->setContentsMargins(0, 0, 0, Metrics::gapField);
    auto* naming = new QWidget;
    auto* row = new QHBoxLayout(naming);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Metrics::gapSection);
    row->addWidget(title, 1);
    row->addWidget(counts, 1, Qt::AlignBottom);
    return naming;
}

QWidget* ActView::makeSwitch() {
    sequence = new SectionLabel;
    modes = new SegmentedChoice({{Glyph::list}, {Glyph::grid}}, SegmentedChoice::Size::regular);
    modes->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(modes, &SegmentedChoice::chosen, this, performing([this](int chosen) { mode.setValue(chosen); }));
    sequenceLine = new QWidget;
    auto* row = new QHBoxLayout(sequenceLine);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Metrics::gapField);
    row->addWidget(sequence, 1);
    row->addWidget(modes);
    return sequenceLine;
}

void ActView::makeSequence() {
    empty = new EmptyViewCard(Glyph::camera);
    shots = new ShotSequence(store(), [this](ShotTile& tile, const QByteArray& key) { fillTile(tile, key); });
    note = new Label(VantryType::Role::caption, &Palette::muted, Label::Length::wrapped);
    column().content().addWidget(::vantry::column(Metrics::gapField, {makeSwitch(), empty, shots, note}));
    connect(shots, &ShotSequence::editWanted, this, performing([this](const QByteArray& key) {
                if (const auto id = recordOf(key))
                    go(Route::shot(projectID, actID, *id));
            }));
    connect(shots, &ShotSequence::takeWanted, this,
            performing([this](const QByteArray& key, AfterNewTake keyboard) {
                if (const auto id = recordOf(key))
                    startNewTake(context, projectID, actID, *id, keyboard);
            }));
    connect(shots, &ShotSequence::moveWanted, this,
            performing([this](const QByteArray& key, const QByteArray& before) { move(key, before); }));
    connect(shots, &ShotSequence::menuWanted, this,
            performing([this](const QByteArray& key, QWidget* opener) {
                if (const auto id = recordOf(key))
                    showMenu(*id, *opener);
            }));
}

void ActView::addShot() const {
    if (!store().acceptCreation(VantryCreationAction::shot(actID)))
        return;
    const Identifier made = store().addShot(projectID, actID);
    go(Route::shot(projectID, actID, made));
}

void ActView::move(const QByteArray& key, const QByteArray& before) const {
    const auto act = store().act(projectID, actID);
    const auto moved = recordOf(key);
    if (!act || !moved || act->shots.empty())
        return;
    const auto target = recordOf(before);
    const Identifier last = act->shots.back()->id;
    store().markCheckpoint();
    if (target)
        store().moveShotBefore(projectID, actID, *moved, *target);
    else
        // Behind the last: in front of it, and then past it, as one change.
        store().updateAct(projectID, actID, [&](Act& record) {
            record.moveShotBefore(*moved, last);
            record.moveShot(*moved, 1);
        });
}

void ActView::showMenu(const Identifier& shotID, QWidget& opener) {
    const auto act = store().act(projectID, actID);
    const std::size_t index = act ? indexOfRecord(act->shots, shotID) : 0;
    if (!act || index == act->shots.size())
        return;
    const ShotPlace place{projectID, actID, shotID};
    auto* menu = new RowMenu(&opener);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto entry = [&](const QString& title, bool possible, const std::function<void()>& action) {
        QAction* made = menu->addAction(controlText(title));
        made->setEnabled(possible);
        connect(made, &QAction::triggered, this, performing([action](bool) { action(); }));
    };
    const auto move = [this, place](std::int64_t offset) {
        store().markCheckpoint();
        store().moveShot(place.project, place.act, place.shot, offset);
    };
    entry(text(u"上移", u"Move up"), index > 0, [move] { move(-1); });
    entry(text(u"下移", u"Move down"), index + 1 < act->shots.size(), [move] { move(1); });
    entry(text(u"在后面插镜", u"Insert shot after"), true,
          [this, place] { insertShotAfter(context, place); });
    const bool cancelled = act->shots[index]->cancelled;
    entry(cancelled ? text(u"恢复镜头", u"Restore shot")
                    : text(u"取消拍摄（保留记录）", u"Cancel shot (keep records)"),
          true, [this, place, cancelled] { setCancelled(context, place, !cancelled); });
    menu->popup(opener.mapToGlobal(QPoint(0, opener.height())));
}

void ActView::fillTile(ShotTile& tile, const QByteArray& key) const {
    const auto id = recordOf(key);
    const auto shot = id ? store().shot(projectID, actID, *id) : nullptr;
    if (!shot)
        return;
    const bool english = store().english();
    ShotTile::Content content;
    content.name = shotName(*shot);
    content.takes = QString::number(shot->takes.size()) + QStringLiteral(" Take");
    content.stars = starsText(shot->maxStars());
    content.state = text(u"待拍", u"To shoot");
    if (shot->cancelled) {
        content.state = text(u"已取消", u"Cancelled");
    } else if (shot->complete()) {
        content.state = text(u"已完成", u"Complete");
        content.kind = StatusKind::good;
    }
    if (shot->scheduledAt)
        content.time =
            QString::fromStdString(dayAndTime(*shot->scheduledAt, store().now(), Zone::machine(), english));
    content.isHint = shot->description.empty();
    content.text = content.isHint ? text(u"添加画面与动作说明", u"Add image & action notes")
                                  : toQString(shot->description);
    content.cancelled = shot->cancelled;
    tile.setTitles(text(u"编辑分镜", u"Edit shot"), text(u"新 Take", u"New take"),
                   text(u"镜头操作", u"Shot actions"));
    tile.setContent(*shot, content, english);
}

bool ActView::fill() {
    const auto act = store().act(projectID, actID);
    if (!act)
        return false;
    fillTexts(*act);
    title->field().synchronize();
    QList<QByteArray> keys;
    keys.reserve(static_cast<qsizetype>(act->shots.size()));
    for (const auto& shot : act->shots)
        keys.append(rowKey(shot->id));
    empty->setVisible(keys.isEmpty());
    note->setVisible(!keys.isEmpty());
    const bool inGrid = mode.value() == 1;
    modes->setChosen(inGrid ? 1 : 0);
    sequence->setTexts(text(u"拍摄顺序", u"Shot sequence"), inGrid ? text(u"分镜视图", u"Storyboard view")
                                                                   : text(u"拖动可排序", u"Drag to reorder"));
    shots->setShots(keys, inGrid ? ShotSequence::Mode::grid : ShotSequence::Mode::list);
    return true;
}

void ActView::fillTexts(const Act& act) {
    const QString name = toQString(act.title);
    setAccessibleName(name);
    heading->setTexts(text(u"分镜工作台", u"Storyboard desk"), name,
                      text(u"按拍摄顺序编排，随时插镜与调整。",
                           u"Arrange the sequence. Insert or move a shot at any time."));
    add->setPlain(text(u"新增分镜", u"Add shot"));
    title->setCaption(text(u"幕名称", u"Act name"));
    progress->setPlain(text(u"%1 / %2 镜已完成", u"%1 / %2 shots complete")
                           .arg(act.completedCount())
                           .arg(act.activeCount()));
    line->setDone(static_cast<int>(act.completedCount()), static_cast<int>(act.activeCount()));
    modes->setName(text(u"拍摄顺序", u"Shot sequence"));
    modes->setTitles({text(u"清单", u"List"), text(u"网格", u"Grid")});
    removal->setTexts(
        text(u"删除这一幕…", u"Delete this act…"),
        text(u"删除这一幕及其镜头？可撤销。", u"Delete this act and its shots? This can be undone."));
    empty->setTexts(text(u"为这一幕添加第一镜", u"Add the first shot"),
                    text(u"先记录画面与动作，再决定拍摄时间。",
                         u"Start with the image and action, then schedule the shoot."));
    note->setPlain(text(u"镜号在调整顺序后保持不变。图片可点击放大。",
                        u"Reordering keeps shot codes unchanged. Click an image to enlarge."));
}

}  // namespace vantry
