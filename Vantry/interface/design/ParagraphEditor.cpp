#include "Vantry/interface/design/ParagraphEditor.h"

#include <algorithm>

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QPainter>
#include <QResizeEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>
#include <QVBoxLayout>

#include "Vantry/interface/design/ButtonStyles.h"
#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/Palette.h"
#include "Vantry/interface/design/ParagraphCaret.h"
#include "Vantry/interface/design/StoredText.h"
#include "Vantry/interface/design/VantryMotion.h"
#include "Vantry/interface/design/VantryType.h"
#include "VantryCore/records/Text.h"

namespace vantry {
namespace {

bool isSameText(const QString& a, const QString& b) {
    return a == b || canonicallyEquivalent(a.toStdString(), b.toStdString());
}

bool hasPlainText(const QMimeData& data) {
    // Not QMimeData::hasText, which takes the addresses of files for text.
    return data.hasFormat(QStringLiteral("text/plain"));
}

/// Whether what is dragged is text: a file or an image may come with its name as text.
bool isDraggedText(const QMimeData& data) {
    const QList<QUrl> urls = data.urls();
    return hasPlainText(data) && !data.hasImage() &&
           std::none_of(urls.begin(), urls.end(), [](const QUrl& url) { return url.isLocalFile(); });
}

bool hasRightToLeft(const QString& text) {
    constexpr char16_t firstLetter = 0x0590;
    return std::any_of(text.begin(), text.end(), [](QChar character) {
        if (character.unicode() < firstLetter)
            return false;
        // The planes of the scripts of old and of Adlam, by the first half of their pairs.
        if (character.isHighSurrogate())
            return character == QChar(0xD802) || character == QChar(0xD803) || character == QChar(0xD83A) ||
                   character == QChar(0xD83B);
        const QChar::Direction direction = character.direction();
        return direction == QChar::DirR || direction == QChar::DirAL;
    });
}

/// The place in front of the character that a person sees at `place`.
int outsideOfClusters(const QTextDocument& document, int place) {
    const QTextBlock block = document.findBlock(place);
    return block.position() + static_cast<int>(clusterStart(block.text(), place - block.position()));
}

}  // namespace

ParagraphEditor::ParagraphEditor(QWidget* parent)
    : QTextEdit(parent)
    , caret(std::make_unique<ParagraphCaret>(*this)) {
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
    // Lengths are the tokens' and not the screen's, and each paragraph would ask the screen again.
    document()->documentLayout()->setPaintDevice(nullptr);
    // Asking each paragraph for its direction takes longer than all the rest of a keystroke.
    QTextOption option = document()->defaultTextOption();
    option.setTextDirection(Qt::LeftToRight);
    document()->setDefaultTextOption(option);
    style();
    connect(document(), &QTextDocument::contentsChanged, this, &ParagraphEditor::publish);
    connect(this, &QTextEdit::cursorPositionChanged, this, &ParagraphEditor::keepOutOfPairs);
    // The bar comes and goes over the margin of the text, so that lines break as before.
    connect(verticalScrollBar(), &QScrollBar::rangeChanged, this,
            [this](int from, int to) { setViewportMargins(0, 0, to > from ? -Metrics::scrollStrip : 0, 0); });
}

ParagraphEditor::~ParagraphEditor() = default;

void ParagraphEditor::style() {
    QTextBlockFormat lines;
    lines.setLineHeight(VantryType::paragraphLineHeight(), QTextBlockFormat::FixedHeight);
    QTextCursor all(document());
    all.select(QTextCursor::Document);
    all.setBlockFormat(lines);
    all.setCharFormat({});
    all.setBlockCharFormat({});
    setCurrentCharFormat({});
    // Lines have their free room above the letters; the first one needs none.
    QTextFrameFormat page = document()->rootFrame()->frameFormat();
    page.setTopMargin(Metrics::paddingEditor - VantryType::paragraphSpacing);
    document()->rootFrame()->setFrameFormat(page);
    document()->clearUndoRedoStacks();
}

void ParagraphEditor::readEitherWay(const QString& written) {
    QTextOption option = document()->defaultTextOption();
    if (option.textDirection() != Qt::LayoutDirectionAuto && hasRightToLeft(written)) {
        option.setTextDirection(Qt::LayoutDirectionAuto);
        document()->setDefaultTextOption(option);
    }
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
    if (!binding.read)
        return;
    if (isComposing()) {
        heldBack = true;
        return;
    }
    const auto stored = binding.read();
    if (!stored)
        return;
    if (!unwritten && known == stored)
        return;
    const QString shown = document()->toRawText();
    const QString wanted = paragraphForm(*stored);
    if (shown != wanted && !isSameText(shown, wanted))
        replace(wanted);
    base = document()->toRawText();
    known = base == wanted ? stored : std::nullopt;
    unwritten = false;
}

void ParagraphEditor::replace(const QString& shown) {
    const QScopedValueRollback guard(synchronizing, true);
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
    readEitherWay(stretch.inserted);
    document()->clearUndoRedoStacks();
    QTextCursor kept(document());
    kept.setPosition(outsideOfClusters(*document(), moved(anchor)));
    kept.setPosition(outsideOfClusters(*document(), moved(position)), QTextCursor::KeepAnchor);
    setTextCursor(kept);
    // The bar reaches only as far as lines are laid out.
    if (down > 0)
        document()->documentLayout()->hitTest(QPointF(0, down + viewport()->height()), Qt::FuzzyHit);
    verticalScrollBar()->setValue(down);
}

void ParagraphEditor::publish() {
    if (synchronizing)
        return;
    // Who sets the text as a whole, as some assistive tools do, takes its form away.
    if (document()->firstBlock().blockFormat().lineHeightType() != QTextBlockFormat::FixedHeight) {
        const QScopedValueRollback guard(synchronizing, true);
        style();
    }
    const QString shown = document()->toRawText();
    const Stretch change = changedStretch(base, shown);
    unwritten = change.removed > 0 || !change.inserted.isEmpty();
    if (!unwritten)
        return;
    readEitherWay(change.inserted);
    const auto stored = binding.read ? binding.read() : std::nullopt;
    if (!stored || !binding.write)
        return;
    QString next;
    if (known == stored) {
        next = storedWithEdit(*stored, change);
        known = next;
    } else {
        const QString theirs = paragraphForm(*stored);
        next = storedWithEdit(*stored, isSameText(base, theirs) ? shown : mergedEdit(base, shown, theirs));
        known.reset();
    }
    base = shown;
    unwritten = false;
    if (next != *stored)
        binding.write(next);
}

void ParagraphEditor::finishComposition() {
    if (!isComposing())
        return;
    QInputMethod& method = *QGuiApplication::inputMethod();
    method.commit();
    if (!isComposing())
        return;
    // Some methods hand over what they hold when they are reset, others forget it, and there may be none at
    // all. What was typed is written in each case, and once.
    const QString held = textCursor().block().layout()->preeditAreaText();
    const int before = document()->characterCount();
    method.reset();
    if (document()->characterCount() != before)
        return;
    QInputMethodEvent written;
    written.setCommitString(held);
    QApplication::sendEvent(this, &written);
}

void ParagraphEditor::keepOutOfPairs() {
    const auto isInside = [this](int place) {
        return place > 0 && document()->characterAt(place).isLowSurrogate() &&
               document()->characterAt(place - 1).isHighSurrogate();
    };
    QTextCursor cursor = textCursor();
    const int anchor = cursor.anchor();
    const int position = cursor.position();
    if (!isInside(anchor) && !isInside(position))
        return;
    cursor.setPosition(isInside(anchor) ? anchor - 1 : anchor);
    cursor.setPosition(isInside(position) ? position - 1 : position, QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

void ParagraphEditor::focusInEvent(QFocusEvent* event) {
    QTextEdit::focusInEvent(event);
    isKeyFromElsewhere = true;
    emit focusChanged(true);
}

void ParagraphEditor::focusOutEvent(QFocusEvent* event) {
    finishComposition();
    QTextEdit::focusOutEvent(event);
    publish();
    emit focusChanged(false);
}

void ParagraphEditor::inputMethodEvent(QInputMethodEvent* event) {
    QTextEdit::inputMethodEvent(event);
    if (!heldBack || isComposing())
        return;
    heldBack = false;
    synchronize();
}

void ParagraphEditor::paintEvent(QPaintEvent* event) {
    QTextEdit::paintEvent(event);
    caret->paint();
}

QVariant ParagraphEditor::inputMethodQuery(Qt::InputMethodQuery asked) const {
    QVariant answer = QTextEdit::inputMethodQuery(asked);
    if (asked != Qt::ImCursorRectangle && asked != Qt::ImAnchorRectangle)
        return answer;
    // The view's own caret has no width, and Qt takes a place without any for none.
    QRectF place = answer.toRectF();
    place.setWidth(Metrics::caret);
    return place;
}

void ParagraphEditor::keyPressEvent(QKeyEvent* event) {
    // A key that was pressed elsewhere and is still held writes nothing here.
    if (!event->isAutoRepeat())
        isKeyFromElsewhere = false;
    else if (isKeyFromElsewhere) {
        event->accept();
        return;
    }
    // With Shift, too: a line end of another kind would be one that only this view shows.
    if (!event->matches(QKeySequence::InsertParagraphSeparator) &&
        !event->matches(QKeySequence::InsertLineSeparator)) {
        QTextEdit::keyPressEvent(event);
        return;
    }
    // In an empty paragraph Qt takes its form away first and begins no other.
    textCursor().insertBlock();
    ensureCursorVisible();
    event->accept();
}

void ParagraphEditor::mousePressEvent(QMouseEvent* event) {
    finishComposition();
    QTextEdit::mousePressEvent(event);
}

void ParagraphEditor::dragEnterEvent(QDragEnterEvent* event) {
    if (isDraggedText(*event->mimeData()))
        QTextEdit::dragEnterEvent(event);
    else
        event->ignore();
}

void ParagraphEditor::dragMoveEvent(QDragMoveEvent* event) {
    if (isDraggedText(*event->mimeData()))
        QTextEdit::dragMoveEvent(event);
    else
        event->ignore();
}

void ParagraphEditor::dropEvent(QDropEvent* event) {
    if (!isDraggedText(*event->mimeData())) {
        event->ignore();
        return;
    }
    finishComposition();
    QTextEdit::dropEvent(event);
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
    return hasPlainText(*source);
}

void ParagraphEditor::insertFromMimeData(const QMimeData* source) {
    if (!hasPlainText(*source))
        return;
    textCursor().insertText(source->text());
    ensureCursorVisible();
}

ParagraphField::ParagraphField(int height, Title kind, QWidget* parent)
    : QWidget(parent)
    , label(kind == Title::section
                ? new Label(VantryType::Role::label, &Palette::ink, Label::Length::cut, this)
                : new Label(VantryType::Role::caption, &Palette::muted, Label::Length::cut, this))
    , frame(new QWidget(this))
    , text(new ParagraphEditor(frame))
    , focus(*this, VantryMotion::feedback()) {
    if (kind == Title::section)
        label->setFont(VantryType::font(VantryType::Role::label, QFont::DemiBold));
    auto* inside = new QVBoxLayout(frame);
    // Lines that are scrolled do not cross the border.
    inside->setContentsMargins(0, Metrics::ring, 0, Metrics::ring);
    inside->addWidget(text);
    frame->setMinimumHeight(height);
    frame->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(kind == Title::section ? Metrics::gapInline : Metrics::gapCaption);
    column->addWidget(label);
    column->addWidget(frame, 1);
    connect(text, &ParagraphEditor::focusChanged, this,
            [this](bool focused) { focus.setTarget(focused ? 1 : 0); });
}

ParagraphField::~ParagraphField() {
    // It still loses the keyboard when the rest of this is gone.
    text->disconnect(this);
}

int ParagraphField::titleHeight() const {
    return label->sizeHint().height() + layout()->spacing();
}

void ParagraphField::setTitle(const QString& title, const QString& hint) {
    label->setPlain(title + hint);
    frame->setAccessibleName(title);
    text->setAccessibleName(title);
}

void ParagraphField::paintEvent(QPaintEvent*) {
    const Palette& palette = Palette::of(*this);
    const qreal share = focus.value();
    const qreal width = Metrics::hairline + (Metrics::focusedFrame - Metrics::hairline) * share;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(mixed(palette.rule, palette.link, share), width));
    painter.setBrush(palette.card);
    painter.drawRoundedRect(QRectF(frame->geometry()).adjusted(width / 2, width / 2, -width / 2, -width / 2),
                            Metrics::radiusTrack, Metrics::radiusTrack);
}

}  // namespace vantry
