#include "ui/frmsplash.h"

#include "core/form1.h"
#include "ui/vista_comune.h"

#include <QEventLoop>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLinearGradient>
#include <QMessageBox>
#include <QPainter>
#include <QProcess>
#include <QPushButton>
#include <QRadialGradient>
#include <QStandardPaths>
#include <QTimer>
#include <QVBoxLayout>

namespace zef::ui {

using vista::Q;

void DisegnaPallina(QPainter& p, const QPointF& centro, qreal raggio, int numero, const QColor& colore) {
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    QRadialGradient g(centro - QPointF(raggio / 3, raggio / 3), raggio * 1.3);
    g.setColorAt(0, colore.lighter(170));
    g.setColorAt(0.6, colore);
    g.setColorAt(1, colore.darker(160));
    p.setPen(Qt::NoPen);
    p.setBrush(g);
    p.drawEllipse(centro, raggio, raggio);
    p.setBrush(Qt::white);
    p.drawEllipse(centro, raggio * 0.55, raggio * 0.55);
    QFont f = vista::CarattereFinestra(10, true);
    f.setPixelSize(static_cast<int>(raggio * 0.6));
    p.setFont(f);
    p.setPen(Qt::black);
    p.drawText(QRectF(centro.x() - raggio, centro.y() - raggio, 2 * raggio, 2 * raggio), Qt::AlignCenter,
               QString::number(numero));
    p.restore();
}

FrmSplash::FrmSplash(QWidget* parent, int millisecondi) : QDialog(parent) {
    setObjectName("frmSplash");
    setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint);
    setModal(true);
    setFixedSize(480, 300);
    setFont(vista::CarattereFinestra(9));

    auto* titolo = new QLabel("Zefiranto 2.0", this);
    titolo->setObjectName("lblProductName");
    titolo->setFont(vista::CarattereFinestra(30, true));
    titolo->setStyleSheet("color: white; background: transparent;");
    auto* sotto = new QLabel("Sistemi per il gioco del Lotto", this);
    sotto->setStyleSheet("color: #FFE0B0; background: transparent;");
    sotto->setFont(vista::CarattereFinestra(12));
    lblVersion_ = new QLabel("Versione " + Q(VersioneProgramma()), this);
    lblVersion_->setObjectName("lblVersion");
    lblVersion_->setStyleSheet("color: white; background: transparent;");
    lblVersion_->setFont(vista::CarattereFinestra(10, true));
    auto* attendere = new QLabel("Caricamento in corso...", this);
    attendere->setStyleSheet("color: #D0D8F0; background: transparent;");

    auto* v = new QVBoxLayout(this);
    v->setContentsMargins(28, 24, 28, 18);
    v->addWidget(titolo);
    v->addWidget(sotto);
    v->addStretch(1);
    auto* giu = new QHBoxLayout;
    giu->addWidget(attendere);
    giu->addStretch(1);
    giu->addWidget(lblVersion_);
    v->addLayout(giu);

    timer1_ = new QTimer(this);
    timer1_->setObjectName("Timer1");
    timer1_->setSingleShot(true);
    timer1_->setInterval(millisecondi);
    connect(timer1_, &QTimer::timeout, this, &QDialog::accept);
}

void FrmSplash::mostraModale() {
    // A local loop rather than exec(): the timer may fire while the window is still
    // being shown, and exec() would then wait for a window already gone.
    setWindowModality(Qt::ApplicationModal);
    QEventLoop attesa;
    connect(this, &QDialog::finished, &attesa, &QEventLoop::quit);
    timer1_->start();
    show();
    if (isVisible()) attesa.exec();
}

void FrmSplash::paintEvent(QPaintEvent*) {
    QPainter p(this);
    QLinearGradient sfondo(0, 0, width(), height());
    sfondo.setColorAt(0, QColor("#0E2F5C"));
    sfondo.setColorAt(1, QColor("#2D6BB5"));
    p.fillRect(rect(), sfondo);
    p.setPen(QPen(QColor("#FF8000"), 3));
    p.drawRect(rect().adjusted(1, 1, -2, -2));
    const int numeri[] = {7, 18, 33, 49, 62, 90};
    const QColor colori[] = {QColor("#FF8000"), QColor("#E03030"), QColor("#30A050"),
                             QColor("#FFC000"), QColor("#8040C0"), QColor("#FF8000")};
    for (int i = 0; i < 6; ++i)
        DisegnaPallina(p, QPointF(60 + i * 72, 170 + (i % 2) * 18), 28, numeri[i], colori[i]);
}

void FrmSplash::mousePressEvent(QMouseEvent*) { accept(); }
void FrmSplash::keyPressEvent(QKeyEvent*) { accept(); }

FrmAbout::FrmAbout(QWidget* parent) : QDialog(parent) {
    setObjectName("frmAbout");
    setWindowTitle("Informazioni su Zefiranto 2.0");
    setModal(true);
    setFont(vista::CarattereFinestra(9));

    auto* icona = new QLabel;
    QPixmap pallina(72, 72);
    pallina.fill(Qt::transparent);
    {
        QPainter p(&pallina);
        DisegnaPallina(p, QPointF(36, 36), 34, 90, QColor("#FF8000"));
    }
    icona->setPixmap(pallina);
    icona->setAlignment(Qt::AlignTop);

    auto* titolo = new QLabel("Zefiranto 2.0");
    titolo->setObjectName("lblTitle");
    titolo->setFont(vista::CarattereFinestra(16, true));
    lblVersion_ = new QLabel("Versione " + Q(VersioneProgramma()));
    lblVersion_->setObjectName("lblVersion");
    auto* descrizione = new QLabel(
        "Sviluppo, condizionamento e riduzione di sistemi per il gioco del Lotto, con l'archivio delle "
        "estrazioni, le statistiche e la smorfia.");
    descrizione->setObjectName("lblDescription");
    descrizione->setWordWrap(true);
    auto* avviso = new QLabel(
        "Attenzione: il gioco è vietato ai minori e può causare dipendenza patologica. "
        "Nessun sistema garantisce la vincita.");
    avviso->setObjectName("lblDisclaimer");
    avviso->setWordWrap(true);
    avviso->setStyleSheet("color: #606060");
    avviso->setFont(vista::CarattereFinestra(8));

    cmdOK_ = new QPushButton("OK");
    cmdOK_->setObjectName("cmdOK");
    cmdOK_->setDefault(true);
    cmdSysInfo_ = new QPushButton("&Info sistema...");
    cmdSysInfo_->setObjectName("cmdSysInfo");
    connect(cmdOK_, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdSysInfo_, &QPushButton::clicked, this, [this] { StartSysInfo(); });

    auto* testo = new QVBoxLayout;
    testo->addWidget(titolo);
    testo->addWidget(lblVersion_);
    testo->addSpacing(8);
    testo->addWidget(descrizione);
    testo->addStretch(1);
    auto* alto = new QHBoxLayout;
    alto->addWidget(icona);
    alto->addSpacing(12);
    alto->addLayout(testo, 1);
    auto* linea = new QFrame;
    linea->setFrameShape(QFrame::HLine);
    linea->setFrameShadow(QFrame::Sunken);
    auto* basso = new QHBoxLayout;
    basso->addWidget(avviso, 1);
    auto* tasti = new QVBoxLayout;
    tasti->addWidget(cmdOK_);
    tasti->addWidget(cmdSysInfo_);
    basso->addLayout(tasti);
    auto* v = new QVBoxLayout(this);
    v->addLayout(alto);
    v->addWidget(linea);
    v->addLayout(basso);
    setFixedWidth(460);
}

QString FrmAbout::StrumentoInfoSistema() {
    for (const char* nome : {"gnome-system-monitor", "kinfocenter", "hardinfo2", "hardinfo", "xfce4-taskmanager",
                             "mate-system-monitor", "lxtask"}) {
        QString p = QStandardPaths::findExecutable(nome);
        if (!p.isEmpty()) return p;
    }
    return {};
}

void FrmAbout::StartSysInfo() {
    const QString strumento = StrumentoInfoSistema();
    if (strumento.isEmpty() || !QProcess::startDetached(strumento, {})) {
        QMessageBox::warning(this, windowTitle(), "Informazioni di sistema non disponibili in questo momento.");
    }
}

}  // namespace zef::ui
