#include "ui/form23view.h"

#include "core/form2.h"

#include "ui/vista_comune.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace zef::ui {

using vista::Q;

namespace {
constexpr std::array<const char*, 5> NomiRighe = {"Cinquina", "Quaterna", "Terno", "Ambo", "Estratto"};
}

Form23View::Form23View(Form23& modello, QWidget* parent) : QDialog(parent), m_(modello) {
    setWindowTitle(Form23::Titolo);
    setFont(vista::CarattereFinestra(10));
    setModal(true);

    auto* griglia = new QGridLayout;
    griglia->setHorizontalSpacing(12);
    for (int riga = 0; riga < 5; ++riga) {
        auto* nome = new QLabel(NomiRighe[riga]);
        nome->setFont(vista::CarattereFinestra(10, true));
        maschere_[riga] = new QLineEdit;
        maschere_[riga]->setReadOnly(true);
        maschere_[riga]->setFocusPolicy(Qt::NoFocus);
        maschere_[riga]->setAlignment(Qt::AlignRight);
        maschere_[riga]->setFont(vista::CarattereFisso(10));
        maschere_[riga]->setMinimumWidth(150);
        etichette_[riga] = new QLabel;
        etichette_[riga]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        etichette_[riga]->setFont(vista::CarattereFinestra(11, true));
        etichette_[riga]->setMinimumWidth(110);
        griglia->addWidget(nome, riga, 0);
        griglia->addWidget(maschere_[riga], riga, 1);
        griglia->addWidget(etichette_[riga], riga, 2);
    }
    auto* label10 = new QLabel(Form23::Label10);
    label10->setFont(vista::CarattereFinestra(9, false));
    command1_ = new QPushButton("OK");
    command1_->setDefault(true);
    auto* basso = new QHBoxLayout;
    basso->addWidget(label10);
    basso->addStretch();
    basso->addWidget(command1_);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(griglia);
    layout->addLayout(basso);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    connect(command1_, &QPushButton::clicked, this, &QDialog::accept);

    m_.carica();
    aggiorna();
}

void Form23View::aggiorna() {
    for (int riga = 0; riga < 5; ++riga) {
        maschere_[riga]->setText(Q(m_.maschera[riga]));
        etichette_[riga]->setText(Q(m_.etichetta[riga]));
    }
}

}  // namespace zef::ui
