#include "gallery/Board.h"

#include <algorithm>
#include <utility>

#include <QResizeEvent>
#include <QShowEvent>
#include <QVBoxLayout>

#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/SectionLabel.h"

namespace vantry::gallery {
namespace {

constexpr int columns = 2;
constexpr int columnWidth = 636;
constexpr int gapColumns = 48;

}  // namespace

Section::Section(Board& shownOn, const Phrase& title)
    : QWidget(&shownOn)
    , board(shownOn)
    , rows(new QVBoxLayout(this))
    , name(title.in(true)) {
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(Metrics::gapCard);
    auto* label = new SectionLabel(this);
    board.say([label](const QString& text) { label->setTexts(text); }, title);
    rows->addWidget(label);
    startRow();
    rows->addStretch();
}

void Section::startRow() {
    row = new QHBoxLayout;
    row->setSpacing(Metrics::gapCard);
    row->addStretch();
    rows->insertLayout(std::max(1, rows->count() - 1), row);
}

void Section::add(QWidget* component, const Phrase& caption, int share) {
    auto* label = new Label(VantryType::Role::caption, &Palette::muted, Label::Length::cut, this);
    board.say([label](const QString& text) { label->setPlain(text); }, caption);
    auto* cell = new QVBoxLayout;
    cell->setSpacing(Metrics::gapCaption);
    cell->addWidget(component, 0, share > 0 ? Qt::Alignment() : Qt::AlignLeft);
    cell->addWidget(label);
    cell->addStretch();
    row->insertLayout(row->count() - 1, cell, share);
    board.addSpecimen(*component, name + QStringLiteral(" / ") + caption.in(true));
}

void Section::add(QWidget* component, State state, int share) {
    add(component, nameOf(state), share);
    if (state != State::normal)
        board.force(*component, state);
}

Board::Board(QWidget* parent)
    : QWidget(parent)
    , grid(new QGridLayout(this)) {
    grid->setContentsMargins(Metrics::paddingPage, Metrics::paddingPage, Metrics::paddingPage,
                             Metrics::paddingEmpty);
    grid->setHorizontalSpacing(gapColumns);
    grid->setVerticalSpacing(Metrics::paddingEmpty);
    for (int column = 0; column < columns; ++column)
        grid->setColumnMinimumWidth(column, columnWidth);
    setFixedWidth(columns * columnWidth + gapColumns + 2 * Metrics::paddingPage);
}

Section& Board::section(const Phrase& title, Width width) {
    auto* section = new Section(*this, title);
    if (width == Width::full) {
        nextCell += nextCell % columns;
        grid->addWidget(section, nextCell / columns, 0, 1, columns);
        nextCell += columns;
    } else {
        grid->addWidget(section, nextCell / columns, nextCell % columns);
        ++nextCell;
    }
    return *section;
}

void Board::say(const std::function<void(bool)>& speak) {
    speak(english);
    phrases.push_back(speak);
}

void Board::say(const std::function<void(const QString&)>& show, const Phrase& phrase) {
    say([show, phrase](bool inEnglish) { show(phrase.in(inEnglish)); });
}

void Board::force(QWidget& control, State state) {
    forced.emplace_back(&control, state);
}

void Board::addSpecimen(QWidget& component, const QString& name) {
    shown.emplace_back(&component, name);
}

void Board::setEnglish(bool inEnglish) {
    if (english == inEnglish)
        return;
    english = inEnglish;
    for (const auto& speak : phrases)
        speak(english);
}

std::vector<Board::Specimen> Board::specimens() const {
    std::vector<Specimen> found;
    for (const auto& [component, name] : shown)
        found.push_back({name, QRect(component->mapTo(this, QPoint()), component->size())});
    return found;
}

void Board::forceAll() {
    if (std::exchange(forcing, true))
        return;
    // Later, when everything has its place: a ring looks for its own once, and only where it is to be seen.
    QMetaObject::invokeMethod(
        this,
        [this] {
            forcing = false;
            for (const auto& [control, state] : forced)
                gallery::force(*control, state);
        },
        Qt::QueuedConnection);
}

void Board::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    forceAll();
}

void Board::moveEvent(QMoveEvent* event) {
    QWidget::moveEvent(event);
    forceAll();
}

void Board::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    forceAll();
}

}  // namespace vantry::gallery
