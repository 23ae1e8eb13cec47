// Condition files: a JSON object whose keys name controls of the dialog. Loading
// checks the whole file first, then sets the controls as a user would (list entries
// added with their add buttons, positions stored as the spin button stores them)
// and accepts. A key left out keeps the control's start value.
#include "conditions/form28.h"

#include "core/basic.h"

#include <nlohmann/json.hpp>

#include <fstream>
#include <set>

namespace zef {

namespace {

using json = nlohmann::json;

struct FileNonValido {
    std::string motivo;
};

const char* TitoloErrore = "Condizioni";

void Richiedi(bool ok, const std::string& motivo) {
    if (!ok) throw FileNonValido{motivo};
}

std::vector<int> Bit(const json& j, const char* chiave, size_t quanti) {
    const json& v = j.at(chiave);
    Richiedi(v.is_array() && v.size() == quanti,
             std::string("\"") + chiave + "\" deve essere una lista di " + std::to_string(quanti) + " valori 0/1");
    std::vector<int> r;
    for (const auto& x : v) {
        Richiedi(x.is_number_integer() && (x == 0 || x == 1), std::string("\"") + chiave + "\": ammessi solo 0 e 1");
        r.push_back(x.get<int>());
    }
    return r;
}

std::string Testo(const json& v, const std::string& chiave) {
    Richiedi(v.is_string(), "\"" + chiave + "\" deve essere un testo");
    return v.get<std::string>();
}

bool SoloCifre(const std::string& t) {
    for (char c : t)
        if (c < '0' || c > '9') return false;
    return true;
}

const std::vector<std::string> CampiTesto = {
    "txtPariMin", "txtPariMax", "txtPariCons", "txtDispariMin", "txtDispariMax", "txtDispariCons",
    "txtDistanzaMin", "txtDistanzaMax", "txtNcolonne", "txtRitardoMin", "txtRitardoMax", "txtFrequenzaMin",
    "txtFrequenzaMax", "txtUltimeEstrazioni"};

bool CampoLibero(const std::string& c) { return c.rfind("txtRitardo", 0) == 0 || c.rfind("txtFrequenza", 0) == 0; }

// Checks the file against the dialog as it stands; the edits are collected, not applied.
void Controlla(const json& j, const Form28& f, const std::vector<int>& pronostico) {
    Richiedi(j.is_object(), "il file deve contenere un oggetto JSON");
    static const std::set<std::string> note = {
        "chkAttivo", "fisse", "Combo1", "Combo2", "Combo3", "Combo5", "Combo6", "Combo7", "Combo9", "Combo10",
        "Check1", "chkInterruzioniPD", "chkGruppiPari", "chkGruppiDispari", "txtSomma", "colonneFiltro", "sezioni",
        "sequele", "posizioni", "txtPariMin", "txtPariMax", "txtPariCons", "txtDispariMin", "txtDispariMax",
        "txtDispariCons", "txtDistanzaMin", "txtDistanzaMax", "txtNcolonne", "txtRitardoMin", "txtRitardoMax",
        "txtFrequenzaMin", "txtFrequenzaMax", "txtUltimeEstrazioni"};
    for (auto it = j.begin(); it != j.end(); ++it) Richiedi(note.count(it.key()), "chiave sconosciuta \"" + it.key() + "\"");
    auto nelPronostico = [&](const json& x, const std::string& dove) {
        Richiedi(x.is_number_integer(), "\"" + dove + "\": i numeri devono essere interi");
        int n = x.get<int>();
        bool c = false;
        for (int p : pronostico) c = c || p == n;
        Richiedi(c, "\"" + dove + "\": il numero " + std::to_string(n) + " non è nel pronostico");
    };
    if (j.contains("chkAttivo")) Bit(j, "chkAttivo", 15);
    if (j.contains("fisse")) {
        Richiedi(j["fisse"].is_array() && j["fisse"].size() <= 5, "\"fisse\": una lista di al massimo 5 numeri");
        for (const auto& x : j["fisse"]) nelPronostico(x, "fisse");
    }
    for (int n : {1, 2, 3, 5, 6, 7, 9, 10}) {
        std::string k = "Combo" + std::to_string(n);
        if (!j.contains(k)) continue;
        // Conditions set from the archive may leave Combo7 with no choice (-1).
        const int minimo = n == 7 ? -1 : 0;
        Richiedi(j[k].is_number_integer() && j[k] >= minimo && j[k] < static_cast<int>(Form28::voci(n).size()),
                 "\"" + k + "\": indice fuori dalla lista (" + std::to_string(minimo) + ".." +
                     std::to_string(Form28::voci(n).size() - 1) + ")");
    }
    if (j.contains("Check1")) Bit(j, "Check1", 6);
    if (j.contains("chkInterruzioniPD")) Bit(j, "chkInterruzioniPD", 6);
    if (j.contains("chkGruppiPari")) Bit(j, "chkGruppiPari", 4);
    if (j.contains("chkGruppiDispari")) Bit(j, "chkGruppiDispari", 7);
    if (j.contains("txtSomma")) {
        Richiedi(j["txtSomma"].is_array() && j["txtSomma"].size() == 2, "\"txtSomma\" deve essere una lista di 2 testi");
        for (const auto& x : j["txtSomma"]) Richiedi(SoloCifre(Testo(x, "txtSomma")), "\"txtSomma\": solo cifre");
    }
    for (const auto& c : CampiTesto)
        if (j.contains(c)) {
            std::string t = Testo(j[c], c);
            Richiedi(CampoLibero(c) || SoloCifre(t), "\"" + c + "\": solo cifre");
        }
    if (j.contains("colonneFiltro")) {
        Richiedi(j["colonneFiltro"].is_array(), "\"colonneFiltro\" deve essere una lista");
        for (const auto& e : j["colonneFiltro"]) {
            Richiedi(e.is_object() && e.contains("numeri") && e["numeri"].is_array(),
                     "\"colonneFiltro\": ogni voce ha \"numeri\" e \"punti\"");
            for (const auto& x : e["numeri"]) nelPronostico(x, "colonneFiltro");
            Bit(e, "punti", 6);
        }
    }
    if (j.contains("sezioni")) {
        Richiedi(j["sezioni"].is_array(), "\"sezioni\" deve essere una lista");
        for (const auto& e : j["sezioni"]) {
            Richiedi(e.is_object(), "\"sezioni\": ogni voce è un oggetto");
            for (const char* k : {"da", "a", "min", "max", "cmin", "cmax"})
                if (e.contains(k)) Richiedi(SoloCifre(Testo(e[k], std::string("sezioni.") + k)), "\"sezioni\": solo cifre");
        }
    }
    if (j.contains("sequele")) {
        Richiedi(j["sequele"].is_array(), "\"sequele\" deve essere una lista");
        for (const auto& e : j["sequele"]) {
            Richiedi(e.is_object() && e.contains("segni") && e["segni"].is_array() && e["segni"].size() == 3,
                     "\"sequele\": \"segni\" è una lista di 3 testi");
            for (const auto& x : e["segni"]) {
                std::string t = Testo(x, "sequele.segni");
                Richiedi(t.empty() || t == "P" || t == "D", "\"sequele\": i segni sono \"P\", \"D\" o \"\"");
            }
            if (e.contains("passo"))
                Richiedi(e["passo"].is_number_integer() && e["passo"] >= 0 && e["passo"] <= 3,
                         "\"sequele\": il passo va da 0 (N) a 3");
            if (e.contains("presenze")) Bit(e, "presenze", 6);
        }
    }
    if (j.contains("posizioni")) {
        Richiedi(j["posizioni"].is_array(), "\"posizioni\" deve essere una lista");
        for (const auto& e : j["posizioni"]) {
            Richiedi(e.is_object() && e.contains("posizione") && e["posizione"].is_number_integer() &&
                         e["posizione"] >= 1 && e["posizione"] <= 10,
                     "\"posizioni\": la posizione va da 1 a 10");
            if (e.contains("attivo"))
                Richiedi(e["attivo"] == 0 || e["attivo"] == 1, "\"posizioni\": \"attivo\" vale 0 o 1");
            if (e.contains("numeri")) {
                Richiedi(e["numeri"].is_array(), "\"posizioni\": \"numeri\" è una lista");
                // A place may allow numbers the forecast lacks: they let nothing through.
                for (const auto& x : e["numeri"])
                    Richiedi(x.is_number_integer() && x >= 1 && x <= 90, "\"posizioni\": i numeri vanno da 1 a 90");
            }
        }
    }
    (void)f;
}

void Applica(const json& j, Form28& f) {
    if (j.contains("chkAttivo")) {
        auto b = Bit(j, "chkAttivo", 15);
        for (int i = 0; i < 15; ++i) f.chkAttivo[i] = b[i];
    }
    if (j.contains("fisse"))
        for (const auto& x : j["fisse"]) {
            const std::string t = TestoSemplice(x.get<int>());
            for (size_t i = 0; i < f.List1.size(); ++i)
                if (f.List1[i] == t && !f.List1Spuntato[i]) {
                    f.spuntaList1(static_cast<int>(i), true);
                    break;
                }
        }
    int* combo[] = {nullptr, &f.Combo1, &f.Combo2, &f.Combo3, nullptr, &f.Combo5, &f.Combo6, &f.Combo7, nullptr,
                    &f.Combo9, &f.Combo10};
    for (int n : {1, 2, 3, 5, 6, 7, 9, 10}) {
        std::string k = "Combo" + std::to_string(n);
        if (j.contains(k)) *combo[n] = j[k].get<int>();
    }
    auto bits = [&](const char* k, auto& arr) {
        if (!j.contains(k)) return;
        auto b = Bit(j, k, arr.size());
        for (size_t i = 0; i < arr.size(); ++i) arr[i] = b[i];
    };
    bits("Check1", f.Check1);
    bits("chkInterruzioniPD", f.chkInterruzioniPD);
    bits("chkGruppiPari", f.chkGruppiPari);
    bits("chkGruppiDispari", f.chkGruppiDispari);
    // fields that limit each other are all typed first, then left
    if (j.contains("txtSomma")) {
        f.txtSomma = {j["txtSomma"][0].get<std::string>(), j["txtSomma"][1].get<std::string>()};
        f.esci("txtSomma(0)");
        f.esci("txtSomma(1)");
    }
    for (const auto& c : CampiTesto)
        if (j.contains(c)) {
            std::string t = j[c].get<std::string>();
            if (CampoLibero(c))
                for (char& ch : t) f.tasto(c, ch);  // "." typed becomes ","
            *f.campo(c) = t;
        }
    for (const auto& c : CampiTesto)
        if (j.contains(c)) f.esci(c);
    if (j.contains("colonneFiltro"))
        for (const auto& e : j["colonneFiltro"]) {
            f.clickCommand5();
            for (const auto& x : e["numeri"]) f.clickNumeroCF(x.get<int>() - 1, 1);
            auto p = Bit(e, "punti", 6);
            for (int i = 0; i < 6; ++i) f.chkPuntiCF[i] = p[i];
            f.clickCommand1();
        }
    if (j.contains("sezioni"))
        for (const auto& e : j["sezioni"]) {
            const std::pair<const char*, const char*> campi[] = {{"da", "txtSezioneDa"},   {"a", "txtSezioneA"},
                                                                 {"min", "txtSezioneMin"}, {"max", "txtSezioneMax"},
                                                                 {"cmin", "txtSezioneCMin"}, {"cmax", "txtSezioneCMax"}};
            for (auto [k, nome] : campi)
                if (e.contains(k)) *f.campo(nome) = e[k].get<std::string>();
            for (auto [k, nome] : campi) f.esci(nome);
            f.clickCommand10();
        }
    if (j.contains("sequele"))
        for (const auto& e : j["sequele"]) {
            for (int i = 0; i < 3; ++i) f.Command11[i] = e["segni"][i].get<std::string>();
            f.Combo8 = e.value("passo", 1);
            std::vector<int> p(6, 0);
            if (e.contains("presenze")) p = Bit(e, "presenze", 6);
            for (int i = 0; i < 6; ++i) f.Check2[i] = p[i];
            f.clickCommand15();
        }
    if (j.contains("posizioni"))
        for (const auto& e : j["posizioni"]) {
            f.txtPosizioni = TestoSemplice(e["posizione"].get<int>());
            f.cambiaTxtPosizioni();
            f.Check18.fill(0);
            if (e.contains("numeri"))
                for (const auto& x : e["numeri"]) f.clickCheck18(x.get<int>() - 1, 1);
            f.Check20 = e.value("attivo", 0);
            // stored as the spin button stores a position when it moves off it
            const bool su = e["posizione"].get<int>() < 10;
            f.upDown10(su);
        }
}

}  // namespace

bool CaricaCondizioniJson(const std::string& percorso, Form28& f, Interfaccia& ui) {
    json j;
    try {
        std::ifstream in(percorso);
        if (!in) throw FileNonValido{"impossibile aprire il file " + percorso};
        try {
            j = json::parse(in);
        } catch (const json::parse_error&) {
            throw FileNonValido{"il file non è in formato JSON"};
        }
        std::vector<int> pronostico;
        for (size_t i = 0; i < f.List1.size(); ++i) pronostico.push_back(static_cast<int>(Val(f.List1[i])));
        Controlla(j, f, pronostico);
    } catch (const FileNonValido& e) {
        ui.messaggio("File delle condizioni non valido: " + e.motivo + ".", TitoloErrore, Icona::Critico);
        return false;
    } catch (const json::exception& e) {
        ui.messaggio("File delle condizioni non valido: un valore non è del tipo atteso.", TitoloErrore, Icona::Critico);
        return false;
    }
    Applica(j, f);
    f.CliccaAccetta();
    return true;
}

bool SalvaCondizioniJson(const std::string& percorso, const Form28& f, Interfaccia& ui) {
    json j;
    j["chkAttivo"] = f.chkAttivo;
    json fisse = json::array();
    for (size_t i = 0; i < f.List1.size(); ++i)
        if (f.List1Spuntato[i]) fisse.push_back(static_cast<int>(Val(f.List1[i])));
    j["fisse"] = fisse;
    j["Combo1"] = f.Combo1;
    j["Combo2"] = f.Combo2;
    j["Combo3"] = f.Combo3;
    j["Combo5"] = f.Combo5;
    j["Combo6"] = f.Combo6;
    j["Combo7"] = f.Combo7;
    j["Combo9"] = f.Combo9;
    j["Combo10"] = f.Combo10;
    j["Check1"] = f.Check1;
    j["chkInterruzioniPD"] = f.chkInterruzioniPD;
    j["chkGruppiPari"] = f.chkGruppiPari;
    j["chkGruppiDispari"] = f.chkGruppiDispari;
    j["txtSomma"] = f.txtSomma;
    Form28& g = const_cast<Form28&>(f);
    for (const auto& c : CampiTesto) j[c] = *g.campo(c);
    auto c = f.condizioni();
    json filtri = json::array();
    for (int k = 1; k <= c->numFiltri(); ++k) {
        json numeri = json::array(), punti = json::array();
        for (int x = 1; x <= 90; ++x)
            if (c->ColonneFiltro[k][x]) numeri.push_back(x);
        for (int p = 1; p <= 6; ++p) punti.push_back(c->PuntiFiltro[k][p] ? 1 : 0);
        filtri.push_back({{"numeri", numeri}, {"punti", punti}});
    }
    j["colonneFiltro"] = filtri;
    // sections from the entry texts, as they were typed
    json sezioni = json::array();
    for (const auto& voce : f.List3) {
        char da[16], a[16], mn[16], mx[16], cmn[16], cmx[16];
        if (std::sscanf(voce.c_str(), "Da %15s a %15[^,], min %15s max %15[^,], c.min %15s c.max %15s", da, a, mn, mx,
                        cmn, cmx) == 6)
            sezioni.push_back({{"da", da}, {"a", a}, {"min", mn}, {"max", mx}, {"cmin", cmn}, {"cmax", cmx}});
    }
    j["sezioni"] = sezioni;
    json sequele = json::array();
    for (int k = 1; k <= c->numSequele(); ++k) {
        json segni = json::array(), pres = json::array();
        for (int i = 1; i <= 3; ++i) segni.push_back(c->SequelePD[k][i] == 1 ? "P" : c->SequelePD[k][i] == 2 ? "D" : "");
        for (int p = 1; p <= 6; ++p) pres.push_back(c->PresenzeSequele[k][p] ? 1 : 0);
        sequele.push_back({{"segni", segni}, {"passo", c->SequelePD[k][4]}, {"presenze", pres}});
    }
    j["sequele"] = sequele;
    json posizioni = json::array();
    for (int p = 1; p <= 10; ++p) {
        json numeri = json::array();
        bool qualcosa = c->PosizioniNumeri[p][91] != 0;
        for (int x = 1; x <= 90; ++x)
            if (c->PosizioniNumeri[p][x]) {
                numeri.push_back(x);
                qualcosa = true;
            }
        if (qualcosa) posizioni.push_back({{"posizione", p}, {"attivo", c->PosizioniNumeri[p][91] == 1 ? 1 : 0}, {"numeri", numeri}});
    }
    j["posizioni"] = posizioni;
    std::ofstream out(percorso);
    if (!out) {
        ui.messaggio("Impossibile scrivere il file " + percorso + ".", TitoloErrore, Icona::Critico);
        return false;
    }
    out << j.dump(2) << '\n';
    return static_cast<bool>(out);
}

}  // namespace zef
