#include "ui/form3view.h"

#include "archive/archivio.h"
#include "archive/form3.h"
#include "ui/vista_comune.h"

#include <QEvent>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace zef::ui {

using vista::Q;
using vista::S;

namespace {

// The label each hidden button lies under: Command1..7.
constexpr std::array<int, 8> EtichettaDi = {0, 4, 6, 5, 13, 7, 8, 12};

constexpr const char* StileEtichetta =
    "QLabel { color: #1F4E8C; background-color: #E8EEF6; border: 1px solid #9DB3D3; border-radius: 3px; }";
constexpr const char* StileTitolo =
    "color: white; background-color: #1F4E8C; padding: 3px; border-radius: 3px;";

QLabel* Titolo(const std::string& testo, const char* nome) {
    auto* l = new QLabel(Q(testo));
    l->setObjectName(nome);
    l->setFont(vista::CarattereFinestra(10, true));
    l->setAlignment(Qt::AlignCenter);
    l->setStyleSheet(StileTitolo);
    return l;
}

}  // namespace

Form3View::Form3View(Form3& modello, Interfaccia& ui, QWidget* parent)
    : QDialog(parent), m_(modello), ui_(ui) {
    setObjectName("Form3");
    setWindowTitle(Form3::Titolo);
    setFont(vista::CarattereFinestra(9));
    setModal(false);
    setMouseTracking(true);
    fondi_.push_back(this);

    auto* testa = new QHBoxLayout;
    auto* del = new QLabel("Estrazione del");
    del->setFont(vista::CarattereFinestra(10, true));
    label23_ = new QLabel;
    label23_->setObjectName("label23");
    label23_->setFont(vista::CarattereFisso(13, true));
    label23_->setStyleSheet("color: #C00000;");
    label19_ = new QLabel;
    label19_->setObjectName("Label19");
    label19_->setFont(vista::CarattereFinestra(10, true));
    label19_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    testa->addWidget(del);
    testa->addWidget(label23_);
    testa->addStretch(1);
    testa->addWidget(label19_);

    auto* sinistra = new QVBoxLayout;
    sinistra->addLayout(testa);
    sinistra->addWidget(creaRuote());
    sinistra->addWidget(creaControlloDati());

    auto* corpo = new QHBoxLayout(this);
    corpo->setContentsMargins(10, 10, 10, 10);
    corpo->setSpacing(14);
    corpo->addLayout(sinistra);
    corpo->addWidget(creaComandi());
    corpo->setSizeConstraint(QLayout::SetFixedSize);

    for (QWidget* w : fondi_) {
        w->setMouseTracking(true);
        w->installEventFilter(this);
    }
    aggiorna();
}

QWidget* Form3View::creaRuote() {
    auto* frame = new QFrame;
    frame->setObjectName("FrameRuote");
    frame->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    fondi_.push_back(frame);
    auto* g = new QGridLayout(frame);
    g->setContentsMargins(8, 6, 8, 6);
    g->setHorizontalSpacing(5);
    g->setVerticalSpacing(3);
    for (int w = 0; w < NumRuote; ++w) {
        auto* nome = new QLabel(IntestazioniRuote[w]);
        nome->setObjectName(QString("Ruota%1").arg(w + 1));
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
            connect(t, &QLineEdit::textEdited, this, [this, i](const QString& s) { m_.Text1[i] = S(s); });
            g->addWidget(t, w, p + 1);
            text1_[i] = t;
        }
    }
    return frame;
}

QWidget* Form3View::creaControlloDati() {
    // Data1: arrows at the ends, the caption between them.
    auto* frame = new QFrame;
    frame->setObjectName("Data1");
    frame->setFrameStyle(QFrame::Panel | QFrame::Raised);
    fondi_.push_back(frame);
    auto* h = new QHBoxLayout(frame);
    h->setContentsMargins(2, 2, 2, 2);
    h->setSpacing(1);
    const char* nomi[] = {"Data1_primo", "Data1_precedente", "Data1_successivo", "Data1_ultimo"};
    const char* suggerimenti[] = {"Prima estrazione", "Estrazione precedente", "Estrazione successiva",
                                  "Ultima estrazione"};
    for (int i = 0; i < 4; ++i) {
        auto* b = new QToolButton;
        b->setObjectName(nomi[i]);
        b->setToolTip(suggerimenti[i]);
        b->setIcon(vista::Freccia(i < 2, i == 0 || i == 3));
        b->setAutoRaise(false);
        b->setFixedSize(26, 22);
        frecce_[i] = b;
    }
    didascalia_ = new QLabel(Q(m_.Data1.Caption));
    didascalia_->setAlignment(Qt::AlignCenter);
    didascalia_->setStyleSheet("background: white; border: 1px solid #A0A0A0;");
    h->addWidget(frecce_[0]);
    h->addWidget(frecce_[1]);
    h->addWidget(didascalia_, 1);
    h->addWidget(frecce_[2]);
    h->addWidget(frecce_[3]);
    connect(frecce_[0], &QToolButton::clicked, this, [this] { evento([this] { m_.Data1.primo(); }); });
    connect(frecce_[1], &QToolButton::clicked, this, [this] { evento([this] { m_.Data1.precedente(); }); });
    connect(frecce_[2], &QToolButton::clicked, this, [this] { evento([this] { m_.Data1.successivo(); }); });
    connect(frecce_[3], &QToolButton::clicked, this, [this] { evento([this] { m_.Data1.ultimo(); }); });
    return frame;
}

QWidget* Form3View::sovrapposti(int comando, int etichetta) {
    auto* cella = new QWidget;
    fondi_.push_back(cella);
    auto* g = new QGridLayout(cella);
    g->setContentsMargins(0, 0, 0, 0);
    auto* l = new QLabel(Q(m_.Label[etichetta]));
    l->setObjectName(QString("Label%1").arg(etichetta));
    l->setAlignment(Qt::AlignCenter);
    l->setFont(vista::CarattereFinestra(9, true));
    l->setStyleSheet(StileEtichetta);
    l->setMouseTracking(true);
    l->installEventFilter(this);
    etichette_[etichetta] = l;
    auto* b = new QPushButton(Q(m_.Command[comando].Caption));
    b->setObjectName(QString("Command%1").arg(comando));
    b->setToolTip(Q(m_.Command[comando].ToolTipText));
    b->setFont(vista::CarattereFinestra(9, true));
    b->hide();
    comandi_[comando] = b;
    l->setFixedSize(130, 30);
    b->setFixedSize(130, 30);
    // The button is added last: shown, it covers its label.
    g->addWidget(l, 0, 0);
    g->addWidget(b, 0, 0);
    return cella;
}

QWidget* Form3View::creaComandi() {
    auto* colonna = new QWidget;
    fondi_.push_back(colonna);
    auto* v = new QVBoxLayout(colonna);
    v->setContentsMargins(0, 0, 0, 0);
    v->setSpacing(6);
    etichette_[14] = Titolo(m_.Label[14], "Label14");
    v->addWidget(etichette_[14]);
    v->addWidget(sovrapposti(3, 5), 0, Qt::AlignHCenter);
    v->addWidget(sovrapposti(4, 13), 0, Qt::AlignHCenter);
    v->addWidget(sovrapposti(5, 7), 0, Qt::AlignHCenter);
    v->addSpacing(8);
    etichette_[18] = Titolo(m_.Label[18], "Label18");
    v->addWidget(etichette_[18]);
    v->addWidget(sovrapposti(1, 4), 0, Qt::AlignHCenter);
    v->addWidget(sovrapposti(6, 8), 0, Qt::AlignHCenter);
    v->addWidget(sovrapposti(7, 12), 0, Qt::AlignHCenter);
    v->addStretch(1);

    auto* vai = new QPushButton(Q(m_.Command[8].Caption));
    vai->setObjectName("Command8");
    vai->setToolTip(Q(m_.Command[8].ToolTipText));
    vai->setFixedSize(130, 30);
    comandi_[8] = vai;
    v->addWidget(vai, 0, Qt::AlignHCenter);
    v->addSpacing(8);
    v->addWidget(sovrapposti(2, 6), 0, Qt::AlignHCenter);

    const std::array<void (Form3::*)(), 9> click = {nullptr,
                                                    &Form3::clickCommand1,
                                                    &Form3::clickCommand2,
                                                    &Form3::clickCommand3,
                                                    &Form3::clickCommand4,
                                                    &Form3::clickCommand5,
                                                    &Form3::clickCommand6,
                                                    &Form3::clickCommand7,
                                                    &Form3::clickCommand8};
    for (int i = 1; i <= 8; ++i) {
        auto gestore = click[i];
        connect(comandi_[i], &QPushButton::clicked, this, [this, gestore] { evento([this, gestore] { (m_.*gestore)(); }); });
    }
    return colonna;
}

void Form3View::apri() {
    if (!m_.caricato) EseguiEvento(ui_, [this] { m_.carica(); });
    EseguiEvento(ui_, [this] { m_.attiva(); });
    aggiorna();
    show();
    raise();
    activateWindow();
}

void Form3View::evento(const std::function<void()>& gestore) {
    EseguiEvento(ui_, gestore);
    aggiorna();
}

void Form3View::aggiorna() {
    // ESCI unloads the model: the window goes with it.
    if (!m_.caricato) {
        if (isVisible()) hide();
        return;
    }
    for (int i = 0; i < 55; ++i)
        if (text1_[i]->text() != Q(m_.Text1[i])) text1_[i]->setText(Q(m_.Text1[i]));
    label23_->setText(Q(m_.label23));
    label19_->setText(Q(m_.Label19));
    for (int i = 1; i <= 8; ++i) {
        comandi_[i]->setVisible(m_.Command[i].Visible);
        comandi_[i]->setEnabled(m_.Command[i].Enabled);
    }
    if (m_.focus >= 0 && m_.focus < 55) {
        text1_[m_.focus]->setFocus();
        m_.focus = -1;
    }
}

bool Form3View::eventFilter(QObject* oggetto, QEvent* evento) {
    const auto tipo = evento->type();
    if (tipo == QEvent::Enter || tipo == QEvent::MouseMove) {
        for (int c = 1; c <= 7; ++c) {
            if (oggetto != etichette_[EtichettaDi[c]]) continue;
            m_.mouseSuLabel(EtichettaDi[c]);
            aggiorna();
            return tipo == QEvent::MouseMove;  // the form under the label must not hide it again
        }
        if (tipo == QEvent::MouseMove &&
            std::find(fondi_.begin(), fondi_.end(), oggetto) != fondi_.end()) {
            // A move over a shown button climbs to the form behind it: not the form's.
            const QPoint dove = static_cast<QMouseEvent*>(evento)->position().toPoint();
            QWidget* sotto = static_cast<QWidget*>(oggetto)->childAt(dove);
            for (int c = 1; c <= 7; ++c)
                if (sotto && (sotto == comandi_[c] || comandi_[c]->isAncestorOf(sotto))) return false;
            bool mostrato = false;
            for (int c = 1; c <= 7; ++c) mostrato = mostrato || m_.Command[c].Visible;
            if (mostrato) {
                m_.mouseSuForm();
                aggiorna();
            }
            return false;
        }
    }
    return QDialog::eventFilter(oggetto, evento);
}

void Form3View::reject() {
    if (m_.caricato) EseguiEvento(ui_, [this] { m_.scarica(); });
    QDialog::reject();
}

}  // namespace zef::ui
