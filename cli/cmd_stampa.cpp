// zefiranto-cli stampa: the listing or the play slips of a saved system, as a PDF
// file, as the printed lines, or as the slips' positions.
//
// The prints come from the same windows' models as in the program, recorded on the
// recording printer. A PDF is drawn by zefiranto-pdf.so, a Qt module beside the
// executable, loaded only here: the command line itself links no Qt and needs no
// display.
#include "cli/comandi.h"
#include "core/interfaccia_scriptata.h"
#include "core/percorsi.h"
#include "core/sistema.h"
#include "files/filesistema.h"
#include "printing/form10.h"
#include "printing/form11.h"
#include "printing/puntate.h"
#include "printing/testo_stampa.h"
#include "reduction/percentuali.h"

#include <dlfcn.h>

#include <cstring>
#include <filesystem>
#include <iostream>
#include <optional>

namespace zef::cli {
namespace {

struct Opzioni {
    std::string file;
    bool tabulato = false, schedine = false;
    bool pronostico = false, condizioni = false, giocate = false, percentuali = false;
    std::string pdf;
    bool testo = false, posizioni = false;
    std::string da, a, concorsi, cooxy;
};

void Carica(Sistema& s, const std::string& file) {
    InterfacciaScriptata ui;
    ui.fileApri.push_back(file);
    Apri(s, ui);
    if (!ui.box.empty()) throw InputNonValido(file + ": " + ui.box.back().testo);
}

// The PDF writer module: int zef_scrivi_pdf(path, operations, kind, error, size).
void ScriviPdf(const std::string& file, const std::vector<OperazioneStampa>& ops, Modulo modulo) {
    using Scrittore = int (*)(const char*, const std::vector<OperazioneStampa>*, int, char*, size_t);
    const std::string percorso = CartellaProgramma() + "/zefiranto-pdf.so";
    void* modulo_so = dlopen(percorso.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!modulo_so) throw std::runtime_error(std::string("scrittura PDF non disponibile: ") + dlerror());
    void* simbolo = dlsym(modulo_so, "zef_scrivi_pdf");
    if (!simbolo) throw std::runtime_error("scrittura PDF non disponibile: " + percorso);
    Scrittore scrivi;
    std::memcpy(&scrivi, &simbolo, sizeof scrivi);
    char errore[1024] = {};
    // The module stays loaded: Qt does not expect to be unloaded.
    if (scrivi(file.c_str(), &ops, static_cast<int>(modulo), errore, sizeof errore) != 0)
        throw std::runtime_error(errore);
}

// A whole number in 1.. for --da and --a.
long long Numero(const std::string& t, const std::string& opzione) {
    size_t usati = 0;
    long long v = 0;
    try {
        v = std::stoll(t, &usati);
    } catch (...) {
        usati = 0;
    }
    if (usati == 0 || usati != t.size()) throw InputNonValido("Valore non valido per " + opzione + ": \"" + t + "\"");
    return v;
}

// Boxes shown to the user become the command's error.
void Rifiuto(const InterfacciaScriptata& ui) {
    if (!ui.box.empty()) throw InputNonValido(ui.box.back().testo);
}

int Tabulato(Sistema& s, const Opzioni& o) {
    InterfacciaScriptata ui;
    ui.rispostaPredefinita = Risposta::Si;  // percentages with 5 numbers even beyond 35
    if (o.percentuali) {
        Form8 f8(s, ui);
        f8.avviaEdEsegui();
        if (!s.PercentualiValide) Rifiuto(ui);
        ui.box.clear();
    }
    DestinazioneRegistrata carta;
    Form24 f24;
    Form10 f10(s, ui, carta, f24);
    f10.mostraForm24 = [&] {
        f24.Check1 = o.pronostico;
        f24.Check2 = o.condizioni;
        f24.Check3 = o.giocate;
        f24.clickCommand1();
    };
    f10.dataOggi = DataCortaLocale;
    f10.clickCommand1();
    Rifiuto(ui);
    if (o.testo) std::cout << RigheStampate(carta.carta.operazioni);
    else ScriviPdf(o.pdf, carta.carta.operazioni, Modulo::Tabulato);
    return 0;
}

int Schedine(Sistema& s, const Opzioni& o) {
    InterfacciaScriptata ui;
    const int64_t righe = s.MSFlexGrid1.Rows();
    std::optional<long long> da, a;
    if (!o.da.empty()) da = Numero(o.da, "--da");
    if (!o.a.empty()) a = Numero(o.a, "--a");
    if (da || a) {
        const long long primo = da.value_or(1), ultimo = a.value_or(righe);
        if (primo < 1 || ultimo > righe || primo > ultimo)
            throw InputNonValido("Intervallo di schede non valido: da " + std::to_string(primo) + " a " +
                                 std::to_string(ultimo) + " (il sistema ha " + std::to_string(righe) + " schede)");
    }
    int concorsi = 0;
    if (!o.concorsi.empty() && o.concorsi != "1") {
        for (int i = 1; i <= 7; ++i)
            if (o.concorsi == scheda::Concorsi[i]) concorsi = i;
        if (!concorsi)
            throw InputNonValido("Numero di concorsi non valido: \"" + o.concorsi + "\" (1, 2, 3, 4, 5, 6, 9 o 10)");
    }
    if (!o.cooxy.empty() && !std::filesystem::is_regular_file(o.cooxy))
        throw InputNonValido("File della geometria non trovato: " + o.cooxy);

    // The stake labels are written in the locale of the program that saved them.
    for (const std::string& t : s.form2.testi)
        if (t.find(',') != std::string::npos) ImpostaSeparatoreDecimale(',');
    RicostruisciPuntate(s);

    DestinazioneRegistrata carta;
    Form24 f24;
    Form10 f10(s, ui, carta, f24);
    Form11 f11(s, ui, carta);
    f11.fileGeometria = o.cooxy;
    f11.salvaGeometria = false;
    std::vector<std::pair<size_t, int64_t>> inizi;
    bool aperta = false;
    f10.mostraForm11 = [&] {
        aperta = true;
        f11.carica();
        if (da || a) {
            f11.clickOption(1);
            f11.schedeDA = std::to_string(da.value_or(1));
            f11.schedeA = std::to_string(a.value_or(righe));
        }
        if (concorsi) f11.clickOption3(concorsi);
        f11.allaScheda = [&](int64_t n) { inizi.emplace_back(carta.carta.operazioni.size(), n); };
    };
    f10.clickOption(2);
    f10.clickCommand1();
    Rifiuto(ui);
    if (!aperta) return 1;
    // The walk of the window's print button, with its failure told rather than kept quiet.
    carta.stampa(Form11::DocumentoSchedine, Modulo::Schedine,
                 [&](Stampante& st, bool anteprima) { f11.StampaSchede(st, anteprima); });
    if (o.posizioni) std::cout << PosizioniStampate(carta.carta.operazioni, inizi);
    else ScriviPdf(o.pdf, carta.carta.operazioni, Modulo::Schedine);
    return 0;
}

RegistraComando stampa("stampa", [](CLI::App& app) -> Esecuzione {
    auto o = std::make_shared<Opzioni>();
    auto* sub = app.add_subcommand("stampa", "stampa il sistema su tabulato o su schedine (AVVIO DELLA STAMPA)");
    sub->add_option("file", o->file, "sistema .zfr")->required()->check(CLI::ExistingFile);
    auto* tab = sub->add_flag("--tabulato", o->tabulato, "stampa su tabulato");
    auto* sch = sub->add_flag("--schedine", o->schedine, "stampa su schedine, una giocata per scheda");
    tab->excludes(sch);
    sub->add_flag("--pronostico", o->pronostico, "tabulato: sezione PRONOSTICO");
    sub->add_flag("--condizioni", o->condizioni, "tabulato: sezione CONDIZIONI");
    sub->add_flag("--giocate", o->giocate, "tabulato: sezione GIOCATE");
    sub->add_flag("--percentuali", o->percentuali, "tabulato: calcola prima le percentuali di vincita");
    auto* pdf = sub->add_option("--pdf", o->pdf, "scrive la stampa in un file PDF");
    auto* testo = sub->add_flag("--testo", o->testo, "tabulato: stampa le righe come testo");
    auto* posizioni = sub->add_flag("--posizioni", o->posizioni, "schedine: stampa testi e segni con le posizioni");
    pdf->excludes(testo)->excludes(posizioni);
    testo->excludes(posizioni);
    sub->add_option("--da", o->da, "schedine: prima scheda dell'intervallo");
    sub->add_option("--a", o->a, "schedine: ultima scheda dell'intervallo");
    sub->add_option("--concorsi", o->concorsi, "schedine: concorsi di validità (1, 2, 3, 4, 5, 6, 9, 10)");
    sub->add_option("--cooxy", o->cooxy, "schedine: file dei margini e dei passi al posto di cooxy.txt");
    return [o]() {
        if (!o->tabulato && !o->schedine) throw InputNonValido("Indicare --tabulato oppure --schedine");
        if (o->tabulato) {
            if (o->posizioni) throw InputNonValido("--posizioni vale solo con --schedine");
            if (!o->da.empty() || !o->a.empty() || !o->concorsi.empty() || !o->cooxy.empty())
                throw InputNonValido("--da, --a, --concorsi e --cooxy valgono solo con --schedine");
            if (o->pdf.empty() && !o->testo) throw InputNonValido("Indicare --pdf FILE oppure --testo");
        } else {
            if (o->testo) throw InputNonValido("--testo vale solo con --tabulato (per le schedine: --posizioni)");
            if (o->pronostico || o->condizioni || o->giocate || o->percentuali)
                throw InputNonValido("--pronostico, --condizioni, --giocate e --percentuali valgono solo con --tabulato");
            if (o->pdf.empty() && !o->posizioni) throw InputNonValido("Indicare --pdf FILE oppure --posizioni");
        }
        Sistema s;
        Carica(s, o->file);
        if (s.MSFlexGrid1.Rows() == 0) throw InputNonValido("Nessuna giocata presente in memoria!");
        return o->tabulato ? Tabulato(s, *o) : Schedine(s, *o);
    };
});

}  // namespace
}  // namespace zef::cli
