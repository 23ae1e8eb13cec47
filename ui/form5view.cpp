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
    : QDialog(parent), m_(modello), s_(s), ui_(ui), esegui_(std::move(esegui)) {
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
        if (inLavoro_) return;
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

void Form5View::closeEvent(QCloseEvent* e) {
    if (inLavoro_) {  // the reduction owns the dialog until it ends
        e->ignore();
        return;
    }
    QDialog::closeEvent(e);
}

void Form5View::reject() {
    if (inLavoro_) return;
    s_.form5.scarica();
    QDialog::reject();
}

bool Form5View::eventFilter(QObject* oggetto, QEvent* evento) {
    // The progress window comes up once AVVIA has unloaded the dialog: the worker
    // waits on that call, so the options can be read here; the dialog steps aside.
    if (evento->type() == QEvent::Show && oggetto != this && qobject_cast<QDialog*>(oggetto) &&
        !s_.form5.caricato && isVisible())
        hide();
    return QDialog::eventFilter(oggetto, evento);
}

void Form5View::abilitaComandi(bool abilitati) {
    for (QWidget* w : {static_cast<QWidget*>(check1_), static_cast<QWidget*>(check2_),
                       static_cast<QWidget*>(command1_), static_cast<QWidget*>(command2_)})
        w->setEnabled(abilitati);
    for (QRadioButton* o : option_) o->setEnabled(abilitati);
}

void Form5View::avvia() {
    if (inLavoro_) return;
    inLavoro_ = true;
    // The worker reads the options: nothing in the dialog may change them meanwhile.
    abilitaComandi(false);
    qApp->installEventFilter(this);
    bool ridotto = false;
    auto lavoro = [this, &ridotto] { EseguiEvento(ui_, [this, &ridotto] { ridotto = m_.clickCommand1(); }); };
    try {
        if (esegui_) esegui_(lavoro);
        else vista::EseguiInThread(lavoro);
    } catch (const std::exception& e) {
        ui_.messaggio(std::string("Errore: ") + e.what(), "", Icona::Critico);
    }
    qApp->removeEventFilter(this);
    abilitaComandi(true);
    inLavoro_ = false;
    // Started (the dialog unloaded itself), or refused: then it stays with its options.
    if (ridotto || !s_.form5.caricato) done(QDialog::Accepted);
    else aggiorna();
}

}  // namespace zef::ui
