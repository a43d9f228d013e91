#pragma once

#include <QLineEdit>

#include "Vantry/interface/design/TextBinding.h"
#include "Vantry/interface/design/Transition.h"

namespace vantry {

/// A field for one line. It writes only what the person entered, by keys or through an assistive tool, and
/// shows a text with line ends without changing it. It reads and writes through its binding; without one it
/// is a plain field.
///
/// It has no label of its own: a title lies over it while it is empty and nothing is being composed, and
/// takes no clicks.
class VantryTextField final : public QLineEdit {
    Q_OBJECT

public:
    /// Plain: without a surface, and with a title in the emphasis type.
    enum class Look { framed, plain };

    explicit VantryTextField(QWidget* parent = nullptr)
        : VantryTextField(Look::framed, parent) {}
    explicit VantryTextField(Look look, QWidget* parent = nullptr);

    /// The prompt. It names the field too, unless a label does.
    void setTitle(const QString& title);
    [[nodiscard]] const QString& title() const noexcept { return prompt; }
    [[nodiscard]] bool showsTitle() const;

    /// Once, before it is shown: a field belongs to one text for its life.
    void setBinding(TextBinding target);
    /// Shows the bound text as it is now, unless it does already or a composition is under way. The caret
    /// stays at its place.
    void synchronize();

    [[nodiscard]] bool isPlain() const noexcept { return look == Look::plain; }
    /// How far its border is that of a field with the keyboard, from 0 to 1.
    [[nodiscard]] double focusShare() const { return focus.value(); }

public slots:
    /// What stands in it is about to be used, while it keeps the keyboard.
    void settle() { emit settled(); }

signals:
    /// The person changed the text, and it was written.
    void published();
    /// The keyboard left it, or what stands in it is about to be used.
    void settled();

protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void publish();
    /// Where the text stands.
    [[nodiscard]] QRect textPlace() const;

    const Look look;
    QString prompt;
    Transition focus;
    TextBinding binding;
    QString base;  ///< the bound text as this field last showed or wrote it
    bool composing = false;
    bool synchronizing = false;
};

}  // namespace vantry
