#include "Vantry/interface/design/ParagraphEditor.h"

#include <algorithm>
#include <cmath>

#include <QMimeData>
#include <QPainter>
#include <QResizeEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>
#include <QVBoxLayout>

#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/Palette.h"
#include "Vantry/interface/design/StoredText.h"
#include "Vantry/interface/design/VantryType.h"
#include "VantryCore/records/Text.h"

namespace vantry {
namespace {

bool isSameText(const QString& a, const QString& b) {
    return a == b || canonicallyEquivalent(a.toStdString(), b.toStdString());
}

}  // namespace

ParagraphEditor::ParagraphEditor(QWidget* parent)
    : QTextEdit(parent) {
    setAcceptRichText(false);
    setAutoFormatting(QTextEdit::AutoNone);
    setTabChangesFocus(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    viewport()->setAutoFillBackground(false);
    setFont(VantryType::font(VantryType::Role::body));
    document()->setDefaultFont(font());
    document()->setDocumentMargin(Metrics::paddingEditor);
    QTextBlockFormat format;
    format.setLineHeight(VantryType::paragraphLineHeight(), QTextBlockFormat::FixedHeight);
    QTextCursor(document()).setBlockFormat(format);
    document()->clearUndoRedoStacks();
    connect(document(), &QTextDocument::contentsChanged, this, &ParagraphEditor::publish);
}

void ParagraphEditor::setBinding(TextBinding target) {
    binding = std::move(target);
    synchronize();
}

bool ParagraphEditor::isComposing() const {
    const QTextLayout* layout = textCursor().block().layout();
    return layout != nullptr && !layout->preeditAreaText().isEmpty();
}

void ParagraphEditor::synchronize() {
    if (!binding.read || isComposing())
        return;
    const auto stored = binding.read();
    if (!stored)
        return;
    const QString wanted = paragraphForm(*stored);
    const QString shown = document()->toRawText();
    if (shown != wanted && !isSameText(shown, wanted))
        replace(wanted);
    base = document()->toRawText();
}

void ParagraphEditor::replace(const QString& shown) {
    const QScopedValueRollback guard(synchronizing, true);
    const int across = horizontalScrollBar()->value();
    const int down = verticalScrollBar()->value();
    const Stretch stretch = changedStretch(document()->toRawText(), shown);
    const int anchor = textCursor().anchor();
    const int position = textCursor().position();
    const int from = static_cast<int>(stretch.at);
    const int to = static_cast<int>(stretch.at + stretch.removed);
    const int end = from + static_cast<int>(stretch.inserted.size());
    // What stands in front of the change or behind it keeps its characters, what stands in it goes to its
    // end.
    const auto moved = [from, to, end](int place) {
        if (place <= from)
            return place;
        return place >= to ? place - to + end : std::min(place, end);
    };
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    cursor.setPosition(from);
    cursor.setPosition(to, QTextCursor::KeepAnchor);
    cursor.insertText(stretch.inserted);
    cursor.endEditBlock();
    document()->clearUndoRedoStacks();
    QTextCursor kept(document());
    kept.setPosition(moved(anchor));
    kept.setPosition(moved(position), QTextCursor::KeepAnchor);
    setTextCursor(kept);
    horizontalScrollBar()->setValue(across);
    verticalScrollBar()->setValue(down);
}

void ParagraphEditor::publish() {
    if (synchronizing)
        return;
    const QString shown = document()->toRawText();
    if (shown == base)
        return;
    const auto stored = binding.read ? binding.read() : std::nullopt;
    if (!stored || !binding.write)
        return;
    const QString theirs = paragraphForm(*stored);
    const QString next = isSameText(base, theirs) ? shown : mergedEdit(base, shown, theirs);
    base = shown;
    if (next != theirs)
        binding.write(storedWithEdit(*stored, next));
}

void ParagraphEditor::focusInEvent(QFocusEvent* event) {
    QTextEdit::focusInEvent(event);
    emit focusChanged(true);
}

void ParagraphEditor::focusOutEvent(QFocusEvent* event) {
    QTextEdit::focusOutEvent(event);
    publish();
    emit focusChanged(false);
}

void ParagraphEditor::resizeEvent(QResizeEvent* event) {
    QTextEdit::resizeEvent(event);
    if (event->oldSize().width() != event->size().width())
        revealCaretSoon();
}

void ParagraphEditor::revealCaretSoon() {
    if (revealing || !hasFocus() || isComposing())
        return;
    revealing = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            revealing = false;
            if (hasFocus() && !isComposing())
                ensureCursorVisible();
        },
        Qt::QueuedConnection);
}

bool ParagraphEditor::canInsertFromMimeData(const QMimeData* source) const {
    return source->hasText();
}

void ParagraphEditor::insertFromMimeData(const QMimeData* source) {
    if (source->hasText())
        textCursor().insertText(source->text());
    ensureCursorVisible();
}

ParagraphField::ParagraphField(int height, QWidget* parent)
    : QWidget(parent)
    , label(new Label(VantryType::Role::label, &Palette::ink, Label::Length::cut, this))
    , frame(new QWidget(this))
    , text(new ParagraphEditor(frame)) {
    label->setFont(VantryType::font(VantryType::Role::label, QFont::DemiBold));
    auto* inside = new QVBoxLayout(frame);
    inside->setContentsMargins(Metrics::ring, Metrics::ring, Metrics::ring, Metrics::ring);
    inside->addWidget(text);
    frame->setMinimumHeight(height);
    frame->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Metrics::gapInline);
    column->addWidget(label);
    column->addWidget(frame, 1);
    connect(text, &ParagraphEditor::focusChanged, this, [this](bool now) {
        focused = now;
        update();
    });
}

void ParagraphField::setTitle(const QString& title, const QString& hint) {
    label->setPlain(title + hint);
    text->setAccessibleName(title);
}

void ParagraphField::paintEvent(QPaintEvent*) {
    const Palette& palette = Palette::of(*this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal width = focused ? Metrics::focusedFrame : Metrics::hairline;
    painter.setPen(QPen(focused ? palette.link : palette.rule, width));
    painter.setBrush(palette.card);
    painter.drawRoundedRect(QRectF(frame->geometry()).adjusted(width / 2, width / 2, -width / 2, -width / 2),
                            Metrics::radiusTrack, Metrics::radiusTrack);
}

}  // namespace vantry
