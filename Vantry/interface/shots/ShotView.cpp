#include "Vantry/interface/shots/ShotView.h"

#include "Vantry/app/Composition.h"
#include "Vantry/app/QtText.h"
#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/Card.h"
#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/LabeledInput.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/PageColumn.h"
#include "Vantry/interface/design/ParagraphEditor.h"
#include "Vantry/interface/design/RowList.h"
#include "Vantry/interface/design/VantryWorkLayout.h"
#include "Vantry/interface/design/WorkspaceHeading.h"
#include "Vantry/interface/pages/RecordRemoval.h"
#include "Vantry/interface/pages/RowKey.h"
#include "Vantry/interface/shots/NewTake.h"
#include "Vantry/interface/shots/NewTakeButton.h"
#include "Vantry/interface/shots/ShotActions.h"
#include "Vantry/interface/shots/ShotTexts.h"
#include "Vantry/interface/shots/SoundPicker.h"
#include "Vantry/interface/shots/StoryboardImage.h"

namespace vantry {

ShotView::ShotView(PageContext given, const Identifier& project, const Identifier& act,
                   const Identifier& shot, QWidget* parent)
    : RecordPage(std::move(given), parent)
    , projectID(project)
    , actID(act)
    , shotID(shot) {
    QWidget* body = column().body();
    heading = new WorkspaceHeading(2, body);
    newTake =
        makeNewTakeButton(*heading, performing([this] { startNewTake(context, projectID, actID, shotID); }));
    cancelled = new Label(VantryType::Role::label, &Palette::warning, Label::Length::wrapped, body);
    retained = new Label(VantryType::Role::label, &Palette::warning, Label::Length::wrapped, body);
    auto* plan = new QWidget(body);
    auto* parts = new VantryWorkLayout(Metrics::sideWidth, Metrics::gapSection, plan);
    parts->addWidget(makeBrief(plan));
    auto* side = new QWidget(plan);
    auto* cards = new QVBoxLayout(side);
    cards->setContentsMargins(0, 0, 0, 0);
    cards->setSpacing(Metrics::gapSection);
    cards->addWidget(makeFrame(side));
    cards->addWidget(makeSound(side));
    parts->addWidget(side);
    for (QWidget* part : std::initializer_list<QWidget*>{heading, cancelled, retained, plan})
        column().content().addWidget(part);
    makeTakes(body);
    makeActions(body);
    column().content().addStretch();
}

QWidget* ShotView::makeBrief(QWidget* parent) {
    brief = new Card(parent);
    code = new LabeledInput(brief);
    title = new LabeledInput(brief);
    description = new ParagraphField(Metrics::notesHeight, brief);
    framing = new LabeledInput(brief);
    movement = new LabeledInput(brief);
    auto* naming = new QHBoxLayout;
    naming->setSpacing(Metrics::gapCard);
    naming->addWidget(code, 1);
    naming->addWidget(title, 3);
    auto* picture = new QHBoxLayout;
    picture->setSpacing(Metrics::gapCard);
    picture->addWidget(framing, 1);
    picture->addWidget(movement, 1);
    brief->content().addLayout(naming);
    brief->content().addWidget(description, 1);
    brief->content().addLayout(picture);
    code->field().setBinding(bind(&Shot::code));
    title->field().setBinding(bind(&Shot::title));
    description->editor().setBinding(bind(&Shot::description));
    framing->field().setBinding(bind(&Shot::framing));
    movement->field().setBinding(bind(&Shot::movement));
    return brief;
}

QWidget* ShotView::makeFrame(QWidget* parent) {
    frame = new Card(parent);
    image = new StoryboardImage(store(), frame);
    importImage = new Button(Button::Kind::quiet, Glyph::photo, frame);
    removeImage = new Button(Button::Kind::destructive, Glyph::trash, frame);
    for (Button* button : {importImage, removeImage})
        button->setPressedOnce();
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(Metrics::gapInline);
    buttons->addWidget(importImage);
    buttons->addStretch();
    buttons->addWidget(removeImage);
    frame->content().addWidget(image);
    frame->content().addLayout(buttons);
    connect(importImage, &Button::clicked, this, performing([this](bool) {
                commitComposition();
                store().importImage(projectID, actID, shotID);
            }));
    connect(removeImage, &Button::clicked, this, performing([this](bool) {
                store().markCheckpoint();
                store().updateShot(projectID, actID, shotID, [](Shot& shot) {
                    shot.imageKey.reset();
                    shot.strokes.clear();
                });
            }));
    return frame;
}

QWidget* ShotView::makeSound(QWidget* parent) {
    sound = new Card(parent);
    mode = new SoundPicker(sound);
    soundDescription = new LabeledInput(sound);
    sound->content().addWidget(mode);
    sound->content().addWidget(soundDescription);
    soundDescription->field().setBinding(bind(&Shot::soundDescription));
    connect(mode, &SoundPicker::chosen, this, performing([this](SoundMode chosen) {
                store().updateShot(projectID, actID, shotID, [&](Shot& shot) { shot.soundMode = chosen; });
            }));
    return sound;
}

void ShotView::makeTakes(QWidget* body) {
    takesTitle = new Label(VantryType::Role::heading, &Palette::ink, Label::Length::cut, body);
    noTakes = new Label(VantryType::Role::label, &Palette::muted, Label::Length::wrapped, body);
    takes = new RowList(body);
    for (QWidget* part : std::initializer_list<QWidget*>{takesTitle, noTakes, takes})
        column().content().addWidget(part);
    connect(takes, &RowList::activated, this, performing([this](const QByteArray& key) {
                if (const auto id = recordOf(key))
                    go(Route::take(projectID, actID, shotID, *id));
            }));
}

void ShotView::makeActions(QWidget* body) {
    actionsTitle = new Label(VantryType::Role::heading, &Palette::ink, Label::Length::cut, body);
    column().content().addWidget(actionsTitle);
    insert = new Button(Button::Kind::quiet, Glyph::plus, body);
    cancel = new Button(Button::Kind::quiet, Glyph::none, body);
    cancel->setPressedOnce();
    removal = makeRemoval(Route::act(projectID, actID), [this] {
        store().updateAct(projectID, actID, [this](Act& act) {
            std::erase_if(act.shots, [this](const auto& shot) { return shot->id == shotID; });
        });
    });
    auto* row = new QHBoxLayout;
    row->setSpacing(Metrics::gapInline);
    row->addWidget(insert);
    row->addWidget(cancel);
    row->addStretch();
    row->addWidget(&removal->button());
    column().content().addLayout(row);
    connect(insert, &Button::clicked, this, performing([this](bool) {
                insertShotAfter(context, {projectID, actID, shotID});
            }));
    connect(cancel, &Button::clicked, this, performing([this](bool) {
                if (const auto shot = store().shot(projectID, actID, shotID))
                    setCancelled(context, {projectID, actID, shotID}, !shot->cancelled);
            }));
}

TextBinding ShotView::bind(Text Shot::*member) const {
    return binding(
        [this, member]() -> std::optional<Text> {
            const auto shot = store().shot(projectID, actID, shotID);
            return shot ? std::optional((*shot).*member) : std::nullopt;
        },
        [this, member](const Text& text) {
            store().updateShot(projectID, actID, shotID, [&](Shot& shot) { shot.*member = text; });
        });
}

bool ShotView::fill() {
    const auto act = store().act(projectID, actID);
    const auto shot = store().shot(projectID, actID, shotID);
    if (!act || !shot)
        return false;
    fillTexts(*act, *shot);
    for (LabeledInput* field : {code, title, framing, movement, soundDescription})
        field->field().synchronize();
    description->editor().synchronize();
    mode->fill(shot->soundMode, store().english());
    newTake->setEnabled(!shot->cancelled);
    cancelled->setVisible(shot->cancelled);
    retained->setVisible(shot->conflictKey.has_value());
    fillFrame(*shot);
    fillTakes(*shot);
    fillActions(*shot);
    return true;
}

void ShotView::fillTexts(const Act& act, const Shot& shot) {
    setAccessibleName(shotName(shot));
    heading->setTexts(text(u"分镜计划 · ", u"Shot plan · ") + toQString(act.title), shotName(shot), {});
    newTake->setPlain(text(u"新 Take · ⌘ Return", u"New take · ⌘ Return"));
    cancelled->setPlain(text(u"本镜已取消拍摄 · 记录仍保留", u"Shoot cancelled · Records retained"));
    retained->setPlain(text(u"保留版本", u"Retained version"));
    brief->setTitle(text(u"分镜内容", u"Shot brief"));
    code->setCaption(text(u"镜号", u"Code"));
    title->setCaption(text(u"标题", u"Title"));
    description->setTitle(text(u"画面与动作", u"Image & action"));
    framing->setCaption(text(u"景别", u"Framing"));
    movement->setCaption(text(u"机位 / 运动", u"Position / movement"));
    sound->setTitle(text(u"声音计划", u"Sound plan"));
    soundDescription->setCaption(text(u"声音", u"Sound"));
    takesTitle->setPlain(text(u"现场 Take", u"Recorded takes"));
    noTakes->setPlain(text(u"准备好开拍后，新建第一条 Take。笔记和素材名逐条记录。",
                           u"When you are ready, start the first take. Notes and media names are recorded "
                           u"separately for each take."));
}

void ShotView::fillFrame(const Shot& shot) {
    frame->setTitle(text(u"画面", u"Frame"));
    image->fill(shot, shotName(shot), text(u"导入图片或绘制分镜", u"Import or draw a storyboard"));
    importImage->setPlain(text(u"导入", u"Import"));
    removeImage->setPlain(text(u"移除图片", u"Remove image"));
    removeImage->setEnabled(shot.imageKey || !shot.strokes.empty());
}

void ShotView::fillActions(const Shot& shot) {
    actionsTitle->setPlain(text(u"镜头操作", u"Shot actions"));
    insert->setPlain(text(u"在本镜后插镜", u"Insert shot after"));
    cancel->setPlain(shot.cancelled ? text(u"恢复拍摄", u"Restore shot")
                                    : text(u"取消本镜（保留记录）", u"Cancel shot (keep records)"));
    removal->setTexts(
        text(u"删除镜头…", u"Delete shot…"),
        text(u"删除镜头及其 Take？可撤销。", u"Delete this shot and its takes? This can be undone."));
}

void ShotView::fillTakes(const Shot& shot) {
    QList<RowList::Row> rows;
    for (const auto& take : shot.takes) {
        const QString firstLine = firstLineOf(take->notes);
        QString detail = resultWord(take->result, store().english());
        detail += QStringLiteral(" · %1 ★ · ").arg(take->stars);
        detail += firstLine.isEmpty() ? text(u"还没有现场笔记", u"No on-set notes") : firstLine;
        if (take->conflictKey)
            detail += text(u" · 保留版本", u" · Retained version");
        rows.append({rowKey(take->id), {Glyph::document, takeName(*take), detail, false}});
    }
    noTakes->setVisible(rows.isEmpty());
    takes->setRows(rows);
}

}  // namespace vantry
