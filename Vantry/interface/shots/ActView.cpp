#include "Vantry/interface/shots/ActView.h"

#include <functional>

#include "Vantry/app/QtText.h"
#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/Card.h"
#include "Vantry/interface/design/ControlText.h"
#include "Vantry/interface/design/EmptyViewCard.h"
#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/LabeledInput.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/PageColumn.h"
#include "Vantry/interface/design/RowList.h"
#include "Vantry/interface/design/WorkspaceHeading.h"
#include "Vantry/interface/pages/RecordRemoval.h"
#include "Vantry/interface/pages/RowKey.h"
#include "Vantry/interface/shots/ShotActions.h"
#include "Vantry/interface/shots/ShotTexts.h"

namespace vantry {

ActView::ActView(PageContext given, const Identifier& project, const Identifier& act, QWidget* parent)
    : RecordPage(std::move(given), parent)
    , projectID(project)
    , actID(act) {
    QWidget* body = column().body();
    heading = new WorkspaceHeading(2, body);
    add = new Button(Button::Kind::primary, Glyph::plus, heading);
    heading->actions().addWidget(add);
    auto* naming = new QWidget(body);
    title = new LabeledInput(naming);
    progress = new Label(VantryType::Role::caption, &Palette::muted, Label::Length::cut, naming);
    auto* line = new QHBoxLayout(naming);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(Metrics::gapSection);
    line->addWidget(title, 1);
    line->addWidget(progress, 1, Qt::AlignBottom);
    sequence = new Label(VantryType::Role::label, &Palette::ink, Label::Length::cut, body);
    sequence->setFont(VantryType::font(VantryType::Role::label, QFont::DemiBold));
    empty = new EmptyViewCard(Glyph::camera, body);
    shots = new RowList(body);
    for (QWidget* part : std::initializer_list<QWidget*>{heading, naming, sequence, empty, shots})
        column().content().addWidget(part);
    removal = makeRemoval(Route::project(projectID), [this] {
        store().updateProject(projectID, [this](Project& record) {
            std::erase_if(record.acts, [this](const auto& held) { return held->id == actID; });
        });
    });
    column().content().addWidget(&removal->button());
    column().content().addStretch();

    title->field().setBinding(binding(
        [this]() -> std::optional<Text> {
            const auto found = store().act(projectID, actID);
            return found ? std::optional(found->title) : std::nullopt;
        },
        [this](const Text& text) {
            store().updateAct(projectID, actID, [&](Act& record) { record.title = text; });
        }));
    connect(add, &Button::clicked, this, performing([this](bool) { addShot(); }));
    connect(shots, &RowList::activated, this, performing([this](const QByteArray& key) {
                if (const auto id = recordOf(key))
                    go(Route::shot(projectID, actID, *id));
            }));
    connect(shots, &RowList::menuWanted, this, performing([this](const QByteArray& key, QWidget* opener) {
                if (const auto id = recordOf(key))
                    showMenu(*id, *opener);
            }));
}

void ActView::addShot() const {
    if (store().acceptCreation(VantryCreationAction::shot(actID)))
        store().addShot(projectID, actID);
}

void ActView::showMenu(const Identifier& shotID, QWidget& opener) {
    const auto act = store().act(projectID, actID);
    const std::size_t index = act ? indexOfRecord(act->shots, shotID) : 0;
    if (!act || index == act->shots.size())
        return;
    const ShotPlace place{projectID, actID, shotID};
    auto* menu = new RowMenu(&opener);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [&](const QString& title, bool possible, const std::function<void()>& action) {
        QAction* entry = menu->addAction(controlText(title));
        entry->setEnabled(possible);
        connect(entry, &QAction::triggered, this, performing([action](bool) { action(); }));
    };
    const auto move = [this, place](std::int64_t offset) {
        store().markCheckpoint();
        store().moveShot(place.project, place.act, place.shot, offset);
    };
    add(text(u"上移", u"Move up"), index > 0, [move] { move(-1); });
    add(text(u"下移", u"Move down"), index + 1 < act->shots.size(), [move] { move(1); });
    add(text(u"在后面插镜", u"Insert shot after"), true, [this, place] { insertShotAfter(context, place); });
    const bool cancelled = act->shots[index]->cancelled;
    add(cancelled ? text(u"恢复镜头", u"Restore shot")
                  : text(u"取消拍摄（保留记录）", u"Cancel shot (keep records)"),
        true, [this, place, cancelled] { setCancelled(context, place, !cancelled); });
    menu->popup(opener.mapToGlobal(QPoint(0, opener.height())));
}

QString ActView::facts(const Shot& shot) const {
    QString state = text(u"待拍", u"To shoot");
    if (shot.cancelled)
        state = text(u"已取消", u"Cancelled");
    else if (shot.complete())
        state = QStringLiteral("✓ ") + text(u"已完成", u"Complete");
    return QStringLiteral("%1 Take · %2 ★ · ").arg(shot.takes.size()).arg(shot.maxStars()) + state;
}

bool ActView::fill() {
    const auto act = store().act(projectID, actID);
    if (!act)
        return false;
    fillTexts(*act);
    title->field().synchronize();
    QList<RowList::Row> rows;
    for (const auto& shot : act->shots) {
        const Glyph sign = shot->soundMode == SoundMode::roomTone ? Glyph::waveform : Glyph::camera;
        rows.append({rowKey(shot->id),
                     {sign, shotName(*shot), facts(*shot), shot->cancelled},
                     text(u"镜头操作", u"Shot actions")});
    }
    empty->setVisible(rows.isEmpty());
    sequence->setVisible(!rows.isEmpty());
    shots->setRows(rows);
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
    removal->setTexts(
        text(u"删除这一幕…", u"Delete this act…"),
        text(u"删除这一幕及其镜头？可撤销。", u"Delete this act and its shots? This can be undone."));
    sequence->setPlain(text(u"拍摄顺序", u"Shot sequence"));
    empty->setTexts(text(u"为这一幕添加第一镜", u"Add the first shot"),
                    text(u"先记录画面与动作，再决定拍摄时间。",
                         u"Start with the image and action, then schedule the shoot."));
}

}  // namespace vantry
