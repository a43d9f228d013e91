#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string_view>
#include <vector>

#include <QCoreApplication>

#include "Vantry/app/AppDelegate.h"
#include "Vantry/app/NativeDesktop.h"
#include "Vantry/app/NativeFilePanels.h"
#include "Vantry/app/Preferences.h"
#include "Vantry/app/VantryApplication.h"
#include "Vantry/app/VantryStore.h"
#include "Vantry/interface/design/VantryType.h"
#include "Vantry/interface/navigation/QuitQuestion.h"
#include "Vantry/interface/navigation/RootView.h"
#include "Vantry/verification/Smoke.h"

namespace {

bool asksForVerification(int argc, char** argv) {
    return std::any_of(argv + 1, argv + std::max(argc, 1),
                       [](const char* argument) { return std::string_view(argument) == "--verify"; });
}

/// Verification needs fonts and measuring, but no screen.
void doWithoutScreen() {
    const bool hasScreen =
        qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
    if (!hasScreen && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

int verify() {
    try {
        if (vantry::Smoke::run())
            std::puts("PASS: persistence, independent records, bilingual PDF export, merge validation");
        return EXIT_SUCCESS;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "Verification failed: %s\n", failure.what());
        return EXIT_FAILURE;
    }
}

}  // namespace

int main(int argc, char** argv) {
    const bool verifying = asksForVerification(argc, argv);
    if (verifying)
        doWithoutScreen();
    vantry::VantryApplication application(argc, argv);
    vantry::AppDelegate delegate;
    const QString bundle = QCoreApplication::applicationDirPath() + QStringLiteral("/Vantry_Vantry.rcc");
    if (!vantry::VantryType::registerFonts(bundle)) {
        std::fputs("unable to find bundle named Vantry_Vantry\n", stderr);
        return EXIT_FAILURE;
    }
    if (verifying)
        return verify();

    vantry::StoredPreferences preferences;
    vantry::NativeFilePanels panels;
    vantry::NativeDesktop desktop;
    vantry::Surroundings around;
    around.preferences = &preferences;
    around.keys = &application;
    around.panels = &panels;
    around.desktop = &desktop;
    around.doubleClickSeconds = [] { return QApplication::doubleClickInterval() / 1000.0; };
    vantry::VantryStore store(std::nullopt, around);
    delegate.watchSystem();
    delegate.refuseWhile([&panels] { return panels.isOpen(); });
    vantry::RootView window(store, delegate);
    delegate.askBy([&window](const vantry::Text& reason) { return vantry::askToQuit(window, reason); });
    window.show();
    return QCoreApplication::exec();
}
