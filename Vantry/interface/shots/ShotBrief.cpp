#include "Vantry/interface/shots/ShotBrief.h"

#include <QEvent>
#include <QGridLayout>
#include <QPainter>

#include "Vantry/interface/design/Card.h"
#include "Vantry/interface/design/Compose.h"
#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/ParagraphEditor.h"
#include "Vantry/interface/design/VantryTextField.h"

namespace vantry {
namespace {

/// The lines of the form: one below each row, in another colour where the keyboard is.
class RuledForm final : public QWidget {
public:
    using QWidget::QWidget;

    void add(QWidget* field) {
        fields.append(field);
        field->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const auto type = event->type();
        if (type == QEvent::FocusIn || type == QEvent::FocusOut || type == QEvent::Move ||
            type == QEvent::Resize)
            update();
        return QWidget::eventFilter(watched, event);
    }
    void paintEvent(QPaintEvent*) override {
        const Palette& palette = Palette::of(*this);
        QPainter painter(this);
        for (const QWidget* field : std::as_const(fields)) {
            const int bottom = field->mapTo(this, QPoint(0, field->height())).y();
            if (field->hasFocus())
                painter.fillRect(0, bottom - Metrics::ring, width(), Metrics::ring, palette.link);
            else
                painter.fillRect(0, bottom - Metrics::hairline, width(), Metrics::hairline, palette.rule);
        }
    }

private:
    QList<QWidget*> fields;
};

/// An editor whose text begins where the fields above and below it do.
class EditorSlot final : public QWidget {
public:
    explicit EditorSlot(ParagraphEditor* held)
        : editor(held) {
        editor->setParent(this);
        setMinimumHeight(Metrics::notesHeight);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    }

protected:
    void resizeEvent(QResizeEvent*) override {
        editor->setGeometry(rect().adjusted(-Metrics::paddingEditor, 0, Metrics::paddingEditor, 0));
    }

private:
    ParagraphEditor* editor;
};

/// A caption that stands beside the first line of an editor.
QWidget* besideFirstLine(QWidget* caption) {
    QWidget* const holder = column(0, {caption});
    const int lower =
        VantryType::lineHeight(VantryType::Role::body) - VantryType::lineHeight(VantryType::Role::caption);
    holder->layout()->setContentsMargins(0, Metrics::paddingEditor + lower / 2, 0, 0);
    return holder;
}

}  // namespace

ShotBrief::ShotBrief(const std::function<TextBinding(Text Shot::*)>& bind, QWidget* parent)
    : QWidget(parent)
    , card(new Card)
    , code(new VantryTextField(VantryTextField::Look::plain))
    , title(new VantryTextField(VantryTextField::Look::plain))
    , description(new ParagraphEditor)
    , framing(new VantryTextField(VantryTextField::Look::plain))
    , movement(new VantryTextField(VantryTextField::Look::plain)) {
    auto* lines = new QVBoxLayout(this);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->addWidget(card);
    auto* ruled = new RuledForm;
    form = ruled;
    auto* grid = new QGridLayout(form);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(Metrics::gapCard);
    grid->setVerticalSpacing(0);
    grid->setColumnStretch(1, 1);
    const std::array<QWidget*, 5> fields{code, title, new EditorSlot(description), framing, movement};
    const std::array<QWidget*, 5> stops{code, title, description, framing, movement};
    for (std::size_t at = 0; at < fields.size(); ++at) {
        const bool isText = stops.at(at) == description;
        auto* caption = new Label(VantryType::Role::caption, &Palette::muted, Label::Length::wrapped);
        captions.at(at) = caption;
        const int row = static_cast<int>(at);
        if (isText)
            grid->addWidget(besideFirstLine(caption), row, 0, Qt::AlignTop);
        else
            grid->addWidget(caption, row, 0, Qt::AlignVCenter);
        grid->addWidget(fields.at(at), row, 1);
        ruled->add(stops.at(at));
        grid->setRowStretch(row, isText ? 1 : 0);
    }
    for (VantryTextField* name : {code, title})
        name->setFont(VantryType::font(VantryType::Role::emphasis));
    card->content().addWidget(form, 1);
    code->setBinding(bind(&Shot::code));
    title->setBinding(bind(&Shot::title));
    description->setBinding(bind(&Shot::description));
    framing->setBinding(bind(&Shot::framing));
    movement->setBinding(bind(&Shot::movement));
}

void ShotBrief::refresh(bool english) {
    const auto text = [english](QStringView zh, QStringView en) { return (english ? en : zh).toString(); };
    card->setTitle(text(u"分镜内容", u"Shot brief"));
    const std::array<QString, 5> titles{text(u"镜号", u"Code"), text(u"标题", u"Title"),
                                        text(u"画面与动作", u"Image & action"), text(u"景别", u"Framing"),
                                        text(u"机位 / 运动", u"Position / movement")};
    for (std::size_t at = 0; at < titles.size(); ++at) {
        captions.at(at)->setFixedWidth(english ? Metrics::briefLabelWidth : Metrics::briefLabelWidthChinese);
        captions.at(at)->setPlain(titles.at(at));
    }
    code->setTitle(titles[0]);
    title->setTitle(titles[1]);
    description->setAccessibleName(titles[2]);
    framing->setTitle(titles[3]);
    movement->setTitle(titles[4]);
    for (VantryTextField* field : {code, title, framing, movement})
        field->synchronize();
    description->synchronize();
}

}  // namespace vantry
