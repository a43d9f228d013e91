#pragma once

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "Vantry/interface/design/SheetWindow.h"
#include "Vantry/interface/design/VantryType.h"

class QScrollArea;

namespace vantry {

class Button;
class Label;

/// A small dialog over a window: a title, its content, buttons at the right. Where the window is too low for
/// it, what is between title and buttons scrolls.
class Sheet : public SheetWindow {
    Q_OBJECT

public:
    /// `title` is the type of its title.
    explicit Sheet(QWidget* parent, VantryType::Role title = VantryType::Role::heading);

    void setTitle(const QString& title);
    /// What it has to tell, below the title. With a message it is an alert to assistive tools.
    void setMessage(const QString& message);
    [[nodiscard]] bool isAlert() const noexcept { return message != nullptr; }
    [[nodiscard]] QVBoxLayout& content() noexcept { return *column; }
    /// The buttons, the confirming one last.
    [[nodiscard]] QHBoxLayout& buttons() noexcept { return *row; }

protected:
    /// Puts the sign of a failure in front of title and message, or takes it away.
    void setFailure(bool failure);
    /// As wide as all are, and as high as its wrapped texts need at that width.
    [[nodiscard]] QSize wantedSize() override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    Label* heading;
    Label* message = nullptr;
    QScrollArea* body;
    QVBoxLayout* column;
    QHBoxLayout* row;
    bool isFailure = false;
};

/// Tells the person one thing, with one button.
class AlertSheet final : public Sheet {
    Q_OBJECT

public:
    explicit AlertSheet(QWidget* parent);

    using Sheet::setFailure;
    void setTexts(const QString& title, const QString& message, const QString& button);

private:
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
    /// Asks, and runs events until the person has answered: whether it was accepted.
    [[nodiscard]] bool waitForAnswer();

private:
    Button* cancel;
    Button* confirm;
};

}  // namespace vantry
