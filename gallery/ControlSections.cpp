#include <QComboBox>
#include <QHBoxLayout>
#include <QPainter>

#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/DateTimeField.h"
#include "Vantry/interface/design/DayCalendar.h"
#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/LabeledInput.h"
#include "Vantry/interface/design/MenuPainting.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/ParagraphEditor.h"
#include "Vantry/interface/design/VantryTextField.h"
#include "Vantry/interface/design/VantryToggle.h"
#include "gallery/Sections.h"

namespace vantry::gallery {
namespace {

void showButtons(Board& board) {
    const struct {
        Phrase title;
        Button::Kind kind;
        Glyph glyph;
        Glyph trailing;
        Phrase text;
    } kinds[] = {
        {{"主要按钮", "Primary button"}, Button::Kind::primary, Glyph::none, Glyph::none, {"创建", "Create"}},
        {{"普通按钮", "Quiet button"},
         Button::Kind::quiet,
         Glyph::plus,
         Glyph::none,
         {"新 Take", "New take"}},
        {{"危险操作", "Quiet, destructive"},
         Button::Kind::destructive,
         Glyph::none,
         Glyph::none,
         {"删除本条…", "Delete take…"}},
        {{"行内按钮", "Inline button"},
         Button::Kind::inlined,
         Glyph::none,
         Glyph::arrowRight,
         {"查看计划", "View plan"}},
        {{"路径", "Crumb"}, Button::Kind::crumb, Glyph::none, Glyph::none, {"资料库", "Library"}},
    };
    for (const auto& [title, kind, glyph, trailing, text] : kinds) {
        Section& section = board.section(title);
        for (const State state : allStates) {
            auto* button = new Button(kind, glyph, section.place());
            button->setTrailing(trailing);
            board.say([button](const QString& said) { button->setPlain(said); }, text);
            section.add(button, state);
        }
    }
}

VantryTextField* addField(Board& board, Section& section, const QString& text, VantryTextField::Look look,
                          const Phrase& title) {
    auto* field = new VantryTextField(look, section.place());
    board.say([field](const QString& said) { field->setTitle(said); }, title);
    field->setText(text);
    return field;
}

void showFields(Board& board) {
    using Look = VantryTextField::Look;
    const QString file = QStringLiteral("FH_20B_T07.WAV");
    const Phrase title{"项目名称", "Project name"};
    Section& section = board.section({"输入框", "Fields"});
    section.add(addField(board, section, file, Look::framed, title), {"常态", "normal"}, 1);
    section.add(addField(board, section, {}, Look::framed, title), {"空 · 提示", "empty · prompt"}, 1);
    section.startRow();
    section.add(addField(board, section, file, Look::framed, title), State::focused, 1);
    section.add(addField(board, section, file, Look::framed, title), State::disabled, 1);
    section.startRow();
    auto* labelled = new LabeledInput(section.place());
    board.say([labelled](const QString& said) { labelled->setCaption(said); },
              {"预计时长", "Planned duration"});
    labelled->field().setText(QStringLiteral("90"));
    section.add(labelled, {"LabeledInput", "LabeledInput"}, 1);
    section.add(addField(board, section, {}, Look::plain, {"画面与动作", "Image & action"}),
                {"无边框 · 提示", "plain · prompt"}, 1);
}

void showEditors(Board& board) {
    Section& section = board.section({"段落编辑", "Paragraph editor"});
    for (const State state : {State::normal, State::focused}) {
        auto* field = new ParagraphField(Metrics::notesHeight, section.place());
        board.say([field](const QString& said) { field->setTitle(said); }, {"备注", "Notes"});
        board.say([field](const QString& said) { field->editor().setPlainText(said); },
                  {"焦点在转身时跟丢半拍。\n前半可用。", "Focus drops on the turn.\nFirst half usable."});
        section.add(field, nameOf(state), 1);
        if (state != State::normal)
            board.force(field->editor(), state);
    }
}

/// Hover help as it stands on the board, not over it.
class HelpSample final : public QWidget {
public:
    explicit HelpSample(QWidget* parent)
        : QWidget(parent)
        , text(new Label(VantryType::Role::caption, &Palette::canvas, Label::Length::cut, this)) {
        auto* row = new QHBoxLayout(this);
        row->setContentsMargins(Metrics::paddingHelp, Metrics::paddingHelpLine, Metrics::paddingHelp,
                                Metrics::paddingHelpLine);
        row->addWidget(text);
    }
    void setText(const QString& said) { text->setPlain(said); }

protected:
    void paintEvent(QPaintEvent*) override {
        QStyleOption option;
        option.initFrom(this);
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        paintHelpPanel(painter, option);
    }

private:
    Label* text;
};

void showSwitches(Board& board) {
    Section& section = board.section({"开关、选单、提示", "Toggle, picker, hover help"});
    const struct {
        Phrase caption;
        bool on;
        State state;
    } toggles[] = {{{"关", "off"}, false, State::normal},
                   {{"开", "on"}, true, State::normal},
                   {{"焦点", "focused"}, true, State::focused},
                   {{"停用", "disabled"}, true, State::disabled}};
    for (const auto& [caption, on, state] : toggles) {
        auto* toggle = new VantryToggle(section.place());
        board.say([toggle](const QString& said) { toggle->setName(said); }, caption);
        toggle->setChecked(on);
        section.add(toggle, caption);
        if (state != State::normal)
            board.force(*toggle, state);
    }
    auto* picker = new QComboBox(section.place());
    picker->addItems({QString(), QString()});
    board.say([picker](const QString& said) { picker->setItemText(0, said); }, {"全部项目", "All projects"});
    board.say([picker](const QString& said) { picker->setItemText(1, said); }, {"雾港", "Fog Harbour"});
    section.add(picker, {"选单", "picker"});
    auto* help = new HelpSample(section.place());
    board.say([help](const QString& said) { help->setText(said); },
              {"再次点击可清除星级", "Click again to clear the rating"});
    section.add(help, {"悬停提示", "hover help"});
}

void showDays(Board& board) {
    Section& section = board.section({"日期与时间", "Day and time"});
    // A day that is never today, which is marked.
    const QDate day(2020, 2, 20);
    for (const bool enabled : {true, false}) {
        auto* field = new DateTimeField(section.place());
        field->setReading(QDateTime(day, QTime(20, 30), Qt::UTC));
        field->setEnabled(enabled);
        board.say([field](bool english) { field->setEnglish(english); });
        section.add(field, nameOf(enabled ? State::normal : State::disabled));
    }
    section.startRow();
    auto* calendar = new DayCalendar(section.place());
    calendar->setSelectedDate(day);
    board.say([calendar](bool english) {
        calendar->setLocale(QLocale(english ? QLocale::English : QLocale::Chinese));
        calendar->setFirstDayOfWeek(Qt::Monday);
    });
    section.add(calendar, {"DayCalendar", "DayCalendar"});
}

void showStrip(Board& board) {
    Section& section = board.section({"仅图标", "Signs alone"});
    const std::pair<Phrase, Glyph> buttons[] = {{{"上一镜", "Previous shot"}, Glyph::chevronLeft},
                                                {{"下一镜", "Next shot"}, Glyph::chevronRight}};
    for (const auto& [text, glyph] : buttons) {
        auto* button = new Button(Button::Kind::quiet, glyph, section.place());
        button->setCompact(true);
        board.say([button](const QString& said) { button->setPlain(said); }, text);
        section.add(button, text);
    }
    auto* names = new ParagraphField(Metrics::namesHeight, ParagraphField::Title::caption, section.place());
    board.say([names](const QString& said) { names->setTitle(said); }, {"相机素材名", "Camera media names"});
    names->editor().setPlainText(QStringLiteral("A031C007_261121_RF6\nB014C005_261121_K3T"));
    section.add(names, {"说明在上", "captioned"}, 1);
}

}  // namespace

void showControls(Board& board) {
    showButtons(board);
    showFields(board);
    showEditors(board);
    showSwitches(board);
    showDays(board);
    showStrip(board);
}

}  // namespace vantry::gallery
