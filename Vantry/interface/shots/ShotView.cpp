#include "Vantry/interface/shots/ShotView.h"

#include <tuple>

#include <QFile>

#include "Vantry/app/FieldSettling.h"
#include "Vantry/app/QtText.h"
#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/Card.h"
#include "Vantry/interface/design/Compose.h"
#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/LabeledInput.h"
#include "Vantry/interface/design/PageColumn.h"
#include "Vantry/interface/design/RowList.h"
#include "Vantry/interface/design/SectionLabel.h"
#include "Vantry/interface/design/StatusPill.h"
#include "Vantry/interface/design/VantryDisclosure.h"
#include "Vantry/interface/design/WorkspaceHeading.h"
#include "Vantry/interface/pages/PanelOperation.h"
#include "Vantry/interface/pages/RecordRemoval.h"
#include "Vantry/interface/pages/RowKey.h"
#include "Vantry/interface/shots/DrawingSheet.h"
#include "Vantry/interface/shots/NewTake.h"
#include "Vantry/interface/shots/NewTakeButton.h"
#include "Vantry/interface/shots/ParametersEditor.h"
#include "Vantry/interface/shots/ScheduleFields.h"
#include "Vantry/interface/shots/ShotActions.h"
#include "Vantry/interface/shots/ShotBrief.h"
#include "Vantry/interface/shots/ShotFrameCard.h"
#include "Vantry/interface/shots/ShotNavigation.h"
#include "Vantry/interface/shots/ShotPlanLayout.h"
#include "Vantry/interface/shots/ShotTexts.h"
#include "Vantry/interface/shots/SoundPicker.h"
#include "Vantry/interface/shots/TakeRow.h"

namespace vantry {

ShotView::ShotView(PageContext given, const Identifier& project, const Identifier& act,
                   const Identifier& shot, QWidget* parent)
    : RecordPage(std::move(given), parent)
    , projectID(project)
    , actID(act)
    , shotID(shot)
    , parametersOpen(*this, "shot-parameters")
    , heading(new WorkspaceHeading(2))
    , navigation(new ShotNavigation(context, projectID, shotID))
    , cancelled(new StatusPill(StatusKind::warning))
    , retained(new StatusPill(StatusKind::warning))
    , frame(new ShotFrameCard(store()))
    , importing(new PanelOperation(store(), *this))
    , brief(new ShotBrief([this](Text Shot::*member) { return bind(member); }))
    , schedule(new ScheduleFields(context, projectID, actID, shotID)) {
    makeHeading();
    auto& content = column().content();
    for (QWidget* part :
         std::initializer_list<QWidget*>{heading, leading(cancelled), leading(retained), makePlan(), schedule,
                                         makeParameters(), makeTakes(), makeActions()})
        content.addWidget(part);
    content.addStretch();
    connect(frame, &ShotFrameCard::importWanted, this,
            [this] { importing->start([this] { store().importImage(projectID, actID, shotID); }); });
    connect(frame, &ShotFrameCard::imageDropped, this, performing([this](const QString& path) {
                store().importImageFile(projectID, actID, shotID, QFile::encodeName(path).toStdString());
            }));
    connect(frame, &ShotFrameCard::drawWanted, this, performing([this] { draw(); }));
    connect(frame, &ShotFrameCard::removeWanted, this, performing([this] { removeImage(); }));
}

void ShotView::makeHeading() {
    heading->actions().addWidget(navigation);
    newTake = makeNewTakeButton(*heading, performing([this](AfterNewTake keyboard) {
        startNewTake(context, projectID, actID, shotID, keyboard);
    }));
    connect(heading, &WorkspaceHeading::narrowChanged, navigation, &ShotNavigation::setCompact);
}

QWidget* ShotView::makePlan() {
    auto* plan = new QWidget;
    auto* layout = new ShotPlanLayout(Metrics::gapSection, Metrics::columnsFrom, plan);
    for (QWidget* part : std::initializer_list<QWidget*>{frame, brief, makeSound()})
        layout->addWidget(part);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    plan->setSizePolicy(policy);
    return plan;
}

QWidget* ShotView::makeSound() {
    sound = new Card;
    mode = new SoundPicker;
    soundDescription = new LabeledInput;
    sound->content().addWidget(mode);
    sound->content().addWidget(soundDescription);
    sound->content().addStretch();
    soundDescription->field().setBinding(bind(&Shot::soundDescription));
    connect(mode, &SoundPicker::chosen, this,
            performing([this](SoundMode chosen) { change([&](Shot& shot) { shot.soundMode = chosen; }); }));
    return sound;
}

QWidget* ShotView::makeParameterFields() {
    parameterFields =
        new ParametersEditor(context, {[this]() -> std::optional<Parameters> {
                                           const auto shot = store().shot(projectID, actID, shotID);
                                           return shot ? std::optional(shot->parameters) : std::nullopt;
                                       },
                                       [this](std::string_view key, const Text& value) {
                                           change([&](Shot& shot) { shot.parameters.set(key, value); });
                                       }});
    parameterFields->refresh();
    return parameterFields;
}

QWidget* ShotView::makeParameters() {
    parameters = new VantryDisclosure(Glyph::sliders);
    parameters->setMaker([this] { return makeParameterFields(); });
    parameters->setBinding(
        {[this] { return parametersOpen.value(); }, [this](bool open) { parametersOpen.setValue(open); }});
    return parameters;
}

QWidget* ShotView::makeTakes() {
    takesTitle = new WorkspaceSection;
    noTakesText = new Label(VantryType::Role::label, &Palette::muted, Label::Length::wrapped);
    noTakesText->setFont(VantryType::font(VantryType::Role::label, QFont::Normal));
    firstTake = new Button(Button::Kind::quiet, Glyph::plus);
    firstTake->setPressedOnce();
    noTakes = ::vantry::column(Metrics::gapField, {noTakesText, leading(firstTake)});
    takes = new ListCard(
        Metrics::takeRowHeight,
        [this](const QByteArray& key, QWidget* holder) {
            auto* row = new TakeRow(holder);
            connect(row, &TakeRow::clicked, this, performing([this, key](bool) {
                        if (const auto id = recordOf(key))
                            go(Route::take(projectID, actID, shotID, *id));
                    }));
            return row;
        },
        [this](QWidget& row, const QByteArray& key) { fillTake(row, key); });
    startTakeBy(*firstTake, performing([this](AfterNewTake keyboard) {
        startNewTake(context, projectID, actID, shotID, keyboard);
    }));
    return ::vantry::column(Metrics::gapField, {takesTitle, noTakes, takes});
}

QWidget* ShotView::makeActions() {
    actionsTitle = new WorkspaceSection;
    insert = new Button(Button::Kind::quiet, Glyph::plus);
    cancel = new Button(Button::Kind::quiet);
    removal = makeRemoval(Route::act(projectID, actID), [this] {
        store().updateAct(projectID, actID, [this](Act& record) {
            std::erase_if(record.shots, [this](const auto& shot) { return shot->id == shotID; });
        });
    });
    auto* buttons = new QWidget;
    auto* row = new QHBoxLayout(buttons);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Metrics::gapInline);
    for (Button* button : {insert, cancel}) {
        button->setPressedOnce();
        row->addWidget(button);
    }
    row->addStretch();
    row->addWidget(&removal->button());
    connect(insert, &Button::clicked, this, performing([this](bool) {
                insertShotAfter(context, {projectID, actID, shotID});
            }));
    connect(cancel, &Button::clicked, this, performing([this](bool) {
                if (const auto shot = store().shot(projectID, actID, shotID))
                    setCancelled(context, {projectID, actID, shotID}, !shot->cancelled);
            }));
    return ::vantry::column(Metrics::gapField, {actionsTitle, buttons});
}

TextBinding ShotView::bind(Text Shot::*member) const {
    return binding(
        [this, member]() -> std::optional<Text> {
            const auto shot = store().shot(projectID, actID, shotID);
            return shot ? std::optional((*shot).*member) : std::nullopt;
        },
        [this, member](const Text& text) { change([&](Shot& shot) { shot.*member = text; }); });
}

void ShotView::change(const std::function<void(Shot&)>& change) const {
    store().updateShot(projectID, actID, shotID, change);
}

void ShotView::draw() {
    settleField();
    if (drawing == nullptr)
        drawing = new DrawingSheet(store(), this);
    if (const auto shot = store().shot(projectID, actID, shotID))
        drawing->present(*shot, [this](const std::vector<Stroke>& strokes) {
            perform([&] { change([&](Shot& held) { held.strokes = strokes; }); });
        });
}

void ShotView::removeImage() const {
    store().markCheckpoint();
    change([](Shot& shot) {
        shot.imageKey.reset();
        shot.strokes.clear();
    });
}

bool ShotView::fill() {
    const auto act = store().act(projectID, actID);
    const auto shot = store().shot(projectID, actID, shotID);
    if (!act || !shot)
        return false;
    fillTexts(*act, *shot);
    navigation->refresh();
    newTake->setEnabled(!shot->cancelled);
    cancelled->parentWidget()->setVisible(shot->cancelled);
    retained->parentWidget()->setVisible(shot->conflictKey.has_value());
    const bool english = store().english();
    frame->refresh(*shot, english);
    brief->refresh(english);
    mode->fill(shot->soundMode, english);
    soundDescription->field().synchronize();
    schedule->refresh();
    parameters->synchronize();
    if (parameterFields != nullptr)
        parameterFields->refresh();
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
    sound->setTitle(text(u"声音计划", u"Sound plan"));
    soundDescription->setCaption(text(u"声音", u"Sound"));
    parameters->setTexts(text(u"镜头、相机与录制参数", u"Lens, camera & recording"),
                         text(u"点击填写或查看", u"Open to view or edit"), store().english());
    takesTitle->setTexts(text(u"现场 Take", u"Recorded takes"));
    noTakesText->setPlain(text(u"准备好开拍后，新建第一条 Take。笔记和素材名逐条记录。",
                               u"When you are ready, start the first take. Notes and media names are "
                               u"recorded separately for each take."));
    firstTake->setPlain(text(u"新 Take", u"New take"));
}

void ShotView::fillActions(const Shot& shot) {
    actionsTitle->setTexts(text(u"镜头操作", u"Shot actions"));
    insert->setPlain(text(u"在本镜后插镜", u"Insert shot after"));
    cancel->setPlain(shot.cancelled ? text(u"恢复拍摄", u"Restore shot")
                                    : text(u"取消本镜（保留记录）", u"Cancel shot (keep records)"));
    removal->setTexts(
        text(u"删除镜头…", u"Delete shot…"),
        text(u"删除镜头及其 Take？可撤销。", u"Delete this shot and its takes? This can be undone."));
}

void ShotView::fillTakes(const Shot& shot) {
    QList<QByteArray> keys;
    for (const auto& take : shot.takes)
        keys.append(rowKey(take->id));
    noTakes->setVisible(keys.isEmpty());
    firstTake->setEnabled(!shot.cancelled);
    takes->setVisible(!keys.isEmpty());
    takes->setKeys(std::move(keys));
}

void ShotView::fillTake(QWidget& row, const QByteArray& key) const {
    const auto id = recordOf(key);
    const auto take = id ? store().take(projectID, actID, shotID, *id) : nullptr;
    if (!take)
        return;
    TakeRow::Content content;
    content.name = takeName(*take);
    content.result = resultWord(take->result, store().english());
    std::tie(content.sign, content.colour) = resultSign(take->result);
    content.stars = starsText(take->stars);
    content.notes = firstLineOf(take->notes);
    content.isHint = content.notes.isEmpty();
    if (content.isHint)
        content.notes = text(u"还没有现场笔记", u"No on-set notes");
    if (take->conflictKey)
        content.mark = text(u"保留版本", u"Retained version");
    static_cast<TakeRow&>(row).setContent(content);
}

}  // namespace vantry
