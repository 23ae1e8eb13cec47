// zefiranto-cli spoglio: a saved system against one draw (the window's CERCA), or
// against a run of draws (the check over a period); zefiranto-cli vincite: the tally.
#include "archive/archivio.h"
#include "archive/date.h"
#include "cli/comandi.h"
#include "core/csv.h"
#include "core/giocate.h"
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "core/vocabolario.h"
#include "files/filesistema.h"
#include "wincheck/form16.h"
#include "wincheck/form6.h"
#include "wincheck/verifica_periodo.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <filesystem>
#include <iostream>

namespace zef::cli {
namespace {

struct OpzioniSpoglio {
    std::string file, archivio, estrazione, caselle, ruota, giocate, puntate;
    std::string dal, al, ultime, csv;
};

std::unique_ptr<ArchivioEstrazioni> ApriArchivio(const std::string& percorso) {
    try {
        if (percorso.empty()) return ArchivioEstrazioni::ApriPredefinito();
        if (!std::filesystem::is_regular_file(percorso))
            throw InputNonValido("archivio non trovato: " + percorso);
        return std::make_unique<ArchivioEstrazioni>(percorso);
    } catch (const ErroreArchivio& e) {
        throw InputNonValido("archivio non valido: " + percorso + ": " + e.testo());
    }
}

long Intero(const std::string& t, const std::string& opzione, long minimo, long massimo) {
    size_t usati = 0;
    long v = 0;
    try {
        v = std::stol(t, &usati);
    } catch (...) {
        usati = 0;
    }
    if (usati == 0 || usati != t.size() || v < minimo || v > massimo)
        throw InputNonValido("valore non valido per " + opzione + ": \"" + t + "\"");
    return v;
}

std::vector<std::string> Parti(const std::string& t) {
    std::vector<std::string> v;
    std::string corrente;
    for (char c : t) {
        if (c == ',') {
            v.push_back(corrente);
            corrente.clear();
        } else {
            corrente += c;
        }
    }
    v.push_back(corrente);
    return v;
}

// The play settings of the file, changed by the options given.
void ImpostaGiocata(Sistema& s, const OpzioniSpoglio& o) {
    if (!o.ruota.empty()) {
        const long r = Intero(o.ruota, "--ruota", 0, TutteLeRuote);
        s.form2.Option1.fill(false);
        s.form2.Option1[static_cast<size_t>(r)] = true;
    }
    if (!o.giocate.empty()) {
        auto p = Parti(o.giocate);
        if (p.size() != NumSorti) throw InputNonValido("--giocate vuole cinque valori 0 o 1: \"" + o.giocate + "\"");
        for (size_t i = 0; i < NumSorti; ++i) s.form2.Check[i] = static_cast<int>(Intero(p[i], "--giocate", 0, 1));
    }
    if (!o.puntate.empty()) {
        auto p = Parti(o.puntate);
        if (p.size() != NumSorti) throw InputNonValido("--puntate vuole cinque importi: \"" + o.puntate + "\"");
        for (size_t i = 0; i < NumSorti; ++i) {
            Currency c;
            if (!Currency::daTestoPunto(p[i], c) || c < Currency{})
                throw InputNonValido("importo non valido per --puntate: \"" + p[i] + "\"");
            std::string t = p[i];
            for (char& ch : t)
                if (ch == '.') ch = SeparatoreDecimale();
            s.form2.testi[i] = t;
        }
    }
    // Stakes or kinds given here: a row costs the stakes of the kinds played.
    if (!o.giocate.empty() || !o.puntate.empty()) {
        Currency costo;
        for (size_t i = 0; i < NumSorti; ++i)
            if (s.form2.Check[i] == 1) costo += Currency::daTestoLocale(s.form2.testi[i]);
        s.CostoColonna = costo;
    }
}

void CaricaSistema(Sistema& s, const std::string& file) {
    InterfacciaScriptata ui;
    ui.fileApri.push_back(file);
    Apri(s, ui);
    if (!ui.box.empty()) throw InputNonValido(file + ": " + ui.box.back().testo);
    if (s.MSFlexGrid1.Rows() == 0) {
        InterfacciaScriptata vista;
        Visualizza(s, vista);
    }
}

int UnaEstrazione(Sistema& s, const OpzioniSpoglio& o) {
    InterfacciaScriptata ui;
    Form7 f7;
    std::string percorso = o.archivio;
    std::unique_ptr<ArchivioEstrazioni> a;
    if (o.caselle.empty()) {
        a = ApriArchivio(o.archivio);
        percorso = a->percorso();
    }
    Form6 f(s, ui, f7, percorso);
    if (o.caselle.empty()) {
        f.carica();
        if (!f.Data1.aperto() || f.Data1.Recordset().RecordCount() == 0) throw InputNonValido("l'archivio non contiene estrazioni");
        Cursore& rs = f.Data1.Recordset();
        if (!o.estrazione.empty()) {
            const long id = Intero(o.estrazione, "--estrazione", 1, 2147483647L);
            if (!rs.FindFirst("id", Valore(static_cast<int64_t>(id)))) throw InputNonValido("estrazione non trovata: " + o.estrazione);
        }
        // One draw alone: a field the draw lacks is an empty box.
        for (int w = 1; w <= NumRuote; ++w)
            for (int p = 1; p <= 5; ++p) f.Text1[static_cast<size_t>(5 * (w - 1) + p - 1)] = rs.campo(NomeCampo(w, p)).testoOVuoto();
    } else {
        f7.carica();
        f.caricato = true;
        auto p = Parti(o.caselle);
        if (p.size() != NumCaselle) throw InputNonValido("--caselle vuole 55 caselle separate da virgole");
        for (size_t i = 0; i < NumCaselle; ++i) {
            const std::string t = Trim(p[i]);
            if (!t.empty()) Intero(t, "--caselle", 0, 999);
            f.Text1[i] = t;
        }
    }
    f.clickCommand1();
    if (!ui.box.empty()) throw InputNonValido(ui.box.back().testo);
    f.tickTimer1();
    static const char* nomi[NumSorti] = {"Estratti", "Ambi", "Terni", "Quaterne", "Cinquine"};
    std::string out;
    for (size_t i = 0; i < NumSorti; ++i) out += std::string(nomi[i]) + ": " + f.punti[i] + "\n";
    out += "Totale vincita: " + f.lblVincitaTotale + "\n";
    for (size_t i = 0; i < f7.List1.size(); ++i) {
        out += f7.List1[i];
        out += '\n';
    }
    std::cout << out;
    return 0;
}

int Periodo(Sistema& s, const OpzioniSpoglio& o) {
    std::string dal, al;
    if (!o.dal.empty()) {
        auto d = DataInIso(o.dal);
        if (!d || *d != o.dal) throw InputNonValido("data non valida per --dal: \"" + o.dal + "\"");
        dal = *d;
    }
    if (!o.al.empty()) {
        auto d = DataInIso(o.al);
        if (!d || *d != o.al) throw InputNonValido("data non valida per --al: \"" + o.al + "\"");
        al = *d;
    }
    const long ultime = o.ultime.empty() ? 0 : Intero(o.ultime, "--ultime", 1, 100000000L);
    auto a = ApriArchivio(o.archivio);
    auto estrazioni = LeggiEstrazioni(*a, dal, al, ultime);
    if (estrazioni.empty()) throw InputNonValido("nessuna estrazione nel periodo scelto");
    VerificaPeriodo v(s.MSFlexGrid1, GiocataDa(s), s.form2.testi, s.CostoColonna);
    auto esiti = v.Esegui(estrazioni);
    auto t = VerificaPeriodo::Totali(esiti);
    std::string out;
    out.reserve(esiti.size() * 40);
    for (const auto& r : esiti) {
        out += r.data;
        for (auto n : r.vincite) out += "\t" + TestoSemplice(n);
        out += "\t" + r.vincitaTesto + "\n";
    }
    out += "ESTRAZIONI: " + TestoSemplice(t.estrazioni) + "\n";
    out += "SPESA: " + t.spesa.testoDueDecimali() + "\n";
    out += "VINCITA: " + t.vinta.testoDueDecimali() + "\n";
    out += "SALDO: " + t.saldo.testoDueDecimali() + "\n";
    std::cout << out;
    if (!o.csv.empty()) ScriviVerificaCsv(o.csv, esiti);
    return 0;
}

}  // namespace

RegistraComando spoglio("spoglio", [](CLI::App& app) -> Esecuzione {
    auto o = std::make_shared<OpzioniSpoglio>();
    auto* sub = app.add_subcommand("spoglio", "controlla un sistema salvato su un'estrazione o su un periodo");
    sub->add_option("file", o->file, "sistema .zfr")->required()->check(CLI::ExistingFile);
    sub->add_option("--archivio", o->archivio, "archivio.db da usare");
    auto* est = sub->add_option("--estrazione", o->estrazione, "id dell'estrazione (predefinita: l'ultima)");
    auto* cas = sub->add_option("--caselle", o->caselle, "le 55 caselle separate da virgole")->excludes(est);
    sub->add_option("--ruota", o->ruota, "ruota: 0 Bari ... 10 Nazionale, 11 Tutte le ruote");
    sub->add_option("--giocate", o->giocate, "sorti giocate: estratto,ambo,terno,quaterna,cinquina (0 o 1)");
    sub->add_option("--puntate", o->puntate, "puntate delle cinque sorti, col punto (1.00)");
    auto* dal = sub->add_option("--dal", o->dal, "verifica sul periodo: prima data (AAAA-MM-GG)")->excludes(est)->excludes(cas);
    auto* al = sub->add_option("--al", o->al, "verifica sul periodo: ultima data (AAAA-MM-GG)")->excludes(est)->excludes(cas);
    auto* ult = sub->add_option("--ultime", o->ultime, "verifica sulle ultime N estrazioni")->excludes(est)->excludes(cas);
    sub->add_option("--csv", o->csv, "verifica sul periodo: scrive anche la tabella in CSV");
    return [o, dal, al, ult]() {
        Sistema s;
        CaricaSistema(s, o->file);
        ImpostaGiocata(s, *o);
        if (dal->count() || al->count() || ult->count()) return Periodo(s, *o);
        if (!o->csv.empty()) throw InputNonValido("--csv vale solo con --dal, --al o --ultime");
        return UnaEstrazione(s, *o);
    };
});

RegistraComando vincite("vincite", [](CLI::App& app) -> Esecuzione {
    auto archivio = std::make_shared<std::string>();
    auto* sub = app.add_subcommand("vincite", "il totale delle vincite registrate");
    sub->add_option("--archivio", *archivio, "archivio.db da usare");
    return [archivio]() {
        auto a = ApriArchivio(*archivio);
        InterfacciaScriptata ui;
        Form16 f(ui, a->percorso());
        f.carica();
        if (!ui.box.empty()) throw InputNonValido(ui.box.back().testo);
        std::string out;
        for (size_t i = 0; i < f.Text.size(); ++i) out += std::string(Form16::Righe[i]) + ": " + f.Text[i] + "\n";
        out += std::string(Form16::EtichettaVinta) + " " + f.MaskEdBox1 + "\n";
        out += std::string(Form16::EtichettaSpesa) + " " + f.MaskEdBox2 + "\n";
        out += std::string(Form16::EtichettaTotale) + " " + f.MaskEdBox3 + "\n";
        std::cout << out;
        return 0;
    };
});

}  // namespace zef::cli
