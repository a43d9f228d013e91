#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include <QMetaObject>
#include <QPointer>
#include <QWidget>

#include "Vantry/interface/routes/PageMemory.h"

class QAbstractScrollArea;

namespace vantry {

/// The probe behind a page's content that remembers where the page is scrolled, and scrolls it there again
/// when it comes back. It is nothing that anybody sees, clicks or hears of.
///
/// While it is on screen it first restores, then records every move. Both steps are deferred, since a page
/// that has just appeared is not laid out yet; what was deferred before the page left the screen, or before
/// the scope changed, is void. A page whose place is no longer the active one neither restores nor records.
class PageScrollMemory final : public QWidget {
    Q_OBJECT

public:
    /// `content` lies in the scroll area. Without `scope` the page has one position, with it one for each.
    explicit PageScrollMemory(QWidget* content, std::optional<std::string> scope = {});

    /// Another part of the page is on screen now. Where it has no position yet, it is left as it stands.
    void setScope(std::optional<std::string> scope);

    enum class State { detached, restoring, recording };
    [[nodiscard]] State state() const noexcept;

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    /// What a deferred step was asked for.
    struct Task {
        std::uint64_t generation;
        std::shared_ptr<PageMemory> memory;
        Route route;
    };

    void attachSoon();
    void attach(std::uint64_t asked);
    void restore(const Task& task, const std::optional<ScrollOrigin>& saved);
    void record(const Task& task) const;
    void detach();
    [[nodiscard]] std::optional<ScrollOrigin> savedOrigin(const PageMemory& memory, const Route& route) const;

    std::optional<std::string> scope;
    QPointer<QAbstractScrollArea> scroll;
    QMetaObject::Connection horizontal;
    QMetaObject::Connection vertical;
    bool restoring = false;
    std::uint64_t generation = 0;
};

}  // namespace vantry
