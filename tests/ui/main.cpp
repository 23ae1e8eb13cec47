// Test runner of the views: one QApplication on the offscreen platform.
#include "core/basic.h"
#include "core/percorsi.h"

#include <QApplication>

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    QApplication app(argc, argv);
    // The texts the tests expect are those of a comma locale.
    zef::ImpostaSeparatoreDecimale(',');
    // The program's archive is made in a folder of this process: test processes run
    // side by side and must not build the same file at once.
    std::string modello = (std::filesystem::temp_directory_path() / "zef_test_ui_XXXXXX").string();
    const char* cartella = mkdtemp(modello.data());
    if (cartella) zef::ImpostaCartellaDati(cartella);
    ::testing::InitGoogleTest(&argc, argv);
    const int esito = RUN_ALL_TESTS();
    std::error_code ec;
    if (cartella) std::filesystem::remove_all(cartella, ec);
    return esito;
}
