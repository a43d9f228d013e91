#pragma once

#include <QHash>

#include "Vantry/interface/design/WorkSheet.h"
#include "VantryCore/records/Identifier.h"

class QScrollArea;

namespace vantry {

class Button;
class EmptyViewCard;
class Label;
class ListCard;
class VantryStore;
class VantryTextField;

/// All shots of a production, to go to one of them: each with its act, found by what is typed. It forgets
/// what was typed when it is closed.
class ShotChooser final : public WorkSheet {
    Q_OBJECT

public:
    /// `shotID` is the shot on the page.
    ShotChooser(VantryStore& store, const Identifier& projectID, const Identifier& shotID, QWidget* parent);

    /// Opens with nothing typed and the shot of the page in sight.
    void choose();
    /// Brings what is shown in line with the store.
    void refresh();

signals:
    /// The person chose; the sheet stays open, whoever is told closes it.
    void chosen(const vantry::Identifier& actID, const vantry::Identifier& shotID);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    struct Row {
        Identifier act;
        QString actTitle;
        QString name;
        bool cancelled = false;
    };

    [[nodiscard]] QWidget* makeBody();
    [[nodiscard]] QWidget* makeRow(const QByteArray& key, QWidget* holder);
    void fillRow(QWidget& cell, const QByteArray& key) const;
    void fillRows();
    void showCurrent();
    [[nodiscard]] QWidget* nearestRow();

    VantryStore& store;
    const Identifier projectID;
    const Identifier shotID;
    Button* close;
    VantryTextField* query;
    Label* note;
    EmptyViewCard* nothing = nullptr;
    ListCard* list = nullptr;
    QScrollArea* area = nullptr;
    QHash<QByteArray, Row> rows;
    QList<QByteArray> keys;
};

}  // namespace vantry
