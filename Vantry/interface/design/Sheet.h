#pragma once

#include <QDialog>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace vantry {

class Button;
class Label;

/// A small dialog over a window: a title, its content, buttons at the right. It is window-modal; show it by
/// `open()`.
class Sheet : public QDialog {
    Q_OBJECT

public:
    explicit Sheet(QWidget* parent);

    void setTitle(const QString& title);
    [[nodiscard]] QVBoxLayout& content() noexcept { return *column; }
    /// The buttons, the confirming one last.
    [[nodiscard]] QHBoxLayout& buttons() noexcept { return *row; }

protected:
    bool event(QEvent* event) override;

private:
    Label* heading;
    QVBoxLayout* column;
    QHBoxLayout* row;
};

/// Tells the person one thing, with one button.
class AlertSheet final : public Sheet {
    Q_OBJECT

public:
    explicit AlertSheet(QWidget* parent);

    void setTexts(const QString& title, const QString& message, const QString& button);

private:
    Label* text;
    Button* confirm;
};

/// Asks the person before something is taken away. Return, Esc and the first button reject; only the
/// destructive button accepts, and a held key presses it once.
class QuestionSheet final : public Sheet {
    Q_OBJECT

public:
    explicit QuestionSheet(QWidget* parent);

    void setTexts(const QString& question, const QString& no, const QString& yes);
    /// Opens with the keyboard on the button that changes nothing.
    void ask();

private:
    Button* cancel;
    Button* confirm;
};

}  // namespace vantry
