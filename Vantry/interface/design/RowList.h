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
        QString
            menu{};  ///< the name of the button that opens the row's menu; empty, now and later: it has none
    };

    explicit RowList(QWidget* parent = nullptr);

    void setRows(const QList<Row>& rows);
    [[nodiscard]] qsizetype count() const noexcept { return order.size(); }

signals:
    /// The person pressed the row with this key.
    void activated(const QByteArray& key);
    /// The person asks for the menu of the row with this key, by the button `opener`.
    void menuWanted(const QByteArray& key, QWidget* opener);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Line {
        QWidget* place = nullptr;
        RowButton* button = nullptr;
        RowMenuButton* menu = nullptr;  ///< for the life of the row, or never
    };

    Line& add(const QByteArray& key, bool hasMenu);
    void arrange(QList<QByteArray> wanted);

    QVBoxLayout* column;
    QList<QByteArray> order;
    QHash<QByteArray, Line> lines;
};

}  // namespace vantry
