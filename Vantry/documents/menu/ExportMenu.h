#pragma once

#include "Vantry/interface/design/Button.h"
#include "VantryCore/records/Identifier.h"

class QMenu;

namespace vantry {

class PanelOperation;
class VantryStore;
struct Project;

/// The button that starts the documents of a production.
class ExportMenu final : public Button {
    Q_OBJECT

public:
    /// `store` must outlive this.
    ExportMenu(VantryStore& store, const Identifier& projectID, QWidget* parent = nullptr);

    /// Shows the button's text in the language of the store.
    void refresh();

private:
    void open();
    void addDocuments(QMenu& menu);
    void addCallSheets(QMenu& menu, const Project& project);
    [[nodiscard]] QString text(QStringView zh, QStringView en) const;

    VantryStore& store;
    const Identifier projectID;
    PanelOperation* saving;
};

}  // namespace vantry
