#include "Vantry/interface/design/RowList.h"

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

RowButton* RowList::add(const QByteArray& key) {
    auto* button = new RowButton(this);
    connect(button, &RowButton::clicked, this, [this, key] { emit activated(key); });
    buttons.insert(key, button);
    return button;
}

void RowList::setRows(const QList<Row>& rows) {
    QList<QByteArray> wanted;
    wanted.reserve(rows.size());
    for (const Row& row : rows) {
        RowButton* button = buttons.value(row.key);
        if (button == nullptr)
            button = add(row.key);
        button->setContent(row.content);
        wanted.append(row.key);
    }
    setVisible(!rows.isEmpty());
    if (wanted == order)
        return;
    const QSet<QByteArray> staying(wanted.cbegin(), wanted.cend());
    for (const QByteArray& key : std::as_const(order)) {
        if (staying.contains(key))
            continue;
        RowButton* gone = buttons.take(key);
        column->removeWidget(gone);
        gone->hide();
        gone->deleteLater();
    }
    RowButton* previous = nullptr;
    for (qsizetype index = 0; index < wanted.size(); ++index) {
        RowButton* button = buttons.value(wanted[index]);
        const int place = static_cast<int>(index);
        if (column->indexOf(button) != place) {
            column->removeWidget(button);
            column->insertWidget(place, button);
        }
        button->show();
        if (previous != nullptr)
            QWidget::setTabOrder(previous, button);
        previous = button;
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
