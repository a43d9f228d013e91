#pragma once

#include "Vantry/app/FilePanels.h"

class QFileDialog;
class QWidget;

namespace vantry {

/// The desktop's own choosers of files, or Qt's where it has none. A chooser lies over the topmost window or
/// sheet and blocks that alone. It starts in the folder that was last used in this run, at first in the
/// person's documents; the next run begins there again.
class NativeFilePanels final : public FilePanels {
public:
    [[nodiscard]] std::optional<std::filesystem::path> open(Content content, bool english) override;
    [[nodiscard]] std::optional<std::filesystem::path> save(Content content, const std::string& suggestedName,
                                                            bool english) override;

    /// Whether a chooser is on screen at this moment. There is never a second one: asked for it, the answer
    /// is nothing.
    [[nodiscard]] bool isOpen() const noexcept { return opened; }

private:
    [[nodiscard]] std::optional<std::filesystem::path> run(QFileDialog* made);

    std::filesystem::path lastFolder;
    bool opened = false;
};

}  // namespace vantry
