#pragma once

#include <functional>
#include <vector>

#include "Vantry/interface/design/WorkSheet.h"
#include "VantryCore/records/Shot.h"

namespace vantry {

class Button;
class DrawingSurface;
class VantryStore;

/// Where a shot's storyboard is drawn. It starts with the strokes that the shot has when it opens; from then
/// on it keeps to its own: what happens to the shot meanwhile does not reach it, and saving stores the
/// strokes of the sheet in place of whatever the shot has by then. Nothing but saving reaches the store.
///
/// It follows language and appearance by itself. Undo (Ctrl+Z) takes back strokes here, never anything else.
class DrawingSheet final : public WorkSheet {
    Q_OBJECT

public:
    DrawingSheet(VantryStore& store, QWidget* parent);

    /// Opens with that shot. `save` is called at most once, with the strokes to store; it finds the shot
    /// anew, which may have gone. Does nothing while the sheet is open.
    void present(const Shot& shot, std::function<void(const std::vector<Stroke>&)> save);
    [[nodiscard]] DrawingSurface& surface() noexcept { return *drawingSurface; }

private:
    void makeButtons();
    void refresh();
    void saveAndClose();

    VantryStore& store;
    std::function<void(const std::vector<Stroke>&)> save;
    DrawingSurface* drawingSurface;
    Button* undo;
    Button* clear;
    Button* cancel;
    Button* confirm;
};

}  // namespace vantry
