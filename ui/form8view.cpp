#include "ui/form8view.h"

#include "core/errori.h"
#include "core/sistema.h"
#include "reduction/percentuali.h"

#include <QApplication>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>
#include <cmath>

namespace zef::ui {

using vista::Q;

namespace {

// Timer events run back to back on the worker for about this long, then the table
// is mirrored and the keys served.
constexpr std::chrono::milliseconds DurataFetta{40};
constexpr std::chrono::milliseconds DurataNascosta{8};

QLabel* Intestazione(const char* nome, const char* testo) {
    auto* l = new QLabel(testo);
    l->setObjectName(nome);
    l->setFont(vista::CarattereFinestra(9, true));
    l->setAlignment(Qt::AlignCenter);
    return l;
}

}  // namespace

Form8View::Form8View(Form8& modello, Sistema& s, Interfaccia& ui, vista::EseguiInLavoro esegui, QWidget* parent)
    : QDialog(parent), m_(modello), s_(s), ui_(ui), esegui_(std::move(esegui)) {
    setObjectName("Form8");
    setWindowTitle(Q(s_.form8.Caption));
    setFont(vista::CarattereFinestra(10));
    setModal(true);

    // Row titles and the four rows of cells, one column per L from 5 down to 2.
    auto* tabella = new QGridLayout;
    tabella->setHorizontalSpacing(6);
    tabella->setVerticalSpacing(4);
    tabella->addWidget(Intestazione("Label4", "TIPO DI VINCITA"), 0, 0);
    const char* nomiTeste[4] = {"Label5", "Label6", "Label8", "Label10"};
    const char* testi[4] = {"Con 5 numeri", "Con 4 numeri", "Con 3 numeri", "Con 2 numeri"};
    for (int c = 0; c < 4; ++c) tabella->addWidget(Intestazione(nomiTeste[c], testi[c]), 0, 1 + c);
    const char* nomiTitoli[4] = {"cinquine", "quaterne", "terni", "ambi"};
    const char* nomiCelle[4] = {"Perc5", "Perc4", "Perc3", "Perc2"};
    for (int r = 0; r < 4; ++r) {
        titoli_[r] = new QLabel;
        titoli_[r]->setObjectName(nomiTitoli[r]);
        titoli_[r]->setFont(vista::CarattereFinestra(10, true));
        tabella->addWidget(titoli_[r], 1 + r, 0);
        for (int L = 5; L >= 2; --L) {
            auto* cella = new QLabel;
            cella->setObjectName(QString("%1_%2").arg(nomiCelle[r]).arg(L));
            cella->setFrameStyle(QFrame::Panel | QFrame::Sunken);
            cella->setAlignment(Qt::AlignCenter);
            cella->setMinimumWidth(96);
            cella->setFont(vista::CarattereFinestra(10, true));
            perc_[r][L] = cella;
            tabella->addWidget(cella, 1 + r, 1 + (5 - L));
        }
    }

    auto* label1 = new QLabel(Form8::Label1);
    label1->setObjectName("Label1");
    label1->setAlignment(Qt::AlignRight);

    garanziaMax_ = new QLabel;
    garanziaMax_->setObjectName("GaranziaMax");
    garanziaMin_ = new QLabel;
    garanziaMin_->setObjectName("GaranziaMin");
    auto* garanzie = new QGridLayout;
    auto* label2 = Intestazione("Label2", "Garanzia massima:");
    auto* label7 = Intestazione("Label7", "Garanzia minima:");
    label2->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    label7->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    garanzie->addWidget(label2, 0, 0);
    garanzie->addWidget(garanziaMax_, 0, 1);
    garanzie->addWidget(label7, 1, 0);
    garanzie->addWidget(garanziaMin_, 1, 1);
    garanzie->setColumnStretch(1, 1);
    for (QLabel* l : {garanziaMax_, garanziaMin_}) {
        l->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        l->setMinimumWidth(260);
    }

    barra_ = new QProgressBar;
    barra_->setObjectName("ProgressBar1");
    barra_->setTextVisible(false);
    // The window takes the keys itself (the hidden Text1 of old): the button never
    // holds the focus, so a key is never a click.
    command1_ = new QPushButton("OK");
    command1_->setObjectName("Command1");
    command1_->setFocusPolicy(Qt::NoFocus);
    command1_->setMinimumWidth(100);
    setFocusPolicy(Qt::StrongFocus);

    auto* basso = new QHBoxLayout;
    basso->addLayout(garanzie, 1);
    basso->addSpacing(12);
    basso->addWidget(command1_, 0, Qt::AlignBottom);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(tabella);
    layout->addWidget(label1);
    layout->addLayout(basso);
    layout->addWidget(barra_);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    timer1_ = new QTimer(this);
    timer1_->setObjectName("Timer1");
    timer1_->setInterval(1);
    connect(timer1_, &QTimer::timeout, this, &Form8View::passo);
    connect(command1_, &QPushButton::clicked, this, [this] {
        m_.clickCommand1();
        done(QDialog::Accepted);  // hidden, with its table
    });
}

void Form8View::aggiorna() {
    const auto& f = s_.form8;
    setWindowTitle(Q(f.Caption));
    for (int r = 0; r < 4; ++r) {
        titoli_[r]->setText(Q(f.titoli[r]));
        for (int L = 2; L <= 5; ++L) perc_[r][L]->setText(Q(f.Perc[r][L]));
    }
    garanziaMax_->setText(Q(f.GaranziaMax));
    garanziaMin_->setText(Q(f.GaranziaMin));
    barra_->setVisible(f.barraVisibile);
    // The bar works in ints: large counts as thousandths.
    const double span = f.barraMassimo - f.barraMinimo;
    barra_->setRange(0, 1000);
    barra_->setValue(span > 0 ? static_cast<int>(std::lround(std::clamp((f.barraValore - f.barraMinimo) / span,
                                                                        0.0, 1.0) * 1000))
                              : 0);
    if (f.caricato && f.Timer1) {
        if (!timer1_->isActive()) timer1_->start();
    } else {
        timer1_->stop();
    }
}

void Form8View::ferma() { timer1_->stop(); }

void Form8View::showEvent(QShowEvent* e) {
    chiusuraRichiesta_ = false;
    tasti_.clear();
    QDialog::showEvent(e);
    EseguiEvento(ui_, [this] { m_.attiva(); });
    aggiorna();
    setFocus();
}

void Form8View::eventi(std::chrono::milliseconds durata) {
    const auto fine = std::chrono::steady_clock::now() + durata;
    try {
        do {
            m_.timer1();
        } while (s_.form8.caricato && s_.form8.Timer1 && std::chrono::steady_clock::now() < fine);
    } catch (const ErroreEsecuzione&) {
        s_.form8.Timer1 = false;  // a failing event would fail again on every tick
        throw;
    }
}

void Form8View::passo() {
    if (inLavoro_) return;
    if (!s_.form8.caricato || !s_.form8.Timer1) {
        timer1_->stop();
        return;
    }
    if (!isVisible()) {
        // Hidden by Command1, the window goes on computing on this thread, a few
        // milliseconds of events a tick among the program's other events, and none
        // while another window holds the program (a pass may be on a worker then).
        if (QApplication::activeModalWidget()) return;
        EseguiEvento(ui_, [this] { eventi(DurataNascosta); });
        aggiorna();
        return;
    }
    timer1_->stop();
    inLavoro_ = true;
    auto lavoro = [this] { EseguiEvento(ui_, [this] { eventi(DurataFetta); }); };
    try {
        if (esegui_) esegui_(lavoro);
        else vista::EseguiInThread(lavoro);
    } catch (const std::exception& e) {
        s_.form8.Timer1 = false;
        ui_.messaggio(std::string("Errore: ") + e.what(), "", Icona::Critico);
    }
    inLavoro_ = false;
    std::vector<int> tasti;
    tasti.swap(tasti_);
    for (int t : tasti) {
        if (!s_.form8.caricato) break;
        EseguiEvento(ui_, [this, t] { m_.tasto(t); });
    }
    if (chiusuraRichiesta_ && s_.form8.caricato) m_.scarica();
    aggiorna();
    chiudiSeScaricato();
}

void Form8View::tasto(int codice) {
    if (inLavoro_) {
        tasti_.push_back(codice);
        return;
    }
    EseguiEvento(ui_, [this, codice] { m_.tasto(codice); });
    aggiorna();
    chiudiSeScaricato();
}

void Form8View::keyPressEvent(QKeyEvent* e) {
    const int k = e->key();
    e->accept();
    if (k == Qt::Key_Shift || k == Qt::Key_Control || k == Qt::Key_Alt || k == Qt::Key_Meta) return;
    // Letters and digits keep their codes (Qt's are the upper-case ones); the model
    // tells only ESC from the rest.
    if (k == Qt::Key_Escape) tasto(27);
    else if (k == Qt::Key_Return || k == Qt::Key_Enter) tasto(13);
    else tasto(k < 0x100 ? k : 0);
}

void Form8View::reject() {
    if (inLavoro_) {  // the slice ends first
        chiusuraRichiesta_ = true;
        return;
    }
    m_.scarica();
    QDialog::reject();
}

void Form8View::chiudiSeScaricato() {
    if (!s_.form8.caricato && isVisible()) QDialog::reject();
}

}  // namespace zef::ui
