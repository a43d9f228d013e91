#include "Vantry/interface/design/Accessibility.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QMenu>

#include "Vantry/interface/design/Button.h"
#include "Vantry/interface/design/Page.h"
#include "Vantry/interface/design/PressableSurface.h"
#include "Vantry/interface/design/SegmentedChoice.h"
#include "Vantry/interface/design/Sheet.h"
#include "Vantry/interface/design/StarRating.h"
#include "Vantry/interface/design/VantryBrandMark.h"
#include "Vantry/interface/design/VantryDisclosure.h"

namespace vantry {
namespace {

/// What is pressed, by whichever of the names that tools have for it: each is a click.
class PressableAccessible : public QAccessibleWidget {
public:
    PressableAccessible(QAbstractButton* pressed, QAccessible::Role role, const QStringList& names)
        : QAccessibleWidget(pressed, role)
        , button(pressed)
        , actions(names) {}

    [[nodiscard]] QStringList actionNames() const override {
        return actions + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& name) override {
        if (!actions.contains(name))
            QAccessibleWidget::doAction(name);
        else if (button->isEnabled())
            button->click();
    }

private:
    QAbstractButton* button;
    const QStringList actions;
};

/// A button that tells its value both as such and, for tools that show no values of buttons, as its
/// description.
template <class Button>
class ValueAccessible : public PressableAccessible {
public:
    explicit ValueAccessible(Button* told)
        : PressableAccessible(told, QAccessible::Button, {QAccessibleActionInterface::pressAction()})
        , button(told) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Value || kind == QAccessible::Description)
            return button->value();
        return kind == QAccessible::Help ? button->accessibleDescription() : QAccessibleWidget::text(kind);
    }

protected:
    Button* button;
};

class DisclosureAccessible final : public ValueAccessible<DisclosureHeader> {
public:
    using ValueAccessible::ValueAccessible;

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.expanded = button->isExpanded();
        state.collapsed = !button->isExpanded();
        return state;
    }
};

/// A segment is chosen by a press or, as tools do it with radio buttons, by a toggle.
class SegmentAccessible final : public PressableAccessible {
public:
    explicit SegmentAccessible(Segment* shown)
        : PressableAccessible(shown, QAccessible::RadioButton, {pressAction(), toggleAction()})
        , segment(shown) {}

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        // Tab passes by all but the chosen one; tools may go to each.
        state.focusable = true;
        state.checkable = true;
        state.checked = segment->isChecked();
        state.selectable = true;
        state.selected = segment->isChecked();
        return state;
    }
    [[nodiscard]] QStringList actionNames() const override {
        QStringList names = PressableAccessible::actionNames();
        if (!names.contains(setFocusAction()))
            names.append(setFocusAction());
        return names;
    }

private:
    Segment* segment;
};

/// A row of a list of which one is chosen.
class ChosenAccessible final : public PressableAccessible {
public:
    explicit ChosenAccessible(PressableSurface* shown)
        : PressableAccessible(shown, QAccessible::Button, {pressAction()})
        , row(shown) {}

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.selectable = true;
        state.selected = row->isChosen().value_or(false);
        return state;
    }

private:
    PressableSurface* row;
};

/// A button whose menu, while it is open, is its child.
class MenuOpenerAccessible final : public PressableAccessible {
public:
    explicit MenuOpenerAccessible(Pressable* shown)
        : PressableAccessible(shown, QAccessible::ButtonMenu, {pressAction(), showMenuAction()})
        , opener(shown) {}

    [[nodiscard]] int childCount() const override { return menu() != nullptr ? 1 : 0; }
    [[nodiscard]] QAccessibleInterface* child(int index) const override {
        return index == 0 ? QAccessible::queryAccessibleInterface(menu()) : nullptr;
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override {
        return child != nullptr && menu() != nullptr && child->object() == menu() ? 0 : -1;
    }

private:
    [[nodiscard]] QMenu* menu() const {
        auto* found = opener->findChild<QMenu*>(QString(), Qt::FindDirectChildrenOnly);
        return found != nullptr && found->isVisible() ? found : nullptr;
    }

    Pressable* opener;
};

class SheetAccessible final : public QAccessibleWidget {
public:
    explicit SheetAccessible(SheetWindow* shown)
        : QAccessibleWidget(shown, QAccessible::Dialog)
        , sheet(shown) {}

    [[nodiscard]] QAccessible::Role role() const override {
        const auto* small = qobject_cast<Sheet*>(sheet);
        return small != nullptr && small->isAlert() ? QAccessible::AlertMessage : QAccessible::Dialog;
    }
    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.modal = sheet->isModal();
        return state;
    }

private:
    SheetWindow* sheet;
};

/// What only adorns: assistive tools pass over what nobody can see.
class DecorationAccessible final : public QAccessibleWidget {
public:
    explicit DecorationAccessible(QWidget* decoration)
        : QAccessibleWidget(decoration, QAccessible::NoRole) {}

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.invisible = true;
        return state;
    }
};

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
    if (auto* star = qobject_cast<StarButton*>(object))
        return new ValueAccessible<StarButton>(star);
    if (auto* header = qobject_cast<DisclosureHeader*>(object))
        return new DisclosureAccessible(header);
    if (auto* segment = qobject_cast<Segment*>(object))
        return new SegmentAccessible(segment);
    if (auto* row = qobject_cast<PressableSurface*>(object); row != nullptr && row->isChosen())
        return new ChosenAccessible(row);
    if (auto* button = qobject_cast<Pressable*>(object); button != nullptr && button->isMenuOpener())
        return new MenuOpenerAccessible(button);
    if (auto* choice = qobject_cast<SegmentedChoice*>(object))
        return new QAccessibleWidget(choice, QAccessible::Grouping);
    if (auto* rating = qobject_cast<StarRating*>(object))
        return new QAccessibleWidget(rating, QAccessible::Grouping);
    if (auto* sheet = qobject_cast<SheetWindow*>(object))
        return new SheetAccessible(sheet);
    if (auto* page = qobject_cast<Page*>(object))
        return new QAccessibleWidget(page, QAccessible::Pane);
    if (auto* mark = qobject_cast<VantryBrandMark*>(object))
        return new DecorationAccessible(mark);
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
