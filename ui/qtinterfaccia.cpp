#include "ui/qtinterfaccia.h"

#include "ui/form4view.h"
#include "ui/vista_comune.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QUrl>

#include <algorithm>
#include <cmath>

namespace zef::ui {

using vista::Q;
using vista::S;

namespace {
constexpr const char* TitoloProgramma = "Zefiranto 2.0";
}

QString FiltroQt(const std::string& filtro) {
    // "Descrizione|*.a;*.b|Altro|*.c" -> "Descrizione (*.a *.b);;Altro (*.c)"
    QStringList parti = Q(filtro).split('|');
    QStringList voci;
    for (int i = 0; i + 1 < parti.size(); i += 2) {
        QString schema = parti[i + 1];
        schema.replace(';', ' ');
        voci << parti[i] + " (" + schema + ")";
    }
    if (voci.isEmpty() && !filtro.empty()) voci << Q(filtro);
    return voci.join(";;");
}

QtInterfaccia::QtInterfaccia(QObject* parent) : QObject(parent) {}

QtInterfaccia::~QtInterfaccia() {
    if (avanzamento_) delete avanzamento_.data();
    while (clessidre_-- > 0) QApplication::restoreOverrideCursor();
}

void QtInterfaccia::impostaFinestra(QWidget* finestra) { finestra_ = finestra; }
void QtInterfaccia::impostaBarra(QProgressBar* barra) { barra_ = barra; }
Form4View* QtInterfaccia::finestraAvanzamento() const { return avanzamento_.data(); }

QWidget* QtInterfaccia::genitore() const {
    if (QWidget* modale = QApplication::activeModalWidget()) return modale;
    return finestra_;
}

Risposta QtInterfaccia::messaggio(const std::string& testo, const std::string& titolo, Icona icona,
                                  Pulsanti pulsanti) {
    return nelThreadInterfaccia([&]() -> Risposta {
        if (risponditore) return risponditore(BoxQt{testo, titolo, icona, pulsanti});
        QMessageBox box(genitore());
        box.setWindowTitle(titolo.empty() ? TitoloProgramma : Q(titolo));
        box.setText(Q(testo));
        switch (icona) {
            case Icona::Critico: box.setIcon(QMessageBox::Critical); break;
            case Icona::Domanda: box.setIcon(QMessageBox::Question); break;
            case Icona::Esclamazione: box.setIcon(QMessageBox::Warning); break;
            case Icona::Informazione: box.setIcon(QMessageBox::Information); break;
            case Icona::Nessuna: box.setIcon(QMessageBox::NoIcon); break;
        }
        QPushButton* ok = nullptr;
        QPushButton* si = nullptr;
        QPushButton* no = nullptr;
        QPushButton* annulla = nullptr;
        switch (pulsanti) {
            case Pulsanti::Ok: ok = box.addButton("OK", QMessageBox::AcceptRole); break;
            case Pulsanti::OkAnnulla:
                ok = box.addButton("OK", QMessageBox::AcceptRole);
                annulla = box.addButton("Annulla", QMessageBox::RejectRole);
                break;
            case Pulsanti::SiNo:
                si = box.addButton("Sì", QMessageBox::YesRole);
                no = box.addButton("No", QMessageBox::NoRole);
                break;
            case Pulsanti::SiNoAnnulla:
                si = box.addButton("Sì", QMessageBox::YesRole);
                no = box.addButton("No", QMessageBox::NoRole);
                annulla = box.addButton("Annulla", QMessageBox::RejectRole);
                break;
        }
        box.setDefaultButton(ok ? ok : si);
        if (annulla) box.setEscapeButton(annulla);
        else if (ok) box.setEscapeButton(ok);
        QApplication::setOverrideCursor(Qt::ArrowCursor);
        box.exec();
        QApplication::restoreOverrideCursor();
        QAbstractButton* premuto = box.clickedButton();
        if (premuto && premuto == si) return Risposta::Si;
        if (premuto && premuto == no) return Risposta::No;
        if (premuto && premuto == ok) return Risposta::Ok;
        if (annulla) return Risposta::Annulla;
        return pulsanti == Pulsanti::SiNo ? Risposta::No : Risposta::Ok;
    });
}

std::optional<std::string> QtInterfaccia::inputBox(const std::string& prompt, const std::string& titolo,
                                                   const std::string& predefinito) {
    return nelThreadInterfaccia([&]() -> std::optional<std::string> {
        if (rispostaInput) return rispostaInput(prompt);
        bool ok = false;
        QString t = QInputDialog::getText(genitore(), titolo.empty() ? TitoloProgramma : Q(titolo), Q(prompt),
                                          QLineEdit::Normal, Q(predefinito), &ok);
        if (!ok) return std::nullopt;
        return S(t);
    });
}

std::optional<std::string> QtInterfaccia::dialogoApri(const std::string& filtro, const std::string& titolo) {
    return nelThreadInterfaccia([&]() -> std::optional<std::string> {
        if (rispostaFile) return rispostaFile(false);
        QString f = QFileDialog::getOpenFileName(genitore(), titolo.empty() ? "Apri" : Q(titolo), {}, FiltroQt(filtro));
        if (f.isEmpty()) return std::nullopt;
        return S(f);
    });
}

std::optional<std::string> QtInterfaccia::dialogoSalva(const std::string& filtro, const std::string& titolo) {
    return nelThreadInterfaccia([&]() -> std::optional<std::string> {
        if (rispostaFile) return rispostaFile(true);
        QString f = QFileDialog::getSaveFileName(genitore(), titolo.empty() ? "Salva con nome" : Q(titolo), {},
                                                 FiltroQt(filtro));
        if (f.isEmpty()) return std::nullopt;
        return S(f);
    });
}

void QtInterfaccia::mostraAvanzamento(const StatoAvanzamento& stato) {
    nelThreadInterfaccia([&] {
        if (!avanzamento_) {
            avanzamento_ = new Form4View(finestra_);
            avanzamento_->tasto = [this](int t) { accodaTasto(t); };
            avanzamento_->setWindowModality(Qt::ApplicationModal);
        }
        {
            std::lock_guard l(mutex_);
            tasti_.clear();
            avanzamentoInAttesa_ = false;
        }
        avanzamento_->mostra(stato);
        avanzamento_->show();
        avanzamento_->raise();
        avanzamento_->activateWindow();
        avanzamento_->setFocus();
    });
}

void QtInterfaccia::aggiornaAvanzamento(const StatoAvanzamento& stato) {
    bool posta = false;
    {
        std::lock_guard l(mutex_);
        statoPendente_ = stato;
        if (!avanzamentoInAttesa_) posta = avanzamentoInAttesa_ = true;
    }
    if (QThread::currentThread() == thread()) {
        applicaAvanzamento();
        return;
    }
    if (posta) QMetaObject::invokeMethod(this, [this] { applicaAvanzamento(); }, Qt::QueuedConnection);
}

void QtInterfaccia::applicaAvanzamento() {
    StatoAvanzamento st;
    {
        std::lock_guard l(mutex_);
        if (!avanzamentoInAttesa_) return;
        avanzamentoInAttesa_ = false;
        st = statoPendente_;
    }
    if (avanzamento_) avanzamento_->mostra(st);
}

void QtInterfaccia::chiudiAvanzamento() {
    nelThreadInterfaccia([&] {
        {
            std::lock_guard l(mutex_);
            avanzamentoInAttesa_ = false;
        }
        if (avanzamento_) {
            avanzamento_->hide();
            avanzamento_->deleteLater();
            avanzamento_ = nullptr;
        }
    });
}

void QtInterfaccia::accodaTasto(int tasto) {
    std::lock_guard l(mutex_);
    tasti_.push_back(tasto);
}

std::vector<int> QtInterfaccia::tastiAvanzamento() {
    // A pass on the interface thread itself lets the keys in here.
    if (QThread::currentThread() == thread()) QCoreApplication::processEvents();
    std::lock_guard l(mutex_);
    std::vector<int> v;
    v.swap(tasti_);
    return v;
}

void QtInterfaccia::barraPrincipale(double minimo, double massimo, double valore) {
    bool posta = false;
    {
        std::lock_guard l(mutex_);
        barraPendente_[0] = minimo;
        barraPendente_[1] = massimo;
        barraPendente_[2] = valore;
        if (!barraInAttesa_) posta = barraInAttesa_ = true;
    }
    if (QThread::currentThread() == thread()) {
        applicaBarra();
        return;
    }
    if (posta) QMetaObject::invokeMethod(this, [this] { applicaBarra(); }, Qt::QueuedConnection);
}

void QtInterfaccia::applicaBarra() {
    double b[3];
    {
        std::lock_guard l(mutex_);
        if (!barraInAttesa_) return;
        barraInAttesa_ = false;
        std::copy(barraPendente_, barraPendente_ + 3, b);
    }
    if (!barra_) return;
    // Percent steps: a list of millions of rows repaints the bar a hundred times at most.
    const double span = b[1] - b[0];
    const int passo = span > 0 ? static_cast<int>(std::clamp((b[2] - b[0]) / span, 0.0, 1.0) * 100) : 0;
    if (passo == barraMostrata_) return;
    barraMostrata_ = passo;
    barra_->setRange(0, 100);
    barra_->setValue(passo);
    barra_->repaint();
}

void QtInterfaccia::clessidra(bool attiva) {
    nelThreadInterfaccia([&] {
        if (attiva) {
            QApplication::setOverrideCursor(Qt::WaitCursor);
            ++clessidre_;
        } else if (clessidre_ > 0) {
            QApplication::restoreOverrideCursor();
            --clessidre_;
        }
    });
}

void QtInterfaccia::apriDocumento(const std::string& percorso) {
    nelThreadInterfaccia([&] {
        if (rispostaDocumento) {
            rispostaDocumento(percorso);
            return;
        }
        // The viewer's result is ignored.
        QDesktopServices::openUrl(QUrl::fromLocalFile(Q(percorso)));
    });
}

}  // namespace zef::ui
