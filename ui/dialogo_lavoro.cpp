#include "ui/dialogo_lavoro.h"

#include <QApplication>
#include <QCloseEvent>

namespace zef::ui {

DialogoConLavoro::DialogoConLavoro(Interfaccia& ui, vista::EseguiInLavoro esegui, QWidget* parent)
    : QDialog(parent), ui_(ui), esegui_(std::move(esegui)) {}

bool DialogoConLavoro::eseguiLavoro(const std::function<void()>& lavoro) {
    if (inLavoro_) return false;
    inLavoro_ = true;
    // The worker reads the model: nothing in the dialog may change it meanwhile.
    abilitaComandi(false);
    qApp->installEventFilter(this);
    try {
        if (esegui_) esegui_(lavoro);
        else vista::EseguiInThread(lavoro);
    } catch (const std::exception& e) {
        ui_.messaggio(std::string("Errore: ") + e.what(), "", Icona::Critico);
    }
    qApp->removeEventFilter(this);
    abilitaComandi(true);
    inLavoro_ = false;
    return true;
}

void DialogoConLavoro::closeEvent(QCloseEvent* e) {
    if (inLavoro_) {  // the pass owns the dialog until it ends
        e->ignore();
        return;
    }
    QDialog::closeEvent(e);
}

bool DialogoConLavoro::eventFilter(QObject* oggetto, QEvent* evento) {
    // The progress window comes up once the model has unloaded the dialog: the worker
    // is waiting on that call, so the model can be read here; the dialog steps aside.
    if (evento->type() == QEvent::Show && oggetto != this && qobject_cast<QDialog*>(oggetto) && scaricato() &&
        isVisible())
        hide();
    return QDialog::eventFilter(oggetto, evento);
}

}  // namespace zef::ui
