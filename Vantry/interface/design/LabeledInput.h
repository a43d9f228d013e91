#pragma once

#include <QWidget>

#include "Vantry/interface/design/VantryTextField.h"

namespace vantry {

class Label;

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
