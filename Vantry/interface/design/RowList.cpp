#include "Vantry/interface/design/RowList.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QSet>
#include <QVBoxLayout>

#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/Palette.h"

namespace vantry {

RowList::RowList(QWidget* parent)
    : QWidget(parent)
    , column(new QVBoxLayout(this)) {
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Metrics::hairline);
}

RowList::Line& RowList::add(const QByteArray& key, bool hasMenu) {
    Line line;
    line.place = new QWidget(this);
    line.button = new RowButton(line.place);
    auto* row = new QHBoxLayout(line.place);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(line.button, 1);
    connect(line.button, &RowButton::clicked, this, [this, key] { emit activated(key); });
    if (hasMenu) {
        line.menu = new RowMenuButton(line.place);
        row->addWidget(line.menu);
        // The sign of the menu, not its button, stands on the card's inner edge.
        row->addSpacing(Metrics::paddingCard - (Metrics::controlHeight - Metrics::iconLarge) / 2);
        connect(line.menu, &RowMenuButton::clicked, this,
                [this, key, opener = line.menu] { emit menuWanted(key, opener); });
    }
    return *lines.insert(key, line);
}

void RowList::setRows(const QList<Row>& rows) {
    QList<QByteArray> wanted;
    wanted.reserve(rows.size());
    for (const Row& row : rows) {
        const auto known = lines.find(row.key);
        const Line& line = known != lines.end() ? *known : add(row.key, !row.menu.isEmpty());
        line.button->setContent(row.content);
        if (line.menu != nullptr)
            line.menu->setPlain(row.menu);
        wanted.append(row.key);
    }
    setVisible(!rows.isEmpty());
    if (wanted != order)
        arrange(std::move(wanted));
}

void RowList::arrange(QList<QByteArray> wanted) {
    const QSet<QByteArray> staying(wanted.cbegin(), wanted.cend());
    for (const QByteArray& key : std::as_const(order)) {
        if (staying.contains(key))
            continue;
        QWidget* gone = lines.take(key).place;
        column->removeWidget(gone);
        gone->hide();
        gone->deleteLater();
    }
    QWidget* previous = nullptr;
    for (qsizetype index = 0; index < wanted.size(); ++index) {
        const Line line = lines.value(wanted[index]);
        const int place = static_cast<int>(index);
        if (column->indexOf(line.place) != place) {
            column->removeWidget(line.place);
            column->insertWidget(place, line.place);
        }
        line.place->show();
        // Assistive tools walk through the rows in the order in which they were raised.
        line.place->raise();
        if (previous != nullptr)
            QWidget::setTabOrder(previous, line.button);
        previous = line.button;
        if (line.menu == nullptr)
            continue;
        QWidget::setTabOrder(line.button, line.menu);
        previous = line.menu;
    }
    order = std::move(wanted);
    update();
}

void RowList::paintEvent(QPaintEvent*) {
    const Palette& palette = Palette::of(*this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    constexpr qreal half = Metrics::hairline / 2.0;
    painter.setPen(QPen(palette.rule, Metrics::hairline));
    painter.setBrush(palette.card);
    painter.drawRoundedRect(QRectF(rect()).adjusted(half, half, -half, -half), Metrics::radiusCard,
                            Metrics::radiusCard);
    for (int index = 1; index < column->count(); ++index) {
        const qreal y = column->itemAt(index)->geometry().top() - half;
        painter.drawLine(QPointF(0, y), QPointF(width(), y));
    }
}

}  // namespace vantry
