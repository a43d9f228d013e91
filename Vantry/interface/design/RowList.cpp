#include "Vantry/interface/design/RowList.h"

#include <QHBoxLayout>
#include <QPaintEvent>
#include <QPainter>

#include "Vantry/interface/design/Palette.h"
#include "Vantry/interface/design/Surface.h"

namespace vantry {

ListCard::ListCard(int rowHeight, Make make, Fill fill, QWidget* parent)
    : LazyCells({rowHeight, Metrics::hairline}, std::move(make), std::move(fill), parent) {}

void ListCard::paintEvent(QPaintEvent* event) {
    const Palette& palette = Palette::of(*this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintSurface(painter, rect(), {palette.card, palette.rule, Metrics::hairline, Metrics::radiusCard});
    const int step = place(0).height() + Metrics::hairline;
    const auto last = static_cast<int>(count()) - 1;
    const int from = qBound(0, event->rect().top() / step, last);
    const int to = qBound(0, event->rect().bottom() / step + 1, last);
    for (int index = from; index < to; ++index)
        painter.fillRect(0, (index + 1) * step - Metrics::hairline, width(), Metrics::hairline, palette.rule);
}

namespace {

/// What a row's widget holds.
class Line final : public QWidget {
public:
    using QWidget::QWidget;

    RowButton* button = nullptr;
    RowMenuButton* menu = nullptr;  ///< for the life of the row, or never
};

}  // namespace

RowList::RowList(QWidget* parent)
    : ListCard(
          Metrics::rowHeight, [this](const QByteArray& key, QWidget* holder) { return makeRow(key, holder); },
          [this](QWidget& line, const QByteArray& key) { fillRow(line, key); }, parent) {}

QWidget* RowList::makeRow(const QByteArray& key, QWidget* holder) {
    auto* line = new Line(holder);
    line->button = new RowButton(line);
    auto* row = new QHBoxLayout(line);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(line->button, 1);
    connect(line->button, &RowButton::clicked, this, [this, key] { emit activated(key); });
    if (rows[key].menu.isEmpty())
        return line;
    line->menu = new RowMenuButton(line);
    row->addWidget(line->menu);
    // The sign of the menu, not its button, stands on the card's inner edge.
    row->addSpacing(Metrics::paddingCard - (Metrics::controlHeight - Metrics::iconLarge) / 2);
    connect(line->menu, &RowMenuButton::clicked, this,
            [this, key, opener = line->menu] { emit menuWanted(key, opener); });
    return line;
}

void RowList::fillRow(QWidget& cell, const QByteArray& key) const {
    auto& line = static_cast<Line&>(cell);
    const auto row = rows.constFind(key);
    line.button->setContent(row->content);
    if (line.menu != nullptr)
        line.menu->setPlain(row->menu);
}

void RowList::setRows(const QList<Row>& wanted) {
    QList<QByteArray> order;
    order.reserve(wanted.size());
    rows.clear();
    rows.reserve(wanted.size());
    for (const Row& row : wanted) {
        rows.insert(row.key, row);
        order.append(row.key);
    }
    const bool isEmpty = order.isEmpty();
    setKeys(std::move(order));
    setVisible(!isEmpty);
}

}  // namespace vantry
