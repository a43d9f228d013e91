#include "bench/OpenWindow.h"

#include <stdexcept>

#include <QAbstractButton>

#include "Vantry/app/QtText.h"
#include "Vantry/app/VantryApplication.h"
#include "Vantry/interface/design/VantryType.h"

namespace vantry::bench {
namespace {

void makeApplication() {
    static int count = 1;
    static char name[] = "vantry-bench";
    static char* arguments[] = {name, nullptr};
    static std::optional<QTemporaryDir> runtime;
    // It goes with the process: what the toolkit itself keeps for its life is gone before ours would be.
    static VantryApplication* application = nullptr;
    if (application != nullptr)
        return;
    runtime.emplace();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("XDG_RUNTIME_DIR", runtime->path().toUtf8());
    application = new VantryApplication(count, arguments);
    const QString bundle = QCoreApplication::applicationDirPath() + QStringLiteral("/Vantry_Vantry.rcc");
    if (!VantryType::registerFonts(bundle))
        throw std::runtime_error("the resource file is missing");
}

}  // namespace

void settle() {
    for (int turn = 0; turn < 3; ++turn) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

OpenWindow::OpenWindow(const Workload& work, Saving saving) {
    makeApplication();
    // What is measured is the work, not its show.
    still.emplace().setChoice(true);
    std::filesystem::create_directories(work.scratch);
    folder.emplace(toQString(Text(work.scratch.string())) + QStringLiteral("/window"));
    const std::filesystem::path root = folder->path().toStdString();
    std::filesystem::create_hard_link(work.file, root / "library.json");
    Surroundings around;
    around.clock = saving == Saving::never ? &clock : nullptr;
    store.emplace(root, around);
    if (store->loadFailed())
        throw std::runtime_error("the library cannot be read");
    store->setLanguage("en");
    window.emplace(*store, delegate);
    window->show();
    settle();
}

OpenWindow::~OpenWindow() {
    window.reset();
    settle();
}

void OpenWindow::press(const QString& name) {
    for (auto* button : window->findChildren<QAbstractButton*>())
        if (button->accessibleName() == name)
            return button->click();
    throw std::runtime_error("no button is called " + name.toStdString());
}

void OpenWindow::go(const Route& route) {
    window->go(route);
    settle();
}

Places::Places(const Library& library) {
    const auto takes = takePlaces(library);
    const TakePlace place = takes.at(takes.size() / 2);
    const Project& project = *library.projects[place.project];
    const Act& act = *project.acts[place.act];
    const Shot& shot = *act.shots[place.shot];
    projectID = project.id;
    actID = act.id;
    shotID = shot.id;
    takeID = shot.takes[place.take]->id;
}

}  // namespace vantry::bench
