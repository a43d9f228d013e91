#include "Vantry/interface/routes/PageFlag.h"

#include <optional>
#include <utility>

#include "Vantry/interface/routes/PageEnvironment.h"

namespace vantry {
namespace {

std::optional<bool> read(const PageEnvironment& page, const std::string& key, bool) {
    return page.memory().panel(page.route(), key);
}
std::optional<int> read(const PageEnvironment& page, const std::string& key, int) {
    return page.memory().choice(page.route(), key);
}
void write(const PageEnvironment& page, const std::string& key, bool open) {
    page.memory().setPanel(page.route(), key, open);
}
void write(const PageEnvironment& page, const std::string& key, int choice) {
    page.memory().setChoice(page.route(), key, choice);
}

}  // namespace

template <class T>
PageValue<T>::PageValue(const QWidget& inPart, std::string name, T without)
    : part(&inPart)
    , key(std::move(name))
    , fallback(without) {}

template <class T>
T PageValue<T>::value() const {
    const auto* page = PageEnvironment::of(*part);
    return page == nullptr ? fallback : read(*page, key, T{}).value_or(T{});
}

template <class T>
void PageValue<T>::setValue(T value) {
    if (const auto* page = PageEnvironment::of(*part))
        write(*page, key, value);
    else
        fallback = value;
}

template class PageValue<bool>;
template class PageValue<int>;

}  // namespace vantry
