#include <cstdio>

#include <gtest/gtest.h>

#include "Vantry/app/VantryApplication.h"
#include "Vantry/interface/design/VantryType.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    // No screen is needed, and none is wanted while tests are listed or run.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    vantry::VantryApplication application(argc, argv);
    if (!vantry::VantryType::registerFonts(QCoreApplication::applicationDirPath() +
                                           QStringLiteral("/Vantry_Vantry.rcc"))) {
        std::fputs("the resource file is missing\n", stderr);
        return 1;
    }
    return RUN_ALL_TESTS();
}
