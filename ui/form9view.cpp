#include "ui/form9view.h"

#include "reduction/form9.h"
#include "ui/vista_comune.h"

#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace zef::ui {

using vista::Q;

namespace {

QLabel* Campo(const char* nome) {
    auto* l = new QLabel;
    l->setObjectName(nome);
    l->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    l->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return l;
}

QLabel* Didascalia(const char* nome, const char* testo) {
    auto* l = new QLabel(testo);
    l->setObjectName(nome);
    l->setFont(vista::CarattereFinestra(9, true));
    return l;
}

}  // namespace

Form9View::Form9View(Form9& modello, Interfaccia& ui, QWidget* parent) : QDialog(parent), m_(modello), ui_(ui) {
    setObjectName("Form9");
    setWindowTitle(Form9::Caption);
    setFont(vista::CarattereFinestra(10));
    setModal(true);

    tipogiocata_ = Campo("Tipogiocata");
    tipogiocata_->setWordWrap(true);
    tipoSistema_ = Campo("TipoSistema");
    tipoSistema_->setWordWrap(true);
    for (QLabel* l : {tipogiocata_, tipoSistema_}) l->setFixedWidth(440);
    tipoSistema_->setMinimumHeight(44);
    condInt_ = Campo("CondInt");
    ridInt_ = Campo("RidInt");
    ridCond_ = Campo("RidCond");
    for (QLabel* l : {condInt_, ridInt_, ridCond_}) {
        l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        l->setMinimumWidth(120);
    }

    auto* sopra = new QGridLayout;
    sopra->addWidget(Didascalia("Label8", "Tipo di giocata"), 0, 0, Qt::AlignTop);
    sopra->addWidget(tipogiocata_, 0, 1);
    sopra->addWidget(Didascalia("Label1", "Tipo sistema"), 1, 0, Qt::AlignTop);
    sopra->addWidget(tipoSistema_, 1, 1);

    auto* rapporti = new QGroupBox("Rapporti di riduzione");
    rapporti->setObjectName("Label3");
    auto* gr = new QGridLayout(rapporti);
    gr->addWidget(Didascalia("Label2", "Condizionate/Integrali"), 0, 0);
    gr->addWidget(condInt_, 0, 1);
    gr->addWidget(Didascalia("label4", "Ridotte/Integrali"), 1, 0);
    gr->addWidget(ridInt_, 1, 1);
    gr->addWidget(Didascalia("Label7", "Ridotte/Condizionate"), 2, 0);
    gr->addWidget(ridCond_, 2, 1);
    gr->setColumnStretch(2, 1);

    command1_ = new QPushButton("OK");
    command1_->setObjectName("Command1");
    command1_->setDefault(true);
    command1_->setMinimumWidth(100);
    connect(command1_, &QPushButton::clicked, this, &QDialog::accept);  // hides
    auto* basso = new QHBoxLayout;
    basso->addStretch();
    basso->addWidget(command1_);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(sopra);
    layout->addWidget(rapporti);
    layout->addLayout(basso);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void Form9View::aggiorna() {
    tipogiocata_->setText(Q(m_.Tipogiocata));
    tipoSistema_->setText(Q(m_.TipoSistema));
    condInt_->setText(Q(m_.CondInt));
    ridInt_->setText(Q(m_.RidInt));
    ridCond_->setText(Q(m_.RidCond));
}

void Form9View::showEvent(QShowEvent* e) {
    EseguiEvento(ui_, [this] { m_.attiva(); });
    aggiorna();
    QDialog::showEvent(e);
}

}  // namespace zef::ui
