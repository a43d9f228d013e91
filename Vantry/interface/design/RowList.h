#pragma once

#include <QHash>
#include <QList>
#include <QWidget>

#include "Vantry/interface/design/LazyCells.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/RowButton.h"

namespace vantry {

/// A card around a list: its rows are parted by hairlines and lie within its round corners.
class ListCard : public LazyCells {
    Q_OBJECT

public:
    ListCard(int rowHeight, Make make, Fill fill, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// A card of rows, each with a sign, a name and a line of facts, some with a menu.
class RowList final : public ListCard {
    Q_OBJECT

public:
    struct Row {
        QByteArray key;  ///< unique in the list
        RowContent content;
        QString menu{};  ///< the name of the button that opens the row's menu; empty: it has none
    };

    explicit RowList(QWidget* parent = nullptr);

    /// Without rows it is not to be seen.
    void setRows(const QList<Row>& rows);

signals:
    /// The person pressed the row with this key.
    void activated(const QByteArray& key);
    /// The person asks for the menu of the row with this key, by the button `opener`.
    void menuWanted(const QByteArray& key, QWidget* opener);

private:
    [[nodiscard]] QWidget* makeRow(const QByteArray& key, QWidget* holder);
    void fillRow(QWidget& line, const QByteArray& key) const;

    QHash<QByteArray, Row> rows;
};

}  // namespace vantry
