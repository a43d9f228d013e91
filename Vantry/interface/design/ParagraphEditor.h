#pragma once

#include <memory>
#include <optional>

#include <QSize>
#include <QTextEdit>
#include <QWidget>

#include "Vantry/interface/design/TextBinding.h"
#include "Vantry/interface/design/Transition.h"

namespace vantry {

class Label;
class ParagraphCaret;

/// Where people write: plain paragraphs, in the size and colour of the body text. While a person writes, this
/// view owns the text; what comes from outside enters without moving caret, selection or scroll, and never
/// into a composition. Only what the person changed is written, as the smallest change of the stored text, so
/// that line ends and characters outside of it stay as they were stored.
///
/// It takes text alone, in plain form: by keys, input methods, paste, drop and assistive tools. Places in the
/// text are counted in UTF-16 units; none is inside of a surrogate pair, and a selection that an outside
/// change leaves behind splits no character that a person sees.
class ParagraphEditor final : public QTextEdit {
    Q_OBJECT

public:
    explicit ParagraphEditor(QWidget* parent = nullptr);
    ~ParagraphEditor() override;

    /// Once, before it is shown: a field belongs to one text for its life.
    void setBinding(TextBinding target);
    /// Shows the bound text as it is now. Does nothing when it is shown already or while a composition is
    /// under way: then it follows when that ends. A text from outside ends the view's undo history.
    void synchronize();
    /// Whether an input method is composing here.
    [[nodiscard]] bool isComposing() const;

    /// It asks for no size of its own: the field around it decides.
    [[nodiscard]] QSize sizeHint() const override { return QSize(0, 0); }
    [[nodiscard]] QSize minimumSizeHint() const override { return QSize(0, 0); }

    using QTextEdit::inputMethodQuery;
    /// Tells input methods where the caret is, for their lists of candidates.
    [[nodiscard]] QVariant inputMethodQuery(Qt::InputMethodQuery asked) const override;

signals:
    void focusChanged(bool focused);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    [[nodiscard]] bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    void style();
    void publish();
    void replace(const QString& shown);
    void finishComposition();
    void keepOutOfPairs();
    void readEitherWay(const QString& written);
    void revealCaretSoon();

    std::unique_ptr<ParagraphCaret> caret;
    TextBinding binding;
    QString base;                  ///< the text of the document as this view last showed or wrote it
    std::optional<QString> known;  ///< the stored text whose paragraph form `base` is, when there is one
    bool unwritten = false;  ///< the document is not `base`: the person wrote where nothing can be written
    bool synchronizing = false;
    bool heldBack = false;  ///< a text from outside waits for the end of a composition
    bool revealing = false;
    bool isKeyFromElsewhere = false;  ///< no key was pressed since it has the keyboard
};

/// An editor under its title, in a frame that tells whether it has the keyboard.
class ParagraphField final : public QWidget {
    Q_OBJECT

public:
    /// How its title is set: as the title of a part of a page, or as the caption of one field among others.
    enum class Title { section, caption };

    /// `height` is the least height of the frame; it takes more where there is more.
    explicit ParagraphField(int height, QWidget* parent = nullptr)
        : ParagraphField(height, Title::section, parent) {}
    ParagraphField(int height, Title kind, QWidget* parent = nullptr);
    ~ParagraphField() override;

    /// Shows the title, with a hint behind it if there is one; the title alone names the editor.
    void setTitle(const QString& title, const QString& hint = {});
    [[nodiscard]] ParagraphEditor& editor() noexcept { return *text; }
    /// How far its border is that of a field with the keyboard, from 0 to 1.
    [[nodiscard]] double focusShare() const { return focus.value(); }
    /// What it takes beside its frame.
    [[nodiscard]] int titleHeight() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Label* label;
    QWidget* frame;
    ParagraphEditor* text;
    Transition focus;
};

}  // namespace vantry
