#include "Vantry/interface/design/Compose.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "Vantry/interface/design/WorkspaceColumns.h"

namespace vantry {
namespace {

QWidget* makeHolder() {
    auto* holder = new QWidget;
    // Not the height of its hint at least: that belongs to another width.
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    holder->setSizePolicy(policy);
    return holder;
}

QWidget* hold(QBoxLayout* layout, QWidget* holder, int gap, int share,
              std::initializer_list<QWidget*> parts) {
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(gap);
    for (QWidget* part : parts)
        layout->addWidget(part, share);
    return holder;
}

}  // namespace

QWidget* column(int gap, std::initializer_list<QWidget*> parts) {
    QWidget* const holder = makeHolder();
    return hold(new QVBoxLayout(holder), holder, gap, 0, parts);
}

QWidget* row(int gap, std::initializer_list<QWidget*> parts) {
    QWidget* const holder = makeHolder();
    return hold(new QHBoxLayout(holder), holder, gap, 1, parts);
}

QWidget* columns(int minimum, int gap, std::initializer_list<QWidget*> parts) {
    QWidget* const holder = makeHolder();
    auto* layout = new WorkspaceColumns(minimum, gap, holder);
    for (QWidget* part : parts)
        layout->addWidget(part);
    return holder;
}

QWidget* leading(QWidget* part) {
    auto* holder = new QWidget;
    auto* layout = new QHBoxLayout(holder);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(part);
    layout->addStretch();
    holder->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    return holder;
}

}  // namespace vantry
