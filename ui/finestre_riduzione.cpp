#include "ui/finestre_riduzione.h"

#include "reduction/verifica.h"

#include "core/errori.h"
#include "core/form1.h"
#include "core/form4.h"
#include "core/sistema.h"
#include "reduction/form19.h"
#include "reduction/form5.h"
#include "reduction/form9.h"
#include "reduction/percentuali.h"
#include "ui/form19view.h"
#include "ui/form1view.h"
#include "ui/form5view.h"
#include "ui/form8view.h"
#include "ui/form9view.h"
#include "ui/formottimizzaview.h"
#include "reduction/formottimizza.h"

namespace zef::ui {

FinestreRiduzione::FinestreRiduzione(Sistema& s, Interfaccia& ui, QWidget* padre, vista::EseguiInLavoro esegui)
    : s_(s), ui_(ui), padre_(padre), esegui_(std::move(esegui)) {
    form5_ = std::make_unique<Form5>(s, ui);
    form8_ = std::make_unique<Form8>(s, ui);
    form9_ = std::make_unique<Form9>(s, ui);
    vista5_ = std::make_unique<Form5View>(*form5_, s, ui, esegui_, padre);
    vista8_ = std::make_unique<Form8View>(*form8_, s, ui, esegui_, padre);
    vista9_ = std::make_unique<Form9View>(*form9_, ui, padre);
    formOttimizza_ = std::make_unique<FormOttimizza>(s, ui);
    vistaOttimizza_ = std::make_unique<FormOttimizzaView>(*formOttimizza_, ui, padre);
}

FinestreRiduzione::~FinestreRiduzione() = default;

void FinestreRiduzione::collega(Form1& f1) {
    f1.caricaForm5 = [this] { caricaForm5(); };
    f1.mostraForm5 = [this](int opzione) { apriForm5(opzione); };
    f1.mostraForm19 = [this] { apriForm19(); };
    f1.mostraFormOttimizza = [this] { apriFormOttimizza(); };
    f1.mostraForm9 = [this] { apriForm9(); };
    f1.VerificaGaranzia = [this] {
        vista::EseguiInThread([this] { EseguiEvento(ui_, [this] { MenuVerificaGaranzia(s_, ui_); }); });
    };
    f1.VisualizzaPercentuali = [this] { visualizzaPercentuali(); };
    f1.caricaForm8 = [this] { caricaForm8(); };
    f1.scaricaForm8 = [this] { scaricaForm8(); };
    f1.tickTimer4 = [this] { tickTimer4(); };
}

void FinestreRiduzione::modificato() {
    if (dopoModifica) dopoModifica();
}

void FinestreRiduzione::caricaForm5() { form5_->carica(); }

void FinestreRiduzione::apriFormOttimizza() {
    EseguiEvento(ui_, [this] { formOttimizza_->carica(); });
    vistaOttimizza_->aggiorna();
    vistaOttimizza_->exec();
    modificato();
}

void FinestreRiduzione::apriForm5(int opzione) {
    // A Garanzia item switches its option on, which fires the option's own rule.
    if (opzione >= 1 && opzione <= 4) EseguiEvento(ui_, [this, opzione] { form5_->selezionaOption(opzione); });
    vista5_->exec();
    modificato();
}

void FinestreRiduzione::apriForm19() {
    // A fresh model each time: the dialog unloads, and both lists open empty.
    Form19 modello(s_, ui_);
    Form19View vista(modello, ui_, padre_);
    vista.exec();
    modificato();  // the main window starts Timer4 if Avvia set it going
}

void FinestreRiduzione::apriForm9() {
    vista9_->exec();
}

void FinestreRiduzione::visualizzaPercentuali() {
    vista8_->ferma();
    bool mostra = false;
    auto lavoro = [this, &mostra] { EseguiEvento(ui_, [this, &mostra] { mostra = form8_->VisualizzaPercentuali(); }); };
    try {
        if (esegui_) esegui_(lavoro);
        else vista::EseguiInThread(lavoro);
    } catch (const std::exception& e) {
        ui_.messaggio(std::string("Errore: ") + e.what(), "", Icona::Critico);
    }
    modificato();  // an empty list was filled first
    if (!mostra) {
        vista8_->aggiorna();  // a calculation left hidden goes on
        return;
    }
    vista8_->exec();
    modificato();
}

void FinestreRiduzione::caricaForm8() {
    if (!s_.form8.caricato) {
        s_.form8.scarica();
        s_.form8.caricato = true;
    }
}

void FinestreRiduzione::scaricaForm8() {
    vista8_->ferma();
    if (vista8_->isVisible()) vista8_->hide();
    form8_->scarica();
}

void FinestreRiduzione::tickTimer4() {
    // Serving the keys lets events in: a tick never runs inside another.
    if (inTick_) return;
    inTick_ = true;
    struct Fine {
        bool& inTick;
        ~Fine() { inTick = false; }
    } fine{inTick_};
    try {
        Timer4Tick(s_, ui_, &indice_);
        if (s_.Timer4Abilitato) CediForm4(s_, ui_);
    } catch (const ErroreEsecuzione&) {
        // A failing tick would fail again on every tick: the cover ends here, and
        // its window with it, so the program is not left behind a modal bar.
        s_.Timer4Abilitato = false;
        ScaricaForm4(s_, ui_);
        throw;
    }
}

std::shared_ptr<FinestreRiduzione> InstallaFinestreRiduzione(Form1& f1, Sistema& s, Interfaccia& ui,
                                                             Form1View& finestra) {
    auto r = std::make_shared<FinestreRiduzione>(s, ui, &finestra);
    r->dopoModifica = [&finestra] { finestra.aggiorna(); };
    r->collega(f1);
    return r;
}

}  // namespace zef::ui
