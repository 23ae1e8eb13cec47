#include "ui/formottimizzaview.h"

#include "core/vocabolario.h"
#include "reduction/formottimizza.h"
#include "ui/vista_comune.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace zef::ui {

using vista::Q;
using vista::S;

FormOttimizzaView::FormOttimizzaView(FormOttimizza& modello, Interfaccia& ui, QWidget* parent)
    : QDialog(parent), m_(modello), ui_(ui) {
    setObjectName("FormOttimizza");
    setWindowTitle(FormOttimizza::Titolo);
    setModal(true);
    auto* v = new QVBoxLayout(this);
    auto* spiega = new QLabel(
        "Cerca una lista più corta con la stessa garanzia, partendo da quella della riduzione normale. "
        "ESC ferma la ricerca e tiene la lista migliore trovata.");
    spiega->setWordWrap(true);
    v->addWidget(spiega);
    auto* compito = new QGroupBox("Che cosa ridurre");
    auto* vc = new QVBoxLayout(compito);
    option1_ = new QRadioButton(FormOttimizza::CaptionOption1);
    option1_->setObjectName("Option1");
    option2_ = new QRadioButton(FormOttimizza::CaptionOption2);
    option2_->setObjectName("Option2");
    vc->addWidget(option1_);
    vc->addWidget(option2_);
    v->addWidget(compito);
    auto* f = new QFormLayout;
    garanzia_ = new QComboBox;
    garanzia_->setObjectName("Garanzia");
    for (int g = 2; g <= 5; ++g) garanzia_->addItem(NomeGaranzia(g), g);
    sviluppo_ = new QComboBox;
    sviluppo_->setObjectName("Sviluppo");
    for (int k = 3; k <= 10; ++k) sviluppo_->addItem(NomeSviluppo(k), k);
    secondi_ = new QLineEdit;
    secondi_->setObjectName("Secondi");
    secondi_->setMaximumWidth(80);
    seme_ = new QLineEdit;
    seme_->setObjectName("Seme");
    seme_->setMaximumWidth(80);
    seme_->setToolTip("Lo stesso seme ripete la stessa ricerca casuale");
    f->addRow("Garanzia:", garanzia_);
    f->addRow("Colonne di (solo copertura):", sviluppo_);
    f->addRow("Tempo (secondi):", secondi_);
    f->addRow("Seme:", seme_);
    v->addLayout(f);
    esito_ = new QLabel;
    esito_->setObjectName("Esito");
    esito_->setWordWrap(true);
    v->addWidget(esito_);
    auto* h = new QHBoxLayout;
    avvia_ = new QPushButton("AVVIA");
    avvia_->setObjectName("Avvia");
    avvia_->setDefault(true);
    auto* annulla = new QPushButton("ANNULLA");
    annulla->setObjectName("Annulla");
    h->addStretch(1);
    h->addWidget(avvia_);
    h->addWidget(annulla);
    v->addLayout(h);
    connect(option1_, &QRadioButton::toggled, this, [this] {
        leggi();
        aggiorna();
    });
    connect(annulla, &QPushButton::clicked, this, &QDialog::reject);
    connect(avvia_, &QPushButton::clicked, this, [this] {
        leggi();
        bool fatto = false;
        EseguiEvento(ui_, [this, &fatto] { vista::EseguiInThread([this, &fatto] { fatto = m_.clickAvvia(); }); });
        aggiorna();
        if (fatto) accept();
    });
    resize(460, 0);
}

void FormOttimizzaView::leggi() {
    m_.compito = option1_->isChecked() ? 1 : 2;
    m_.garanzia = garanzia_->currentData().toInt();
    m_.k = sviluppo_->currentData().toInt();
    m_.secondi = S(secondi_->text());
    m_.seme = S(seme_->text());
}

void FormOttimizzaView::aggiorna() {
    const QSignalBlocker b1(option1_), b2(option2_);
    option1_->setChecked(m_.compito == 1);
    option2_->setChecked(m_.compito == 2);
    garanzia_->setCurrentIndex(garanzia_->findData(m_.garanzia));
    sviluppo_->setCurrentIndex(sviluppo_->findData(m_.k));
    sviluppo_->setEnabled(m_.compito == 2);
    secondi_->setText(Q(m_.secondi));
    seme_->setText(Q(m_.seme));
    if (m_.ottimizzate > 0)
        esito_->setText(QString("Ultima ricerca: da %1 a %2 colonne%3%4")
                            .arg(m_.iniziale)
                            .arg(m_.ottimizzate)
                            .arg(m_.limite > 0 ? QString(" (limite inferiore %1)").arg(m_.limite) : QString())
                            .arg(m_.interrotta ? ", interrotta" : ""));
}

}  // namespace zef::ui
