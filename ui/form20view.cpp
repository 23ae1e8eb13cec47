#include "ui/form20view.h"

#include "core/form20.h"
#include "core/vocabolario.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace zef::ui {

using vista::Q;
using vista::S;

Form20View::Form20View(Form20& modello, Interfaccia& ui, vista::EseguiInLavoro esegui, QWidget* parent)
    : DialogoConLavoro(ui, std::move(esegui), parent), m_(modello) {
    setWindowTitle(Form20::Titolo);
    setFont(vista::CarattereFinestra(10));
    setModal(true);

    auto* frame1 = new QGroupBox("SVILUPPO IN");
    combo1_ = new QComboBox;
    for (const char* nome : NomiSviluppo) combo1_->addItem(nome);
    auto* lf = new QVBoxLayout(frame1);
    lf->addWidget(combo1_);

    auto* label1 = new QLabel("DISTANZA MIN UNITA'");
    text1_ = new QLineEdit;
    text1_->setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9]{0,5}"), text1_));
    text1_->setMaximumWidth(80);
    text1_->setAlignment(Qt::AlignRight);
    label1->setBuddy(text1_);
    auto* riga = new QHBoxLayout;
    riga->addWidget(label1);
    riga->addStretch();
    riga->addWidget(text1_);
    lf->addLayout(riga);

    command3_ = new QPushButton("Impostazioni fisse");
    command4_ = new QPushButton("Imposta le condizioni");
    command1_ = new QPushButton("AVVIA");
    command2_ = new QPushButton("ANNULLA");
    command1_->setDefault(true);
    command1_->setFont(vista::CarattereFinestra(10, true));
    command2_->setFont(vista::CarattereFinestra(10, true));

    auto* pulsanti = new QGridLayout;
    pulsanti->addWidget(command3_, 0, 0);
    pulsanti->addWidget(command4_, 0, 1);
    pulsanti->addWidget(command1_, 1, 0);
    pulsanti->addWidget(command2_, 1, 1);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(frame1);
    layout->addLayout(pulsanti);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    connect(combo1_, &QComboBox::currentIndexChanged, this, [this](int i) {
        if (i >= 0) m_.Combo1 = i;
    });
    connect(text1_, &QLineEdit::textEdited, this, [this](const QString& t) { m_.Text1 = S(t); });
    connect(command3_, &QPushButton::clicked, this, [this] {
        EseguiEvento(ui_, [this] { m_.clickCommand3(); });
        aggiorna();
    });
    connect(command4_, &QPushButton::clicked, this, [this] {
        EseguiEvento(ui_, [this] { m_.clickCommand4(); });
        aggiorna();
    });
    connect(command1_, &QPushButton::clicked, this, &Form20View::avvia);
    connect(command2_, &QPushButton::clicked, this, [this] {
        m_.clickCommand2();
        chiudiSeScaricato();
    });
}

void Form20View::aggiorna() {
    QSignalBlocker blocco(combo1_);
    combo1_->setCurrentIndex(m_.Combo1);
    if (text1_->text() != Q(m_.Text1)) text1_->setText(Q(m_.Text1));
}

void Form20View::showEvent(QShowEvent* e) {
    m_.carica();
    m_.visibile = true;
    aggiorna();
    QDialog::showEvent(e);
}

void Form20View::reject() {
    if (inLavoro()) return;
    // Closing the window unloads it: the next opening starts from TERZINE again.
    m_.scarica();
    QDialog::reject();
}

void Form20View::chiudiSeScaricato() {
    if (!m_.visibile && isVisible()) done(m_.caricato ? QDialog::Rejected : QDialog::Accepted);
}

bool Form20View::scaricato() const { return !m_.caricato; }

void Form20View::abilitaComandi(bool abilitati) {
    const std::initializer_list<QWidget*> comandi = {combo1_, text1_, command1_, command2_, command3_, command4_};
    for (QWidget* w : comandi) w->setEnabled(abilitati);
}

void Form20View::avvia() {
    if (!eseguiLavoro([this] { EseguiEvento(ui_, [this] { m_.clickCommand1(); }); })) return;
    // Unloaded by a started development: the dialog is done. Refused: it stays open.
    if (!m_.caricato) done(QDialog::Accepted);
    else aggiorna();
}

}  // namespace zef::ui
