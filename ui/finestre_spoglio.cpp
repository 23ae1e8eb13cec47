#include "ui/finestre_spoglio.h"

#include "archive/archivio.h"
#include "core/form1.h"
#include "core/vocabolario.h"
#include "ui/form1view.h"
#include "ui/vista_comune.h"

#include <QAbstractListModel>
#include <QAbstractTableModel>
#include <QChart>
#include <QChartView>
#include <QDateEdit>
#include <QDateTimeAxis>
#include <QEvent>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLineSeries>
#include <QListView>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <QValueAxis>

namespace zef::ui {

using vista::Q;
using vista::S;

namespace {

constexpr const char* StileTitolo = "color: white; background-color: #1F4E8C; padding: 3px; border-radius: 3px;";

// The listing of the wins, rows made only when shown.
class ModelloRighe : public QAbstractListModel {
public:
    explicit ModelloRighe(const ListaVincente& righe, QObject* padre) : QAbstractListModel(padre), r_(righe) {}
    int rowCount(const QModelIndex& p) const override { return p.isValid() ? 0 : static_cast<int>(std::min<size_t>(r_.size(), INT32_MAX)); }
    QVariant data(const QModelIndex& i, int ruolo) const override {
        if (ruolo != Qt::DisplayRole || !i.isValid()) return {};
        return Q(r_[static_cast<size_t>(i.row())]);
    }
    void ricarica() {
        beginResetModel();
        endResetModel();
    }

private:
    const ListaVincente& r_;
};

// The table of a check over a period.
class ModelloVerifica : public QAbstractTableModel {
public:
    explicit ModelloVerifica(const std::vector<EsitoEstrazione>& e, QObject* padre) : QAbstractTableModel(padre), e_(e) {}
    int rowCount(const QModelIndex& p) const override { return p.isValid() ? 0 : static_cast<int>(e_.size()); }
    int columnCount(const QModelIndex& p) const override { return p.isValid() ? 0 : 9; }
    QVariant headerData(int sezione, Qt::Orientation o, int ruolo) const override {
        static const char* titoli[9] = {"Data", "Estratti", "Ambi", "Terni", "Quaterne", "Cinquine", "Vincita",
                                        "Spesa", "Saldo"};
        if (ruolo != Qt::DisplayRole) return {};
        if (o == Qt::Horizontal) return QString(titoli[sezione]);
        return sezione + 1;
    }
    QVariant data(const QModelIndex& i, int ruolo) const override {
        if (!i.isValid()) return {};
        const EsitoEstrazione& r = e_[static_cast<size_t>(i.row())];
        if (ruolo == Qt::TextAlignmentRole) return i.column() == 0 ? int(Qt::AlignCenter) : int(Qt::AlignRight | Qt::AlignVCenter);
        if (ruolo == Qt::ForegroundRole && i.column() == 8 && r.saldo < Currency{}) return QColor(Qt::red);
        if (ruolo != Qt::DisplayRole) return {};
        const int c = i.column();
        if (c == 0) return Q(DataBreve(r.data));
        if (c <= 5) return QString::number(r.vincite[static_cast<size_t>(c - 1)]);
        if (c == 6) return Q(r.vincita.testoDueDecimali());
        if (c == 7) return Q(r.spesa.testoDueDecimali());
        return Q(r.saldo.testoDueDecimali());
    }
    void ricarica() {
        beginResetModel();
        endResetModel();
    }

private:
    static std::string DataBreve(const std::string& iso) {
        return iso.size() >= 10 ? iso.substr(8, 2) + "/" + iso.substr(5, 2) + "/" + iso.substr(0, 4) : iso;
    }
    const std::vector<EsitoEstrazione>& e_;
};

QLabel* Titolo(const QString& testo) {
    auto* l = new QLabel(testo);
    l->setFont(vista::CarattereFinestra(10, true));
    l->setAlignment(Qt::AlignCenter);
    l->setStyleSheet(StileTitolo);
    return l;
}

}  // namespace

// ---- Form7 -----------------------------------------------------------------------------

Form7View::Form7View(Form7& modello, QWidget* parent) : QDialog(parent), m_(modello) {
    setObjectName("Form7");
    setWindowTitle(Form7::Titolo);
    setModal(true);
    auto* v = new QVBoxLayout(this);
    v->addWidget(Titolo(Form7::Label1));
    lista_ = new QListView;
    lista_->setObjectName("List1");
    lista_->setFont(vista::CarattereFisso(10));
    lista_->setUniformItemSizes(true);
    lista_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    auto* m = new ModelloRighe(m_.List1, this);
    modello_ = m;
    lista_->setModel(m);
    v->addWidget(lista_, 1);
    auto* ok = new QPushButton("OK");
    ok->setObjectName("Command1");
    connect(ok, &QPushButton::clicked, this, &QDialog::hide);
    v->addWidget(ok, 0, Qt::AlignHCenter);
    resize(760, 420);
}

void Form7View::aggiorna() { static_cast<ModelloRighe*>(modello_)->ricarica(); }

// ---- Form6 -----------------------------------------------------------------------------

Form6View::Form6View(Form6& modello, Interfaccia& ui, QWidget* parent) : QDialog(parent), m_(modello), ui_(ui) {
    setObjectName("Form6");
    setWindowTitle(Form6::Titolo);
    setFont(vista::CarattereFinestra(9));
    setModal(true);

    // The draw: date, eleven wheels of five boxes, the data control.
    auto* sinistra = new QVBoxLayout;
    auto* testa = new QHBoxLayout;
    auto* del = new QLabel("Estrazione del");
    del->setFont(vista::CarattereFinestra(10, true));
    label23_ = new QLabel;
    label23_->setObjectName("Label23");
    label23_->setFont(vista::CarattereFisso(13, true));
    label23_->setStyleSheet("color: #C00000;");
    testa->addWidget(del);
    testa->addWidget(label23_);
    testa->addStretch(1);
    sinistra->addLayout(testa);
    auto* ruote = new QFrame;
    ruote->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    auto* g = new QGridLayout(ruote);
    g->setHorizontalSpacing(5);
    g->setVerticalSpacing(3);
    for (int w = 0; w < NumRuote; ++w) {
        auto* nome = new QLabel(IntestazioniRuote[w]);
        nome->setFont(vista::CarattereFinestra(9, true));
        nome->setContentsMargins(0, 0, 10, 0);
        g->addWidget(nome, w, 0);
        for (int p = 0; p < 5; ++p) {
            const int i = w * 5 + p;
            auto* t = new QLineEdit;
            t->setObjectName(QString("Text1_%1").arg(i));
            t->setFixedSize(38, 24);
            t->setAlignment(Qt::AlignCenter);
            t->setFont(vista::CarattereFisso(11, true));
            t->setMaxLength(2);
            connect(t, &QLineEdit::textEdited, this, [this, i](const QString& s) { m_.Text1[static_cast<size_t>(i)] = S(s); });
            g->addWidget(t, w, p + 1);
            text1_[static_cast<size_t>(i)] = t;
        }
    }
    sinistra->addWidget(ruote);
    auto* dati = new QFrame;
    dati->setObjectName("Data1");
    dati->setFrameStyle(QFrame::Panel | QFrame::Raised);
    auto* h = new QHBoxLayout(dati);
    h->setContentsMargins(2, 2, 2, 2);
    h->setSpacing(1);
    const char* suggerimenti[] = {"Prima estrazione", "Estrazione precedente", "Estrazione successiva", "Ultima estrazione"};
    for (int i = 0; i < 4; ++i) {
        auto* b = new QToolButton;
        b->setToolTip(suggerimenti[i]);
        b->setIcon(vista::Freccia(i < 2, i == 0 || i == 3));
        b->setFixedSize(26, 22);
        frecce_[static_cast<size_t>(i)] = b;
    }
    auto* didascalia = new QLabel(Q(m_.Data1.Caption));
    didascalia->setAlignment(Qt::AlignCenter);
    didascalia->setStyleSheet("background: white; border: 1px solid #A0A0A0;");
    h->addWidget(frecce_[0]);
    h->addWidget(frecce_[1]);
    h->addWidget(didascalia, 1);
    h->addWidget(frecce_[2]);
    h->addWidget(frecce_[3]);
    connect(frecce_[0], &QToolButton::clicked, this, [this] { evento([this] { m_.Data1.primo(); }); });
    connect(frecce_[1], &QToolButton::clicked, this, [this] { evento([this] { m_.Data1.precedente(); }); });
    connect(frecce_[2], &QToolButton::clicked, this, [this] { evento([this] { m_.Data1.successivo(); }); });
    connect(frecce_[3], &QToolButton::clicked, this, [this] { evento([this] { m_.Data1.ultimo(); }); });
    sinistra->addWidget(dati);
    sinistra->addStretch(1);

    // The result and the commands.
    auto* destra = new QVBoxLayout;
    destra->addWidget(Titolo("VINCITE"));
    auto* conti = new QGridLayout;
    for (int s = 0; s < NumSorti; ++s) {
        auto* e = new QLabel(Form6::EtichettePunti[static_cast<size_t>(s)]);
        e->setFont(vista::CarattereFisso(11, true));
        auto* p = new QLabel;
        p->setObjectName(QString("punti%1").arg(s + 1));
        p->setFont(vista::CarattereFisso(11, true));
        p->setMinimumWidth(90);
        p->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        p->setStyleSheet("background: white; border: 1px solid #A0A0A0; padding: 1px 4px;");
        conti->addWidget(e, s, 0);
        conti->addWidget(p, s, 1);
        punti_[static_cast<size_t>(s)] = p;
    }
    destra->addLayout(conti);
    auto* tot = new QLabel("Totale vincita ");
    tot->setFont(vista::CarattereFinestra(10, true));
    totale_ = new QLabel;
    totale_->setObjectName("lblVincitaTotale");
    totale_->setFont(vista::CarattereFisso(13, true));
    totale_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    totale_->setStyleSheet("color: #006000; background: white; border: 1px solid #A0A0A0; padding: 2px 4px;");
    auto* rigaTot = new QHBoxLayout;
    rigaTot->addWidget(tot);
    rigaTot->addWidget(totale_, 1);
    destra->addLayout(rigaTot);
    destra->addSpacing(8);
    const char* didascalie[6] = {"", "CERCA", "ESCI", "resetta", "memorizza", "Vedi colonne vincenti"};
    for (int i = 1; i <= 5; ++i) {
        auto* b = new QPushButton(didascalie[i]);
        b->setObjectName(QString("Command%1").arg(i));
        b->setMinimumHeight(28);
        comandi_[static_cast<size_t>(i)] = b;
    }
    verifica_ = new QPushButton(Form6::CaptionVerifica);
    verifica_->setObjectName("Verifica");
    verifica_->setToolTip("Controlla il sistema su tutte le estrazioni di un periodo");
    verifica_->setMinimumHeight(28);
    destra->addWidget(comandi_[1]);
    destra->addWidget(comandi_[5]);
    destra->addWidget(verifica_);
    destra->addSpacing(8);
    destra->addWidget(comandi_[3]);
    destra->addWidget(comandi_[4]);
    destra->addStretch(1);
    barra_ = new QProgressBar;
    barra_->setObjectName("ProgressBar1");
    barra_->setTextVisible(false);
    destra->addWidget(barra_);
    destra->addWidget(comandi_[2]);

    auto* corpo = new QHBoxLayout(this);
    corpo->setContentsMargins(10, 10, 10, 10);
    corpo->setSpacing(14);
    corpo->addLayout(sinistra);
    corpo->addLayout(destra);
    corpo->setSizeConstraint(QLayout::SetFixedSize);

    timer1_ = new QTimer(this);
    timer1_->setInterval(1);
    connect(timer1_, &QTimer::timeout, this, [this] {
        timer1_->stop();
        evento([this] { m_.tickTimer1(); });
    });
    connect(comandi_[1], &QPushButton::clicked, this, [this] {
        evento([this] { m_.clickCommand1(); });
        if (m_.Timer1) timer1_->start();
    });
    connect(comandi_[2], &QPushButton::clicked, this, [this] { reject(); });
    connect(comandi_[3], &QPushButton::clicked, this, [this] { evento([this] { m_.clickCommand3(); }); });
    connect(comandi_[4], &QPushButton::clicked, this, [this] { evento([this] { m_.clickCommand4(); }); });
    connect(comandi_[5], &QPushButton::clicked, this, [this] { evento([this] { m_.clickCommand5(); }); });
    connect(verifica_, &QPushButton::clicked, this, [this] { evento([this] { m_.clickVerifica(); }); });
    aggiorna();
}

void Form6View::apri() {
    if (!m_.caricato) EseguiEvento(ui_, [this] { m_.carica(); });
    EseguiEvento(ui_, [this] { m_.attiva(); });
    aggiorna();
    exec();
}

void Form6View::evento(const std::function<void()>& gestore) {
    EseguiEvento(ui_, gestore);
    aggiorna();
}

void Form6View::aggiorna() {
    if (!m_.caricato) {
        // CERCA with no rows unloads the window.
        if (isVisible() && !chiudendo_) QDialog::reject();
        return;
    }
    for (size_t i = 0; i < NumCaselle; ++i)
        if (text1_[i]->text() != Q(m_.Text1[i])) text1_[i]->setText(Q(m_.Text1[i]));
    label23_->setText(Q(m_.Label23));
    for (size_t s = 0; s < NumSorti; ++s) punti_[s]->setText(Q(m_.punti[s]));
    totale_->setText(Q(m_.lblVincitaTotale));
    barra_->setVisible(m_.barraVisibile);
    barra_->setMaximum(static_cast<int>(std::min(m_.barraMassimo, 2e9)));
    barra_->setValue(static_cast<int>(std::min(m_.barraValore, 2e9)));
    if (m_.focus >= 0 && m_.focus < NumCaselle) {
        text1_[static_cast<size_t>(m_.focus)]->setFocus();
        m_.focus = -1;
    }
}

void Form6View::reject() {
    // ESCI: the tally's question, then the window hides whatever happened.
    chiudendo_ = true;
    if (m_.caricato) EseguiEvento(ui_, [this] { m_.clickCommand2(); });
    chiudendo_ = false;
    QDialog::reject();
}

// ---- Form16 ----------------------------------------------------------------------------

Form16View::Form16View(Form16& modello, QWidget* parent) : QDialog(parent), m_(modello) {
    setObjectName("Form16");
    setWindowTitle(Form16::Titolo);
    setModal(true);
    auto* v = new QVBoxLayout(this);
    v->addWidget(Titolo(Form16::Label1));
    auto* g = new QGridLayout;
    auto campo = [](const char* nome) {
        auto* t = new QLineEdit;
        t->setObjectName(nome);
        t->setReadOnly(true);
        // Nothing here can be edited: the focus passes on to OK.
        t->setFocusPolicy(Qt::NoFocus);
        t->setAlignment(Qt::AlignRight);
        t->setFont(vista::CarattereFisso(11, true));
        t->setMinimumWidth(140);
        return t;
    };
    const char* nomi[5] = {"Text1", "Text2", "Text3", "Text4", "Text5"};
    for (int i = 0; i < 5; ++i) {
        g->addWidget(new QLabel(Form16::Righe[static_cast<size_t>(i)]), i, 0);
        testi_[static_cast<size_t>(i)] = campo(nomi[i]);
        g->addWidget(testi_[static_cast<size_t>(i)], i, 1);
    }
    const char* etichette[3] = {Form16::EtichettaVinta, Form16::EtichettaSpesa, Form16::EtichettaTotale};
    const char* maschere[3] = {"MaskEdBox1", "MaskEdBox2", "MaskEdBox3"};
    for (int i = 0; i < 3; ++i) {
        auto* l = new QLabel(etichette[i]);
        if (i == 2) l->setFont(vista::CarattereFinestra(9, true));
        g->addWidget(l, 6 + i, 0);
        maschere_[static_cast<size_t>(i)] = campo(maschere[i]);
        g->addWidget(maschere_[static_cast<size_t>(i)], 6 + i, 1);
    }
    g->setRowMinimumHeight(5, 10);
    v->addLayout(g);
    ok_ = new QPushButton("OK");
    ok_->setObjectName("Command1");
    ok_->setDefault(true);
    connect(ok_, &QPushButton::clicked, this, [this] {
        m_.clickCommand1();
        accept();
    });
    v->addWidget(ok_, 0, Qt::AlignHCenter);
}

void Form16View::aggiorna() {
    for (size_t i = 0; i < 5; ++i) testi_[i]->setText(Q(m_.Text[i]));
    maschere_[0]->setText(Q(m_.MaskEdBox1));
    maschere_[1]->setText(Q(m_.MaskEdBox2));
    maschere_[2]->setText(Q(m_.MaskEdBox3));
    maschere_[2]->setStyleSheet(m_.totaleRosso ? "color: rgb(255, 0, 0);" : "");
}

// ---- the check over a period ----------------------------------------------------------

FormVerificaView::FormVerificaView(FormVerifica& modello, Interfaccia& ui, QWidget* parent)
    : QDialog(parent), m_(modello), ui_(ui) {
    setObjectName("FormVerifica");
    setWindowTitle(FormVerifica::Titolo);
    setModal(true);
    auto* v = new QVBoxLayout(this);
    auto* scelta = new QGridLayout;
    perUltime_ = new QRadioButton("Ultime");
    perUltime_->setObjectName("OpzioneUltime");
    ultime_ = new QLineEdit;
    ultime_->setObjectName("Ultime");
    ultime_->setMaximumWidth(80);
    perDate_ = new QRadioButton("Dal");
    perDate_->setObjectName("OpzioneDate");
    dal_ = new QDateEdit;
    dal_->setObjectName("Dal");
    al_ = new QDateEdit;
    al_->setObjectName("Al");
    for (auto* d : {dal_, al_}) {
        d->setDisplayFormat("dd/MM/yyyy");
        d->setCalendarPopup(true);
        d->setDateRange(QDate(1871, 1, 1), QDate(2999, 12, 31));
    }
    dal_->setDate(QDate::currentDate().addYears(-1));
    al_->setDate(QDate::currentDate());
    scelta->addWidget(perUltime_, 0, 0);
    scelta->addWidget(ultime_, 0, 1);
    scelta->addWidget(new QLabel("estrazioni"), 0, 2);
    scelta->addWidget(perDate_, 1, 0);
    scelta->addWidget(dal_, 1, 1);
    scelta->addWidget(new QLabel("Al"), 1, 2);
    scelta->addWidget(al_, 1, 3);
    scelta->setColumnStretch(4, 1);
    avvia_ = new QPushButton("AVVIA");
    avvia_->setObjectName("Avvia");
    avvia_->setDefault(true);
    esporta_ = new QPushButton("Esporta CSV");
    esporta_->setObjectName("Esporta");
    auto* chiudi = new QPushButton("Chiudi");
    scelta->addWidget(avvia_, 0, 5);
    scelta->addWidget(esporta_, 1, 5);
    scelta->addWidget(chiudi, 1, 6);
    v->addLayout(scelta);

    tabella_ = new QTableView;
    tabella_->setObjectName("Tabella");
    auto* m = new ModelloVerifica(m_.esiti, this);
    modello_ = m;
    tabella_->setModel(m);
    tabella_->verticalHeader()->setDefaultSectionSize(20);
    tabella_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    tabella_->horizontalHeader()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    tabella_->setSelectionBehavior(QAbstractItemView::SelectRows);
    riepilogo_ = new QLabel;
    riepilogo_->setObjectName("Riepilogo");
    riepilogo_->setFont(vista::CarattereFinestra(10, true));
    riepilogo_->setMinimumHeight(QFontMetrics(riepilogo_->font()).lineSpacing() * 3 + 8);
    riepilogo_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* chart = new QChart;
    chart->setTitle("Saldo progressivo");
    chart->legend()->hide();
    grafico_ = new QChartView(chart);
    grafico_->setObjectName("Grafico");
    grafico_->setRenderHint(QPainter::Antialiasing);
    grafico_->setMinimumHeight(220);
    auto* corpo = new QHBoxLayout;
    corpo->addWidget(tabella_, 3);
    corpo->addWidget(grafico_, 2);
    v->addLayout(corpo, 1);
    v->addWidget(riepilogo_);

    connect(perUltime_, &QRadioButton::toggled, this, [this](bool) { leggiOpzioni(); aggiorna(); });
    connect(avvia_, &QPushButton::clicked, this, [this] {
        leggiOpzioni();
        EseguiEvento(ui_, [this] { vista::EseguiInThread([this] { m_.clickAvvia(); }); });
        aggiorna();
        static_cast<ModelloVerifica*>(modello_)->ricarica();
        disegnaGrafico();
    });
    connect(esporta_, &QPushButton::clicked, this, [this] { EseguiEvento(ui_, [this] { m_.clickEsporta(); }); });
    connect(chiudi, &QPushButton::clicked, this, &QDialog::reject);
    ultime_->setText(Q(m_.ultime));
    perUltime_->setChecked(m_.perUltime);
    perDate_->setChecked(!m_.perUltime);
    resize(980, 560);
    aggiorna();
}

void FormVerificaView::leggiOpzioni() {
    m_.perUltime = perUltime_->isChecked();
    m_.ultime = S(ultime_->text());
    m_.dal = S(dal_->date().toString("yyyy-MM-dd"));
    m_.al = S(al_->date().toString("yyyy-MM-dd"));
}

void FormVerificaView::aggiorna() {
    ultime_->setEnabled(m_.perUltime);
    dal_->setEnabled(!m_.perUltime);
    al_->setEnabled(!m_.perUltime);
    esporta_->setEnabled(!m_.esiti.empty());
    QStringList righe;
    for (const auto& r : m_.riepilogo) righe << Q(r);
    riepilogo_->setText(righe.join("\n"));
    riepilogo_->setStyleSheet(m_.totali.saldo < Currency{} ? "color: #C00000;" : "color: #006000;");
}

void FormVerificaView::disegnaGrafico() {
    QChart* chart = grafico_->chart();
    chart->removeAllSeries();
    for (auto* a : chart->axes()) {
        chart->removeAxis(a);
        delete a;
    }
    if (m_.esiti.empty()) return;
    auto* serie = new QLineSeries;
    double minimo = 0, massimo = 0;
    for (const auto& r : m_.esiti) {
        const QDateTime quando(QDate::fromString(Q(r.data), "yyyy-MM-dd"), QTime(12, 0));
        const double y = r.saldo.inDouble();
        serie->append(static_cast<qreal>(quando.toMSecsSinceEpoch()), y);
        minimo = std::min(minimo, y);
        massimo = std::max(massimo, y);
    }
    chart->addSeries(serie);
    auto* asseX = new QDateTimeAxis;
    asseX->setFormat("MM/yyyy");
    asseX->setTickCount(5);
    auto* asseY = new QValueAxis;
    asseY->setLabelFormat("%.0f");
    asseY->setRange(minimo, massimo == minimo ? minimo + 1 : massimo);
    chart->addAxis(asseX, Qt::AlignBottom);
    chart->addAxis(asseY, Qt::AlignLeft);
    serie->attachAxis(asseX);
    serie->attachAxis(asseY);
    serie->setColor(m_.totali.saldo < Currency{} ? QColor("#C00000") : QColor("#006000"));
}

// ---- the windows together ----------------------------------------------------------------

FinestreSpoglio::FinestreSpoglio(Sistema& s, Interfaccia& ui, QWidget* padre, std::string archivio)
    : ui_(ui), form6_(s, ui, form7_, archivio), form16_(ui, archivio), verifica_(s, ui, archivio) {
    vista6_ = std::make_unique<Form6View>(form6_, ui, padre);
    vista7_ = std::make_unique<Form7View>(form7_, vista6_.get());
    vista16_ = std::make_unique<Form16View>(form16_, padre);
    vistaVerifica_ = std::make_unique<FormVerificaView>(verifica_, ui, vista6_.get());
    form6_.mostraForm7 = [this] {
        vista7_->aggiorna();
        vista7_->exec();
    };
    form6_.mostraVerifica = [this] {
        vistaVerifica_->aggiorna();
        vistaVerifica_->exec();
    };
}

FinestreSpoglio::~FinestreSpoglio() = default;

void FinestreSpoglio::collega(Form1& f1) {
    f1.mostraForm6 = [this] { apriForm6(); };
    f1.mostraForm16 = [this] { apriForm16(); };
}

void FinestreSpoglio::apriForm6() { vista6_->apri(); }

void FinestreSpoglio::apriForm16() {
    EseguiEvento(ui_, [this] { form16_.carica(); });
    vista16_->aggiorna();
    vista16_->exec();
}

void FinestreSpoglio::scaricaForm6() {
    if (form6_.caricato) form6_.scarica();
}

std::shared_ptr<FinestreSpoglio> InstallaFinestreSpoglio(Form1& f1, Sistema& s, Interfaccia& ui, Form1View& finestra,
                                                         std::string archivio) {
    auto f = std::make_shared<FinestreSpoglio>(s, ui, &finestra, std::move(archivio));
    f->collega(f1);
    return f;
}

}  // namespace zef::ui
