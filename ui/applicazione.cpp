#include "ui/applicazione.h"

#include "archive/archivio.h"
#include "archive/comandi_archivio.h"
#include "archive/form3.h"
#include "archive/estrazioni_archivio.h"
#include "files/filesistema.h"
#include "ui/finestre_riduzione.h"
#include "ui/finestre_spoglio.h"
#include "ui/finestre_stampa.h"
#include "ui/form15view.h"
#include "core/percorsi.h"
#include "upkeep/aggiornamento_programma.h"

#include <QProcess>
#include "ui/form3view.h"
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

Applicazione::~Applicazione() {
    // The browser holds a connection of its own and a view parented to the main window.
    vista3_.reset();
    form3_.reset();
}

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

    // Timer6: the check for a newer program, its download off the interface thread.
    f1_.ControllaAggiornamento = [this] {
        bool aggiorna = false;
        ScaricatoreCurl curl;
        vista::EseguiInThread([&] {
            ControllaAggiornamento(CartellaProgramma(), curl, ui_, "Zefiranto 2.0", [&aggiorna] { aggiorna = true; });
        });
        if (!aggiorna) return;
        // The updater beside the program, and the program ends at once.
        QProcess::startDetached(QString::fromStdString(CartellaProgramma() + "/update"), {});
        if (f1_.fine) f1_.fine();
    };
    f1_.Apri = [&s, &ui] { zef::Apri(s, ui); };
    f1_.Salva = [&s, &ui] { zef::Salva(s, ui); };
    f1_.SalvaConNome = [&s, &ui] { zef::SalvaConNome(s, ui); };
    collegaArchivio();
}

void Applicazione::collegaArchivio() {
    // Raises on failure: the main window's start-up shows the message and goes on without it.
    f1_.apriArchivio = [this] {
        chiudiArchivio();
        archivio_ = opzioni_.archivio.empty() ? ArchivioEstrazioni::ApriPredefinito()
                                              : ArchivioEstrazioni::ApriOCrea(opzioni_.archivio);
    };
    f1_.ChiudiArchivio = [this] {
        if (vista3_ && vista3_->isVisible()) vista3_->hide();
        if (form3_ && form3_->caricato) form3_->scarica();
        if (spoglio_) spoglio_->scaricaForm6();
        // A running worker still uses the connection: it is closed when the worker ends.
        if (!lavoroInCorso_) chiudiArchivio();
    };
    f1_.mostraForm3 = [this] {
        if (!form3_) {
            // The browser opens the file the program opened (its own connection).
            const std::string file = archivio_ ? archivio_->percorso()
                                     : opzioni_.archivio.empty() ? ArchivioEstrazioni::PercorsoPredefinito()
                                                                 : opzioni_.archivio;
            Form3Collegamenti col;
            if (spoglio_) {
                col.caricaForm7 = [this] { spoglio_->caricaForm7(); };
                col.scaricaForm6 = [this] { spoglio_->scaricaForm6(); };
            }
            form3_ = std::make_unique<Form3>(*s_, ui_, col, file);
            vista3_ = std::make_unique<Form3View>(*form3_, ui_, vista_.get());
        }
        vista3_->apri();
    };
    f1_.AggiornaEstrazioni = [this] { suArchivio(&AggiornaEstrazioniDalWeb); };
    f1_.ImportaArchivio = [this] { suArchivio(&ImportaArchivioStorico); };
}

void Applicazione::chiudiArchivio() {
    fonte_.reset();  // reads through the connection
    archivio_.reset();
}

void Applicazione::suArchivio(void (*comando)(ArchivioEstrazioni&, Interfaccia&)) {
    Interfaccia& ui = ui_;
    if (!archivio_) {
        ui.messaggio("L'archivio delle estrazioni non è aperto.", "ATTENZIONE", Icona::Esclamazione);
        return;
    }
    // The worker owns the connection until it ends; the interface thread only
    // serves its boxes and the "Attendere" window meanwhile, and a second command
    // asked for in the while is dropped.
    if (lavoroInCorso_) return;
    lavoroInCorso_ = true;
    ArchivioEstrazioni& a = *archivio_;
    try {
        vista::EseguiInThread([&a, &ui, comando] { comando(a, ui); });
    } catch (...) {
        lavoroInCorso_ = false;
        if (f1_.terminato) chiudiArchivio();
        throw;
    }
    lavoroInCorso_ = false;
    if (f1_.terminato) {  // Exit came while the worker ran
        chiudiArchivio();
        return;
    }
    ricaricaForm3();
    vista_->aggiorna(false);
}

void Applicazione::ricaricaForm3() {
    if (!form3_ || !form3_->caricato) return;
    EseguiEvento(ui_, [this] {
        form3_->Data1.Refresh();
        form3_->attiva();
    });
    vista3_->aggiorna();
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
    // The conditions on the draws read the open archive; a new source at each opening,
    // so that it never outlives the connection it reads.
    g->fonteArchivio = [this]() -> FonteEstrazioni* {
        fonte_.reset();
        if (archivio_ && !lavoroInCorso_) fonte_ = std::make_unique<EstrazioniArchivio>(*archivio_);
        return fonte_.get();
    };
    g->scaricaForm3 = [this] {
        if (vista3_ && vista3_->isVisible()) vista3_->hide();
        if (form3_ && form3_->caricato) form3_->scarica();
    };
    finestre_.push_back(giocata);
#endif
    finestre_.push_back(InstallaFinestreRiduzione(f1_, *s_, ui_, *vista_));
    finestre_.push_back(InstallaFinestreStampa(f1_, *s_, ui_, *vista_));
    spoglio_ = InstallaFinestreSpoglio(f1_, *s_, ui_, *vista_, opzioni_.archivio);
    finestre_.push_back(InstallaSmorfia(f1_, *s_, ui_, *vista_));
    vista_->aggiorna(false);
}

void Applicazione::avvia() {
    EseguiEvento(ui_, [this] { f1_.carica(); });
    vista_->aggiorna();
    vista_->resize(920, 620);
    vista_->show();
}

}  // namespace zef::ui
