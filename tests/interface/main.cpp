#include <cstdio>

#include <gtest/gtest.h>

#include <QLocale>
#include <QTemporaryDir>

#include "Vantry/app/VantryApplication.h"
#include "Vantry/interface/design/VantryStyle.h"
#include "Vantry/interface/design/VantryType.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    // No screen is needed, and none is wanted while tests are listed or run.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // Times on screen are the machine's, in the person's locale: the tests have ones of their own.
    qputenv("TZ", "Asia/Shanghai");
    QLocale::setDefault(QLocale::c());
    const QTemporaryDir runtime;
    if (!qEnvironmentVariableIsSet("XDG_RUNTIME_DIR"))
        qputenv("XDG_RUNTIME_DIR", runtime.path().toUtf8());
    vantry::VantryApplication application(argc, argv);
    if (!vantry::VantryType::registerFonts(QCoreApplication::applicationDirPath() +
                                           QStringLiteral("/Vantry_Vantry.rcc"))) {
        std::fputs("the resource file is missing\n", stderr);
        return 1;
    }
    vantry::VantryStyle::install();
    return RUN_ALL_TESTS();
}
