#include "Vantry/interface/navigation/Sidebar.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QVBoxLayout>

#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/design/VantryBrandMark.h"
#include "Vantry/interface/navigation/LibraryTree.h"
#include "Vantry/interface/navigation/LibraryTreeModel.h"
#include "Vantry/interface/navigation/NavigationRow.h"
#include "VantryCore/records/Library.h"

namespace vantry {

Sidebar::Sidebar(QWidget* parent)
    : QWidget(parent)
    , model(new LibraryTreeModel(this)) {
    // Made in the order in which they stand: so the keyboard and assistive tools walk through them.
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(makeBrand());
    column->addLayout(makePlaces());
    column->addLayout(makeHeader());
    column->addLayout(makeTree(), 1);
    column->addLayout(makeFoot());
    setMinimumWidth(Metrics::sidebarMinimum);
    setMaximumWidth(Metrics::sidebarMaximum);

    connect(newProject, &Button::clicked, this, &Sidebar::newProjectPressed);
    connect(expandButton, &Button::clicked, this, &Sidebar::expandAll);
    connect(collapseButton, &Button::clicked, this, &Sidebar::collapseAll);
    connect(tree, &LibraryTree::rowPressed, this, &Sidebar::pressRow);
    connect(tree, &LibraryTree::expanded, this,
            [this](const QModelIndex& index) { expandBinding(index, true); });
    connect(tree, &LibraryTree::collapsed, this,
            [this](const QModelIndex& index) { expandBinding(index, false); });
    connect(model, &LibraryTreeModel::rowsInserted, this, &Sidebar::reopen);
}

QLayout* Sidebar::makeBrand() {
    auto* mark = new VantryBrandMark(this);
    mark->setFixedSize(Metrics::brandWidth, Metrics::brandHeight);
    auto* name = new Label(VantryType::Role::emphasis, &Palette::ink, Label::Length::cut, this);
    name->setPlain(QStringLiteral("Vantry"));
    tagline = new Label(VantryType::Role::caption, &Palette::muted, Label::Length::cut, this);
    auto* names = new QVBoxLayout;
    names->setSpacing(0);
    names->addStretch();
    names->addWidget(name);
    names->addWidget(tagline);
    names->addStretch();
    auto* block = new QHBoxLayout;
    constexpr int below = Metrics::brandBlockHeight - Metrics::paddingBrand - Metrics::brandHeight;
    block->setContentsMargins(Metrics::paddingBrand, Metrics::paddingBrand, Metrics::paddingSidebar, below);
    block->setSpacing(Metrics::gapField);
    block->addWidget(mark);
    block->addLayout(names, 1);
    return block;
}

QLayout* Sidebar::makePlaces() {
    auto* places = new QVBoxLayout;
    places->setContentsMargins(Metrics::paddingSidebar, 0, Metrics::paddingSidebar, 0);
    places->setSpacing(Metrics::gapLines);
    const auto add = [&](const QString& chinese, const QString& english, Glyph icon, const Route& route,
                         const QKeySequence& shortcut) {
        places->addWidget(navRow(chinese, english, icon, route, shortcut));
    };
    add(QStringLiteral("资料库"), QStringLiteral("Library"), Glyph::library, Route::library(),
        Qt::CTRL | Qt::Key_1);
    add(QStringLiteral("搜索"), QStringLiteral("Search"), Glyph::search, Route::search(),
        Qt::CTRL | Qt::Key_F);
    add(QStringLiteral("日历"), QStringLiteral("Calendar"), Glyph::calendar, Route::calendar(),
        Qt::CTRL | Qt::Key_3);
    add(QStringLiteral("设置"), QStringLiteral("Settings"), Glyph::settings, Route::settings(),
        Qt::CTRL | Qt::Key_Comma);
    return places;
}

NavigationRow* Sidebar::navRow(const QString& chinese, const QString& english, Glyph icon, const Route& route,
                               const QKeySequence& shortcut) {
    auto* row = new NavigationRow(icon, this);
    const auto press = [this, route] { emit routePressed(route); };
    connect(row, &NavigationRow::clicked, this, press);
    connect(new QShortcut(shortcut, this), &QShortcut::activated, this, press);
    destinations.push_back({row, chinese, english, route});
    return row;
}

QLayout* Sidebar::makeHeader() {
    contents = new Label(VantryType::Role::caption, &Palette::muted, Label::Length::cut, this);
    contents->setFont(VantryType::font(VantryType::Role::caption, QFont::DemiBold));
    expandButton = new Button(Button::Kind::crumb, Glyph::none, this);
    collapseButton = new Button(Button::Kind::crumb, Glyph::none, this);
    auto* header = new QHBoxLayout;
    // The buttons are higher than the line that they stand on, and wider than their texts.
    const int over = (Metrics::inlineHeight - VantryType::lineHeight(VantryType::Role::caption)) / 2;
    header->setContentsMargins(2 * Metrics::paddingSidebar, Metrics::gapCard - over,
                               Metrics::paddingSidebar - Metrics::paddingInline, Metrics::gapCaption - over);
    header->setSpacing(0);
    header->addWidget(contents, 1);
    header->addWidget(expandButton);
    header->addWidget(collapseButton);
    return header;
}

QLayout* Sidebar::makeTree() {
    tree = new LibraryTree(this);
    tree->setModel(model);
    auto* rows = new QVBoxLayout;
    // The strip of the scroll bar is the margin at the right.
    rows->setContentsMargins(Metrics::paddingSidebar, 0, 0, 0);
    rows->addWidget(tree);
    return rows;
}

QLayout* Sidebar::makeFoot() {
    newProject = new Button(Button::Kind::quiet, Glyph::plus, this);
    newProject->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    auto* foot = new QVBoxLayout;
    foot->setContentsMargins(Metrics::paddingSidebar, Metrics::paddingSidebar + Metrics::hairline,
                             Metrics::paddingSidebar, Metrics::paddingSidebar);
    foot->addWidget(newProject);
    return foot;
}

QSize Sidebar::sizeHint() const {
    return {Metrics::sidebarIdeal, QWidget::sizeHint().height()};
}

void Sidebar::refresh(const Library& library, const Route& route, bool english) {
    tagline->setPlain(english ? QStringLiteral("Production notebook") : QStringLiteral("拍摄工作空间"));
    for (const Destination& destination : destinations) {
        destination.row->setPlain(english ? destination.english : destination.chinese);
        destination.row->setChosen(route == destination.route);
    }
    const QString title = english ? QStringLiteral("Contents") : QStringLiteral("目录");
    contents->setPlain(title);
    tree->setAccessibleName(title);
    expandButton->setPlain(english ? QStringLiteral("Expand all") : QStringLiteral("全部展开"));
    collapseButton->setPlain(english ? QStringLiteral("Collapse") : QStringLiteral("收起"));
    newProject->setPlain(english ? QStringLiteral("New project") : QStringLiteral("新建项目"));
    tree->keepingPlace([&] { model->refresh(library, english); });
    tree->setPlace(route.projectID() ? model->indexOf(route) : QModelIndex());
}

void Sidebar::expand(const Identifier& project) {
    expanded.insert(project);
    const QModelIndex index = model->indexOf(Route::project(project));
    if (index.isValid())
        tree->setExpanded(index, true);
}

void Sidebar::expandBinding(const QModelIndex& index, bool open) {
    if (changingMany)
        return;
    if (open)
        expanded.insert(LibraryTreeModel::recordOf(index));
    else
        expanded.erase(LibraryTreeModel::recordOf(index));
}

void Sidebar::reopen(const QModelIndex& parent, int first, int last) {
    if (expanded.empty())
        return;
    std::vector<QModelIndex> rows;
    for (int row = first; row <= last; ++row)
        collect(model->index(row, 0, parent), rows, true);
    const QScopedValueRollback guard(changingMany, true);
    tree->reopen(rows);
}

void Sidebar::collect(const QModelIndex& row, std::vector<QModelIndex>& rows, bool onlyExpanded) const {
    if (!LibraryTreeModel::canOpen(row) ||
        (onlyExpanded && !expanded.contains(LibraryTreeModel::recordOf(row))))
        return;
    rows.push_back(row);
    if (LibraryTreeModel::kindOf(row) == LibraryTreeModel::Kind::shot)
        return;
    for (int child = 0; child < model->rowCount(row); ++child)
        collect(model->index(child, 0, row), rows, onlyExpanded);
}

void Sidebar::expandAll() {
    std::vector<QModelIndex> rows;
    for (int project = 0; project < model->rowCount({}); ++project)
        collect(model->index(project, 0, {}), rows, false);
    expanded.clear();
    expanded.reserve(rows.size());
    for (const QModelIndex& row : rows)
        expanded.insert(LibraryTreeModel::recordOf(row));
    const QScopedValueRollback guard(changingMany, true);
    tree->openAll(rows);
}

void Sidebar::collapseAll() {
    expanded.clear();
    const QScopedValueRollback guard(changingMany, true);
    tree->closeAll();
}

void Sidebar::pressRow(const QModelIndex& index) {
    const Route route = LibraryTreeModel::routeOf(index);
    if (LibraryTreeModel::kindOf(index) == LibraryTreeModel::Kind::newTake)
        emit newTakePressed(route);
    else
        emit routePressed(route);
}

void Sidebar::paintEvent(QPaintEvent*) {
    const Palette& palette = Palette::of(*this);
    QPainter painter(this);
    painter.fillRect(rect(), palette.navigation);
    const int foot = newProject->geometry().top() - Metrics::paddingSidebar - Metrics::hairline;
    painter.fillRect(0, foot, width(), Metrics::hairline, palette.rule);
}

}  // namespace vantry
