#pragma once

#include <QWidget>

#include "VantryCore/records/VantryTake.h"

namespace vantry {

class Label;
class SegmentedChoice;

/// The choice of what is recorded, with a line that says what the modes mean.
class SoundPicker final : public QWidget {
    Q_OBJECT

public:
    explicit SoundPicker(QWidget* parent = nullptr);

    /// Shows the texts of the language and the mode that is set.
    void fill(SoundMode mode, bool english);

signals:
    void chosen(vantry::SoundMode mode);

private:
    Label* caption;
    SegmentedChoice* choice;
    Label* note;
};

}  // namespace vantry
