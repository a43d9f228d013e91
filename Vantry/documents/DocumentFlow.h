#pragma once

#include <string>

#include "VantryCore/records/Shot.h"

namespace vantry {

/// What a document is written to, from top to bottom. The PDF writer makes pages of it; a recorder keeps the
/// lines.
class DocumentFlow {
public:
    DocumentFlow() = default;
    DocumentFlow(const DocumentFlow&) = delete;
    DocumentFlow& operator=(const DocumentFlow&) = delete;
    virtual ~DocumentFlow() = default;

    // All quantities are points.

    /// Writes a text of any length, each line feed a new paragraph.
    virtual void text(const std::string& utf8, double size, bool bold) = 0;
    void text(const std::string& utf8, double size) { text(utf8, size, false); }
    /// Leaves so much free.
    virtual void advance(double height) = 0;
    /// Starts a new page unless so much is left on this one.
    virtual void ensure(double height) = 0;
    /// Draws the shot's frame: its image, and the drawing over it. Nothing when it has neither.
    virtual void storyboard(const Shot& shot) = 0;
};

}  // namespace vantry
