#pragma once

#include "Vantry/interface/design/SegmentedChoice.h"

namespace vantry {

/// The tabs of a page: a strip whose chosen title is semibold, with a dot beneath it. One control for
/// keyboards and assistive tools: a group with a name, within which the arrow keys choose.
class WorkspaceTabs final : public SegmentedChoice {
    Q_OBJECT

public:
    explicit WorkspaceTabs(int count, QWidget* parent = nullptr);

    /// The titles in the language of the interface, and the name of the group in the same.
    void setTitles(const QStringList& titles, bool english);
};

}  // namespace vantry
