#include "Vantry/interface/shots/TakeView.h"

#include <algorithm>

#include "Vantry/app/QtText.h"
#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/Compose.h"
#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/PageColumn.h"
#include "Vantry/interface/design/ParagraphEditor.h"
#include "Vantry/interface/design/StatusPill.h"
#include "Vantry/interface/design/VantryDisclosure.h"
#include "Vantry/interface/design/WorkspaceHeading.h"
#include "Vantry/interface/pages/RecordRemoval.h"
#include "Vantry/interface/shots/NewTake.h"
#include "Vantry/interface/shots/NewTakeButton.h"
#include "Vantry/interface/shots/ParametersEditor.h"
#include "Vantry/interface/shots/ShotNavigation.h"
#include "Vantry/interface/shots/ShotTexts.h"
#include "Vantry/interface/shots/TakeLayout.h"
#include "Vantry/interface/shots/TakeMedia.h"
#include "Vantry/interface/shots/TakeReference.h"
#include "Vantry/interface/shots/TakeResultBar.h"

namespace vantry {

TakeView::TakeView(PageContext given, const Identifier& project, const Identifier& act,
                   const Identifier& shot, const Identifier& take, QWidget* parent)
    : RecordPage(std::move(given), parent)
    , projectID(project)
    , actID(act)
    , shotID(shot)
    , takeID(take)
    , parametersOpen(*this, "take-parameters")
    , heading(new WorkspaceHeading(2))
    , navigation(new ShotNavigation(context, projectID, shotID))
    , retained(new StatusPill(StatusKind::warning))
    , result(new TakeResultBar)
    , reference(new TakeReference(store()))
    , media(new TakeMedia([this](Text VantryTake::*member) { return bind(member); })) {
    makeHeading();
    auto* desk = new QWidget;
    auto* parts = new TakeLayout(desk);
    for (QWidget* part :
         std::initializer_list<QWidget*>{reference, result, makeNotes(), media, makeParameters(), makeFoot()})
        parts->addWidget(part);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    desk->setSizePolicy(policy);
    auto& content = column().content();
    content.setSpacing(Metrics::gapBlock);
    for (QWidget* part : std::initializer_list<QWidget*>{heading, leading(retained), desk})
        content.addWidget(part);
    content.addStretch();
    connectParts();
}

void TakeView::makeHeading() {
    heading->actions().addWidget(navigation);
    newTake = makeNewTakeButton(*heading, performing([this](AfterNewTake keyboard) {
        // The next take begins with what is being entered here.
        if (parameterFields != nullptr && parameterFields->isAncestorOf(focusWidget()))
            recordDefaults();
        startNewTake(context, projectID, actID, shotID, keyboard);
    }));
    connect(heading, &WorkspaceHeading::narrowChanged, navigation, &ShotNavigation::setCompact);
}

QWidget* TakeView::makeNotes() {
    notes = new ParagraphField(Metrics::editorHeight);
    notesHint = new Label(VantryType::Role::caption, &Palette::muted, Label::Length::wrapped);
    notes->editor().setBinding(bind(&VantryTake::notes));
    return ::vantry::column(Metrics::gapInline, {notes, notesHint});
}

QWidget* TakeView::makeParameterFields() {
    parameterFields = new ParametersEditor(
        context, {[this]() -> std::optional<Parameters> {
                      const auto take = store().take(projectID, actID, shotID, takeID);
                      return take ? std::optional(take->parameters) : std::nullopt;
                  },
                  [this](std::string_view key, const Text& value) {
                      changeTake([&](VantryTake& take) { take.parameters.set(key, value); });
                  }});
    connect(parameterFields, &ParametersEditor::finished, this, performing([this] { recordDefaults(); }));
    parameterFields->refresh();
    return parameterFields;
}

QWidget* TakeView::makeParameters() {
    parameters = new VantryDisclosure(Glyph::sliders);
    parameters->setMaker([this] { return makeParameterFields(); });
    parameters->setBinding(
        {[this] { return parametersOpen.value(); }, [this](bool open) { parametersOpen.setValue(open); }});
    return parameters;
}

QWidget* TakeView::makeFoot() {
    back = new Button(Button::Kind::quiet, Glyph::chevronLeft);
    next = new Button(Button::Kind::quiet);
    next->setTrailing(Glyph::chevronRight);
    removal = makeRemoval(Route::shot(projectID, actID, shotID), [this] {
        store().updateShot(projectID, actID, shotID, [this](Shot& record) {
            std::erase_if(record.takes, [this](const auto& take) { return take->id == takeID; });
        });
    });
    auto* foot = new QWidget;
    auto* row = new QHBoxLayout(foot);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Metrics::gapInline);
    for (Button* button : {back, next}) {
        button->setPressedOnce();
        row->addWidget(button);
    }
    row->addStretch();
    row->addWidget(&removal->button());
    return foot;
}

void TakeView::connectParts() {
    const Route shot = Route::shot(projectID, actID, shotID);
    connect(result, &TakeResultBar::resultChosen, this, performing([this](TakeResult chosen) {
                changeTake([&](VantryTake& take) { take.result = chosen; });
            }));
    connect(result, &TakeResultBar::starPressed, this, performing([this](int number) {
                changeTake([&](VantryTake& take) { take.stars = take.stars == number ? 0 : number; });
            }));
    connect(media, &TakeMedia::modeChosen, this, performing([this](SoundMode chosen) {
                store().updateShot(projectID, actID, shotID,
                                   [&](Shot& record) { record.setSoundMode(chosen, takeID); });
            }));
    connect(reference, &TakeReference::planWanted, this, performing([this, shot] { go(shot); }));
    connect(back, &Button::clicked, this, performing([this, shot](bool) { go(shot); }));
    connect(next, &Button::clicked, this, performing([this](bool) { navigation->goToNeighbor(1); }));
}

TextBinding TakeView::bind(Text VantryTake::*member) const {
    return binding(
        [this, member]() -> std::optional<Text> {
            const auto take = store().take(projectID, actID, shotID, takeID);
            return take ? std::optional((*take).*member) : std::nullopt;
        },
        [this, member](const Text& text) { changeTake([&](VantryTake& take) { take.*member = text; }); });
}

void TakeView::changeTake(const std::function<void(VantryTake&)>& change) const {
    store().updateTake(projectID, actID, shotID, takeID, change);
}

void TakeView::recordDefaults() const {
    if (const auto take = store().take(projectID, actID, shotID, takeID))
        store().recordDefaults(projectID, take->parameters);
}

void TakeView::beginWriting() {
    notes->editor().setFocus(Qt::OtherFocusReason);
}

void TakeView::resizeEvent(QResizeEvent* event) {
    RecordPage::resizeEvent(event);
    fitNotes();
}

/// The notes take the height that the rest of the page leaves, whether its panels are open or not.
void TakeView::fitNotes() {
    const int around = Metrics::aroundNotes + (retained->parentWidget()->isHidden() ? 0 : Metrics::gapBlock);
    const int editor = std::max(height() - around, Metrics::editorHeight);
    notes->setFixedHeight(notes->titleHeight() + editor);
}

bool TakeView::fill() {
    const auto shot = store().shot(projectID, actID, shotID);
    const auto take = store().take(projectID, actID, shotID, takeID);
    if (!shot || !take)
        return false;
    fillTexts(*shot, *take);
    navigation->refresh();
    newTake->setEnabled(!shot->cancelled);
    next->setEnabled(navigation->hasNext());
    retained->parentWidget()->setVisible(take->conflictKey.has_value());
    fitNotes();
    const bool english = store().english();
    result->refresh(*take, english);
    notes->editor().synchronize();
    reference->refresh(*shot, english);
    media->refresh(*take, english);
    parameters->synchronize();
    if (parameterFields != nullptr)
        parameterFields->refresh();
    return true;
}

void TakeView::fillTexts(const Shot& shot, const VantryTake& take) {
    setAccessibleName(takeName(take));
    heading->setTexts(text(u"现场记录 · ", u"On set · ") + toQString(shot.code), takeName(take),
                      toQString(shot.title));
    newTake->setPlain(text(u"新 Take · ⌘ Return", u"New take · ⌘ Return"));
    retained->setPlain(
        text(u"合并保留的不同版本 · 原记录未覆盖", u"Retained merge version · Original unchanged"));
    notes->setTitle(text(u"现场笔记 · 自由输入", u"On-set notes · write freely"));
    notesHint->setPlain(text(u"回车换段，随时补充表演、焦点或声音情况。",
                             u"Return starts a paragraph. Record performance, focus or sound as you go."));
    parameters->setTexts(text(u"相机、镜头、录制与监视", u"Camera, lens, recording & monitoring"),
                         text(u"点击填写或查看", u"Open to view or edit"), store().english());
    back->setPlain(text(u"返回镜头", u"Back to shot"));
    next->setPlain(text(u"下一镜", u"Next shot"));
    removal->setTexts(text(u"删除本条…", u"Delete take…"),
                      text(u"删除这条 Take？可撤销。", u"Delete this take? This can be undone."));
}

}  // namespace vantry
