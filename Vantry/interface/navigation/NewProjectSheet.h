#pragma once

#include "Vantry/interface/design/Sheet.h"

namespace vantry {

class Button;
class VantryTextField;

/// Asks for the name and the director of a new production.
class NewProjectSheet final : public Sheet {
    Q_OBJECT

public:
    explicit NewProjectSheet(QWidget* parent);

    /// While the library cannot be written nothing can be created.
    void refresh(bool english, bool loadFailed);
    /// Opens with both fields empty.
    void start();

    /// As typed.
    [[nodiscard]] QString name() const;
    [[nodiscard]] QString director() const;

signals:
    /// The person asks to create it. The sheet stays open.
    void createPressed();

private:
    void fillCreate();

    bool canWrite = true;
    VantryTextField* nameField;
    VantryTextField* directorField;
    Button* cancel;
    Button* create;
};

}  // namespace vantry
