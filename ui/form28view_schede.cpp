// The fifteen pages of the conditions dialog, one builder each.
#include "conditions/form28.h"
#include "ui/form28view.h"
#include "ui/vista_comune.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace zef::ui {

namespace {

QGroupBox* Cornice(const char* titolo, QLayout* contenuto) {
    auto* g = new QGroupBox(QString::fromUtf8(titolo));
    g->setLayout(contenuto);
    return g;
}

QFormLayout* Modulo() {
    auto* f = new QFormLayout;
    f->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    f->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    return f;
}

// Widgets side by side, pushed to the top left of the page.
QWidget* Fila(std::initializer_list<QWidget*> parti) {
    auto* w = new QWidget;
    auto* v = new QVBoxLayout(w);
    v->setContentsMargins(0, 0, 0, 0);
    auto* h = new QHBoxLayout;
    for (QWidget* p : parti) h->addWidget(p, 0, Qt::AlignTop);
    h->addStretch();
    v->addLayout(h);
    v->addStretch();
    return w;
}

QWidget* Etichettato(const char* etichetta, QWidget* w) {
    auto* c = new QWidget;
    auto* v = new QVBoxLayout(c);
    v->setContentsMargins(0, 0, 0, 0);
    v->setSpacing(2);
    v->addWidget(new QLabel(QString::fromUtf8(etichetta)));
    v->addWidget(w, 1);
    return c;
}

}  // namespace

template <size_t N>
QWidget* Form28View::caselle(std::array<QCheckBox*, N>& widget, std::array<int, N>& modello, const char* nome) {
    auto* w = new QWidget;
    auto* h = new QHBoxLayout(w);
    h->setContentsMargins(0, 0, 0, 0);
    for (size_t i = 0; i < N; ++i) {
        auto* c = new QCheckBox(QString::number(i));
        c->setObjectName(QString("%1_%2").arg(nome).arg(i));
        widget[i] = c;
        connect(c, &QCheckBox::clicked, this, [&modello, i](bool v) { modello[i] = v ? 1 : 0; });
        h->addWidget(c);
    }
    h->addStretch();
    specchi_.push_back([&widget, &modello] {
        for (size_t i = 0; i < N; ++i) widget[i]->setChecked(modello[i] != 0);
    });
    return w;
}

QWidget* Form28View::paginaNumeriFissi() {
    list1_ = new QListWidget;
    list1_->setObjectName("List1");
    // Numbers run down in columns, so a long forecast stays in view.
    list1_->setFlow(QListView::TopToBottom);
    list1_->setWrapping(true);
    list1_->setResizeMode(QListView::Adjust);
    list1_->setGridSize(QSize(list1_->fontMetrics().horizontalAdvance("00") + 44, list1_->fontMetrics().height() + 8));
    connect(list1_, &QListWidget::itemChanged, this, [this](QListWidgetItem* voce) {
        const int riga = list1_->row(voce);
        const bool spunta = voce->checkState() == Qt::Checked;
        evento([&] { m_.spuntaList1(riga, spunta); });
    });
    auto* w = new QWidget;
    auto* v = new QVBoxLayout(w);
    v->setContentsMargins(0, 0, 0, 0);
    v->addWidget(list1_);
    return w;
}

QWidget* Form28View::paginaConsecutivita() {
    auto* intervallo = Modulo();
    intervallo->addRow("Minimo", combo(1));
    intervallo->addRow("Massimo", combo(2));
    auto* modalita = Modulo();
    modalita->addRow("Tipo", combo(3));
    return Fila({Cornice("INTERVALLO", intervallo), Cornice("MODALITA'", modalita)});
}

QWidget* Form28View::paginaInterruzioni() {
    auto* f = Modulo();
    f->addRow("Presenze", caselle(check1_, m_.Check1, "Check1"));
    f->addRow("Interruzioni massime consecutive", combo(5));
    auto* w = new QWidget;
    w->setLayout(f);
    return Fila({w});
}

QWidget* Form28View::paginaColonneFiltro() {
    auto* sinistra = new QWidget;
    auto* v = new QVBoxLayout(sinistra);
    v->setContentsMargins(0, 0, 0, 0);
    v->addWidget(griglia90(numeriCF_, "chkNumeriCF", [this](int i, int x) { m_.clickNumeroCF(i, x); }));
    auto* punti = new QHBoxLayout;
    punti->addWidget(new QLabel("punti"));
    auto* caselle6 = new QWidget;
    auto* h = new QHBoxLayout(caselle6);
    h->setContentsMargins(0, 0, 0, 0);
    for (int i = 0; i < 6; ++i) {
        auto* c = new QCheckBox(QString::number(i));
        c->setObjectName(QString("chkPuntiCF_%1").arg(i));
        puntiCF_[i] = c;
        connect(c, &QCheckBox::clicked, this, [this, i](bool x) { m_.chkPuntiCF[i] = x ? 1 : 0; });
        h->addWidget(c);
    }
    specchi_.push_back([this] {
        for (int i = 0; i < 6; ++i) puntiCF_[i]->setChecked(m_.chkPuntiCF[i] != 0);
    });
    punti->addWidget(caselle6);
    punti->addStretch();
    v->addLayout(punti);
    v->addStretch();

    list2_ = lista("List2", &m_.List2Indice);
    auto* h2 = new QHBoxLayout;
    h2->addWidget(sinistra);
    h2->addWidget(colonnaComandi({{1, "-> aggiungi ->"}, {2, "-> modifica <-"}, {3, "elimina <-"},
                                  {4, "resetta <-*"}, {5, "azzera"}}));
    h2->addWidget(Etichettato("Colonne filtro attive", list2_), 1);
    auto* w = new QWidget;
    w->setLayout(h2);
    h2->setContentsMargins(0, 0, 0, 0);
    return w;
}

QWidget* Form28View::paginaSezioni() {
    auto* g = new QGridLayout;
    g->addWidget(new QLabel("Intervallo"), 0, 0);
    g->addWidget(conSpin("txtSezioneDa", "UpDown1"), 0, 1);
    g->addWidget(conSpin("txtSezioneA", "UpDown2"), 0, 2);
    g->addWidget(new QLabel("Presenze"), 1, 0);
    g->addWidget(conSpin("txtSezioneMin", "UpDown3"), 1, 1);
    g->addWidget(conSpin("txtSezioneMax", "UpDown4"), 1, 2);
    g->addWidget(new QLabel("Consecutivi"), 2, 0);
    g->addWidget(conSpin("txtSezioneCMin", "UpDown5"), 2, 1);
    g->addWidget(conSpin("txtSezioneCMax", "UpDown6"), 2, 2);
    g->setRowStretch(3, 1);
    list3_ = lista("List3", &m_.List3Indice);
    auto* h = new QHBoxLayout;
    h->setContentsMargins(0, 0, 0, 0);
    h->addWidget(Cornice("Impostazione delle sezioni", g));
    h->addWidget(colonnaComandi({{10, "-> aggiungi ->"}, {9, "-> modifica <-"}, {8, "elimina <-"},
                                 {7, "resetta <-*"}, {6, "azzera"}}));
    h->addWidget(Etichettato("Sezioni attive", list3_), 1);
    auto* w = new QWidget;
    w->setLayout(h);
    return w;
}

QWidget* Form28View::paginaSomma() {
    auto* f = Modulo();
    f->addRow("Minima", conSpin("txtSomma(0)", "UpDown7(0)"));
    f->addRow("Massima", conSpin("txtSomma(1)", "UpDown7(1)"));
    return Fila({Cornice("Somma globale", f)});
}

QWidget* Form28View::paginaPariDispari() {
    auto* pari = Modulo();
    pari->addRow("Minimo", conSpin("txtPariMin", "UpDownPariMin"));
    pari->addRow("Massimo", conSpin("txtPariMax", "UpDownPariMax"));
    pari->addRow("Consecutivi max", conSpin("txtPariCons", "UpDownPariCons"));
    auto* dispari = Modulo();
    dispari->addRow("Minimo", conSpin("txtDispariMin", "UpDownDispariMin"));
    dispari->addRow("Massimo", conSpin("txtDispariMax", "UpDownDispariMax"));
    dispari->addRow("Consecutivi max", conSpin("txtDispariCons", "UpDownDispariCons"));
    return Fila({Cornice("Numeri Pari", pari), Cornice("Numeri Dispari", dispari)});
}

QWidget* Form28View::paginaDistanza() {
    auto* f = Modulo();
    f->addRow("Tipo", combo(6));
    f->addRow("Minima", conSpin("txtDistanzaMin", "UpDown8"));
    f->addRow("Massima", conSpin("txtDistanzaMax", "UpDown9"));
    return Fila({Cornice("Distanza tra i numeri in colonna", f)});
}

QWidget* Form28View::paginaGruppi() {
    auto* f = Modulo();
    f->addRow("Gruppi pari", caselle(gruppiPari_, m_.chkGruppiPari, "chkGruppiPari"));
    f->addRow("Gruppi dispari", caselle(gruppiDispari_, m_.chkGruppiDispari, "chkGruppiDispari"));
    return Fila({Cornice("Numero di gruppi", f)});
}

QWidget* Form28View::paginaInterruzioniPD() {
    auto* f = Modulo();
    f->addRow("Presenze", caselle(interruzioniPD_, m_.chkInterruzioniPD, "chkInterruzioniPD"));
    f->addRow("InterruzioniPD massime consecutive", combo(7));
    auto* w = new QWidget;
    w->setLayout(f);
    return Fila({w});
}

QWidget* Form28View::paginaPosizioni() {
    auto* griglia = griglia90(check18_, "Check18", [this](int i, int x) { m_.clickCheck18(i, x); });
    check20_ = new QCheckBox("attivo");
    check20_->setObjectName("Check20");
    connect(check20_, &QCheckBox::clicked, this, [this](bool x) { m_.Check20 = x ? 1 : 0; });
    specchi_.push_back([this] { check20_->setChecked(m_.Check20 != 0); });
    auto* f = Modulo();
    f->addRow("Posizione in colonna", conSpin("txtPosizioni", "UpDown10"));
    f->addRow("Stato", check20_);
    auto* destra = new QWidget;
    destra->setLayout(f);
    return Fila({griglia, destra});
}

QWidget* Form28View::paginaSequele() {
    auto* segni = new QWidget;
    auto* hs = new QHBoxLayout(segni);
    hs->setContentsMargins(0, 0, 0, 0);
    hs->setSpacing(2);
    for (int i = 0; i < 3; ++i) {
        auto* b = new QPushButton;
        b->setObjectName(QString("Command11_%1").arg(i));
        b->setFixedSize(30, 26);
        b->setFont(vista::CarattereFinestra(10, true));
        b->setAutoDefault(false);
        command11_[i] = b;
        connect(b, &QPushButton::clicked, this, [this, i] { evento([&] { m_.clickCommand11(i); }); });
        hs->addWidget(b);
    }
    hs->addStretch();
    auto* f = Modulo();
    f->addRow("Combinazione", segni);
    f->addRow("Passo", combo(8));
    f->addRow("Presenze", caselle(check2_, m_.Check2, "Check2"));
    auto* azzera = new QHBoxLayout;
    azzera->addStretch();
    azzera->addWidget(comando(16, "azzera"));
    auto* cornice = new QVBoxLayout;
    cornice->addLayout(f);
    cornice->addLayout(azzera);
    cornice->addStretch();
    list4_ = lista("List4", &m_.List4Indice);
    auto* h = new QHBoxLayout;
    h->setContentsMargins(0, 0, 0, 0);
    h->addWidget(Cornice("Impostazione sequela", cornice));
    h->addWidget(colonnaComandi({{15, "-> aggiungi ->"}, {14, "-> modifica <-"}, {13, "elimina <-"},
                                 {12, "resetta <-*"}}));
    h->addWidget(Etichettato("SequelePD attive", list4_), 1);
    auto* w = new QWidget;
    w->setLayout(h);
    return w;
}

QWidget* Form28View::paginaPuntiColonne() {
    auto* colonne = new QHBoxLayout;
    colonne->addWidget(conSpin("txtNcolonne", "UpDown11"));
    auto* punti = new QHBoxLayout;
    punti->addWidget(combo(10));
    punti->addStretch();
    return Fila({Cornice("Precedenti colonne da considerare", colonne), Cornice("Punti massimi nelle colonne", punti)});
}

QWidget* Form28View::paginaRecupero() {
    auto* f = Modulo();
    f->addRow("Errori", combo(9));
    return Fila({Cornice("Numero condizioni errate ammesse", f)});
}

QWidget* Form28View::paginaRitFrq() {
    // The delay pair sits crosswise: the arrows beside the least value move the greatest.
    auto* ritardo = Modulo();
    ritardo->addRow("Minimo", conSpin("txtRitardoMin", "UpDown13"));
    ritardo->addRow("Massimo", conSpin("txtRitardoMax", "UpDown12"));
    auto* frequenza = Modulo();
    frequenza->addRow("Minima", conSpin("txtFrequenzaMin", "UpDown14"));
    frequenza->addRow("Massima", conSpin("txtFrequenzaMax", "UpDown15"));
    frequenza->addRow("Numero ultime estrazioni", conSpin("txtUltimeEstrazioni", "UpDown16"));
    return Fila({Cornice("Ritardo medio colonna", ritardo), Cornice("Frequenza media colonna", frequenza)});
}

}  // namespace zef::ui
