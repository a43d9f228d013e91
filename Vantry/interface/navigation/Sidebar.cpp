#include "Vantry/interface/navigation/Sidebar.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QVBoxLayout>

#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/Label.h"
#include "Vantry/interface/design/Metrics.h"
#include "Vantry/interface/navigation/LibraryTree.h"
#include "Vantry/interface/navigation/LibraryTreeModel.h"
#include "Vantry/interface/navigation/NavigationRow.h"
#include "VantryCore/records/Library.h"

namespace vantry {

Sidebar::Sidebar(QWidget* parent)
    : QWidget(parent)
    , tagline(new Label(VantryType::Role::caption, &Palette::muted, Label::Length::cut, this))
    , library(new NavigationRow(Glyph::library, this))
    , contents(new Label(VantryType::Role::caption, &Palette::muted, Label::Length::cut, this))
    , expandButton(new Button(Button::Kind::crumb, Glyph::none, this))
    , collapseButton(new Button(Button::Kind::crumb, Glyph::none, this))
    , model(new LibraryTreeModel(this))
    , tree(new LibraryTree(this))
    , newProject(new Button(Button::Kind::quiet, Glyph::plus, this)) {
    tree->setModel(model);
    contents->setFont(VantryType::font(VantryType::Role::caption, QFont::DemiBold));

    auto* brand = new Label(VantryType::Role::emphasis, &Palette::ink, Label::Length::cut, this);
    brand->setPlain(QStringLiteral("Vantry"));
    brand->lower();
    auto* names = new QVBoxLayout;
    names->setContentsMargins(Metrics::paddingBrand + Metrics::brandWidth + Metrics::gapField,
                              Metrics::paddingBrand, Metrics::paddingBrand, Metrics::gapField);
    names->setSpacing(0);
    names->addWidget(brand);
    names->addWidget(tagline);

    auto* places = new QVBoxLayout;
    places->setContentsMargins(Metrics::paddingSidebar, 0, Metrics::paddingSidebar, 0);
    places->addWidget(library);

    auto* header = new QHBoxLayout;
    header->setContentsMargins(Metrics::gapSection, Metrics::gapInline, Metrics::gapCaption, 0);
    header->setSpacing(0);
    header->addWidget(contents, 1);
    header->addWidget(expandButton);
    header->addWidget(collapseButton);

    auto* rows = new QVBoxLayout;
    rows->setContentsMargins(Metrics::paddingSidebar, 0, 0, 0);
    rows->addWidget(tree);

    newProject->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    auto* foot = new QVBoxLayout;
    foot->setContentsMargins(Metrics::paddingSidebar, Metrics::paddingSidebar + Metrics::hairline,
                             Metrics::paddingSidebar, Metrics::paddingSidebar);
    foot->addWidget(newProject);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(names);
    column->addLayout(places);
    column->addLayout(header);
    column->addLayout(rows, 1);
    column->addLayout(foot);
    setMinimumWidth(Metrics::sidebarMinimum);
    setMaximumWidth(Metrics::sidebarMaximum);

    connect(library, &NavigationRow::clicked, this, [this] { emit routePressed(Route::library()); });
    auto* shortcut = new QShortcut(Qt::CTRL | Qt::Key_1, this);
    connect(shortcut, &QShortcut::activated, this, [this] { emit routePressed(Route::library()); });
    connect(newProject, &Button::clicked, this, &Sidebar::newProjectPressed);
    connect(expandButton, &Button::clicked, this, &Sidebar::expandAll);
    connect(collapseButton, &Button::clicked, this, &Sidebar::collapseAll);
    connect(tree, &LibraryTree::rowPressed, this, &Sidebar::pressRow);
    connect(tree, &LibraryTree::expanded, this, [this](const QModelIndex& index) {
        if (!changingAll)
            expanded.insert(LibraryTreeModel::recordOf(index));
    });
    connect(tree, &LibraryTree::collapsed, this, [this](const QModelIndex& index) {
        if (!changingAll)
            expanded.erase(LibraryTreeModel::recordOf(index));
    });
    connect(model, &LibraryTreeModel::rowsInserted, this, &Sidebar::reopen);
}

QSize Sidebar::sizeHint() const {
    return {Metrics::sidebarIdeal, QWidget::sizeHint().height()};
}

void Sidebar::refresh(const Library& records, const Route& route, bool english) {
    tagline->setPlain(english ? QStringLiteral("Production notebook") : QStringLiteral("拍摄工作空间"));
    library->setPlain(english ? QStringLiteral("Library") : QStringLiteral("资料库"));
    library->setChosen(route == Route::library());
    const QString title = english ? QStringLiteral("Contents") : QStringLiteral("目录");
    contents->setPlain(title);
    tree->setAccessibleName(title);
    expandButton->setPlain(english ? QStringLiteral("Expand all") : QStringLiteral("全部展开"));
    collapseButton->setPlain(english ? QStringLiteral("Collapse") : QStringLiteral("收起"));
    newProject->setPlain(english ? QStringLiteral("New project") : QStringLiteral("新建项目"));
    model->refresh(records, english);
    tree->setPlace(route.projectID() ? model->indexOf(route) : QModelIndex());
}

void Sidebar::expand(const Identifier& record) {
    expanded.insert(record);
    const QModelIndex index = model->indexOf(Route::project(record));
    if (index.isValid())
        tree->setExpanded(index, true);
}

void Sidebar::reopen(const QModelIndex& parent, int first, int last) {
    if (expanded.empty())
        return;
    const QScopedValueRollback guard(changingAll, true);
    for (int row = first; row <= last; ++row) {
        const QModelIndex index = model->index(row, 0, parent);
        if (LibraryTreeModel::kindOf(index) > LibraryTreeModel::Kind::shot ||
            !expanded.contains(LibraryTreeModel::recordOf(index)))
            continue;
        tree->setExpanded(index, true);
        reopen(index, 0, model->rowCount(index) - 1);
    }
}

void Sidebar::remember(const QModelIndex& parent) {
    for (int row = 0; row < model->rowCount(parent); ++row) {
        const QModelIndex index = model->index(row, 0, parent);
        if (LibraryTreeModel::kindOf(index) > LibraryTreeModel::Kind::shot)
            return;
        expanded.insert(LibraryTreeModel::recordOf(index));
        remember(index);
    }
}

void Sidebar::expandAll() {
    remember({});
    const QScopedValueRollback guard(changingAll, true);
    tree->expandAll();
}

void Sidebar::collapseAll() {
    expanded.clear();
    const QScopedValueRollback guard(changingAll, true);
    tree->collapseAll();
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
    paintBrandMark(
        painter,
        QRectF(Metrics::paddingBrand, Metrics::paddingBrand, Metrics::brandWidth, Metrics::brandHeight),
        palette.ink);
    const int foot = newProject->geometry().top() - Metrics::paddingSidebar - Metrics::hairline;
    painter.fillRect(0, foot, width(), Metrics::hairline, palette.rule);
}

}  // namespace vantry
