// The Interfaccia of the program: Qt message boxes, input box, file dialogs, the
// progress window, the main bar and the hourglass.
//
// Every method may be called from the worker thread of a long pass. Calls that
// need an answer (or that must be on screen before the pass goes on) are carried
// to the interface thread and wait there; progress and bar updates are posted
// without waiting and coalesced, so a fast pass never queues thousands of repaints.
#pragma once

#include "core/interfaccia.h"

#include <QObject>
#include <QPointer>
#include <QThread>

#include <functional>
#include <mutex>
#include <type_traits>
#include <vector>

class QProgressBar;
class QWidget;

namespace zef::ui {

class Form4View;

// Turns the "Zefiranto files|*.zfr" filter form into Qt's "Zefiranto files (*.zfr)".
QString FiltroQt(const std::string& filtro);

// A box as it came up, for tests that let boxes answer themselves.
struct BoxQt {
    std::string testo;
    std::string titolo;
    Icona icona;
    Pulsanti pulsanti;
};

class QtInterfaccia : public QObject, public Interfaccia {
    Q_OBJECT
public:
    explicit QtInterfaccia(QObject* parent = nullptr);
    ~QtInterfaccia() override;

    // Parent window of the boxes and dialogs.
    void impostaFinestra(QWidget* finestra);
    // The main window's bar.
    void impostaBarra(QProgressBar* barra);

    // Tests: when set, a box is not shown but answered by this function.
    std::function<Risposta(const BoxQt&)> risponditore;
    // Tests: when set, file dialogs and the input box answer from these.
    std::function<std::optional<std::string>(bool salva)> rispostaFile;
    std::function<std::optional<std::string>(const std::string& prompt)> rispostaInput;
    // Tests: documents opened (not handed to the desktop when set).
    std::function<void(const std::string&)> rispostaDocumento;

    Risposta messaggio(const std::string& testo, const std::string& titolo, Icona icona,
                       Pulsanti pulsanti) override;
    std::optional<std::string> inputBox(const std::string& prompt, const std::string& titolo,
                                        const std::string& predefinito) override;
    std::optional<std::string> dialogoApri(const std::string& filtro, const std::string& titolo) override;
    std::optional<std::string> dialogoSalva(const std::string& filtro, const std::string& titolo) override;
    void mostraAvanzamento(const StatoAvanzamento& stato) override;
    void aggiornaAvanzamento(const StatoAvanzamento& stato) override;
    void chiudiAvanzamento() override;
    std::vector<int> tastiAvanzamento() override;
    void barraPrincipale(double minimo, double massimo, double valore) override;
    void clessidra(bool attiva) override;
    void apriDocumento(const std::string& percorso) override;

    // The progress window while it is up (null otherwise).
    Form4View* finestraAvanzamento() const;
    // A key for the running pass, as the progress window delivers it.
    void accodaTasto(int tasto);

private:
    // Runs f on the interface thread and returns its result.
    template <class F>
    auto nelThreadInterfaccia(F&& f) -> decltype(f());
    QWidget* genitore() const;
    void applicaAvanzamento();
    void applicaBarra();

    QPointer<QWidget> finestra_;
    QPointer<QProgressBar> barra_;
    QPointer<Form4View> avanzamento_;
    int clessidre_ = 0;

    std::mutex mutex_;
    std::vector<int> tasti_;
    StatoAvanzamento statoPendente_;
    bool avanzamentoInAttesa_ = false;
    double barraPendente_[3] = {0, 0, 0};
    bool barraInAttesa_ = false;
    int barraMostrata_ = -1;  // last value drawn, in percent
};

template <class F>
auto QtInterfaccia::nelThreadInterfaccia(F&& f) -> decltype(f()) {
    using R = decltype(f());
    if (QThread::currentThread() == thread()) return f();
    if constexpr (std::is_void_v<R>) {
        QMetaObject::invokeMethod(this, [&] { f(); }, Qt::BlockingQueuedConnection);
    } else {
        R risultato{};
        QMetaObject::invokeMethod(this, [&] { risultato = f(); }, Qt::BlockingQueuedConnection);
        return risultato;
    }
}

}  // namespace zef::ui
