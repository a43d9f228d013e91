#include "Vantry/app/VantryStore.h"

#include <cstdlib>

#include <QStandardPaths>

#include "Vantry/app/Preferences.h"
#include "Vantry/app/QtText.h"

namespace vantry {
namespace {

std::filesystem::path chooseFolder(const std::optional<std::filesystem::path>& root) {
    if (root)
        return *root;
    // Whatever it holds, the empty text too: who sets it means it.
    if (const char* folder = std::getenv("VANTRY_DATA_DIR"))
        return folder;
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (data.isEmpty())
        qFatal("the system names no folder for the data of applications");
    return std::filesystem::path(data.toStdString()) / "Vantry";
}

}  // namespace

VantryStore::VantryStore(const std::optional<std::filesystem::path>& root, Surroundings around)
    : around_(std::move(around))
    , library_({}, notifier(Member::library))
    , language_("zh", notifier(Member::language))
    , appearance_("system", notifier(Member::appearance))
    , reducesMotion_(false, notifier(Member::reducesMotion))
    , error_(std::nullopt, notifier(Member::error))
    , notice_(std::nullopt, notifier(Member::notice))
    , savedAt_(std::nullopt, notifier(Member::savedAt))
    , saveFailed_(false, notifier(Member::saveFailed))
    , loadFailed_(false, notifier(Member::loadFailed))
    , folder(chooseFolder(root))
    , savedLibrary_({}, notifier(Member::savedLibrary))
    , images(folder) {
    if (around_.clock == nullptr)
        around_.clock = &Clock::system();
    if (around_.disk == nullptr)
        around_.disk = &FileOperations::system();
    if (around_.preferences != nullptr) {
        language_.set(around_.preferences->text(Preferences::languageKey).value_or(*language_));
        appearance_.set(around_.preferences->text(Preferences::appearanceKey).value_or(*appearance_));
        reducesMotion_.set(around_.preferences->flag(Preferences::reduceMotionKey));
    }
    load();
}

VantryStore::~VantryStore() = default;

std::function<void()> VantryStore::notifier(Member member) {
    return [this, member] { emit changed(member); };
}

void VantryStore::setLanguage(const Text& language) {
    language_.set(language);
    if (around_.preferences != nullptr)
        around_.preferences->setText(Preferences::languageKey, language);
}

bool VantryStore::english() const {
    return *language_ == Text("en");
}

void VantryStore::setAppearance(const Text& appearance) {
    appearance_.set(appearance);
    if (around_.preferences != nullptr)
        around_.preferences->setText(Preferences::appearanceKey, appearance);
}

void VantryStore::setReducesMotion(bool reduces) {
    reducesMotion_.set(reduces);
    if (around_.preferences != nullptr)
        around_.preferences->setFlag(Preferences::reduceMotionKey, reduces);
}

}  // namespace vantry
