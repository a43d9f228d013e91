#include "Vantry/interface/routes/PageFlag.h"

#include <utility>

#include "Vantry/interface/routes/PageEnvironment.h"

namespace vantry {

PageFlag::PageFlag(const QWidget& inPart, std::string name, bool without)
    : part(&inPart)
    , key(std::move(name))
    , fallback(without) {}

bool PageFlag::value() const {
    const auto* environment = PageEnvironment::of(*part);
    return environment == nullptr ? fallback
                                  : environment->memory().panel(environment->route(), key).value_or(false);
}

void PageFlag::setValue(bool value) {
    if (const auto* environment = PageEnvironment::of(*part))
        environment->memory().setPanel(environment->route(), key, value);
    else
        fallback = value;
}

PageChoice::PageChoice(const QWidget& inPart, std::string name, int without)
    : part(&inPart)
    , key(std::move(name))
    , fallback(without) {}

int PageChoice::value() const {
    const auto* environment = PageEnvironment::of(*part);
    return environment == nullptr ? fallback
                                  : environment->memory().choice(environment->route(), key).value_or(0);
}

void PageChoice::setValue(int value) {
    if (const auto* environment = PageEnvironment::of(*part))
        environment->memory().setChoice(environment->route(), key, value);
    else
        fallback = value;
}

}  // namespace vantry
