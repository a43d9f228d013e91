#pragma once

#include <functional>
#include <optional>
#include <utility>

#include <QStringView>

#include "Vantry/app/VantryStore.h"
#include "Vantry/interface/design/Page.h"
#include "Vantry/interface/design/TextBinding.h"
#include "Vantry/interface/pages/PageContext.h"

namespace vantry {

/// A page over the store: it reads records anew each time, sends changes back by identifier, and publishes
/// only what the person did.
class StorePage : public Page {
    Q_OBJECT

protected:
    explicit StorePage(PageContext context, QWidget* parent = nullptr);

    [[nodiscard]] VantryStore& store() const noexcept { return context.store; }
    void go(const Route& route) const { context.go(route); }

    /// The one of both texts that the language asks for.
    [[nodiscard]] QString text(QStringView zh, QStringView en) const;

    /// Runs what the person asked for. What it throws is shown as the store's error and goes no further; a
    /// control that ran ahead of the store is brought back in line.
    void perform(const std::function<void()>& action) const;
    /// A slot that performs `action` with the signal's arguments.
    template <class Action>
    [[nodiscard]] auto performing(Action action) const {
        return [this, action = std::move(action)](const auto&... arguments) {
            perform([&] { action(arguments...); });
        };
    }

    /// A field's way to a text of a record: `read` gives nothing when the record is gone.
    [[nodiscard]] TextBinding binding(std::function<std::optional<Text>()> read,
                                      std::function<void(const Text&)> write) const;

    const PageContext context;
};

}  // namespace vantry
