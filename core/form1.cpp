#include "core/form1.h"

#include "core/errori.h"
#include "core/giocate.h"
#include "core/percorsi.h"
#include "core/sistema.h"

#include <exception>

#ifndef ZEF_VERSIONE_MAJOR
#define ZEF_VERSIONE_MAJOR 2
#define ZEF_VERSIONE_MINOR 0
#define ZEF_VERSIONE_PATCH 0
#endif

namespace zef {

std::string VersioneProgramma() {
    return std::to_string(ZEF_VERSIONE_MAJOR) + "." + std::to_string(ZEF_VERSIONE_MINOR) + "." +
           std::to_string(ZEF_VERSIONE_PATCH);
}

void Form1::carica() {
    chiama(mostraSplash);
    s_.pannelli = {pannello::CondizionateZero, pannello::RidotteZero, pannello::CostoZero};
    s_.CostoColonna = Currency();
    s_.ContatorePercentuali = 0;
    s_.NumColonne = 0;
    s_.NumCombinazioni = 0;
    larghezzaColonnaLista = 3580;
    s_.PercentualiValide = false;
    s_.PronosticoNonSviluppato = false;
    s_.SistemaSalvato = true;
    s_.SalvaAbilitato = false;
    s_.titolo = titoli::NonSalvato;

    // Under the load's error trap: without the archive the window comes up as it stands.
    try {
        if (apriArchivio) apriArchivio();
        archivioAperto = true;
    } catch (const ErroreEsecuzione& e) {
        ui_.messaggio("Si è verificato l'errore seguente: " + e.testo());
        return;
    } catch (const std::exception& e) {
        ui_.messaggio("Si è verificato l'errore seguente: " + std::string(e.what()));
        return;
    }

    // The store is reserved as virtual memory: pages are committed only as columns come.
    try {
        s_.colonne.dimensiona(2);
    } catch (const ErroreEsecuzione& e) {
        ui_.messaggio("Si è verificato l'errore seguente: " + e.testo());
        return;
    }
    s_.NumeriFissi.assign(6, 0);
    s_.NumeriFissiBase = 1;

    chiama(scaricaSplash);
    lblVersion = VersioneProgramma();
}

void Form1::clickCommand1(int indice) {
    if (indice < 0 || indice >= 90) return;
    s_.NumCombinazioni = 0;
    int conta = static_cast<int>(Val(s_.Label2));
    if (!s_.pad[indice]) {
        s_.pad[indice] = true;
        ++conta;
    } else {
        s_.pad[indice] = false;
        --conta;
        if (conta < 6) s_.pannelli[0] = pannello::CondizionateZero;
    }
    s_.Label2 = TestoSemplice(conta);
    // The list of Form12 shows the forecast: a new count unloads it.
    chiama(scaricaForm12);
    s_.PronosticoDalPad();
    s_.SistemaSalvato = false;
    if (s_.ResettaCondizioni) s_.ResettaCondizioni();
}

void Form1::clickCommand5() { EliminaSelezionate(s_); }

void Form1::clickCommand7() { Visualizza(s_, ui_); }

void Form1::mouseDownLista(int pulsante) {
    if (pulsante == 2) chiama(mostraForm18);
}

void Form1::clickToolbar(const std::string& chiave) {
    if (chiave == "sviluppo") {
        if (Command3Abilitato) clickCommand3();
    } else if (chiave == "uscita") {
        Uscita();
    } else if (chiave == "apri") {
        menuApri();
    } else if (chiave == "salva") {
        // The button saves even while the menu item is still disabled.
        menuSalva();
    } else if (chiave == "spoglio") {
        clickCommand6();
    } else if (chiave == "stampa") {
        menustampa();
    } else if (chiave == "suggerisci") {
        menuPronosticoStatistico();
    } else if (chiave == "archivio") {
        menuColonneVincenti();
    } else if (chiave == "aiuto") {
        menusommario();
    } else if (chiave == "smorfia") {
        menuSmorfia();
    }
}

void Form1::timer6() {
    if (!Timer6Abilitato) return;
    Timer6Abilitato = false;
    chiama(ControllaAggiornamento);
}

void Form1::timer4() {
    if (s_.Timer4Abilitato) chiama(tickTimer4);
}

void Form1::menustampa() {
    if (s_.MSFlexGrid1.Rows() == 0) {
        ui_.messaggio(
            "Nessuna giocata ridotta o condizinata è presente in lista. E' necessario visualizzare le giocate "
            "prima di stamparle.",
            "ERRORE NESSUNA COLONNA", Icona::Critico);
        return;
    }
    chiama(mostraForm10);
}

void Form1::menuInformazioni() {
    if (s_.NumColonne <= 0) {
        ui_.messaggio("Nessuna giocata condizionata in memoria, bisogna prima elaborare un sistema!",
                      "ERRORE SULLA RIDUZIONE", Icona::Esclamazione);
        return;
    }
    chiama(mostraForm9);
}

void Form1::menuGaranzia(int livello) {
    if (livello < 2 || livello > 5) return;
    Riduzione(livello);
}

void Form1::Riduzione(int livello) {
    if (s_.NumColonne <= 0) {
        ui_.messaggio("Nessuna giocata condizionata in memoria, bisogna prima elaborare un sistema condizionato!",
                      "ERRORE SULLA RIDUZIONE", Icona::Esclamazione);
        return;
    }
    if (s_.NumColonne == 1) {
        ui_.messaggio("Non è possibile ridurre una sola colonna!", "ERRORE SULLA RIDUZIONE", Icona::Esclamazione);
        return;
    }
    // Cinquina is Option1, ambo Option4.
    const int opzione = livello == 0 ? 0 : 6 - livello;
    if (opzione > 0) {
        if (caricaForm5) {
            caricaForm5();
        } else if (!s_.form5.caricato) {
            s_.form5.scarica();
            s_.form5.caricato = true;
        }
        s_.form5.Option.fill(false);
        s_.form5.Option[opzione - 1] = true;
    }
    if (mostraForm5) mostraForm5(opzione);
}

void Form1::menuSviluppoRidotto() {
    if (Val(s_.Label2) < 3) {
        ui_.messaggio("E' necessario impostare un pronostico prima!", "Attenzione", Icona::Critico);
        return;
    }
    chiama(mostraForm19);
}

void Form1::menusommario() { ui_.apriDocumento(CartellaProgramma() + "/guida.pdf"); }

void Form1::ChiediSalvataggio() {
    if (ui_.messaggio("Vuoi salvare il sistema ?", "ATTENZIONE", Icona::Esclamazione, Pulsanti::SiNo) ==
        Risposta::Si)
        chiama(SalvaConNome);
}

void Form1::Nuovo() {
    if (!s_.SistemaSalvato) ChiediSalvataggio();
    chiama(scaricaForm8);
    chiama(scaricaForm12);
    s_.form2.scarica();
    chiama(scaricaForm2);
    s_.Command2 = "Non selezionata";
    ImpostaListaCol(s_, "0");
    chiama(caricaForm8);
    s_.MSFlexGrid1.Clear();
    s_.pad.fill(false);
    s_.Label2 = "0";
    s_.NumeriColonna.fill(0);
    s_.Pronostico.clear();
    s_.PronosticoScalare = true;
    s_.NumPronostico = 0;
    s_.PronosticoNonSviluppato = true;
    s_.SistemaSalvato = false;
    s_.SalvaAbilitato = false;
    // NumRidotte and ColonneRidotte stay: VISUALIZZA shows the old reduction again.
    s_.colonne.dimensiona(2);
    s_.NumColonne = 0;
    s_.TipoGaranzia = 0;
    s_.CostoColonna = Currency();
    s_.ContatorePercentuali = 0;
    s_.pannelli = {pannello::CondizionateZero, pannello::RidotteZero, pannello::CostoZero};
    s_.titolo = titoli::SenzaNome;
}

void Form1::Uscita() {
    if (!s_.SistemaSalvato) ChiediSalvataggio();
    chiama(ChiudiArchivio);
    archivioAperto = false;
    terminato = true;
    chiama(fine);
}

}  // namespace zef
