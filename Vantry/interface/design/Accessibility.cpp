#include "Vantry/interface/design/Accessibility.h"

#include <QAccessibleWidget>
#include <QMenu>

#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/Page.h"
#include "Vantry/interface/design/SegmentedChoice.h"
#include "Vantry/interface/design/Sheet.h"
#include "Vantry/interface/design/StarRating.h"

namespace vantry {
namespace {

/// A star is pressed like a button and tells its value both as such and, for tools that show no values of
/// buttons, as its description.
class StarAccessible final : public QAccessibleWidget {
public:
    explicit StarAccessible(StarButton* star)
        : QAccessibleWidget(star, QAccessible::Button)
        , button(star) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Value || kind == QAccessible::Description)
            return button->value();
        return kind == QAccessible::Help ? button->accessibleDescription() : QAccessibleWidget::text(kind);
    }
    [[nodiscard]] QStringList actionNames() const override {
        return QStringList{pressAction()} + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& name) override {
        if (name != pressAction())
            QAccessibleWidget::doAction(name);
        else if (button->isEnabled())
            button->click();
    }

private:
    StarButton* button;
};

/// A segment is chosen by a press or, as tools do it with radio buttons, by a toggle: either is a click.
class SegmentAccessible final : public QAccessibleWidget {
public:
    explicit SegmentAccessible(Segment* segment)
        : QAccessibleWidget(segment, QAccessible::RadioButton)
        , button(segment) {}

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = true;
        state.checked = button->isChecked();
        return state;
    }
    [[nodiscard]] QStringList actionNames() const override {
        return QStringList{pressAction(), toggleAction()} + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& name) override {
        if (name != pressAction() && name != toggleAction())
            QAccessibleWidget::doAction(name);
        else if (button->isEnabled())
            button->click();
    }

private:
    Segment* button;
};

/// A button whose menu, while it is open, is its child.
class MenuOpenerAccessible final : public QAccessibleWidget {
public:
    explicit MenuOpenerAccessible(Pressable* opener)
        : QAccessibleWidget(opener, QAccessible::ButtonMenu)
        , button(opener) {}

    [[nodiscard]] int childCount() const override { return menu() != nullptr ? 1 : 0; }
    [[nodiscard]] QAccessibleInterface* child(int index) const override {
        return index == 0 ? QAccessible::queryAccessibleInterface(menu()) : nullptr;
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override {
        return child != nullptr && menu() != nullptr && child->object() == menu() ? 0 : -1;
    }
    [[nodiscard]] QStringList actionNames() const override {
        return QStringList{pressAction(), showMenuAction()} + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& name) override {
        if (name != pressAction() && name != showMenuAction())
            QAccessibleWidget::doAction(name);
        else if (button->isEnabled())
            button->click();
    }

private:
    [[nodiscard]] QMenu* menu() const {
        auto* found = button->findChild<QMenu*>(QString(), Qt::FindDirectChildrenOnly);
        return found != nullptr && found->isVisible() ? found : nullptr;
    }

    Pressable* button;
};

class SheetAccessible final : public QAccessibleWidget {
public:
    explicit SheetAccessible(Sheet* shown)
        : QAccessibleWidget(shown, QAccessible::Dialog)
        , sheet(shown) {}

    [[nodiscard]] QAccessible::Role role() const override {
        return sheet->isAlert() ? QAccessible::AlertMessage : QAccessible::Dialog;
    }

private:
    Sheet* sheet;
};

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
    if (auto* star = qobject_cast<StarButton*>(object))
        return new StarAccessible(star);
    if (auto* segment = qobject_cast<Segment*>(object))
        return new SegmentAccessible(segment);
    if (auto* button = qobject_cast<Pressable*>(object); button != nullptr && button->isMenuOpener())
        return new MenuOpenerAccessible(button);
    if (auto* choice = qobject_cast<SegmentedChoice*>(object))
        return new QAccessibleWidget(choice, QAccessible::Grouping);
    if (auto* rating = qobject_cast<StarRating*>(object))
        return new QAccessibleWidget(rating, QAccessible::Grouping);
    if (auto* sheet = qobject_cast<Sheet*>(object))
        return new SheetAccessible(sheet);
    if (auto* page = qobject_cast<Page*>(object))
        return new QAccessibleWidget(page, QAccessible::Pane);
    return nullptr;
}

}  // namespace

void installAccessibility() {
    static const bool installed = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    static_cast<void>(installed);
}

}  // namespace vantry
