#pragma once

#include <QLineEdit>
#include <QWidget>

#include "Vantry/interface/design/TextBinding.h"

namespace vantry {

class Label;

/// A field for one line. It writes only what the person entered, by keys or through an assistive tool, and
/// shows a text with line ends without changing it. It reads and writes through its binding; without one it
/// is a plain field.
class VantryTextField final : public QLineEdit {
    Q_OBJECT

public:
    explicit VantryTextField(QWidget* parent = nullptr);

    /// Once, before it is shown: a field belongs to one text for its life.
    void setBinding(TextBinding target);
    /// Shows the bound text as it is now, unless it does already or a composition is under way. The caret
    /// stays at its place.
    void synchronize();

signals:
    /// The person changed the text, and it was written.
    void published();

protected:
    void inputMethodEvent(QInputMethodEvent* event) override;

private:
    void publish();

    TextBinding binding;
    QString base;  ///< the bound text as this field last showed or wrote it
    bool composing = false;
    bool synchronizing = false;
};

/// A field under its caption; the caption is also its accessible name.
class LabeledInput final : public QWidget {
    Q_OBJECT

public:
    explicit LabeledInput(QWidget* parent = nullptr);

    void setCaption(const QString& caption);
    [[nodiscard]] VantryTextField& field() noexcept { return *line; }

private:
    Label* label;
    VantryTextField* line;
};

}  // namespace vantry
