#include "Vantry/interface/design/Sheet.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>

#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/CellPainting.h"
#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/Metrics.h"

namespace vantry {
namespace {

constexpr int signWidth = Metrics::iconSheet + Metrics::gapCard;

/// What a sheet has between its title and its buttons. It scrolls where the window is too low for all of it.
class SheetBody final : public QScrollArea {
public:
    explicit SheetBody(QWidget* parent)
        : QScrollArea(parent)
        , inside(new QWidget) {
        setFrameShape(QFrame::NoFrame);
        setWidgetResizable(true);
        setFocusPolicy(Qt::NoFocus);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        viewport()->setAutoFillBackground(false);
        setWidget(inside);
        inside->setAutoFillBackground(false);
        inside->installEventFilter(this);
        QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
        policy.setHeightForWidth(true);
        setSizePolicy(policy);
    }

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override {
        const QLayout& lines = *inside->layout();
        return lines.hasHeightForWidth() ? lines.totalHeightForWidth(width) : lines.totalSizeHint().height();
    }
    [[nodiscard]] QSize sizeHint() const override { return inside->sizeHint(); }
    [[nodiscard]] QSize minimumSizeHint() const override { return QSize(0, 0); }

protected:
    /// What is inside asks for another height: so does this, and at once.
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::LayoutRequest) {
            updateGeometry();
            QCoreApplication::sendPostedEvents(window(), QEvent::LayoutRequest);
        }
        return QScrollArea::eventFilter(watched, event);
    }

private:
    QWidget* inside;
};

}  // namespace

Sheet::Sheet(QWidget* parent, VantryType::Role title)
    : SheetWindow(parent)
    , heading(new Label(title, &Palette::ink, Label::Length::wrapped, this))
    , body(new SheetBody(this))
    , column(new QVBoxLayout(body->widget()))
    , row(new QHBoxLayout) {
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(Metrics::paddingDialog, Metrics::paddingDialog, Metrics::paddingDialog,
                              Metrics::paddingDialog);
    outer->setSpacing(Metrics::gapBlock);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Metrics::gapField);
    row->setSpacing(Metrics::gapInline);
    row->addStretch();
    outer->addWidget(heading);
    outer->addWidget(body, 1);
    outer->addLayout(row);
    outer->setSizeConstraint(QLayout::SetNoConstraint);
}

QSize Sheet::wantedSize() {
    body->setVisible(!column->isEmpty());
    return {Metrics::dialogWidth, layout()->totalHeightForWidth(Metrics::dialogWidth)};
}

void Sheet::showEvent(QShowEvent* event) {
    SheetWindow::showEvent(event);
    if (!isAlert() || event->spontaneous())
        return;
    QAccessibleEvent announcement(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&announcement);
}

void Sheet::keyPressEvent(QKeyEvent* event) {
    QScrollBar& bar = *body->verticalScrollBar();
    const QList<std::pair<Qt::Key, QAbstractSlider::SliderAction>> ways{
        {Qt::Key_Up, QAbstractSlider::SliderSingleStepSub},
        {Qt::Key_Down, QAbstractSlider::SliderSingleStepAdd},
        {Qt::Key_PageUp, QAbstractSlider::SliderPageStepSub},
        {Qt::Key_PageDown, QAbstractSlider::SliderPageStepAdd}};
    for (const auto& [key, way] : ways)
        if (event->key() == key && bar.maximum() > 0) {
            bar.triggerAction(way);
            return;
        }
    SheetWindow::keyPressEvent(event);
}

void Sheet::paintEvent(QPaintEvent* event) {
    SheetWindow::paintEvent(event);
    if (!isFailure)
        return;
    QPainter painter(this);
    paintSign(painter, heading->geometry().adjusted(-signWidth, 0, 0, 0), Glyph::warning, Metrics::iconSheet,
              Palette::of(*this).danger);
}

void Sheet::setFailure(bool failure) {
    isFailure = failure;
    layout()->setContentsMargins(Metrics::paddingDialog + (failure ? signWidth : 0), Metrics::paddingDialog,
                                 Metrics::paddingDialog, Metrics::paddingDialog);
    update();
}

void Sheet::setTitle(const QString& title) {
    heading->setPlain(title);
    setWindowTitle(title);
    setAccessibleName(title);
}

void Sheet::setMessage(const QString& text) {
    if (message == nullptr) {
        message = new Label(VantryType::Role::body, &Palette::ink, Label::Length::wrapped, this);
        column->insertWidget(0, message);
    }
    message->setPlain(text);
    setAccessibleDescription(text);
}

AlertSheet::AlertSheet(QWidget* parent)
    : Sheet(parent)
    , confirm(new Button(Button::Kind::primary, Glyph::none, this)) {
    confirm->setMinimumWidth(Metrics::dialogButtonWidth);
    confirm->setDefault(true);
    buttons().addWidget(confirm);
    connect(confirm, &Button::clicked, this, &AlertSheet::accept);
}

void AlertSheet::setTexts(const QString& title, const QString& message, const QString& button) {
    setTitle(title);
    setMessage(message);
    confirm->setPlain(button);
}

QuestionSheet::QuestionSheet(QWidget* parent)
    : Sheet(parent, VantryType::Role::emphasis)
    , cancel(new Button(Button::Kind::quiet, Glyph::none, this))
    , confirm(new Button(Button::Kind::destructive, Glyph::none, this)) {
    for (Button* button : {cancel, confirm}) {
        button->setMinimumWidth(Metrics::dialogButtonWidth);
        button->setPressedOnce();
        buttons().addWidget(button);
    }
    cancel->setDefault(true);
    connect(cancel, &Button::clicked, this, &QuestionSheet::reject);
    connect(confirm, &Button::clicked, this, &QuestionSheet::accept);
}

void QuestionSheet::setTexts(const QString& question, const QString& no, const QString& yes) {
    setTitle(question);
    cancel->setPlain(no);
    confirm->setPlain(yes);
}

void QuestionSheet::ask() {
    cancel->setFocus();
    open();
}

bool QuestionSheet::waitForAnswer() {
    cancel->setFocus();
    return exec() == QDialog::Accepted;
}

}  // namespace vantry
