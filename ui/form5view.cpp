#include "ui/form5view.h"

#include "core/sistema.h"
#include "reduction/form5.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace zef::ui {

Form5View::Form5View(Form5& modello, Sistema& s, Interfaccia& ui, vista::EseguiInLavoro esegui, QWidget* parent)
    : DialogoConLavoro(ui, std::move(esegui), parent), m_(modello), s_(s) {
    setObjectName("Form5");
    setWindowTitle(Form5::Caption);
    setFont(vista::CarattereFinestra(10));
    setModal(true);

    auto* label1 = new QLabel(Form5::Label1);
    label1->setObjectName("Label1");
    label1->setFont(vista::CarattereFinestra(12, true));
    label1->setAlignment(Qt::AlignCenter);

    auto* frameGaranzia = new QGroupBox(Form5::Label4);
    auto* lg = new QVBoxLayout(frameGaranzia);
    for (int n = 1; n <= 4; ++n) {
        // Not in a button group: a rule may leave the four as the model has them.
        auto* o = new QRadioButton(Form5::CaptionOption[n - 1]);
        o->setObjectName(QString("Option%1").arg(n));
        o->setAutoExclusive(false);
        option_[n - 1] = o;
        lg->addWidget(o);
        connect(o, &QRadioButton::clicked, this, [this, n] { evento([this, n] { m_.clickOption(n); }); });
    }

    auto* frameTipo = new QGroupBox(Form5::Label5);
    auto* lt = new QVBoxLayout(frameTipo);
    check1_ = new QCheckBox(Form5::CaptionCheck1);
    check1_->setObjectName("Check1");
    check2_ = new QCheckBox(Form5::CaptionCheck2);
    check2_->setObjectName("Check2");
    lt->addWidget(check1_);
    lt->addWidget(check2_);
    lt->addStretch();
    connect(check1_, &QCheckBox::clicked, this, [this] { evento([this] { m_.clickCheck1(); }); });
    connect(check2_, &QCheckBox::clicked, this, [this] { evento([this] { m_.clickCheck2(); }); });

    command1_ = new QPushButton(Form5::CaptionCommand1);
    command1_->setObjectName("Command1");
    command2_ = new QPushButton(Form5::CaptionCommand2);
    command2_->setObjectName("Command2");
    for (QPushButton* b : {command1_, command2_}) {
        b->setFont(vista::CarattereFinestra(10, true));
        b->setMinimumWidth(110);
    }
    command1_->setDefault(true);
    connect(command1_, &QPushButton::clicked, this, &Form5View::avvia);
    connect(command2_, &QPushButton::clicked, this, [this] {
        if (inLavoro()) return;
        m_.clickCommand2();
        QDialog::reject();  // hidden only: loaded, with its choices
    });

    auto* riquadri = new QHBoxLayout;
    riquadri->addWidget(frameGaranzia, 3);
    riquadri->addWidget(frameTipo, 2);
    auto* pulsanti = new QHBoxLayout;
    pulsanti->addStretch();
    pulsanti->addWidget(command1_);
    pulsanti->addWidget(command2_);
    pulsanti->addStretch();

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label1);
    layout->addLayout(riquadri);
    layout->addLayout(pulsanti);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void Form5View::evento(const std::function<void()>& gestore) {
    EseguiEvento(ui_, gestore);
    aggiorna();
}

void Form5View::aggiorna() {
    const auto& f = s_.form5;
    for (int i = 0; i < 4; ++i) {
        QSignalBlocker b(option_[i]);
        option_[i]->setChecked(f.Option[i]);
    }
    QSignalBlocker b1(check1_);
    QSignalBlocker b2(check2_);
    check1_->setChecked(f.cento);
    check2_->setChecked(f.accurato);
}

void Form5View::showEvent(QShowEvent* e) {
    evento([this] { m_.attiva(); });
    QDialog::showEvent(e);
}

void Form5View::reject() {
    if (inLavoro()) return;
    s_.form5.scarica();
    QDialog::reject();
}

bool Form5View::scaricato() const { return !s_.form5.caricato; }

void Form5View::abilitaComandi(bool abilitati) {
    for (QWidget* w : {static_cast<QWidget*>(check1_), static_cast<QWidget*>(check2_),
                       static_cast<QWidget*>(command1_), static_cast<QWidget*>(command2_)})
        w->setEnabled(abilitati);
    for (QRadioButton* o : option_) o->setEnabled(abilitati);
}

void Form5View::avvia() {
    bool ridotto = false;
    if (!eseguiLavoro([this, &ridotto] { EseguiEvento(ui_, [this, &ridotto] { ridotto = m_.clickCommand1(); }); }))
        return;
    // Started (the dialog unloaded itself), or refused: then it stays with its options.
    if (ridotto || !s_.form5.caricato) done(QDialog::Accepted);
    else aggiorna();
}

}  // namespace zef::ui
