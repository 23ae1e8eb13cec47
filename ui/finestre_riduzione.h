// The windows of the reduction and the yield: the reduction dialog, the special
// reductions, the win percentages and the system information, with their models,
// owned in one place and opened the way the main window's hooks open them. The
// cover started by "Sviluppo ridotto" runs in the main window's Timer4, a tick at a
// time, through tickTimer4().
#pragma once

#include "core/interfaccia.h"
#include "reduction/copertura.h"
#include "ui/vista_comune.h"

#include <functional>
#include <memory>

class QWidget;

namespace zef {
class Form1;
class Form5;
class Form8;
class Form9;
class FormOttimizza;
struct Sistema;
}  // namespace zef

namespace zef::ui {

class Form1View;
class Form5View;
class Form8View;
class Form9View;
class FormOttimizzaView;

class FinestreRiduzione {
public:
    // `padre` is the main window; `esegui` runs AVVIA and the percentages off the
    // interface thread (empty: a std::thread with a local event loop).
    FinestreRiduzione(Sistema& s, Interfaccia& ui, QWidget* padre, vista::EseguiInLavoro esegui = {});
    ~FinestreRiduzione();

    // Run after a window changed what the main window shows (list, panels, Timer4).
    std::function<void()> dopoModifica;

    // Sets the main window model's hooks to the methods below.
    void collega(Form1& f1);

    void caricaForm5();
    void apriForm5(int opzione);  // 1..4 after a Garanzia item set it; 0 from RIDUCI
    void apriForm19();            // Sviluppo ridotto, modal; the cover follows in Timer4
    void apriForm9();             // Informazioni, modal
    void apriFormOttimizza();     // Riduzione ottimizzata, modal
    void visualizzaPercentuali(); // the menu entry off the interface thread, then Form8
    void caricaForm8();
    void scaricaForm8();
    // One tick of Timer4, then the keys of the progress window.
    void tickTimer4();

    Form5& form5() { return *form5_; }
    Form8& form8() { return *form8_; }
    Form9& form9() { return *form9_; }
    Form5View& vista5() { return *vista5_; }
    Form8View& vista8() { return *vista8_; }
    Form9View& vista9() { return *vista9_; }
    FormOttimizza& formOttimizza() { return *formOttimizza_; }
    FormOttimizzaView& vistaOttimizza() { return *vistaOttimizza_; }

private:
    void modificato();

    Sistema& s_;
    Interfaccia& ui_;
    QWidget* padre_;
    vista::EseguiInLavoro esegui_;
    std::unique_ptr<Form5> form5_;
    std::unique_ptr<Form8> form8_;
    std::unique_ptr<Form9> form9_;
    std::unique_ptr<Form5View> vista5_;
    std::unique_ptr<Form8View> vista8_;
    std::unique_ptr<Form9View> vista9_;
    std::unique_ptr<FormOttimizza> formOttimizza_;
    std::unique_ptr<FormOttimizzaView> vistaOttimizza_;
    IndiceCopertura indice_;  // the cover's finished rows, kept from tick to tick
    bool inTick_ = false;
};

// Builds the reduction windows over the main window, wires its hooks and keeps it
// up to date after each of them.
std::shared_ptr<FinestreRiduzione> InstallaFinestreRiduzione(Form1& f1, Sistema& s, Interfaccia& ui,
                                                             Form1View& finestra);

}  // namespace zef::ui
