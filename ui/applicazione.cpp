#include "ui/applicazione.h"

#include "files/filesistema.h"
#include "ui/finestre_riduzione.h"
#include "ui/frmsplash.h"
#include "ui/vista_comune.h"

#include <QCoreApplication>
#include <QCursor>
#include <QPointer>

#ifdef ZEF_FINESTRE_GIOCATA
#include "ui/finestre_giocata.h"
#endif

namespace zef::ui {

Applicazione::Applicazione() : Applicazione(Opzioni{}) {}

Applicazione::Applicazione(const Opzioni& opzioni)
    : opzioni_(opzioni), s_(std::make_unique<Sistema>()), f1_(*s_, ui_) {
    vista::InstallaSostituzioni();
    collega();
    vista_ = std::make_unique<Form1View>(f1_, *s_, ui_);
    ui_.impostaFinestra(vista_.get());
    ui_.impostaBarra(vista_->ProgressBar1());
    collegaFinestre();
}

Applicazione::~Applicazione() = default;

void Applicazione::collega() {
    Sistema& s = *s_;
    Interfaccia& ui = ui_;

    f1_.mostraSplash = [this] {
        if (!opzioni_.splash) return;
        FrmSplash splash(nullptr, opzioni_.durataSplash);
        splash.mostraModale();
    };
    f1_.fine = [this] {
        if (opzioni_.esciAllaFine) QCoreApplication::exit(0);
    };
    f1_.mostraAbout = [this] {
        FrmAbout about(vista_.get());
        about.exec();
    };

    f1_.Apri = [&s, &ui] { zef::Apri(s, ui); };
    f1_.Salva = [&s, &ui] { zef::Salva(s, ui); };
    f1_.SalvaConNome = [&s, &ui] { zef::SalvaConNome(s, ui); };
}

void Applicazione::collegaFinestre() {
#ifdef ZEF_FINESTRE_GIOCATA
    // Play dialog, development and fixed numbers, add-column box, the list's popup.
    auto giocata = std::make_shared<FinestreGiocata>(*s_, ui_, vista_.get());
    giocata->dopoModifica = [this] { vista_->aggiorna(); };
    FinestreGiocata* g = giocata.get();
    f1_.mostraForm2 = [g] { g->apriForm2(); };
    f1_.mostraForm20 = [g] { g->apriForm20(); };
    f1_.mostraForm17 = [g] { g->apriForm17(); };
    f1_.mostraForm18 = [g] { g->apriForm18(QCursor::pos()); };
    f1_.scaricaForm2 = [g] { g->scaricaForm2(); };
    f1_.scaricaForm12 = [g] { g->scaricaForm12(); };
    finestre_.push_back(giocata);
#endif
    finestre_.push_back(InstallaFinestreRiduzione(f1_, *s_, ui_, *vista_));
    vista_->aggiorna(false);
}

void Applicazione::avvia() {
    EseguiEvento(ui_, [this] { f1_.carica(); });
    vista_->aggiorna();
    vista_->resize(920, 620);
    vista_->show();
}

}  // namespace zef::ui
