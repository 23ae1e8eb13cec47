#include "cli/sviluppo_cli.h"

#include "cli/comandi.h"
#include "core/basic.h"
#include "core/form20.h"
#include "core/vocabolario.h"

#include <algorithm>
#include <cctype>
#include <sstream>

namespace zef::cli {

void AggiungiOpzioniSviluppo(CLI::App* app, OpzioniSviluppo& o, bool obbligatorio) {
    app->add_option("-p,--pronostico", o.pronostico, "numeri del pronostico: \"1,5,9\" o \"1-40\"")->required();
    auto* k = app->add_option("-k,--k,--sviluppo", o.sviluppo, "numeri per colonna (2..10) o nome: TERZINE, CINQUINE...");
    if (obbligatorio) k->required();
    app->add_option("-f,--fisse", o.fisse, "numeri fissi, come il pronostico");
    app->add_option("-d,--distanza", o.distanza, "distanza minima in unità");
    app->add_option("--thread", o.thread, "thread di lavoro (0: tutti i core)");
    app->add_option("-c,--condizioni", o.condizioni, "file JSON delle condizioni")->check(CLI::ExistingFile);
    app->add_option("--archivio", o.archivio, "archivio.db per le condizioni sull'archivio (predefinito: quello del programma)");
    app->add_option("--ruota", o.ruota, "ruota della giocata: 0 Bari ... 9 Venezia, 10 Nazionale, 11 Tutte (predefinita)");
}

void ImpostaPronostico(Sistema& s, const std::string& testo) {
    std::vector<int> numeri;
    std::stringstream ss(testo);
    std::string voce;
    while (std::getline(ss, voce, ',')) {
        auto trattino = voce.find('-', 1);
        if (trattino != std::string::npos) {
            auto a = ListaNumeri(voce.substr(0, trattino), "--pronostico");
            auto b = ListaNumeri(voce.substr(trattino + 1), "--pronostico");
            if (a.size() != 1 || b.size() != 1 || a[0] > b[0])
                throw InputNonValido("Intervallo non valido in --pronostico: \"" + voce + "\"");
            for (int n = a[0]; n <= b[0]; ++n) numeri.push_back(n);
        } else {
            auto a = ListaNumeri(voce, "--pronostico");
            numeri.insert(numeri.end(), a.begin(), a.end());
        }
    }
    s.pad.fill(false);
    for (int n : numeri) {
        if (n < 1 || n > 90) throw InputNonValido("Numero fuori da 1..90 nel pronostico: " + std::to_string(n));
        if (s.pad[n - 1]) throw InputNonValido("Numero ripetuto nel pronostico: " + std::to_string(n));
        s.pad[n - 1] = true;
    }
    s.Label2 = TestoSemplice(s.contaPad());
    s.PronosticoDalPad();
}

int DimensioneSviluppo(const std::string& testo) {
    std::string t = testo;
    std::transform(t.begin(), t.end(), t.begin(), [](unsigned char c) { return std::toupper(c); });
    for (int k = KMin; k <= KMax; ++k)
        if (t == NomeSviluppo(k) || t == std::to_string(k)) return k;
    throw InputNonValido("Sviluppo non valido: \"" + testo + "\" (2..10 o COPPIE..DECINE)");
}

int IndiceRuota(const std::string& testo) {
    const std::string t = Trim(testo);
    bool cifre = !t.empty() && t.size() <= 2 && std::all_of(t.begin(), t.end(), [](unsigned char c) { return std::isdigit(c); });
    if (!cifre || std::stoi(t) > 11)
        throw InputNonValido("Ruota non valida: \"" + testo +
                             "\" (da 0 a 11: 0 Bari, 1 Cagliari, 2 Firenze, 3 Genova, 4 Milano, 5 Napoli, 6 Palermo, "
                             "7 Roma, 8 Torino, 9 Venezia, 10 Nazionale, 11 Tutte)");
    return std::stoi(t);
}

CaricatoreCondizioni& CaricaCondizioni() {
    static CaricatoreCondizioni c;
    return c;
}

void Sviluppa(Sistema& s, InterfacciaScriptata& ui, const OpzioniSviluppo& o) {
    const int ruota = IndiceRuota(o.ruota);
    {
        // The distance is a whole number of units: anything else is refused here, before
        // the dialog would fail on it half way.
        const std::string d = Trim(o.distanza);
        const bool cifre = !d.empty() && d.size() <= 2 &&
                           std::all_of(d.begin(), d.end(), [](unsigned char c) { return std::isdigit(c); });
        if (!cifre) throw InputNonValido("Distanza non valida: \"" + o.distanza + "\" (un numero intero da 0 a 89)");
    }
    ImpostaPronostico(s, o.pronostico);
    // the wheel option of the play dialog, which the archive-based conditions read
    s.form2.Option1.fill(false);
    s.form2.Option1[ruota] = true;
    const int k = DimensioneSviluppo(o.sviluppo);
    Form20 f20(s, ui);
    f20.carica();
    f20.Combo1 = k - 2;
    f20.Text1 = o.distanza;
    f20.parametri.thread = o.thread;
    if (!o.fisse.empty()) {
        Form12 f12(s, f20);
        f12.carica();
        auto fisse = ListaNumeri(o.fisse, "--fisse");
        for (int n : fisse) {
            auto it = std::find(f12.List1.begin(), f12.List1.end(), std::to_string(n));
            if (it == f12.List1.end()) throw InputNonValido("Numero fisso fuori dal pronostico: " + std::to_string(n));
            f12.selezionata[it - f12.List1.begin()] = true;
        }
        f12.clickCommand1();
        if (static_cast<int>(fisse.size()) != s.NumFissi)
            throw InputNonValido("Troppi numeri fissi: al massimo " + std::to_string(k - 1));
    }
    if (!o.condizioni.empty()) {
        if (!CaricaCondizioni()) throw InputNonValido("Le condizioni non sono disponibili in questa versione");
        CaricaCondizioni()(s, ui, o);
    }
    f20.clickCommand1();
}

}  // namespace zef::cli
