#include "Vantry/interface/shots/ShotChooser.h"

#include <QKeyEvent>
#include <QScrollArea>
#include <QScrollBar>

#include "Vantry/app/QtText.h"
#include "Vantry/app/VantryStore.h"
#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/EmptyViewCard.h"
#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/RowList.h"
#include "Vantry/interface/design/VantryTextField.h"
#include "Vantry/interface/pages/RowKey.h"
#include "Vantry/interface/shots/ShotChooserRow.h"
#include "Vantry/interface/shots/ShotOrder.h"
#include "Vantry/interface/shots/ShotTexts.h"

namespace vantry {

ShotChooser::ShotChooser(VantryStore& source, const Identifier& project, const Identifier& shot,
                         QWidget* parent)
    : WorkSheet({Metrics::chooserWidth, Metrics::chooserHeight}, Footer::none, parent)
    , store(source)
    , projectID(project)
    , shotID(shot)
    , close(new Button(Button::Kind::quiet))
    , query(new VantryTextField)
    , note(new Label(VantryType::Role::caption, &Palette::muted, Label::Length::wrapped)) {
    close->setMinimumWidth(Metrics::dialogButtonWidth);
    actions().addWidget(close);
    content().setContentsMargins(Metrics::paddingCard, Metrics::gapCard, Metrics::paddingCard,
                                 Metrics::paddingCard);
    content().setSpacing(Metrics::gapField);
    auto* asking = new QVBoxLayout;
    asking->setSpacing(Metrics::gapInline);
    asking->addWidget(query);
    asking->addWidget(note);
    content().addLayout(asking);
    content().addWidget(makeBody(), 1);
    connect(close, &Button::clicked, this, &ShotChooser::reject);
    connect(query, &QLineEdit::textChanged, this, [this] {
        fillRows();
        area->verticalScrollBar()->setValue(0);
    });
}

QWidget* ShotChooser::makeBody() {
    area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::NoFocus);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->viewport()->setAutoFillBackground(false);
    auto* inside = new QWidget;
    auto* lines = new QVBoxLayout(inside);
    lines->setContentsMargins(0, 0, 0, 0);
    nothing = new EmptyViewCard(Glyph::search);
    list = new ListCard(
        Metrics::chooserRowHeight,
        [this](const QByteArray& key, QWidget* holder) { return makeRow(key, holder); },
        [this](QWidget& cell, const QByteArray& key) { fillRow(cell, key); });
    lines->addWidget(nothing);
    lines->addWidget(list);
    lines->addStretch();
    area->setWidget(inside);
    inside->setAutoFillBackground(false);
    return area;
}

QWidget* ShotChooser::makeRow(const QByteArray& key, QWidget* holder) {
    auto* row = new ShotChooserRow(holder);
    connect(row, &ShotChooserRow::clicked, this, [this, key] {
        if (const auto id = recordOf(key); id && rows.contains(key))
            emit chosen(Identifier(rows[key].act), *id);
    });
    return row;
}

void ShotChooser::fillRow(QWidget& cell, const QByteArray& key) const {
    const auto row = rows.constFind(key);
    if (row == rows.cend())
        return;
    static_cast<ShotChooserRow&>(cell).setContent(
        {row->actTitle, row->name,
         row->cancelled ? (store.english() ? QStringLiteral("Cancelled") : QStringLiteral("已取消"))
                        : QString(),
         key == rowKey(shotID)});
}

void ShotChooser::choose() {
    query->clear();
    query->setFocus();
    open();
    refresh();
    showCurrent();
}

void ShotChooser::refresh() {
    if (!isVisible())
        return;
    const bool english = store.english();
    setTitle(english ? QStringLiteral("Switch shot") : QStringLiteral("切换分镜"));
    close->setPlain(english ? QStringLiteral("Close") : QStringLiteral("关闭"));
    query->setTitle(english ? QStringLiteral("Search scene, shot code or title")
                            : QStringLiteral("搜索幕、镜号或名称"));
    note->setPlain(english
                       ? QStringLiteral("Previous / next follows project order and skips cancelled shots.")
                       : QStringLiteral("上／下一镜按项目顺序切换，自动跳过已取消的镜头。"));
    nothing->setTexts(english ? QStringLiteral("No matching shots") : QStringLiteral("没有匹配的分镜"), {});
    fillRows();
}

void ShotChooser::fillRows() {
    const auto project = store.project(projectID);
    rows.clear();
    keys.clear();
    if (project)
        for (const auto& [act, shot] : ShotOrder(*project).matching(query->text().toStdString())) {
            const QByteArray key = rowKey(shot->id);
            keys.append(key);
            rows.insert(key, {act->id, toQString(act->title), shotName(*shot), shot->cancelled});
        }
    nothing->setVisible(keys.isEmpty());
    list->setVisible(!keys.isEmpty());
    list->setKeys(keys);
}

/// Scrolls so that the shot of the page stands in the middle.
void ShotChooser::showCurrent() {
    const qsizetype index = keys.indexOf(rowKey(shotID));
    if (index < 0)
        return;
    area->widget()->layout()->activate();
    const int middle = static_cast<int>(index) * (Metrics::chooserRowHeight + Metrics::hairline) +
                       Metrics::chooserRowHeight / 2;
    area->verticalScrollBar()->setValue(middle - area->viewport()->height() / 2);
}

/// The row that the keyboard goes to from the field: the one in sight at first, the first that is found
/// later.
QWidget* ShotChooser::nearestRow() {
    const QByteArray current = rowKey(shotID);
    const bool searches = !query->text().trimmed().isEmpty();
    // A row that was scrolled out of sight does not exist.
    if (!searches && keys.contains(current)) {
        showCurrent();
        return list->cell(current);
    }
    area->verticalScrollBar()->setValue(0);
    return keys.isEmpty() ? nullptr : list->cell(keys.constFirst());
}

/// Return in the field goes to the first that is found, Down to the rows.
void ShotChooser::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && query->hasFocus()) {
        const bool searches = !query->text().trimmed().isEmpty();
        if (searches && !keys.isEmpty() && !event->isAutoRepeat())
            if (const auto id = recordOf(keys.constFirst()))
                emit chosen(Identifier(rows[keys.constFirst()].act), *id);
        return;
    }
    QWidget* const row = event->key() == Qt::Key_Down && query->hasFocus() ? nearestRow() : nullptr;
    if (row != nullptr)
        row->setFocus(Qt::TabFocusReason);
    else
        WorkSheet::keyPressEvent(event);
}

}  // namespace vantry
