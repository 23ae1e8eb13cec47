#include "ui/form29view.h"

#include "conditions/form28.h"
#include "conditions/form29.h"
#include "ui/vista_comune.h"

#include <QButtonGroup>
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
#include <QRegularExpressionValidator>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>

namespace zef::ui {

using vista::Q;
using vista::S;

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
    auto* h = new QHBoxLayout;
    for (QWidget* p : parti) h->addWidget(p, 0, Qt::AlignTop);
    h->addStretch();
    v->addLayout(h);
    v->addStretch();
    return w;
}

QWidget* Contenitore(QLayout* l) {
    auto* w = new QWidget;
    w->setLayout(l);
    return w;
}

}  // namespace

Form29View::Form29View(Form29& modello, Interfaccia& ui, QWidget* parent) : QDialog(parent), m_(modello), ui_(ui) {
    setObjectName("Form29");
    setWindowTitle(QString::fromUtf8(form29::Titolo));
    setFont(vista::CarattereFinestra(9));
    setModal(true);

    pagine_ = new QStackedWidget;
    pagine_->setObjectName("SSTab1");
    for (int i = 0; i < 10; ++i) pagine_->addWidget(pagina(i));

    // Two rows of five, captions as on the conditions dialog.
    striscia_ = new QButtonGroup(this);
    auto* righe = new QGridLayout;
    righe->setSpacing(0);
    for (int i = 0; i < 10; ++i) {
        auto* b = new QToolButton;
        b->setText(QString::fromUtf8(form28::Schede[form29::SchedeForm28[i]]).trimmed());
        b->setCheckable(true);
        b->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        b->setMinimumHeight(24);
        striscia_->addButton(b, i);
        righe->addWidget(b, i / 5, i % 5);
    }
    connect(striscia_, &QButtonGroup::idClicked, this, [this](int i) {
        m_.SSTab1 = i;
        aggiorna();
    });

    ritFrq_ = new QLabel;
    ritFrq_->setObjectName("ritardoFrequenza");
    imposta_ = new QPushButton("Imposta questi parametri");
    imposta_->setObjectName("axButton1");
    chiudi_ = new QPushButton("Chiudi finestra");
    chiudi_->setObjectName("axButton2");
    for (QPushButton* b : {imposta_, chiudi_}) {
        b->setFont(vista::CarattereFinestra(10, true));
        b->setAutoDefault(false);
        b->setMinimumWidth(b->fontMetrics().horizontalAdvance(b->text()) + 30);
    }
    auto* basso = new QHBoxLayout;
    basso->addWidget(ritFrq_);
    basso->addStretch();
    basso->addWidget(imposta_);
    basso->addWidget(chiudi_);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(righe);
    layout->addWidget(pagine_, 1);
    layout->addLayout(basso);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    connect(imposta_, &QPushButton::clicked, this, [this] {
        evento([this] { m_.clickImposta(); });
        if (!m_.caricato) accept();
    });
    connect(chiudi_, &QPushButton::clicked, this, [this] { reject(); });
    aggiorna();
}

QAbstractButton* Form29View::scheda(int i) const { return striscia_->button(i); }

void Form29View::evento(const std::function<void()>& gestore) {
    EseguiEvento(ui_, gestore);
    aggiorna();
}

void Form29View::reject() {
    EseguiEvento(ui_, [this] { m_.clickChiudi(); });
    QDialog::reject();
}

// ---- building blocks ------------------------------------------------------------------------------

QComboBox* Form29View::combo(int n, int* campo) {
    auto* c = new QComboBox;
    c->setObjectName(QString("Combo%1").arg(n));
    for (const auto& v : Form29::voci(n)) c->addItem(Q(v));
    c->setMinimumWidth(70);
    combo_[n] = c;
    campiCombo_[n] = campo;
    connect(c, &QComboBox::currentIndexChanged, this, [campo](int i) {
        if (i >= 0) *campo = i;
    });
    return c;
}

QLineEdit* Form29View::testo(const std::string& nome) {
    auto* t = new QLineEdit;
    t->setObjectName(Q(nome));
    t->setFixedWidth(52);
    t->setAlignment(Qt::AlignRight);
    t->setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9]{0,3}"), t));
    campi_[nome] = t;
    connect(t, &QLineEdit::textEdited, this, [this, nome](const QString& v) { *m_.campo(nome) = S(v); });
    return t;
}

template <size_t N>
QWidget* Form29View::caselle(std::array<QCheckBox*, N>& widget, std::array<int, N>& modello, const char* nome) {
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

QWidget* Form29View::pagina(int i) {
    switch (i) {
        case 0: {
            auto* f = Modulo();
            f->addRow("Minimo", combo(1, &m_.Combo1));
            f->addRow("Massimo", combo(2, &m_.Combo2));
            return Fila({Cornice("INTERVALLO", f)});
        }
        case 1: {
            auto* f = Modulo();
            f->addRow("Presenze", caselle(check1_, m_.Check1, "Check1"));
            f->addRow("Interruzioni massime consecutive", combo(5, &m_.Combo5));
            return Fila({Contenitore(f)});
        }
        case 2: {
            list3_ = new QListWidget;
            list3_->setObjectName("List3");
            list3_->setSelectionMode(QAbstractItemView::NoSelection);
            list3_->setMinimumWidth(340);
            list3_->setMaximumHeight(110);
            auto* v = new QVBoxLayout;
            v->setContentsMargins(0, 0, 0, 0);
            v->addWidget(new QLabel("Sezioni consigliate"));
            v->addWidget(list3_);
            return Fila({Contenitore(v)});
        }
        case 3: {
            auto* f = Modulo();
            f->addRow("Somma globale minima", testo("txtSomma(0)"));
            f->addRow("Somma globale massima", testo("txtSomma(1)"));
            return Fila({Contenitore(f)});
        }
        case 4: {
            auto* pari = Modulo();
            pari->addRow("Minimo", testo("txtPariMin"));
            pari->addRow("Massimo", testo("txtPariMax"));
            pari->addRow("Consecutivi max", testo("txtPariCons"));
            auto* dispari = Modulo();
            dispari->addRow("Minimo", testo("txtDispariMin"));
            dispari->addRow("Massimo", testo("txtDispariMax"));
            dispari->addRow("Consecutivi max", testo("txtDispariCons"));
            return Fila({Cornice("Numeri Pari", pari), Cornice("Numeri Dispari", dispari)});
        }
        case 5: {
            auto* f = Modulo();
            f->addRow(QString::fromUtf8("Unità"), testo("txtDistanzaMin"));
            return Fila({Cornice("Distanza media minima", f)});
        }
        case 6: {
            auto* pari = new QHBoxLayout;
            pari->addWidget(caselle(gruppiPari_, m_.chkGruppiPari, "chkGruppiPari"));
            auto* dispari = new QHBoxLayout;
            dispari->addWidget(caselle(gruppiDispari_, m_.chkGruppiDispari, "chkGruppiDispari"));
            auto* v = new QVBoxLayout;
            v->setContentsMargins(0, 0, 0, 0);
            v->addWidget(Cornice("Gruppi Pari di segni PD", pari));
            v->addWidget(Cornice("Gruppi Dispari di segni PD", dispari));
            return Fila({Contenitore(v)});
        }
        case 7: {
            auto* f = Modulo();
            f->addRow("Presenze", caselle(interruzioniPD_, m_.chkInterruzioniPD, "chkInterruzioniPD"));
            f->addRow("InterruzioniPD massime consecutive", combo(7, &m_.Combo7));
            return Fila({Contenitore(f)});
        }
        case 8: {
            // The boxes show the numbers seen at the place; they are not for editing.
            auto* g = new QGridLayout;
            g->setContentsMargins(0, 0, 0, 0);
            g->setSpacing(1);
            for (int x = 0; x < 90; ++x) {
                auto* b = new QPushButton(QString::number(x + 1));
                b->setObjectName(QString("Check18_%1").arg(x));
                b->setCheckable(true);
                b->setFixedSize(27, 21);
                b->setFocusPolicy(Qt::NoFocus);
                b->setAttribute(Qt::WA_TransparentForMouseEvents);
                b->setAutoFillBackground(true);
                check18_[x] = b;
                g->addWidget(b, x / 10, x % 10);
            }
            auto* posizione = new QLineEdit;
            posizione->setObjectName("txtPosizioni");
            posizione->setReadOnly(true);
            posizione->setFixedWidth(40);
            posizione->setAlignment(Qt::AlignRight);
            campi_["txtPosizioni"] = posizione;
            auto* frecce = new QVBoxLayout;
            frecce->setSpacing(0);
            for (bool su : {true, false}) {
                auto* b = new QToolButton;
                b->setObjectName(su ? "UpDown10_su" : "UpDown10_giu");
                b->setArrowType(su ? Qt::UpArrow : Qt::DownArrow);
                b->setFixedSize(18, 12);
                b->setFocusPolicy(Qt::NoFocus);
                connect(b, &QToolButton::clicked, this, [this, su] { evento([&] { m_.upDown10(su); }); });
                (su ? su_ : giu_) = b;
                frecce->addWidget(b);
            }
            auto* campo = new QHBoxLayout;
            campo->setSpacing(1);
            campo->addWidget(posizione);
            campo->addLayout(frecce);
            auto* f = Modulo();
            f->addRow("Posizione in sestina", Contenitore(campo));
            return Fila({Contenitore(g), Contenitore(f)});
        }
        default: {
            auto* n = new QHBoxLayout;
            n->addWidget(testo("Text2"));
            auto* p = new QHBoxLayout;
            p->addWidget(combo(10, &m_.Combo10));
            return Fila({Cornice("N° sestine considerate", n), Cornice("Punti massimi nelle colonne", p)});
        }
    }
}

// ---- mirror -----------------------------------------------------------------------------------

void Form29View::aggiorna() {
    const int s = std::clamp(m_.SSTab1, 0, 9);
    pagine_->setCurrentIndex(s);
    striscia_->button(s)->setChecked(true);
    for (int i = 0; i < 10; ++i) {
        QFont f = striscia_->button(i)->font();
        f.setBold(i == s);
        striscia_->button(i)->setFont(f);
    }
    for (auto& specchio : specchi_) specchio();
    for (auto& [n, c] : combo_) {
        QSignalBlocker blocco(c);
        c->setCurrentIndex(*campiCombo_[n]);  // -1 shows no choice
    }
    for (auto& [nome, t] : campi_) {
        const QString v = Q(*m_.campo(nome));
        if (t->text() != v) t->setText(v);
    }
    list3_->clear();
    for (const auto& v : m_.List3) list3_->addItem(Q(v));
    const QColor giallo(255, 255, 0);
    for (int x = 0; x < 90; ++x) {
        QPushButton* b = check18_[x];
        b->setChecked(m_.Check18[x] != 0);
        QPalette p = b->palette();
        p.setColor(QPalette::Button, m_.Check18[x] ? giallo : palette().color(QPalette::Button));
        b->setPalette(p);
    }
    ritFrq_->setText(QString("Ritardo medio colonna: da %1 a %2     Frequenza media colonna: da %3 a %4")
                         .arg(m_.ritardoMin)
                         .arg(m_.ritardoMax)
                         .arg(m_.frequenzaMin)
                         .arg(m_.frequenzaMax));
}

// ---- Suggerisci -------------------------------------------------------------------------------

bool SuggerisciCondizioni(Sistema& s, Interfaccia& ui, Form28& f28, QDialog& vista28, QWidget* padre,
                          const std::function<void()>& scaricaForm3) {
    const auto intervallo = ClickSuggerisci(f28, ui, scaricaForm3);
    if (!intervallo) return false;
    vista28.hide();  // unloaded: it comes back only through "Imposta questi parametri"
    bool riapri = false;
    Form29 modello(s, ui, f28, f28.archivio, *intervallo);
    modello.mostraForm28 = [&riapri] { riapri = true; };
    EseguiEvento(ui, [&] { modello.carica(); });  // under the hourglass Suggerisci turned on
    Form29View vista(modello, ui, padre);
    vista.exec();
    return riapri;
}

}  // namespace zef::ui
