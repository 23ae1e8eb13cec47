// Test runner of the views: one QApplication on the offscreen platform.
#include "core/basic.h"

#include <QApplication>

#include <gtest/gtest.h>

#include <cstdlib>

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    QApplication app(argc, argv);
    // The texts the tests expect are those of a comma locale.
    zef::ImpostaSeparatoreDecimale(',');
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
