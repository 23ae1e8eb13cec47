#include "ui/finestre_giocata.h"

#include "conditions/form28.h"
#include "core/form2.h"
#include "core/form20.h"
#include "core/giocate.h"
#include "core/sistema.h"
#include "ui/form12view.h"
#include "ui/form17view.h"
#include "ui/form18menu.h"
#include "ui/form20view.h"
#include "ui/form28view.h"
#include "ui/form29view.h"
#include "ui/form2view.h"

namespace zef::ui {

FinestreGiocata::FinestreGiocata(Sistema& s, Interfaccia& ui, QWidget* padre, vista::EseguiInLavoro esegui)
    : s_(s), ui_(ui), padre_(padre) {
    form2_ = std::make_unique<Form2>(s, ui);
    form20_ = std::make_unique<Form20>(s, ui);
    form12_ = std::make_unique<Form12>(s, *form20_);
    vista2_ = std::make_unique<Form2View>(*form2_, s, ui, padre);
    vista20_ = std::make_unique<Form20View>(*form20_, ui, std::move(esegui), padre);
    vista12_ = std::make_unique<Form12View>(*form12_, ui, vista20_.get());
    menu18_ = std::make_unique<Form18Menu>(s, [this] {
        if (dopoModifica) dopoModifica();
    }, padre);
    menu18_->mostraForm17 = [this] { form17(); };
    form20_->mostraForm12 = [this] { vista12_->exec(); };
    form20_->mostraForm28 = [this] { apriForm28(); };
    // A new forecast fits the conditions to it, and so brings the dialog's model to
    // life if it was never opened: its constructor takes this hook over.
    s_.ResettaCondizioni = [this] {
        Form28& f = form28();
        f.ResettaCondizioni();
    };
}

FinestreGiocata::~FinestreGiocata() {
    // The view lets go of the model's hook before the model goes.
    vista28_.reset();
    form28_.reset();
    s_.ResettaCondizioni = nullptr;
}

Form28& FinestreGiocata::form28() {
    if (!form28_) form28_ = std::make_unique<Form28>(s_, ui_);
    return *form28_;
}

Form28View& FinestreGiocata::vista28() {
    if (!vista28_) {
        vista28_ = std::make_unique<Form28View>(form28(), ui_, vista20_.get());
        vista28_->suggerisci = [this] {
            if (SuggerisciCondizioni(s_, ui_, *form28_, *vista28_, vista20_.get(), scaricaForm3)) riapriForm28_ = true;
        };
    }
    return *vista28_;
}

void FinestreGiocata::apriForm28() {
    Form28View& v = vista28();
    do {
        riapriForm28_ = false;
        form28_->archivio = fonteArchivio ? fonteArchivio() : nullptr;
        v.exec();
    } while (riapriForm28_);
}

void FinestreGiocata::apriForm2() {
    vista2_->exec();
    if (dopoModifica) dopoModifica();
}

void FinestreGiocata::apriForm20() {
    vista20_->exec();
    if (dopoModifica) dopoModifica();
}

void FinestreGiocata::apriForm17() {
    form17();
    if (dopoModifica) dopoModifica();
}

void FinestreGiocata::form17() {
    // A fresh model each time: the dialog unloads after its button.
    Form17 modello(s_);
    Form17View vista(modello, padre_);
    vista.exec();
}

void FinestreGiocata::apriForm18(const QPoint& dove) { menu18_->exec(dove); }

void FinestreGiocata::scaricaForm2() {
    if (vista2_->isVisible()) vista2_->hide();
    form2_->scarica();
}

void FinestreGiocata::scaricaForm12() {
    if (vista12_->isVisible()) vista12_->hide();
    form12_->scarica();
}

}  // namespace zef::ui
