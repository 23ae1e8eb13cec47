#include "ui/form15view.h"

#include "core/form1.h"
#include "core/sistema.h"
#include "dreambook/form15.h"
#include "ui/form1view.h"
#include "ui/vista_comune.h"

#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace zef::ui {

using vista::Q;
using vista::S;

namespace {
constexpr const char* StileEtichetta =
    "QLabel { color: #1F4E8C; background-color: #E8EEF6; border: 1px solid #9DB3D3; border-radius: 3px; }";
}

Form15View::Form15View(Form15& modello, Interfaccia& ui, QWidget* parent) : QDialog(parent), m_(modello), ui_(ui) {
    setObjectName("Form15");
    setWindowTitle(Form15::Titolo);
    setModal(true);
    setMouseTracking(true);
    installEventFilter(this);
    auto* v = new QVBoxLayout(this);
    auto* g = new QGridLayout;
    g->addWidget(new QLabel(Form15::Label1), 0, 0);
    text1_ = new QLineEdit;
    text1_->setObjectName("Text1");
    g->addWidget(text1_, 0, 1);
    g->addWidget(new QLabel(Form15::Label2), 1, 0);
    // Combo1 lies over Text2 and shows only when a choice is offered.
    oggetto_ = new QStackedWidget;
    text2_ = new QLineEdit;
    text2_->setObjectName("Text2");
    combo1_ = new QComboBox;
    combo1_->setObjectName("Combo1");
    oggetto_->addWidget(text2_);
    oggetto_->addWidget(combo1_);
    oggetto_->setFixedHeight(text2_->sizeHint().height() + 2);
    g->addWidget(oggetto_, 1, 1);
    g->setColumnMinimumWidth(1, 260);
    v->addLayout(g);

    auto* frame = new QGroupBox(Form15::Frame1);
    frame->setObjectName("Frame1");
    frame->setMouseTracking(true);
    frame->installEventFilter(this);
    auto* h = new QHBoxLayout(frame);
    for (int i = 0; i < 8; ++i) {
        auto* l = new QLabel;
        l->setObjectName(QString("lblnum_%1").arg(i));
        l->setAlignment(Qt::AlignCenter);
        l->setFixedSize(40, 32);
        l->setFont(vista::CarattereFisso(13, true));
        l->setStyleSheet("color: #C00000; background: white; border: 1px solid #A0A0A0;");
        h->addWidget(l);
        lblnum_[static_cast<size_t>(i)] = l;
    }
    v->addWidget(frame);

    auto* comandi = new QHBoxLayout;
    comandi->addWidget(sovrapposti(3, Form15::Command3, "Label3"));
    comandi->addWidget(sovrapposti(1, Form15::Label5, "Label5"));
    comandi->addWidget(sovrapposti(2, Form15::Command2, "Label4"));
    v->addLayout(comandi);

    connect(text1_, &QLineEdit::textEdited, this, [this](const QString& t) { evento([this, t] { m_.cambiaText1(S(t)); }); });
    connect(text2_, &QLineEdit::textEdited, this, [this](const QString& t) { m_.Text2 = S(t); });
    connect(combo1_, &QComboBox::currentTextChanged, this, [this](const QString& t) { m_.Combo1Testo = S(t); });
    connect(text1_, &QLineEdit::returnPressed, this, [this] { evento([this] { m_.invio(); }); });
    connect(text2_, &QLineEdit::returnPressed, this, [this] { evento([this] { m_.invio(); }); });
    connect(comandi_[3], &QPushButton::clicked, this, [this] { evento([this] { m_.clickCommand3(); }); });
    connect(comandi_[1], &QPushButton::clicked, this, [this] {
        evento([this] { m_.clickCommand1(); });
        if (dopoAggiunta) dopoAggiunta();
    });
    connect(comandi_[2], &QPushButton::clicked, this, [this] {
        m_.clickCommand2();
        hide();
    });
    aggiorna();
}

QWidget* Form15View::sovrapposti(int comando, const char* testoEtichetta, const char* nomeEtichetta) {
    auto* cella = new QWidget;
    auto* g = new QGridLayout(cella);
    g->setContentsMargins(0, 0, 0, 0);
    auto* l = new QLabel(testoEtichetta);
    l->setObjectName(nomeEtichetta);
    l->setAlignment(Qt::AlignCenter);
    l->setFont(vista::CarattereFinestra(9, true));
    l->setStyleSheet(StileEtichetta);
    l->setMouseTracking(true);
    l->installEventFilter(this);
    const char* didascalie[4] = {"", Form15::Command1, Form15::Command2, Form15::Command3};
    auto* b = new QPushButton(didascalie[comando]);
    b->setObjectName(QString("Command%1").arg(comando));
    b->setFont(vista::CarattereFinestra(9, true));
    b->hide();
    l->setFixedSize(190, 30);
    b->setFixedSize(190, 30);
    g->addWidget(l, 0, 0);
    g->addWidget(b, 0, 0);
    comandi_[static_cast<size_t>(comando)] = b;
    etichette_[static_cast<size_t>(comando)] = l;
    return cella;
}

bool Form15View::eventFilter(QObject* oggetto, QEvent* e) {
    if (e->type() == QEvent::Enter || e->type() == QEvent::MouseMove) {
        for (int c = 1; c <= 3; ++c)
            if (oggetto == etichette_[static_cast<size_t>(c)]) {
                comandi_[static_cast<size_t>(c)]->show();
                return false;
            }
        // Moving over the form or the frame hides them again.
        if (e->type() == QEvent::MouseMove && (oggetto == this || oggetto->objectName() == "Frame1")) {
            const QPoint dove = QCursor::pos();
            for (int c = 1; c <= 3; ++c) {
                QPushButton* b = comandi_[static_cast<size_t>(c)];
                if (b->isVisible() && !b->rect().contains(b->mapFromGlobal(dove))) b->hide();
            }
        }
    }
    return QDialog::eventFilter(oggetto, e);
}

void Form15View::evento(const std::function<void()>& gestore) {
    EseguiEvento(ui_, gestore);
    aggiorna();
}

void Form15View::aggiorna() {
    if (text1_->text() != Q(m_.Text1)) text1_->setText(Q(m_.Text1));
    if (text2_->text() != Q(m_.Text2)) text2_->setText(Q(m_.Text2));
    {
        const QSignalBlocker blocco(combo1_);
        QStringList voci;
        for (const auto& x : m_.Combo1) voci << Q(x);
        QStringList attuali;
        for (int i = 0; i < combo1_->count(); ++i) attuali << combo1_->itemText(i);
        if (voci != attuali) {
            combo1_->clear();
            combo1_->addItems(voci);
            combo1_->setCurrentIndex(-1);
        }
    }
    oggetto_->setCurrentWidget(m_.Combo1Visibile ? static_cast<QWidget*>(combo1_) : text2_);
    for (size_t i = 0; i < 8; ++i) lblnum_[i]->setText(Q(m_.lblnum[i]));
}

namespace {
struct FinestraSmorfia {
    Form15 modello;
    std::unique_ptr<Form15View> vista;
    FinestraSmorfia(Sistema& s, Interfaccia& ui, Form1View& finestra) : modello(s, ui) {
        vista = std::make_unique<Form15View>(modello, ui, &finestra);
        vista->dopoAggiunta = [&finestra] { finestra.aggiorna(); };
    }
};
}  // namespace

std::shared_ptr<void> InstallaSmorfia(Form1& f1, Sistema& s, Interfaccia& ui, Form1View& finestra) {
    auto f = std::make_shared<FinestraSmorfia>(s, ui, finestra);
    FinestraSmorfia* p = f.get();
    f1.mostraForm15 = [p] {
        p->modello.visibile = true;
        p->vista->aggiorna();
        p->vista->exec();
    };
    return f;
}

}  // namespace zef::ui
