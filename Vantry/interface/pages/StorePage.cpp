#include "Vantry/interface/pages/StorePage.h"

#include "Vantry/app/QtText.h"
#include "Vantry/interface/pages/Contained.h"

namespace vantry {

StorePage::StorePage(PageContext given, QWidget* parent)
    : Page(parent)
    , context(std::move(given)) {}

QString StorePage::text(QStringView zh, QStringView en) const {
    return (store().english() ? en : zh).toString();
}

void StorePage::perform(const std::function<void()>& action) const {
    context.refreshSoon();
    contain(store(), action);
}

TextBinding StorePage::binding(std::function<std::optional<Text>()> read,
                               std::function<void(const Text&)> write) const {
    return {[read = std::move(read)]() -> std::optional<QString> {
                const auto stored = read();
                return stored ? std::optional(toQString(*stored)) : std::nullopt;
            },
            [this, write = std::move(write)](const QString& text) { perform([&] { write(toText(text)); }); }};
}

}  // namespace vantry
