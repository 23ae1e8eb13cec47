// Zefiranto 2.0: the program.
#include "ui/applicazione.h"

#include <QApplication>

#include <clocale>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName("Zefiranto");
    QApplication::setApplicationVersion(QString::fromStdString(zef::VersioneProgramma()));
    // Qt sets the C locale from the environment: decimals follow the user's separator.
    std::setlocale(LC_NUMERIC, "");
    zef::ui::Applicazione programma;
    programma.avvia();
    return app.exec();
}
