#include "ui/form2view.h"

#include "core/form2.h"
#include "core/sistema.h"
#include "core/vocabolario.h"
#include "ui/form23view.h"
#include "ui/vista_comune.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace zef::ui {

using vista::Q;

namespace {
// Rows of the stake grid, top to bottom.
constexpr std::array<int, 5> RigheSorti = {0, 1, 2, 3, 4};
}  // namespace

Form2View::Form2View(Form2& modello, Sistema& s, Interfaccia& ui, QWidget* parent)
    : QDialog(parent), m_(modello), s_(s), ui_(ui) {
    setWindowTitle(Form2::Titolo);
    setFont(vista::CarattereFinestra(9));
    setModal(true);

    // Wheels: four columns, "Tutte le ruote" last.
    auto* frameRuote = new QGroupBox("Ruota");
    auto* gr = new QGridLayout(frameRuote);
    auto* gruppo = new QButtonGroup(this);
    for (int r = 0; r < 12; ++r) {
        option1_[r] = new QRadioButton(NomiRuote[r]);
        gruppo->addButton(option1_[r], r);
        gr->addWidget(option1_[r], r / 4, r % 4);
        connect(option1_[r], &QRadioButton::clicked, this, [this, r] { evento([this, r] { m_.clickOption1(r); }); });
    }

    // Stakes: one row per kind, one column per amount, the sum of the kind at the end.
    auto* framePuntate = new QGroupBox("Sorte e puntata (€)");
    auto* gp = new QGridLayout(framePuntate);
    gp->setHorizontalSpacing(6);
    gp->setVerticalSpacing(4);
    for (int i = 0; i < 13; ++i) {
        auto* intestazione = new QLabel(DidascaliePuntata[i]);
        intestazione->setAlignment(Qt::AlignCenter);
        intestazione->setFont(vista::CarattereFinestra(8, true));
        gp->addWidget(intestazione, 0, 1 + i, Qt::AlignHCenter);
    }
    auto* intestazioneTotale = new QLabel("Totale");
    intestazioneTotale->setFont(vista::CarattereFinestra(8, true));
    gp->addWidget(intestazioneTotale, 0, 14, Qt::AlignHCenter);
    for (int riga = 0; riga < 5; ++riga) {
        const int sorte = RigheSorti[riga];
        check_[sorte] = new QCheckBox(NomiSorti[sorte]);
        check_[sorte]->setFont(vista::CarattereFinestra(9, true));
        gp->addWidget(check_[sorte], riga + 1, 0);
        connect(check_[sorte], &QCheckBox::clicked, this,
                [this, sorte](bool v) { evento([this, sorte, v] { m_.clickCheck(sorte, v); }); });
        for (int i = 0; i < 13; ++i) {
            const int indice = BaseChkAmbo[sorte] + i;
            auto* c = new QCheckBox;
            c->setToolTip(QString("%1 € %2").arg(NomiSorti[sorte], DidascaliePuntata[i]));
            chkAmbo_[indice] = c;
            gp->addWidget(c, riga + 1, 1 + i, Qt::AlignHCenter);
            connect(c, &QCheckBox::clicked, this,
                    [this, indice](bool v) { evento([this, indice, v] { m_.clickChkAmbo(indice, v); }); });
        }
        testi_[sorte] = new QLabel;
        testi_[sorte]->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        testi_[sorte]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        testi_[sorte]->setMinimumWidth(64);
        gp->addWidget(testi_[sorte], riga + 1, 14);
    }

    auto* lblCostoLabel = new QLabel(Form2::lblCostoLabel);
    lblCostoLabel->setFont(vista::CarattereFinestra(10, true));
    lblCosto_ = new QLabel;
    lblCosto_->setFont(vista::CarattereFinestra(11, true));
    lblCosto_->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    lblCosto_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    lblCosto_->setMinimumWidth(80);
    command2_ = new QPushButton("Vincite possibili");
    command1_ = new QPushButton("Accetta");
    command1_->setDefault(true);

    auto* basso = new QHBoxLayout;
    basso->addWidget(lblCostoLabel);
    basso->addWidget(lblCosto_);
    basso->addWidget(new QLabel("€"));
    basso->addStretch();
    basso->addWidget(command2_);
    basso->addWidget(command1_);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(frameRuote);
    layout->addWidget(framePuntate);
    layout->addLayout(basso);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    if (!m_.mostraForm23) {
        m_.mostraForm23 = [this] {
            Form23 f23(s_);
            Form23View v(f23, this);
            v.exec();
        };
    }
    connect(command1_, &QPushButton::clicked, this, [this] {
        evento([this] { m_.clickCommand1(); });
        // Accepted, or refused and unloaded: either way the dialog goes.
        accept();
    });
    connect(command2_, &QPushButton::clicked, this, [this] { evento([this] { m_.clickCommand2(); }); });
}

void Form2View::evento(const std::function<void()>& gestore) {
    EseguiEvento(ui_, gestore);
    aggiorna();
}

void Form2View::aggiorna() {
    const auto& f = s_.form2;
    for (int r = 0; r < 12; ++r) {
        QSignalBlocker b(option1_[r]);
        option1_[r]->setChecked(f.Option1[r]);
    }
    for (int sorte = 0; sorte < 5; ++sorte) {
        QSignalBlocker b(check_[sorte]);
        check_[sorte]->setChecked(f.Check[sorte] != 0);
        check_[sorte]->setEnabled(f.abilitato[sorte]);
        testi_[sorte]->setText(Q(f.testi[sorte]));
        testi_[sorte]->setEnabled(f.abilitato[sorte]);
    }
    for (int i = 0; i < 65; ++i) {
        QSignalBlocker b(chkAmbo_[i]);
        chkAmbo_[i]->setChecked(f.chkAmbo[i]);
    }
    lblCosto_->setText(Q(f.lblCosto));
}

void Form2View::showEvent(QShowEvent* e) {
    m_.attiva();
    aggiorna();
    QDialog::showEvent(e);
}

}  // namespace zef::ui
