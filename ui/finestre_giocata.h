// The dialogs of the play and the development, their models and views, owned in one
// place and opened the way the main window opens them. The main window wires its
// hooks to these methods (mostraForm2 -> apriForm2, mostraForm20 -> apriForm20...).
#pragma once

#include "archive/fonte_estrazioni.h"
#include "core/interfaccia.h"
#include "ui/vista_comune.h"

#include <QPoint>

#include <functional>
#include <memory>

class QWidget;

namespace zef {
class Form2;
class Form12;
class Form20;
class Form28;
struct Sistema;
}  // namespace zef

namespace zef::ui {

class Form2View;
class Form12View;
class Form20View;
class Form28View;
class Form18Menu;

class FinestreGiocata {
public:
    // `padre` is the main window; `esegui` as for Form20View (empty: a std::thread).
    FinestreGiocata(Sistema& s, Interfaccia& ui, QWidget* padre, vista::EseguiInLavoro esegui = {});
    ~FinestreGiocata();

    // Run after a dialog changed what the main window shows (list, panels, Command2).
    std::function<void()> dopoModifica;
    // The draws for the archive-based conditions, asked each time the conditions open.
    std::function<FonteEstrazioni*()> fonteArchivio;
    // Unloads the archive browser (Suggerisci reads the draws afresh).
    std::function<void()> scaricaForm3;

    Form2& form2() { return *form2_; }
    Form20& form20() { return *form20_; }  // mostraForm28 is wired here by the application
    Form12& form12() { return *form12_; }
    // The conditions dialog, built when first needed: from then on its filter stays on the sistema.
    Form28& form28();
    Form28View& vista28();

    void apriForm2();                    // Command2, modal
    void apriForm20();                   // Command3, modal; AVVIA develops off this thread
    void apriForm17();                   // Command9 and the popup's Aggiungi, modal
    void apriForm18(const QPoint& dove); // right button on the list
    void apriForm28();                   // "Imposta le condizioni" of Form20, modal
    void scaricaForm2();
    void scaricaForm12();

private:
    void form17();

    Sistema& s_;
    Interfaccia& ui_;
    QWidget* padre_;
    std::unique_ptr<Form2> form2_;
    std::unique_ptr<Form20> form20_;
    std::unique_ptr<Form12> form12_;
    std::unique_ptr<Form28> form28_;
    std::unique_ptr<Form2View> vista2_;
    std::unique_ptr<Form20View> vista20_;
    std::unique_ptr<Form12View> vista12_;
    std::unique_ptr<Form28View> vista28_;
    std::unique_ptr<Form18Menu> menu18_;
    bool riapriForm28_ = false;  // "Imposta questi parametri" shows the conditions again
};

}  // namespace zef::ui
