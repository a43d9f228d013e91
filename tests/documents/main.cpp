#include <gtest/gtest.h>

#include "Vantry/app/VantryApplication.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    // No screen is needed, and none is wanted while tests are listed or run.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    vantry::VantryApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
