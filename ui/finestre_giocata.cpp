#include "ui/finestre_giocata.h"

#include "core/form2.h"
#include "core/form20.h"
#include "core/giocate.h"
#include "core/sistema.h"
#include "ui/form12view.h"
#include "ui/form17view.h"
#include "ui/form18menu.h"
#include "ui/form20view.h"
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
}

FinestreGiocata::~FinestreGiocata() = default;

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
