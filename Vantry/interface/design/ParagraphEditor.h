#pragma once

#include <QSize>
#include <QTextEdit>
#include <QWidget>

#include "Vantry/interface/design/TextBinding.h"

namespace vantry {

class Label;

/// Where people write: plain paragraphs, in the size and colour of the body text. While a person writes, this
/// view owns the text; what comes from outside enters without moving caret, selection or scroll, and never
/// into a composition. Only what the person changed is written, as the smallest change of the stored text, so
/// that line ends and characters outside of it stay as they were stored.
class ParagraphEditor final : public QTextEdit {
    Q_OBJECT

public:
    explicit ParagraphEditor(QWidget* parent = nullptr);

    /// Once, before it is shown: a field belongs to one text for its life.
    void setBinding(TextBinding target);
    /// Shows the bound text as it is now. Does nothing when it is shown already or while a composition is
    /// under way: it will be called again. A text from outside ends the view's undo history.
    void synchronize();
    /// Whether an input method is composing here.
    [[nodiscard]] bool isComposing() const;

    /// It asks for no size of its own: the field around it decides.
    [[nodiscard]] QSize sizeHint() const override { return QSize(0, 0); }
    [[nodiscard]] QSize minimumSizeHint() const override { return QSize(0, 0); }

signals:
    void focusChanged(bool focused);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    [[nodiscard]] bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    void publish();
    void replace(const QString& shown);
    void revealCaretSoon();

    TextBinding binding;
    QString base;  ///< the bound text, in paragraph form, as this view last showed or wrote it
    bool synchronizing = false;
    bool revealing = false;
};

/// An editor under its title, in a frame that tells whether it has the keyboard.
class ParagraphField final : public QWidget {
    Q_OBJECT

public:
    /// `height` is the least height of the frame; it takes more where there is more.
    explicit ParagraphField(int height, QWidget* parent = nullptr);

    /// Shows the title, with a hint behind it if there is one; the title alone names the editor.
    void setTitle(const QString& title, const QString& hint = {});
    [[nodiscard]] ParagraphEditor& editor() noexcept { return *text; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Label* label;
    QWidget* frame;
    ParagraphEditor* text;
    bool focused = false;
};

}  // namespace vantry
