#include "ui/form19view.h"

#include "reduction/form19.h"
#include "ui/vista_comune.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace zef::ui {

Form19View::Form19View(Form19& modello, Interfaccia& ui, QWidget* parent) : QDialog(parent), m_(modello), ui_(ui) {
    setObjectName("Form19");
    setWindowTitle(Form19::Caption);
    setFont(vista::CarattereFinestra(10));
    setModal(true);

    auto* label1 = new QLabel(Form19::Label1);
    label1->setObjectName("Label1");
    auto* label2 = new QLabel(Form19::Label2);
    label2->setObjectName("Label2");
    combo1_ = new QComboBox;
    combo1_->setObjectName("Combo1");
    for (const char* v : Form19::VociCombo1) combo1_->addItem(v);
    combo2_ = new QComboBox;
    combo2_->setObjectName("Combo2");
    for (const char* v : Form19::VociCombo2) combo2_->addItem(v);
    for (QComboBox* c : {combo1_, combo2_}) c->setMinimumWidth(150);
    label1->setBuddy(combo1_);
    label2->setBuddy(combo2_);

    command1_ = new QPushButton("Avvia");
    command1_->setObjectName("Command1");
    command2_ = new QPushButton("Annulla");
    command2_->setObjectName("Command2");
    for (QPushButton* b : {command1_, command2_}) {
        b->setFont(vista::CarattereFinestra(10, true));
        b->setMinimumWidth(100);
    }
    command1_->setDefault(true);

    auto* griglia = new QGridLayout;
    griglia->addWidget(label1, 0, 0);
    griglia->addWidget(combo1_, 0, 1);
    griglia->addWidget(label2, 1, 0);
    griglia->addWidget(combo2_, 1, 1);
    griglia->setHorizontalSpacing(12);
    auto* pulsanti = new QHBoxLayout;
    pulsanti->addStretch();
    pulsanti->addWidget(command1_);
    pulsanti->addWidget(command2_);
    pulsanti->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(griglia);
    layout->addSpacing(8);
    layout->addLayout(pulsanti);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    // `activated` is the user's choice, even of the item already shown: the click.
    connect(combo1_, &QComboBox::activated, this, [this](int i) { evento([this, i] { m_.clickCombo1(i); }); });
    connect(combo2_, &QComboBox::activated, this, [this](int i) { evento([this, i] { m_.clickCombo2(i); }); });
    connect(command1_, &QPushButton::clicked, this, [this] {
        bool avviato = false;
        evento([this, &avviato] { avviato = m_.clickCommand1(); });
        // Started: the dialog unloads and the cover goes on in the main window.
        if (avviato) accept();
    });
    connect(command2_, &QPushButton::clicked, this, &QDialog::reject);
    aggiorna();
}

void Form19View::evento(const std::function<void()>& gestore) {
    EseguiEvento(ui_, gestore);
    aggiorna();
}

void Form19View::aggiorna() {
    QSignalBlocker b1(combo1_);
    QSignalBlocker b2(combo2_);
    combo1_->setCurrentIndex(m_.Combo1);
    combo2_->setCurrentIndex(m_.Combo2);
}

}  // namespace zef::ui
