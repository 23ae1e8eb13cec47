// The program as one object: the sistema, the Qt interface, the main window's
// model and view, and the wiring of the model's hooks to the other windows and
// subsystems. The other dialogs' views are wired here as they arrive.
#pragma once

#include "archive/fonte_estrazioni.h"
#include "core/form1.h"
#include "core/sistema.h"
#include "ui/form1view.h"
#include "ui/qtinterfaccia.h"

#include <memory>
#include <string>
#include <vector>

namespace zef {
class ArchivioEstrazioni;
class Form3;
}  // namespace zef

namespace zef::ui {

class FinestreSpoglio;
class Form3View;

class Applicazione {
public:
    struct Opzioni {
        bool splash = true;          // show frmSplash at start-up
        int durataSplash = 2500;     // its Timer1, milliseconds
        bool esciAllaFine = true;    // Exit ends the event loop
        std::string archivio;        // the archive file; empty: the program's own
    };
    Applicazione();
    explicit Applicazione(const Opzioni& opzioni);
    ~Applicazione();

    // Loads the main window (start-up steps) and shows it.
    void avvia();

    Sistema& sistema() { return *s_; }
    QtInterfaccia& interfaccia() { return ui_; }
    Form1& form1() { return f1_; }
    Form1View& finestra() { return *vista_; }
    FinestreSpoglio* spoglio() { return spoglio_.get(); }
    // The archive while open (null before start-up, after a failed opening, after Exit).
    ArchivioEstrazioni* archivio() { return archivio_.get(); }
    // The archive browser, once opened.
    Form3* form3() { return form3_.get(); }
    Form3View* vista3() { return vista3_.get(); }

private:
    void collega();
    // The views of the other windows, as far as they are in the tree.
    void collegaFinestre();
    void collegaArchivio();
    void chiudiArchivio();
    // Runs a command on the open archive off the interface thread, then shows its effects.
    void suArchivio(void (*comando)(ArchivioEstrazioni&, Interfaccia&));
    // The browser follows the archive after a command changed it.
    void ricaricaForm3();

    Opzioni opzioni_;
    std::unique_ptr<Sistema> s_;
    QtInterfaccia ui_;
    Form1 f1_;
    std::unique_ptr<Form1View> vista_;
    // The windows of other subsystems, owned here (type-erased: each is wired only
    // when its views are in the tree).
    std::vector<std::shared_ptr<void>> finestre_;
    std::unique_ptr<ArchivioEstrazioni> archivio_;
    std::shared_ptr<FinestreSpoglio> spoglio_;  // the win-check windows
    std::unique_ptr<FonteEstrazioni> fonte_;  // the draws for the conditions dialog, over archivio_
    bool lavoroInCorso_ = false;  // a worker owns archivio_
    // After vista_: the browser's window goes before the main window it belongs to.
    std::unique_ptr<Form3> form3_;
    std::unique_ptr<Form3View> vista3_;
};

}  // namespace zef::ui
