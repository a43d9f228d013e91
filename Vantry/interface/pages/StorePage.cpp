#include "Vantry/interface/pages/StorePage.h"

#include <memory>
#include <utility>

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
    // What was read or written last, in both forms: a long text is not converted for every look at it.
    struct Seen {
        Text text;
        QString shown;
    };
    auto seen = std::make_shared<Seen>();
    return {[seen, read = std::move(read)]() -> std::optional<QString> {
                auto stored = read();
                if (!stored)
                    return std::nullopt;
                if (stored->utf8() != seen->text.utf8())
                    *seen = {*stored, toQString(*stored)};
                return seen->shown;
            },
            [this, seen, write = std::move(write)](const QString& text) {
                Text written = toText(text);
                perform([&] { write(written); });
                // A lone surrogate is another character in the store.
                if (text.isValidUtf16())
                    *seen = {std::move(written), text};
            }};
}

}  // namespace vantry
