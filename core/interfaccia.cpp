#include "core/interfaccia.h"

#include "core/errori.h"

#include <new>

namespace zef {

void MostraErroreEsecuzione(Interfaccia& ui, int numero, const std::string& testo) {
    ui.messaggio("Errore di run-time '" + std::to_string(numero) + "':\n\n" + testo, "Zefiranto 2.0",
                 Icona::Critico, Pulsanti::Ok);
}

void EseguiEvento(Interfaccia& ui, const std::function<void()>& gestore) {
    try {
        gestore();
    } catch (const ErroreEsecuzione& e) {
        MostraErroreEsecuzione(ui, e.numero, e.testo());
    } catch (const std::bad_alloc&) {
        MostraErroreEsecuzione(ui, errori::MemoriaEsaurita, "Memoria esaurita");
    }
}

}  // namespace zef
