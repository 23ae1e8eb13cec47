#include "ui/form1view.h"

#include "core/form1.h"
#include "core/sistema.h"
#include "ui/frmsplash.h"
#include "ui/modellolista.h"
#include "ui/vista_comune.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QMenuBar>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QStatusBar>
#include <QStyle>
#include <QTableView>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>

#include <algorithm>
#include <functional>
#include <tuple>
#include <vector>

namespace zef::ui {

using vista::Q;

namespace {

// The pad's orange (33023, &H80FF& in the BGR order of the colour values).
constexpr const char* StileArancio =
    "QPushButton { background-color: #FF8000; color: black; border: 1px solid #B05800; border-radius: 3px; }";
constexpr const char* StileNormale =
    "QPushButton { background-color: palette(button); border: 1px solid #A0A0A0; border-radius: 3px; }"
    "QPushButton:hover { border-color: #C06000; }";

// A heading band of the window ("PRONOSTICO", "SISTEMA"...).
QLabel* Intestazione(const char* nome, const char* testo) {
    auto* l = new QLabel(testo);
    l->setObjectName(nome);
    l->setFont(vista::CarattereFinestra(10, true));
    l->setAlignment(Qt::AlignCenter);
    l->setStyleSheet("color: white; background-color: #1F4E8C; padding: 3px; border-radius: 3px;");
    return l;
}

// 3580 twips at 15 twips a pixel.
int TwipsInPixel(int twips) { return (twips + 7) / 15; }

}  // namespace

Form1View::Form1View(Form1& modello, Sistema& s, Interfaccia& ui, QWidget* parent)
    : QMainWindow(parent), m_(modello), s_(s), ui_(ui) {
    setObjectName("Form1");
    setFont(vista::CarattereFinestra(9));
    creaMenu();
    creaBarra();

    auto* centro = new QWidget;
    auto* h = new QHBoxLayout(centro);
    h->setContentsMargins(8, 8, 8, 4);
    h->setSpacing(10);
    h->addWidget(creaPad(), 0);
    h->addWidget(creaLista(), 0);
    h->addWidget(creaComandi(), 1);
    auto* v = new QWidget;
    auto* vl = new QVBoxLayout(v);
    vl->setContentsMargins(0, 0, 0, 0);
    vl->addWidget(centro, 1);
    barra_ = new QProgressBar;
    barra_->setObjectName("ProgressBar1");
    barra_->setTextVisible(false);
    barra_->setRange(0, 100);
    barra_->setValue(0);
    barra_->setMaximumHeight(14);
    auto* bl = new QHBoxLayout;
    bl->setContentsMargins(8, 0, 8, 4);
    bl->addWidget(barra_);
    vl->addLayout(bl);
    setCentralWidget(v);

    for (int i = 0; i < 3; ++i) {
        pannelli_[i] = new QLabel;
        pannelli_[i]->setObjectName(QString("Panel%1").arg(i + 1));
        pannelli_[i]->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        pannelli_[i]->setContentsMargins(4, 0, 4, 0);
        statusBar()->addWidget(pannelli_[i], 1);
    }
    statusBar()->setObjectName("StatusBar1");

    // Timer4 runs the cover's ticks while the sistema keeps it enabled.
    timer4_ = new QTimer(this);
    timer4_->setObjectName("Timer4");
    timer4_->setInterval(1);
    connect(timer4_, &QTimer::timeout, this, [this] { evento([this] { m_.timer4(); }); });
    // Timer6: enabled at design time, fires once.
    timer6_ = new QTimer(this);
    timer6_->setObjectName("Timer6");
    timer6_->setSingleShot(true);
    timer6_->setInterval(Form1::IntervalloTimer6);
    connect(timer6_, &QTimer::timeout, this, [this] { evento([this] { m_.timer6(); }, false); });
    timer6_->start();
    statusBar()->setSizeGripEnabled(true);
    aggiorna();
}

void Form1View::creaMenu() {
    struct Voce {
        const char* nome;
        const char* testo;
        std::function<void()> azione;
    };
    auto menu = [this](const char* nome, const char* testo, std::vector<Voce> voci, QMenu* dove = nullptr) {
        QMenu* mm = dove ? dove->addMenu(testo) : menuBar()->addMenu(testo);
        mm->setObjectName(nome);
        for (auto& v : voci) {
            if (!v.nome) {
                mm->addSeparator();
                continue;
            }
            QAction* a = mm->addAction(v.testo);
            a->setObjectName(v.nome);
            voci_[v.nome] = a;
            auto azione = v.azione;
            connect(a, &QAction::triggered, this, [this, azione] { evento(azione); });
        }
        return mm;
    };
    menu("File", "&File",
         {{"Apri", "&Apri", [this] { m_.menuApri(); }},
          {"Salva", "&Salva", [this] { m_.menuSalva(); }},
          {"SalvaConNome", "Salva con &nome", [this] { m_.menuSalvaConNome(); }},
          {nullptr, nullptr, {}},
          {"Uscita", "&Uscita", [this] { m_.menuUscita(); }}});
    QMenu* sistema = menu("Sistema", "&Sistema",
                          {{"Nuovo", "&Nuovo", [this] { m_.menuNuovo(); }},
                           {"VediColonne", "Visuali&zza le giocate in memoria", [this] { m_.menuVediColonne(); }},
                           {"stampa", "&Stampa", [this] { m_.menustampa(); }}});
    QMenu* suggerisci = menu("Suggerisci", "Suggerisci &pronostico",
                             {{"PronosticoStatistico", "&Statistico/Casuale", [this] { m_.menuPronosticoStatistico(); }}},
                             sistema);
    voci_["Suggerisci"] = suggerisci->menuAction();
    QAction* smorfia = sistema->addAction("Smor&fia");
    smorfia->setObjectName("Smorfia");
    voci_["Smorfia"] = smorfia;
    connect(smorfia, &QAction::triggered, this, [this] { evento([this] { m_.menuSmorfia(); }); });
    sistema->addSeparator();
    for (auto [nome, testo, azione] :
         std::initializer_list<std::tuple<const char*, const char*, void (Form1::*)()>>{
             {"VisualizzaPercentuali", "&Visualizza percentuali di vincita", &Form1::menuVisualizzaPercentuali},
             {"Informazioni", "&Informazioni", &Form1::menuInformazioni}}) {
        QAction* a = sistema->addAction(testo);
        a->setObjectName(nome);
        voci_[nome] = a;
        connect(a, &QAction::triggered, this, [this, azione = azione] { evento([this, azione] { (m_.*azione)(); }); });
    }
    menu("Riduzione", "&Riduzione",
         {{"Garanzia5", "Garanzia &cinquina", [this] { m_.menuGaranzia(5); }},
          {"Garanzia4", "Garanzia &quaterna", [this] { m_.menuGaranzia(4); }},
          {"Garanzia3", "Garanzia &terno", [this] { m_.menuGaranzia(3); }},
          {"Garanzia2", "Garanzia &ambo", [this] { m_.menuGaranzia(2); }},
          {nullptr, nullptr, {}},
          {"SviluppoRidotto", "&Sviluppo ridotto", [this] { m_.menuSviluppoRidotto(); }},
          {"RiduzioneOttimizzata", "Riduzione &ottimizzata...", [this] { m_.menuRiduzioneOttimizzata(); }},
          {"VerificaGaranzia", "&Verifica garanzia...", [this] { m_.menuVerificaGaranzia(); }}});
    menu("Statistiche", "&Statistiche",
         {{"ColonneVincenti", "&Archivio estrazioni precedenti", [this] { m_.menuColonneVincenti(); }},
          {"AggiornaEstrazioni", "Aggiorna &Estrazioni", [this] { m_.menuAggiornaEstrazioni(); }},
          {"ImportaArchivio", "&Importa archivio storico...", [this] { m_.menuImportaArchivio(); }},
          {"Vincite", "Statistiche sulle &vincite", [this] { m_.menuVincite(); }}});
    menu("Aiuto", "&Aiuto",
         {{"sommario", "&Sommario", [this] { m_.menusommario(); }},
          {"AiutoInformazioni", "&Informazioni sul programma", [this] { m_.menuAiutoInformazioni(); }}});
}

void Form1View::creaBarra() {
    toolbar_ = addToolBar("Toolbar1");
    toolbar_->setObjectName("Toolbar1");
    toolbar_->setMovable(false);
    toolbar_->setIconSize(QSize(24, 24));
    const std::map<std::string, QStyle::StandardPixmap> icone = {
        {"sviluppo", QStyle::SP_MediaPlay},         {"uscita", QStyle::SP_BrowserStop},
        {"apri", QStyle::SP_DialogOpenButton},      {"salva", QStyle::SP_DialogSaveButton},
        {"spoglio", QStyle::SP_DialogApplyButton},  {"stampa", QStyle::SP_FileDialogDetailedView},
        {"suggerisci", QStyle::SP_MessageBoxQuestion}, {"archivio", QStyle::SP_DirIcon},
        {"aiuto", QStyle::SP_DialogHelpButton},     {"smorfia", QStyle::SP_FileDialogInfoView},
    };
    // Order on the bar: files first, then the system, the archive, help; exit last.
    const char* ordine[] = {"apri", "salva", nullptr, "sviluppo", "stampa", "spoglio", nullptr, "suggerisci",
                            "archivio", "smorfia", nullptr, "aiuto", nullptr, "uscita"};
    for (const char* chiave : ordine) {
        if (!chiave) {
            toolbar_->addSeparator();
            continue;
        }
        const auto* p = std::find_if(PulsantiBarra.begin(), PulsantiBarra.end(),
                                     [&](const PulsanteBarra& b) { return std::string(b.chiave) == chiave; });
        QAction* a = toolbar_->addAction(style()->standardIcon(icone.at(chiave)), Q(chiave));
        a->setObjectName(QString("tasto_") + chiave);
        a->setToolTip(Q(p->suggerimento));
        tasti_[chiave] = a;
        std::string k = chiave;
        connect(a, &QAction::triggered, this, [this, k] { evento([this, k] { m_.clickToolbar(k); }); });
    }
}

QWidget* Form1View::creaPad() {
    auto* colonna = new QWidget;
    auto* v = new QVBoxLayout(colonna);
    v->setContentsMargins(0, 0, 0, 0);
    v->addWidget(Intestazione("Label4", "PRONOSTICO"));
    auto* frame1 = new QFrame;
    frame1->setObjectName("Frame1");
    frame1->setAccessibleName("PRONOSTICO");
    frame1->setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    auto* g = new QGridLayout(frame1);
    g->setSpacing(3);
    g->setContentsMargins(6, 6, 6, 6);
    for (int i = 0; i < 90; ++i) {
        auto* b = new QPushButton(QString::number(i + 1));
        b->setObjectName(QString("Command1_%1").arg(i));
        b->setFixedSize(34, 28);
        b->setFocusPolicy(Qt::NoFocus);  // the focus goes to txtNoFocus, not to the pad
        b->setFont(vista::CarattereFinestra(9, true));
        b->setStyleSheet(StileNormale);
        g->addWidget(b, i / 10, i % 10);
        pad_[i] = b;
        connect(b, &QPushButton::clicked, this, [this, i] { evento([this, i] { m_.clickCommand1(i); }, false); });
    }
    auto* riga = new QHBoxLayout;
    auto* label1 = new QLabel("Numeri scelti:");
    label1->setObjectName("Label1");
    label1->setFont(vista::CarattereFinestra(10, true));
    label2_ = new QLabel;
    label2_->setObjectName("Label2");
    label2_->setFont(vista::CarattereFinestra(14, true));
    label2_->setStyleSheet("color: #C00000");
    label2_->setMinimumWidth(40);
    riga->addStretch(1);
    riga->addWidget(label1);
    riga->addWidget(label2_);
    riga->addStretch(1);
    g->addLayout(riga, 9, 0, 1, 10);
    v->addWidget(frame1);
    v->addStretch(1);
    auto* label7 = new QLabel("Zefiranto 2.0");
    label7->setObjectName("Label7");
    label7->setFont(vista::CarattereFinestra(20, true));
    label7->setAlignment(Qt::AlignCenter);
    label7->setStyleSheet("color: #1F4E8C");
    auto* label6 = new QLabel("Sistemi condizionati e ridotti\nper il gioco del Lotto");
    label6->setObjectName("Label6");
    label6->setAlignment(Qt::AlignCenter);
    lblVersion_ = new QLabel;
    lblVersion_->setObjectName("lblVersion");
    lblVersion_->setAlignment(Qt::AlignCenter);
    v->addWidget(label7);
    v->addWidget(label6);
    v->addWidget(lblVersion_);
    v->addStretch(1);
    return colonna;
}

QWidget* Form1View::creaLista() {
    auto* colonna = new QWidget;
    auto* v = new QVBoxLayout(colonna);
    v->setContentsMargins(0, 0, 0, 0);
    v->addWidget(Intestazione("Label11", "GIOCATE IN MEMORIA"));

    griglia_ = new QTableView;
    griglia_->setObjectName("MSFlexGrid1");
    modello_ = new ModelloLista(s_, this);
    griglia_->setModel(modello_);
    griglia_->setFont(vista::CarattereFisso(10));
    griglia_->horizontalHeader()->hide();
    griglia_->verticalHeader()->hide();
    // Uniform rows: the view never measures the rows one by one.
    griglia_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    griglia_->verticalHeader()->setDefaultSectionSize(QFontMetrics(griglia_->font()).height() + 4);
    griglia_->horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    griglia_->horizontalHeader()->setStretchLastSection(false);
    griglia_->setSelectionBehavior(QAbstractItemView::SelectRows);
    griglia_->setSelectionMode(QAbstractItemView::ContiguousSelection);
    griglia_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    griglia_->setShowGrid(true);
    griglia_->setWordWrap(false);
    griglia_->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    griglia_->setContextMenuPolicy(Qt::CustomContextMenu);
    griglia_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    griglia_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    griglia_->setFixedWidth(TwipsInPixel(3580) + griglia_->verticalScrollBar()->sizeHint().width() +
                            2 * griglia_->frameWidth());
    connect(griglia_, &QTableView::clicked, this, [this] { evento([this] { m_.clickLista(); }, false); });
    connect(griglia_, &QTableView::customContextMenuRequested, this,
            [this] { evento([this] { m_.mouseDownLista(2); }); });
    connect(griglia_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { selezioneCambiata(); });
    connect(griglia_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this] { selezioneCambiata(); });
    v->addWidget(griglia_, 1);

    auto* riga = new QHBoxLayout;
    auto* label3 = new QLabel("N.Giocate:");
    label3->setObjectName("Label3");
    listaCol_ = new QLabel;
    listaCol_->setObjectName("ListaCol");
    listaCol_->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    listaCol_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    listaCol_->setMinimumWidth(90);
    listaCol_->setStyleSheet("background: white; padding: 1px 4px;");
    riga->addWidget(label3);
    riga->addWidget(listaCol_);
    riga->addStretch(1);
    v->addLayout(riga);

    auto* tasti = new QHBoxLayout;
    for (auto [nome, testo] : {std::pair{"Command7", "VISUALIZZA"}, std::pair{"Command5", "Elimina"},
                               std::pair{"Command9", "Aggiungi"}}) {
        auto* b = new QPushButton(testo);
        b->setObjectName(nome);
        pulsanti_[nome] = b;
        tasti->addWidget(b);
    }
    connect(pulsanti_["Command7"], &QPushButton::clicked, this, [this] { evento([this] { m_.clickCommand7(); }); });
    connect(pulsanti_["Command5"], &QPushButton::clicked, this, [this] { evento([this] { m_.clickCommand5(); }); });
    connect(pulsanti_["Command9"], &QPushButton::clicked, this, [this] { evento([this] { m_.clickCommand9(); }); });
    v->addLayout(tasti);
    return colonna;
}

QWidget* Form1View::creaComandi() {
    auto* colonna = new QWidget;
    colonna->setMinimumWidth(230);
    auto* v = new QVBoxLayout(colonna);
    v->setContentsMargins(0, 0, 0, 0);
    auto grande = [this](const char* nome, const char* testo) {
        auto* b = new QPushButton(testo);
        b->setObjectName(nome);
        b->setMinimumHeight(34);
        b->setFont(vista::CarattereFinestra(10, true));
        pulsanti_[nome] = b;
        return b;
    };
    v->addWidget(Intestazione("Label12", "SISTEMA"));
    auto* label5 = new QLabel("Tipo di giocata");
    label5->setObjectName("Label5");
    v->addWidget(label5);
    auto* command2 = new QPushButton;
    command2->setObjectName("Command2");
    command2->setMinimumHeight(44);
    command2->setStyleSheet("text-align: center; padding: 2px;");
    pulsanti_["Command2"] = command2;
    v->addWidget(command2);
    v->addSpacing(6);
    v->addWidget(grande("Command3", "SVILUPPA"));
    v->addWidget(grande("Command8", "RIDUCI"));
    v->addSpacing(10);
    v->addWidget(Intestazione("Label16", "GIOCATE VINCENTI"));
    v->addWidget(grande("Command6", "SPOGLIO"));
    v->addStretch(1);


    // A picture at the foot of the column: three balls of the draw.
    QPixmap palline(220, 84);
    palline.fill(Qt::transparent);
    {
        QPainter p(&palline);
        const QColor colori[] = {QColor("#FF8000"), QColor("#E03030"), QColor("#30A050")};
        const int numeri[] = {13, 45, 90};
        for (int i = 0; i < 3; ++i) DisegnaPallina(p, QPointF(40 + i * 70, 42 + (i % 2 ? 8 : -4)), 30, numeri[i], colori[i]);
    }
    auto* figura = new QLabel;
    figura->setPixmap(palline);
    figura->setAlignment(Qt::AlignCenter);
    v->addWidget(figura);

    connect(command2, &QPushButton::clicked, this, [this] { evento([this] { m_.clickCommand2(); }); });
    connect(pulsanti_["Command3"], &QPushButton::clicked, this, [this] { evento([this] { m_.clickCommand3(); }); });
    connect(pulsanti_["Command8"], &QPushButton::clicked, this, [this] { evento([this] { m_.clickCommand8(); }); });
    connect(pulsanti_["Command6"], &QPushButton::clicked, this, [this] { evento([this] { m_.clickCommand6(); }); });
    return colonna;
}

void Form1View::selezioneCambiata() {
    auto* sel = griglia_->selectionModel();
    const int corrente = sel->currentIndex().isValid() ? sel->currentIndex().row() : 0;
    int primo = corrente, ultimo = corrente;
    const auto righe = sel->selection();
    if (!righe.isEmpty()) {
        primo = righe.first().top();
        ultimo = righe.first().bottom();
        for (const auto& r : righe) {
            primo = std::min(primo, r.top());
            ultimo = std::max(ultimo, r.bottom());
        }
    }
    // Row is where the selection started, RowSel the other end (it may lie above).
    s_.MSFlexGrid1.Row = corrente;
    s_.MSFlexGrid1.RowSel = corrente == ultimo ? primo : ultimo;
}

void Form1View::evento(const std::function<void()>& gestore, bool lista) {
    EseguiEvento(ui_, gestore);
    if (m_.terminato) return;
    aggiorna(lista);
}

void Form1View::aggiorna(bool lista) {
    setWindowTitle(Q(s_.titolo));
    for (int i = 0; i < 90; ++i) {
        if (padMostrato_[i] == s_.pad[i] && !pad_[i]->styleSheet().isEmpty()) continue;
        padMostrato_[i] = s_.pad[i];
        pad_[i]->setStyleSheet(s_.pad[i] ? StileArancio : StileNormale);
    }
    label2_->setText(Q(s_.Label2));
    listaCol_->setText(Q(s_.ListaCol));
    pulsanti_["Command2"]->setText(Q(s_.Command2));
    for (int i = 0; i < 3; ++i) pannelli_[i]->setText(Q(s_.pannelli[i]));
    lblVersion_->setText(m_.lblVersion.empty() ? QString() : "Versione " + Q(m_.lblVersion));
    if (m_.larghezzaColonnaLista > 0) griglia_->setColumnWidth(0, TwipsInPixel(m_.larghezzaColonnaLista));
    if (m_.coloreSelezione == 16777215)
        griglia_->setStyleSheet("QTableView { selection-background-color: white; selection-color: black; }");

    // Windows still to come keep their commands disabled.
    auto abilita = [this](const std::string& nome, bool si) {
        if (auto it = voci_.find(nome); it != voci_.end()) it->second->setEnabled(si);
    };
    abilita("Apri", bool(m_.Apri));
    abilita("Salva", bool(m_.Salva) && s_.SalvaAbilitato);
    abilita("SalvaConNome", bool(m_.SalvaConNome));
    abilita("stampa", bool(m_.mostraForm10));
    abilita("Suggerisci", bool(m_.PronosticoStatistico));
    abilita("PronosticoStatistico", bool(m_.PronosticoStatistico));
    abilita("Smorfia", bool(m_.mostraForm15));
    abilita("VisualizzaPercentuali", bool(m_.VisualizzaPercentuali));
    abilita("Informazioni", bool(m_.mostraForm9));
    for (const char* g : {"Garanzia5", "Garanzia4", "Garanzia3", "Garanzia2"}) abilita(g, bool(m_.mostraForm5));
    abilita("SviluppoRidotto", bool(m_.mostraForm19));
    abilita("VerificaGaranzia", bool(m_.VerificaGaranzia));
    abilita("RiduzioneOttimizzata", bool(m_.mostraFormOttimizza));
    abilita("ColonneVincenti", bool(m_.mostraForm3));
    abilita("AggiornaEstrazioni", bool(m_.AggiornaEstrazioni));
    abilita("ImportaArchivio", bool(m_.ImportaArchivio));
    abilita("Vincite", bool(m_.mostraForm16));
    abilita("AiutoInformazioni", bool(m_.mostraAbout));

    tasti_["sviluppo"]->setEnabled(bool(m_.mostraForm20) && m_.Command3Abilitato);
    tasti_["apri"]->setEnabled(bool(m_.Apri));
    tasti_["salva"]->setEnabled(bool(m_.Salva));
    tasti_["spoglio"]->setEnabled(bool(m_.mostraForm6));
    tasti_["stampa"]->setEnabled(bool(m_.mostraForm10));
    tasti_["suggerisci"]->setEnabled(bool(m_.PronosticoStatistico));
    tasti_["archivio"]->setEnabled(bool(m_.mostraForm3));
    tasti_["smorfia"]->setEnabled(bool(m_.mostraForm15));

    pulsanti_["Command2"]->setEnabled(bool(m_.mostraForm2));
    pulsanti_["Command3"]->setEnabled(bool(m_.mostraForm20) && m_.Command3Abilitato);
    pulsanti_["Command6"]->setEnabled(bool(m_.mostraForm6));
    pulsanti_["Command8"]->setEnabled(bool(m_.mostraForm5));
    pulsanti_["Command9"]->setEnabled(bool(m_.mostraForm17));

    if (s_.Timer4Abilitato && m_.tickTimer4) {
        if (!timer4_->isActive()) timer4_->start();
    } else {
        timer4_->stop();
    }

    if (lista) {
        const int riga = griglia_->currentIndex().row();
        modello_->ricarica();
        if (!griglia_->currentIndex().isValid() && riga >= 0 && riga < modello_->rowCount())
            griglia_->setCurrentIndex(modello_->index(riga, 0));
    }
}

QAction* Form1View::voce(const std::string& nome) const {
    auto it = voci_.find(nome);
    return it == voci_.end() ? nullptr : it->second;
}

QAction* Form1View::tasto(const std::string& chiave) const {
    auto it = tasti_.find(chiave);
    return it == tasti_.end() ? nullptr : it->second;
}

void Form1View::closeEvent(QCloseEvent* e) {
    // Closing the window is Exit, with its save prompt; there is no way back.
    if (!m_.terminato) EseguiEvento(ui_, [this] { m_.Uscita(); });
    e->accept();
}

}  // namespace zef::ui
