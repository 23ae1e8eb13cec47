// The command line's PDF writer: a module that zefiranto-cli loads only when asked
// for a PDF, so that the command line itself links no Qt and needs no display.
//
// It plays a recorded print back on the Qt printer over a QPdfWriter, under a
// QGuiApplication on the offscreen platform made for the call.
#include "core/errori.h"
#include "printing/registrazione.h"
#include "ui/stampante_qt.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QPdfWriter>

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

extern "C" __attribute__((visibility("default"))) int zef_scrivi_pdf(const char* percorso,
                                                                     const std::vector<zef::OperazioneStampa>* ops,
                                                                     int modulo, char* errore, size_t lunghezza) {
    const std::string file = percorso;
    const std::string temporaneo = file + ".parziale";
    try {
        // Qt's notes on the platform are not the command's output.
        const QtMessageHandler prima = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
        struct Ripristina {
            QtMessageHandler h;
            ~Ripristina() { qInstallMessageHandler(h); }
        } ripristina{prima};
        std::unique_ptr<QGuiApplication> app;
        if (!QCoreApplication::instance()) {
            static int argc = 3;
            static char a0[] = "zefiranto-cli", a1[] = "-platform", a2[] = "offscreen";
            static char* argv[] = {a0, a1, a2, nullptr};
            app = std::make_unique<QGuiApplication>(argc, argv);
        }
        {
            QPdfWriter pdf(QString::fromStdString(temporaneo));
            pdf.setCreator("Zefiranto 2.0");
            pdf.setResolution(1200);
            zef::ui::ImpostaPaginaPdf(pdf, static_cast<zef::Modulo>(modulo));
            zef::ui::StampanteQt st(pdf, false, 0, "Impossibile scrivere il file " + file);
            zef::Riproduci(*ops, st);
            st.chiudi(true);
        }
        if (std::rename(temporaneo.c_str(), file.c_str()) != 0)
            throw zef::ErroreEsecuzione(75, "Impossibile scrivere il file " + file);
        return 0;
    } catch (const std::exception& e) {
        std::remove(temporaneo.c_str());
        std::snprintf(errore, lunghezza, "%s", e.what());
        return 1;
    }
}
