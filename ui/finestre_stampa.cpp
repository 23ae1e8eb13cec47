#include "ui/finestre_stampa.h"

#include "core/form1.h"
#include "ui/form10view.h"
#include "ui/form11view.h"
#include "ui/form1view.h"

#include <QDate>
#include <QLocale>

namespace zef::ui {

FinestreStampa::FinestreStampa(Sistema& s, Interfaccia& ui, QWidget* padre)
    : destinazione_(ui, padre), form10_(s, ui, destinazione_, form24_), form11_(s, ui, destinazione_) {
    vista10_ = std::make_unique<Form10View>(form10_, ui, padre);
    // The other two come up over the first.
    vista11_ = std::make_unique<Form11View>(form11_, ui, vista10_.get());
    vista24_ = std::make_unique<Form24View>(form24_, vista10_.get());
    form10_.dataOggi = [] { return QLocale::system().toString(QDate::currentDate(), QLocale::ShortFormat).toStdString(); };
    form10_.mostraForm11 = [this] {
        if (!form11_.caricato) form11_.carica();
        vista11_->exec();
    };
    form10_.mostraForm24 = [this] { vista24_->exec(); };
}

FinestreStampa::~FinestreStampa() = default;

void FinestreStampa::collega(Form1& f1) {
    f1.mostraForm10 = [this] { apriForm10(); };
}

void FinestreStampa::apriForm10() { vista10_->exec(); }

std::shared_ptr<FinestreStampa> InstallaFinestreStampa(Form1& f1, Sistema& s, Interfaccia& ui, Form1View& finestra) {
    auto f = std::make_shared<FinestreStampa>(s, ui, &finestra);
    f->collega(f1);
    return f;
}

}  // namespace zef::ui
