#include <clocale>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    // A Qt application goes by the locale of its environment: so do the rules here.
    std::setlocale(LC_ALL, "");
    return RUN_ALL_TESTS();
}
