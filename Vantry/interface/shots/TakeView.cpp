#include "Vantry/interface/shots/TakeView.h"

#include "Vantry/app/QtText.h"
#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/Card.h"
#include "Vantry/interface/design/ControlText.h"
#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/LabeledInput.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/PageColumn.h"
#include "Vantry/interface/design/ParagraphEditor.h"
#include "Vantry/interface/design/SegmentedChoice.h"
#include "Vantry/interface/design/StarRating.h"
#include "Vantry/interface/design/VantryWorkLayout.h"
#include "Vantry/interface/design/WorkspaceHeading.h"
#include "Vantry/interface/pages/RecordRemoval.h"
#include "Vantry/interface/shots/NewTake.h"
#include "Vantry/interface/shots/NewTakeButton.h"
#include "Vantry/interface/shots/ShotTexts.h"
#include "Vantry/interface/shots/SoundPicker.h"

namespace vantry {

TakeView::TakeView(PageContext given, const Identifier& project, const Identifier& act,
                   const Identifier& shot, const Identifier& take, QWidget* parent)
    : RecordPage(std::move(given), parent)
    , projectID(project)
    , actID(act)
    , shotID(shot)
    , takeID(take) {
    QWidget* body = column().body();
    heading = new WorkspaceHeading(2, body);
    newTake =
        makeNewTakeButton(*heading, performing([this] { startNewTake(context, projectID, actID, shotID); }));
    retained = new Label(VantryType::Role::label, &Palette::warning, Label::Length::wrapped, body);
    auto* desk = new QWidget(body);
    auto* parts = new VantryWorkLayout(Metrics::sideWidth, Metrics::gapSection, desk);
    parts->addWidget(makeLog(desk));
    parts->addWidget(makeMedia(desk));
    column().content().addWidget(heading);
    column().content().addWidget(retained);
    column().content().addWidget(desk, 1);
    makeFoot(body);
}

void TakeView::makeFoot(QWidget* body) {
    const Route shot = Route::shot(projectID, actID, shotID);
    back = new Button(Button::Kind::quiet, Glyph::chevronLeft, body);
    removal = makeRemoval(shot, [this] {
        store().updateShot(projectID, actID, shotID, [this](Shot& record) {
            std::erase_if(record.takes, [this](const auto& take) { return take->id == takeID; });
        });
    });
    auto* row = new QHBoxLayout;
    row->addWidget(back);
    row->addStretch();
    row->addWidget(&removal->button());
    column().content().addLayout(row);
    connect(back, &Button::clicked, this, performing([this, shot](bool) { go(shot); }));
}

QWidget* TakeView::makeLog(QWidget* parent) {
    auto* log = new QWidget(parent);
    auto* lines = new QVBoxLayout(log);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(Metrics::gapBlock);
    lines->addWidget(makeResultBar(log));
    auto* writing = new QVBoxLayout;
    writing->setSpacing(Metrics::gapInline);
    notes = new ParagraphField(Metrics::editorHeight, log);
    notesHint = new Label(VantryType::Role::caption, &Palette::muted, Label::Length::wrapped, log);
    writing->addWidget(notes, 1);
    writing->addWidget(notesHint);
    lines->addLayout(writing, 1);
    notes->editor().setBinding(bind(&VantryTake::notes));
    return log;
}

QWidget* TakeView::makeResultBar(QWidget* parent) {
    auto* bar = new QWidget(parent);
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Metrics::gapField);
    const auto block = [&](Label*& title, QWidget* control) {
        title = new Label(VantryType::Role::caption, &Palette::muted, Label::Length::cut, bar);
        title->stackUnder(control);
        auto* lines = new QVBoxLayout;
        lines->setSpacing(Metrics::gapInline);
        lines->addWidget(title);
        lines->addWidget(control);
        row->addLayout(lines);
    };
    // In the order of the verdicts.
    const QList<Segment::Look> looks{{Glyph::dashedCircle, nullptr, &Palette::warning},
                                     {Glyph::check, &Palette::completed, nullptr},
                                     {Glyph::cross, &Palette::danger, nullptr}};
    result = new SegmentedChoice(looks, SegmentedChoice::Size::large, bar);
    block(resultTitle, result);
    row->addStretch();
    stars = new StarRating(bar);
    block(ratingTitle, stars);
    connect(result, &SegmentedChoice::chosen, this, performing([this](int index) {
                changeTake([&](VantryTake& take) { take.result = static_cast<TakeResult>(index); });
            }));
    connect(stars, &StarRating::pressed, this, performing([this](int number) {
                changeTake([&](VantryTake& take) { take.stars = take.stars == number ? 0 : number; });
            }));
    return bar;
}

QWidget* TakeView::makeMedia(QWidget* parent) {
    media = new Card(parent);
    mode = new SoundPicker(media);
    cameraFile = new ParagraphField(Metrics::namesHeight, media);
    mixerFile = new LabeledInput(media);
    soundNumber = new Label(VantryType::Role::caption, &Palette::muted, Label::Length::cut, media);
    kept = new Label(VantryType::Role::caption, &Palette::warning, Label::Length::wrapped, media);
    for (QWidget* part : std::initializer_list<QWidget*>{mode, cameraFile, mixerFile, soundNumber, kept})
        media->content().addWidget(part);
    cameraFile->editor().setBinding(bind(&VantryTake::cameraFile));
    mixerFile->field().setBinding(bind(&VantryTake::mixerFile));
    connect(&cameraFile->editor(), &ParagraphEditor::focusChanged, this, [this] { fillCameraTitle(); });
    connect(mode, &SoundPicker::chosen, this, performing([this](SoundMode chosen) {
                store().updateShot(projectID, actID, shotID,
                                   [&](Shot& shot) { shot.setSoundMode(chosen, takeID); });
            }));
    return media;
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

bool TakeView::fill() {
    const auto shot = store().shot(projectID, actID, shotID);
    const auto take = store().take(projectID, actID, shotID, takeID);
    if (!shot || !take)
        return false;
    setAccessibleName(takeName(*take));
    heading->setTexts(text(u"现场记录 · ", u"On set · ") + toQString(shot->code), takeName(*take),
                      toQString(shot->title));
    newTake->setPlain(text(u"新 Take · ⌘ Return", u"New take · ⌘ Return"));
    newTake->setEnabled(!shot->cancelled);
    retained->setPlain(
        text(u"合并保留的不同版本 · 原记录未覆盖", u"Retained merge version · Original unchanged"));
    retained->setVisible(take->conflictKey.has_value());
    fillResultBar(*take);
    notes->setTitle(text(u"现场笔记 · 自由输入", u"On-set notes · write freely"));
    notes->editor().synchronize();
    notesHint->setPlain(text(u"回车换段，随时补充表演、焦点或声音情况。",
                             u"Return starts a paragraph. Record performance, focus or sound as you go."));
    fillMedia(*take);
    back->setPlain(text(u"返回镜头", u"Back to shot"));
    removal->setTexts(text(u"删除本条…", u"Delete take…"),
                      text(u"删除这条 Take？可撤销。", u"Delete this take? This can be undone."));
    return true;
}

void TakeView::fillResultBar(const VantryTake& take) {
    const bool english = store().english();
    resultTitle->setPlain(text(u"拍摄结果", u"Take result"));
    result->setName(text(u"拍摄结果", u"Take result"));
    result->setTitles({resultWord(TakeResult::pending, english), resultWord(TakeResult::good, english),
                       resultWord(TakeResult::ng, english)});
    result->setChosen(static_cast<int>(take.result));
    const QString rating = text(u"推荐程度 · Good 代表本镜完成", u"Rating · Good completes the shot");
    ratingTitle->setPlain(rating);
    stars->setAccessibleName(rating);
    for (int number = 1; number <= StarRating::count; ++number) {
        StarButton& star = stars->star(number);
        star.setTexts(QString::number(number) + text(u" 星", u" stars"), text(u"已选择", u"Selected"),
                      text(u"未选择", u"Not selected"));
        setHelp(star, text(u"再次点击可清除星级", u"Click again to clear the rating"));
    }
    stars->setStars(static_cast<int>(take.stars));
}

void TakeView::fillMedia(const VantryTake& take) {
    media->setTitle(text(u"素材记录", u"Media references"));
    mode->fill(take.soundMode, store().english());
    fillCameraTitle();
    cameraFile->editor().synchronize();
    mixerFile->setCaption(text(u"Mixer 素材名", u"Mixer media name"));
    mixerFile->field().synchronize();
    const bool hasPicture = take.soundMode != SoundMode::roomTone;
    const bool hasSound = take.soundMode != SoundMode::mos;
    cameraFile->setVisible(hasPicture);
    mixerFile->setVisible(hasSound);
    soundNumber->setVisible(hasSound && take.soundNumber.has_value());
    soundNumber->setPlain(text(u"声音 Take ", u"Sound take ") +
                          QString::number(take.soundNumber.value_or(0)));
    kept->setPlain(text(u"此前填写的素材名仍保留，可切回查看。",
                        u"Earlier media names are retained. Switch back to view them."));
    kept->setVisible((!hasPicture && !take.cameraFile.empty()) || (!hasSound && !take.mixerFile.empty()));
}

void TakeView::fillCameraTitle() {
    cameraFile->setTitle(
        text(u"相机素材名", u"Camera media names"),
        cameraFile->editor().hasFocus() ? text(u" · 多机位分行填写", u" · One camera per line") : QString());
}

}  // namespace vantry
