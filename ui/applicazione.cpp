#include "ui/applicazione.h"

#include "files/filesistema.h"
#include "ui/frmsplash.h"
#include "ui/vista_comune.h"

#include <QCoreApplication>
#include <QPointer>

namespace zef::ui {

Applicazione::Applicazione() : Applicazione(Opzioni{}) {}

Applicazione::Applicazione(const Opzioni& opzioni)
    : opzioni_(opzioni), s_(std::make_unique<Sistema>()), f1_(*s_, ui_) {
    vista::InstallaSostituzioni();
    collega();
    vista_ = std::make_unique<Form1View>(f1_, *s_, ui_);
    ui_.impostaFinestra(vista_.get());
    ui_.impostaBarra(vista_->ProgressBar1());
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

void Applicazione::avvia() {
    EseguiEvento(ui_, [this] { f1_.carica(); });
    vista_->aggiorna();
    vista_->resize(920, 620);
    vista_->show();
}

}  // namespace zef::ui
