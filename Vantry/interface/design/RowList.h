#pragma once

#include <QHash>
#include <QList>
#include <QWidget>

#include "Vantry/interface/design/RowButton.h"

class QVBoxLayout;

namespace vantry {

/// A card of rows, parted by hairlines. Rows are known by a key: bringing the list in line keeps the widget
/// of each key that stays, with its focus, and the keyboard walks through them in their order.
class RowList final : public QWidget {
    Q_OBJECT

public:
    struct Row {
        QByteArray key;  ///< unique in the list
        RowContent content;
    };

    explicit RowList(QWidget* parent = nullptr);

    void setRows(const QList<Row>& rows);
    [[nodiscard]] qsizetype count() const noexcept { return order.size(); }

signals:
    /// The person pressed the row with this key.
    void activated(const QByteArray& key);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    RowButton* add(const QByteArray& key);

    QVBoxLayout* column;
    QList<QByteArray> order;
    QHash<QByteArray, RowButton*> buttons;
};

}  // namespace vantry
