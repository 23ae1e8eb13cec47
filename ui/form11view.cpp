#include "ui/form11view.h"

#include "ui/disegno_scheda.h"
#include "ui/vista_comune.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVBoxLayout>

namespace zef::ui {

Form11View::Form11View(Form11& modello, Interfaccia& ui, QWidget* parent) : QDialog(parent), m_(modello), ui_(ui) {
    setObjectName("Form11");
    setWindowTitle(Form11::Titolo);
    setFont(vista::CarattereFinestra(10));
    setModal(true);

    static const char* const nomi[6] = {"MSuperiore", "MSinistro", "PVerticale", "POrizzontale", "SchedeDA", "SchedeA"};
    static const char* const spinner[6] = {"UpDown3", "UpDown4", "UpDown5", "UpDown6", "UpDown1", "UpDown2"};
    auto casella = [this](int c) {
        auto* riga = new QHBoxLayout;
        riga->setSpacing(1);
        auto* e = new QLineEdit;
        e->setObjectName(nomi[c]);
        e->setMaximumWidth(80);
        e->setAlignment(Qt::AlignRight);
        caselle_[c] = e;
        auto* frecce = new QVBoxLayout;
        frecce->setSpacing(0);
        for (int v = 0; v < 2; ++v) {
            auto* f = new QToolButton;
            f->setObjectName(QString(spinner[c]) + (v == 0 ? "Su" : "Giu"));
            f->setArrowType(v == 0 ? Qt::UpArrow : Qt::DownArrow);
            f->setFixedSize(18, 12);
            f->setAutoRepeat(true);
            frecce_[c][v] = f;
            frecce->addWidget(f);
            connect(f, &QToolButton::clicked, this, [this, c, v] {
                m_.upDown(static_cast<Form11::Casella>(c), v == 0 ? +1 : -1);
                aggiorna();
            });
        }
        riga->addWidget(e);
        riga->addLayout(frecce);
        connect(e, &QLineEdit::textEdited, this, [this, c](const QString& t) {
            m_.cambia(static_cast<Form11::Casella>(c), vista::S(t));
            aggiornaAnteprima();
        });
        return riga;
    };

    auto* geometria = new QGroupBox("Posizione dei segni (millimetri)");
    auto* lg = new QGridLayout(geometria);
    static const char* const etichette[4] = {"Margine superiore", "Margine sinistro", "Passo verticale",
                                             "Passo orizzontale"};
    for (int c = 0; c < 4; ++c) {
        lg->addWidget(new QLabel(etichette[c]), c, 0);
        lg->addLayout(casella(c), c, 1);
    }

    auto* schede = new QGroupBox("Schedine da stampare");
    auto* ls = new QGridLayout(schede);
    option1_ = new QRadioButton(Form11::CaptionOption1);
    option1_->setObjectName("Option1");
    option2_ = new QRadioButton(Form11::CaptionOption2);
    option2_->setObjectName("Option2");
    ls->addWidget(option1_, 0, 0);
    ls->addWidget(new QLabel("dalla"), 0, 1);
    ls->addLayout(casella(Form11::SchedeDA), 0, 2);
    ls->addWidget(new QLabel("alla"), 0, 3);
    ls->addLayout(casella(Form11::SchedeA), 0, 4);
    ls->addWidget(option2_, 1, 0);
    connect(option1_, &QRadioButton::clicked, this, [this] {
        m_.clickOption(1);
        aggiorna();
    });
    connect(option2_, &QRadioButton::clicked, this, [this] {
        m_.clickOption(2);
        aggiorna();
    });

    auto* frame1 = new QGroupBox(Form11::CaptionFrame1);
    frame1->setObjectName("Frame1");
    frame1->setToolTip("Nessuna casella: la giocata vale per un concorso");
    auto* lf = new QHBoxLayout(frame1);
    for (int i = 1; i <= 7; ++i) {
        // Not exclusive in Qt's sense: a click on the option that is on takes it off.
        auto* o = new QRadioButton(scheda::Concorsi[i]);
        o->setObjectName(QString("Option3_%1").arg(i));
        o->setAutoExclusive(false);
        option3_[i - 1] = o;
        lf->addWidget(o);
        connect(o, &QRadioButton::clicked, this, [this, i] {
            m_.clickOption3(i);
            aggiorna();
        });
    }

    check1_ = new QCheckBox(Form11::CaptionCheck1);
    check1_->setObjectName("Check1");
    connect(check1_, &QCheckBox::clicked, this, [this] {
        m_.clickCheck1();
        aggiorna();
    });

    command1_ = new QPushButton(Form11::CaptionCommand1);
    command1_->setObjectName("Command1");
    command2_ = new QPushButton(Form11::CaptionCommand2);
    command2_->setObjectName("Command2");
    for (QPushButton* p : {command1_, command2_}) {
        p->setFont(vista::CarattereFinestra(10, true));
        p->setMinimumWidth(110);
    }
    command1_->setDefault(true);
    connect(command1_, &QPushButton::clicked, this, [this] {
        EseguiEvento(ui_, [this] { m_.clickCommand1(); });
        if (!m_.visibile) accept();
        else aggiorna();
    });
    connect(command2_, &QPushButton::clicked, this, [this] {
        m_.clickCommand2();
        QDialog::reject();  // hidden: the settings stay
    });

    image1_ = new DisegnoScheda;

    auto* pulsanti = new QHBoxLayout;
    pulsanti->addStretch();
    pulsanti->addWidget(command1_);
    pulsanti->addWidget(command2_);
    auto* sinistra = new QVBoxLayout;
    sinistra->addWidget(geometria);
    sinistra->addWidget(schede);
    sinistra->addWidget(frame1);
    sinistra->addWidget(check1_);
    sinistra->addStretch();
    sinistra->addLayout(pulsanti);
    auto* layout = new QHBoxLayout(this);
    layout->addLayout(sinistra);
    layout->addWidget(image1_, 1);
}

void Form11View::aggiorna() {
    for (int c = 0; c < 6; ++c) {
        const QString t = vista::Q(m_.testo(static_cast<Form11::Casella>(c)));
        if (caselle_[c]->text() != t) {
            QSignalBlocker b(caselle_[c]);
            caselle_[c]->setText(t);
        }
    }
    {
        QSignalBlocker a(option1_), b(option2_), c(check1_);
        option1_->setChecked(m_.Option1);
        option2_->setChecked(m_.Option2);
        check1_->setChecked(m_.Check1);
    }
    check1_->setToolTip(vista::Q(m_.Check1ToolTip));
    for (int i = 1; i <= 7; ++i) {
        QSignalBlocker b(option3_[i - 1]);
        option3_[i - 1]->setChecked(m_.Option3[i]);
    }
    aggiornaAnteprima();
}

void Form11View::aggiornaAnteprima() { image1_->imposta(m_.valori(), m_.intestazione(1)); }

void Form11View::showEvent(QShowEvent* e) {
    m_.visibile = true;
    aggiorna();
    QDialog::showEvent(e);
}

void Form11View::reject() {
    m_.scarica();
    QDialog::reject();
}

}  // namespace zef::ui
