#include "ui/form28view.h"

#include "conditions/form28.h"
#include "ui/vista_comune.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QFocusEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace zef::ui {

using vista::Q;
using vista::S;

namespace {

const char* FiltroCondizioni = "Condizioni|*.json";

// Colour values are stored blue-green-red; a negative one names a system colour.
QColor ColoreDa(int valore, const QColor& sistema) {
    if (valore < 0) return sistema;
    return QColor(valore & 0xFF, (valore >> 8) & 0xFF, (valore >> 16) & 0xFF);
}

int* CampoCombo(Form28& m, int n) {
    switch (n) {
        case 1: return &m.Combo1;
        case 2: return &m.Combo2;
        case 3: return &m.Combo3;
        case 5: return &m.Combo5;
        case 6: return &m.Combo6;
        case 7: return &m.Combo7;
        case 8: return &m.Combo8;
        case 9: return &m.Combo9;
        case 10: return &m.Combo10;
    }
    return nullptr;
}

}  // namespace

Form28View::Form28View(Form28& modello, Interfaccia& ui, QWidget* parent) : QDialog(parent), m_(modello), ui_(ui) {
    setObjectName("Form28");
    setWindowTitle(QString::fromUtf8(form28::Titolo));
    setFont(vista::CarattereFinestra(9));
    setModal(true);

    tab_ = new QTabWidget;
    tab_->setObjectName("SSTab1");
    tab_->tabBar()->hide();
    QWidget* (Form28View::*pagine[15])() = {
        &Form28View::paginaNumeriFissi,   &Form28View::paginaConsecutivita, &Form28View::paginaInterruzioni,
        &Form28View::paginaColonneFiltro, &Form28View::paginaSezioni,       &Form28View::paginaSomma,
        &Form28View::paginaPariDispari,   &Form28View::paginaDistanza,      &Form28View::paginaGruppi,
        &Form28View::paginaInterruzioniPD, &Form28View::paginaPosizioni,    &Form28View::paginaSequele,
        &Form28View::paginaPuntiColonne,  &Form28View::paginaRecupero,      &Form28View::paginaRitFrq};
    for (int i = 0; i < 15; ++i) tab_->addTab(pagina(i, (this->*pagine[i])()), QString::fromUtf8(form28::Schede[i]));

    // The strip: three rows of five, as the tabs of the dialog have always been laid out.
    striscia_ = new QButtonGroup(this);
    striscia_->setExclusive(true);
    auto* righe = new QGridLayout;
    righe->setSpacing(0);
    for (int i = 0; i < 15; ++i) {
        auto* b = new QToolButton;
        b->setText(QString::fromUtf8(form28::Schede[i]).trimmed());
        b->setCheckable(true);
        b->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        b->setMinimumHeight(24);
        b->setFocusPolicy(Qt::TabFocus);
        striscia_->addButton(b, i);
        righe->addWidget(b, i / 5, i % 5);
    }
    connect(striscia_, &QButtonGroup::idClicked, this, [this](int i) {
        m_.SSTab1 = i;
        aggiorna();
    });
    // Ctrl+Tab still steps through the pages with the bar hidden.
    connect(tab_, &QTabWidget::currentChanged, this, [this](int i) {
        m_.SSTab1 = i;
        aggiorna();
    });

    salva_ = new QPushButton("Salva condizioni...");
    salva_->setObjectName("salvaCondizioni");
    caricaPulsante_ = new QPushButton("Carica condizioni...");
    caricaPulsante_->setObjectName("caricaCondizioni");
    accetta_ = new QPushButton("Accetta");
    accetta_->setObjectName("axButton1");
    resetta_ = new QPushButton("Resetta");
    resetta_->setObjectName("axButton2");
    suggerisciPulsante_ = new QPushButton("Suggerisci");
    suggerisciPulsante_->setObjectName("axButton3");
    for (QPushButton* b : {accetta_, resetta_, suggerisciPulsante_}) {
        b->setFont(vista::CarattereFinestra(10, true));
        b->setMinimumWidth(110);
        b->setAutoDefault(false);
    }
    for (QPushButton* b : {salva_, caricaPulsante_}) {
        b->setAutoDefault(false);
        b->setMinimumWidth(b->fontMetrics().horizontalAdvance(b->text()) + 28);
    }
    auto* basso = new QHBoxLayout;
    basso->addWidget(caricaPulsante_);
    basso->addWidget(salva_);
    basso->addStretch();
    basso->addWidget(suggerisciPulsante_);
    basso->addWidget(resetta_);
    basso->addWidget(accetta_);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(righe);
    layout->addWidget(tab_, 1);
    layout->addLayout(basso);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    connect(accetta_, &QPushButton::clicked, this, &Form28View::accetta);
    connect(resetta_, &QPushButton::clicked, this, &Form28View::resetta);
    connect(salva_, &QPushButton::clicked, this, &Form28View::salva);
    connect(caricaPulsante_, &QPushButton::clicked, this, &Form28View::carica);
    connect(suggerisciPulsante_, &QPushButton::clicked, this, [this] {
        if (suggerisci) evento(suggerisci);
    });

    m_.mostra = [this] { mostraDiNuovo(); };
    aggiorna();
}

Form28View::~Form28View() { m_.mostra = nullptr; }

QAbstractButton* Form28View::scheda(int i) const { return striscia_->button(i); }

QToolButton* Form28View::spin(const std::string& nome, bool su) const {
    const auto& coppia = spin_.at(nome);
    return su ? coppia.first : coppia.second;
}

void Form28View::evento(const std::function<void()>& gestore) {
    EseguiEvento(ui_, gestore);
    aggiorna();
}

// ---- building blocks ------------------------------------------------------------------------------

QWidget* Form28View::pagina(int i, QWidget* controlli) {
    auto* w = new QWidget;
    auto* v = new QVBoxLayout(w);
    auto* aiuto = new QLabel(QString::fromUtf8(form28::Aiuti[i]));
    aiuto->setObjectName(QString("Label1_%1").arg(i));
    aiuto->setWordWrap(true);
    aiuto->setFont(vista::CarattereFinestra(8.5));
    aiuto->setFrameShape(QFrame::StyledPanel);
    aiuto->setMargin(4);
    aiuto->setMinimumHeight(3 * aiuto->fontMetrics().lineSpacing() + 10);
    aiuto->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    auto* attiva = new QCheckBox("attiva");
    attiva->setObjectName(QString("chkAttivo_%1").arg(i));
    attiva->setFont(vista::CarattereFinestra(9, true));
    chkAttivo_[i] = attiva;
    connect(attiva, &QCheckBox::clicked, this, [this, i](bool spunta) { m_.chkAttivo[i] = spunta ? 1 : 0; });
    specchi_.push_back([this, i] { chkAttivo_[i]->setChecked(m_.chkAttivo[i] != 0); });
    auto* testa = new QHBoxLayout;
    testa->addWidget(aiuto, 1);
    testa->addWidget(attiva, 0, Qt::AlignTop);
    v->addLayout(testa);
    v->addWidget(controlli, 1);
    return w;
}

QLineEdit* Form28View::testo(const std::string& nome) {
    auto* t = new QLineEdit;
    t->setObjectName(Q(nome));
    t->setProperty("campo", Q(nome));
    t->setFixedWidth(52);
    t->setAlignment(Qt::AlignRight);
    t->installEventFilter(this);
    campi_[nome] = t;
    connect(t, &QLineEdit::textEdited, this, [this, nome](const QString& testo) {
        *m_.campo(nome) = S(testo);
        if (nome == "txtPosizioni") evento([this] { m_.cambiaTxtPosizioni(); });
    });
    return t;
}

QWidget* Form28View::coppiaSpin(const std::string& nome) {
    auto* w = new QWidget;
    w->setObjectName(Q(nome));
    auto* v = new QVBoxLayout(w);
    v->setContentsMargins(0, 0, 0, 0);
    v->setSpacing(0);
    QToolButton* frecce[2];
    for (int k = 0; k < 2; ++k) {
        const bool su = k == 0;
        auto* b = new QToolButton;
        b->setObjectName(Q(nome) + (su ? "_su" : "_giu"));
        b->setArrowType(su ? Qt::UpArrow : Qt::DownArrow);
        b->setFixedSize(18, 12);
        b->setAutoRepeat(true);
        b->setFocusPolicy(Qt::NoFocus);
        connect(b, &QToolButton::clicked, this, [this, nome, su] { evento([&] { m_.spin(nome, su); }); });
        v->addWidget(b);
        frecce[k] = b;
    }
    spin_[nome] = {frecce[0], frecce[1]};
    return w;
}

QWidget* Form28View::conSpin(const std::string& campo, const std::string& nomeSpin) {
    auto* w = new QWidget;
    auto* h = new QHBoxLayout(w);
    h->setContentsMargins(0, 0, 0, 0);
    h->setSpacing(1);
    h->addWidget(testo(campo));
    h->addWidget(coppiaSpin(nomeSpin));
    h->addStretch();
    return w;
}

QComboBox* Form28View::combo(int n) {
    auto* c = new QComboBox;
    c->setObjectName(QString("Combo%1").arg(n));
    for (const auto& v : Form28::voci(n)) c->addItem(Q(v));
    c->setMinimumWidth(70);
    combo_[n] = c;
    connect(c, &QComboBox::currentIndexChanged, this, [this, n](int i) {
        if (i >= 0) *CampoCombo(m_, n) = i;
    });
    return c;
}

QPushButton* Form28View::comando(int n, const char* testo) {
    auto* b = new QPushButton(QString::fromUtf8(testo));
    b->setObjectName(QString("Command%1").arg(n));
    b->setAutoDefault(false);
    comandi_[n] = b;
    auto gestori = std::map<int, void (Form28::*)()>{
        {1, &Form28::clickCommand1},   {2, &Form28::clickCommand2},   {3, &Form28::clickCommand3},
        {4, &Form28::clickCommand4},   {5, &Form28::clickCommand5},   {6, &Form28::clickCommand6},
        {7, &Form28::clickCommand7},   {8, &Form28::clickCommand8},   {9, &Form28::clickCommand9},
        {10, &Form28::clickCommand10}, {12, &Form28::clickCommand12}, {13, &Form28::clickCommand13},
        {14, &Form28::clickCommand14}, {15, &Form28::clickCommand15}, {16, &Form28::clickCommand16}};
    auto gestore = gestori.at(n);
    connect(b, &QPushButton::clicked, this, [this, gestore] { evento([&] { (m_.*gestore)(); }); });
    return b;
}

QWidget* Form28View::griglia90(std::array<QPushButton*, 90>& numeri, const char* nome,
                               std::function<void(int, int)> clic) {
    auto* w = new QWidget;
    auto* g = new QGridLayout(w);
    g->setContentsMargins(0, 0, 0, 0);
    g->setSpacing(1);
    for (int i = 0; i < 90; ++i) {
        auto* b = new QPushButton(QString::number(i + 1));
        b->setObjectName(QString("%1_%2").arg(nome).arg(i));
        b->setCheckable(true);
        b->setFixedSize(27, 21);
        b->setFocusPolicy(Qt::NoFocus);
        b->setAutoDefault(false);
        b->setAutoFillBackground(true);
        numeri[i] = b;
        connect(b, &QPushButton::clicked, this, [this, i, clic](bool v) { evento([&] { clic(i, v ? 1 : 0); }); });
        g->addWidget(b, i / 10, i % 10);
    }
    return w;
}

QListWidget* Form28View::lista(const char* nome, int* indice) {
    auto* l = new QListWidget;
    l->setObjectName(nome);
    l->setSelectionMode(QAbstractItemView::SingleSelection);
    l->setMinimumWidth(200);
    connect(l, &QListWidget::itemSelectionChanged, this, [l, indice] {
        const auto scelte = l->selectedItems();
        *indice = scelte.isEmpty() ? -1 : l->row(scelte.front());
    });
    return l;
}

QWidget* Form28View::colonnaComandi(std::initializer_list<std::pair<int, const char*>> voci) {
    auto* w = new QWidget;
    auto* v = new QVBoxLayout(w);
    v->setContentsMargins(0, 0, 0, 0);
    v->addStretch();
    for (auto [n, t] : voci) v->addWidget(comando(n, t));
    v->addStretch();
    return w;
}

// ---- mirror -----------------------------------------------------------------------------------

void Form28View::aggiornaLista(QListWidget* l, const std::vector<std::string>& voci, int indice) {
    QSignalBlocker blocco(l);
    bool uguali = l->count() == static_cast<int>(voci.size());
    for (int i = 0; uguali && i < l->count(); ++i) uguali = l->item(i)->text() == Q(voci[i]);
    if (!uguali) {
        l->clear();
        for (const auto& v : voci) l->addItem(Q(v));
    }
    l->clearSelection();
    if (indice >= 0 && indice < l->count()) l->item(indice)->setSelected(true);
}

void Form28View::aggiornaNumeri(const std::array<QPushButton*, 90>& numeri, const std::array<int, 90>& spunte,
                                const std::array<bool, 90>& abilitati, bool perCF) {
    for (int i = 0; i < 90; ++i) {
        QPushButton* b = numeri[i];
        QSignalBlocker blocco(b);
        b->setChecked(spunte[i] != 0);
        b->setEnabled(abilitati[i]);
        const int fondo = perCF ? m_.coloreNumeroCF(i) : m_.coloreCheck18(i);
        const int testo = perCF ? m_.testoNumeroCF(i) : (abilitati[i] ? form28::ColoreBlu : form28::ColoreNero);
        QPalette p = b->palette();
        const QColor f = ColoreDa(fondo, palette().color(QPalette::Button));
        const QColor t = ColoreDa(testo, palette().color(QPalette::ButtonText));
        if (p.color(QPalette::Button) == f && p.color(QPalette::ButtonText) == t) continue;
        p.setColor(QPalette::Button, f);
        p.setColor(QPalette::Window, f);
        for (auto gruppo : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) p.setColor(gruppo, QPalette::ButtonText, t);
        b->setPalette(p);
    }
}

void Form28View::aggiorna() {
    {
        QSignalBlocker blocco(tab_);
        const int s = std::clamp(m_.SSTab1, 0, 14);
        tab_->setCurrentIndex(s);
        striscia_->button(s)->setChecked(true);
        for (int i = 0; i < 15; ++i) {
            QFont f = striscia_->button(i)->font();
            f.setBold(i == s);
            striscia_->button(i)->setFont(f);
        }
    }
    for (auto& specchio : specchi_) specchio();
    {
        QSignalBlocker blocco(list1_);
        bool uguali = list1_->count() == static_cast<int>(m_.List1.size());
        for (int i = 0; uguali && i < list1_->count(); ++i) uguali = list1_->item(i)->text() == Q(m_.List1[i]);
        if (!uguali) {
            list1_->clear();
            for (const auto& v : m_.List1) {
                auto* voce = new QListWidgetItem(Q(v), list1_);
                voce->setFlags(voce->flags() | Qt::ItemIsUserCheckable);
            }
        }
        for (int i = 0; i < list1_->count(); ++i) {
            const bool spunta = i < static_cast<int>(m_.List1Spuntato.size()) && m_.List1Spuntato[i];
            list1_->item(i)->setCheckState(spunta ? Qt::Checked : Qt::Unchecked);
        }
    }
    aggiornaLista(list2_, m_.List2, m_.List2Indice);
    aggiornaLista(list3_, m_.List3, m_.List3Indice);
    aggiornaLista(list4_, m_.List4, m_.List4Indice);
    for (auto& [n, c] : combo_) {
        QSignalBlocker blocco(c);
        c->setCurrentIndex(*CampoCombo(m_, n));
    }
    for (auto& [nome, t] : campi_) {
        const QString v = Q(*m_.campo(nome));
        if (t->text() != v) {
            QSignalBlocker blocco(t);
            t->setText(v);
        }
    }
    for (int i = 0; i < 3; ++i) command11_[i]->setText(Q(m_.Command11[i]));
    aggiornaNumeri(numeriCF_, m_.chkNumeriCF, m_.chkNumeriCFAbilitato, true);
    aggiornaNumeri(check18_, m_.Check18, m_.Check18Abilitato, false);
    suggerisciPulsante_->setVisible(bool(suggerisci));
}

// ---- events -------------------------------------------------------------------------------------

bool Form28View::eventFilter(QObject* oggetto, QEvent* e) {
    auto* t = qobject_cast<QLineEdit*>(oggetto);
    const QVariant nome = t ? t->property("campo") : QVariant();
    if (!nome.isValid()) return QDialog::eventFilter(oggetto, e);
    const std::string campo = S(nome.toString());
    if (e->type() == QEvent::KeyPress) {
        auto* k = static_cast<QKeyEvent*>(e);
        const QString testo = k->text();
        if (testo.size() != 1 || (k->modifiers() & (Qt::ControlModifier | Qt::AltModifier))) return false;
        const char16_t u = testo[0].unicode();
        if (u == 0x7f || (u < 0x20 && u != '\b')) return false;  // Enter, Tab, Escape: not typed characters
        char c = u < 0x80 ? static_cast<char>(u) : '\x80';
        const char prima = c;
        if (!m_.tasto(campo, c)) return true;  // refused: swallowed
        if (c == prima) return false;
        t->insert(QString(QChar(c)));
        *m_.campo(campo) = S(t->text());
        if (campo == "txtPosizioni") evento([this] { m_.cambiaTxtPosizioni(); });
        return true;
    }
    if (e->type() == QEvent::FocusOut) {
        // A box or another window coming up is no leaving of the field.
        const auto ragione = static_cast<QFocusEvent*>(e)->reason();
        if (ragione != Qt::ActiveWindowFocusReason && ragione != Qt::PopupFocusReason)
            evento([&] { m_.esci(campo); });
    }
    return false;
}

void Form28View::showEvent(QShowEvent* e) {
    if (!attivato_) EseguiEvento(ui_, [this] { m_.attiva(); });
    attivato_ = false;
    aggiorna();
    QDialog::showEvent(e);
}

void Form28View::reject() {
    m_.visibile = false;
    QDialog::reject();
}

void Form28View::mostraDiNuovo() {
    // The model was reloaded and activated; the dialog, if open, only takes its new state.
    if (isVisible()) {
        raise();
        activateWindow();
    } else {
        attivato_ = true;
        show();
    }
    aggiorna();
}

// ---- buttons ------------------------------------------------------------------------------------

void Form28View::accetta() {
    evento([this] { m_.CliccaAccetta(); });
    if (!m_.visibile && isVisible()) accept();
}

void Form28View::resetta() { evento([this] { m_.clickResetta(); }); }

void Form28View::salva() {
    auto percorso = ui_.dialogoSalva(FiltroCondizioni, "Salva condizioni");
    if (!percorso) return;
    QString p = Q(*percorso);
    if (QFileInfo(p).suffix().isEmpty()) p += ".json";
    evento([&] { SalvaCondizioniJson(S(p), m_, ui_); });
}

void Form28View::carica() {
    auto percorso = ui_.dialogoApri(FiltroCondizioni, "Carica condizioni");
    if (!percorso) return;
    // The file replaces what the dialog holds. A copy of the present state brings it
    // back if the file turns out to be bad.
    QTemporaryDir cartella;
    const std::string copia = S(cartella.filePath("condizioni.json"));
    evento([&] {
        const bool salvata = cartella.isValid() && SalvaCondizioniJson(copia, m_, ui_);
        auto azzera = [this] {
            m_.carica();
            m_.ResettaCondizioni();
            m_.attiva();
        };
        azzera();
        if (!CaricaCondizioniJson(*percorso, m_, ui_) && salvata) {
            azzera();
            CaricaCondizioniJson(copia, m_, ui_);
        }
        m_.visibile = true;  // loading accepts, but the dialog stays open to show what came in
    });
}

}  // namespace zef::ui
