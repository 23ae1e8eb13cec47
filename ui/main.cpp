// Zefiranto 2.0: the program.
#include "core/percorsi.h"
#include "ui/applicazione.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <clocale>

namespace {

// The data files live beside the program; when its folder is read-only (installed
// system-wide) they go to the user's data folder instead.
void ScegliCartellaDati() {
    const QFileInfo programma(QString::fromStdString(zef::CartellaProgramma()));
    if (programma.isWritable()) return;
    const QString utente = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    if (utente.isEmpty() || !QDir().mkpath(utente)) return;
    zef::ImpostaCartellaDati(utente.toStdString());
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName("Zefiranto");
    QApplication::setApplicationVersion(QString::fromStdString(zef::VersioneProgramma()));
    // Decimals follow the user's locale (Qt has set the C locale from the environment).
    std::setlocale(LC_NUMERIC, "");
    ScegliCartellaDati();
    zef::ui::Applicazione programma;
    programma.avvia();
    return app.exec();
}
