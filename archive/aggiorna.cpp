#include "archive/aggiorna.h"

#include "archive/date.h"
#include "archive/html.h"
#include "core/basic.h"
#include "core/errori.h"

#include <filesystem>
#include <fstream>
#include <optional>

namespace zef {

namespace {

namespace fs = std::filesystem;
using namespace messaggi_aggiornamento;

// A ball of a draw: a whole number 1..90 written in digits; 0 for anything else.
int NumeroPallina(const std::string& testo) {
    size_t i = testo.find_first_not_of(" \t\r\n\xA0");
    size_t j = testo.find_last_not_of(" \t\r\n\xA0");
    if (i == std::string::npos || j - i + 1 > 2) return 0;
    int n = 0;
    for (size_t k = i; k <= j; ++k) {
        if (testo[k] < '0' || testo[k] > '9') return 0;
        n = n * 10 + (testo[k] - '0');
    }
    return n >= 1 && n <= 90 ? n : 0;
}

// Five numbers 1..90, none repeated.
bool RuotaPossibile(const int* n) {
    for (int i = 0; i < 5; ++i) {
        if (n[i] < 1 || n[i] > 90) return false;
        for (int j = 0; j < i; ++j)
            if (n[j] == n[i]) return false;
    }
    return true;
}

std::string togliSpazi(const std::string& s) {
    size_t a = s.find_first_not_of(" \t\r\n\xA0");
    if (a == std::string::npos) return {};
    size_t b = s.find_last_not_of(" \t\r\n\xA0");
    return s.substr(a, b - a + 1);
}

// Every occurrence, left to right, in one pass (as Replace does).
std::string sostituisci(const std::string& s, const std::string& da, const std::string& a) {
    std::string out;
    size_t i = 0;
    while (true) {
        size_t j = s.find(da, i);
        if (j == std::string::npos) break;
        out.append(s, i, j - i);
        out += a;
        i = j + da.size();
    }
    out.append(s, i, std::string::npos);
    return out;
}

std::vector<std::string> dividi(const std::string& s, char sep) {
    std::vector<std::string> out;
    size_t i = 0;
    while (true) {
        size_t j = s.find(sep, i);
        out.push_back(s.substr(i, j == std::string::npos ? std::string::npos : j - i));
        if (j == std::string::npos) break;
        i = j + 1;
    }
    return out;
}

// The progress window frmWait2: shown once, then refreshed.
struct FinestraAttesa {
    Interfaccia& ui;
    StatoAvanzamento stato;
    bool caricata = false;

    explicit FinestraAttesa(Interfaccia& u) : ui(u) {
        stato.titolo = TitoloAttesa;
        stato.etichetta = CornicePredefinita;
    }
    // Max 0 with Min 0 is an invalid value for the bar.
    void limiti(double minimo, double massimo) {
        if (massimo <= minimo) throw ErroreEsecuzione(errori::ValoreProprietaNonValido, "Valore di proprietà non valido");
        stato.minimo = minimo;
        stato.massimo = massimo;
    }
    void valore(double v) {
        stato.valore = v;
        if (caricata) ui.aggiornaAvanzamento(stato);
    }
    void mostra(const std::string& cornice) {
        stato.etichetta = cornice;
        if (caricata) {
            ui.aggiornaAvanzamento(stato);
        } else {
            ui.mostraAvanzamento(stato);
            caricata = true;
        }
    }
    void scarica() {
        if (caricata) ui.chiudiAvanzamento();
        caricata = false;
    }
};

// Step 8 leaves at wheel 11 of a year before 2005; the caller then skips the cleaning.
enum class EsitoCopia { Completa, Interrotta };

EsitoCopia copiaInOrdine(ArchivioEstrazioni& a, FinestraAttesa& attesa, int anno, long& UltimoId) {
    // Oldest first: the page gave the newest the smallest id.
    Cursore tmp = a.OpenRecordset("select * from estrazionitmp order by id desc");
    if (!tmp.Eof()) {
        tmp.MoveLast();
        tmp.MoveFirst();
    }
    Cursore est = a.OpenRecordset("select * from estrazioni order by id");
    if (!est.Eof()) {
        est.MoveLast();
        UltimoId = static_cast<long>(est.campo("id").comeIntero());
        est.MoveFirst();
    }
    while (!tmp.Eof()) {
        // A draw is known by its date alone.
        bool trovata = false;
        if (est.RecordCount() > 0) est.MoveFirst();
        const Valore data = tmp.campo("data");
        const int campoData = est.indiceCampo("data");
        for (long i = 1; i <= est.RecordCount(); ++i) {
            if (est.campo(campoData) == data) {
                trovata = true;
                break;
            }
            est.MoveNext();
        }
        if (!trovata) {
            est.AddNew();
            ++UltimoId;
            est.imposta("id", UltimoId);
            for (int w = 1; w <= NumRuote; ++w) {
                // No draw before 2005 is added: the row is dropped and the rest stays staged.
                if (w == 11 && anno <= 2004) {
                    est.CancelUpdate();
                    return EsitoCopia::Interrotta;
                }
                for (int p = 1; p <= 5; ++p) est.imposta(NomeCampo(w, p), tmp.campo(NomeCampo(w, p)));
            }
            est.imposta("data", data);
            est.Update();
        }
        attesa.valore(attesa.stato.valore + 1);
        tmp.MoveNext();
    }
    tmp.MoveFirst();
    while (!tmp.Eof()) {
        tmp.Delete();
        tmp.MoveNext();
    }
    return EsitoCopia::Completa;
}

// The text path: only taken when a "tmp.txt" has been left in the folder.
void leggiFileDiTesto(ArchivioEstrazioni& a, FinestraAttesa& attesa, const ImpostazioniAggiornamento& imp,
                      const std::string& percorso, int anno, long& UltimoId, int& scartate) {
    long righe = 0;
    {
        std::ifstream f(percorso, std::ios::binary);
        if (!f) throw errori::fileNonTrovato();
        std::string r;
        while (std::getline(f, r)) {
            ++righe;
            if (righe >= 11 && togliSpazi(r).empty()) break;
        }
    }
    attesa.limiti(0, static_cast<double>(righe) * 2);
    attesa.stato.valore = 0;
    attesa.mostra("Aggiornamento anno " + TestoSemplice(anno));

    Cursore tmp = a.OpenRecordset("select * from estrazioniTMP");
    std::ifstream f(percorso, std::ios::binary);
    std::string riga;
    long n = 0;
    while (std::getline(f, riga)) {
        ++n;
        if (!riga.empty() && riga.back() == '\r') riga.pop_back();
        if (riga == imp.intestazione || n <= 2) continue;
        for (const char* run : {"      ", "     ", "    ", "   ", "  "}) riga = sostituisci(riga, run, " ");
        riga = sostituisci(riga, "\t", " ");
        if (togliSpazi(riga).empty()) break;
        std::vector<std::string> token = dividi(riga, ' ');
        auto voce = [&](size_t k) -> const std::string& {
            if (k >= token.size()) throw errori::indiceFuoriIntervallo();
            return token[k];
        };
        tmp.AddNew();
        ++UltimoId;
        tmp.imposta("id", UltimoId);
        bool possibile = true;
        for (int w = 1; w <= NumRuote; ++w) {
            if (w == 11 && anno <= 2004) {
                tmp.CancelUpdate();
                return;  // the rest of the file is not read
            }
            const std::string prefisso = w == 11 ? "NAZIONALE" : PrefissiRuote[w - 1];
            int numeri[5];
            for (int p = 1; p <= 5; ++p) {
                const std::string& t = voce(static_cast<size_t>((w - 1) * 5 + p));
                numeri[p - 1] = NumeroPallina(t);
                tmp.imposta(prefisso + static_cast<char>('0' + p), Valore(t));
            }
            possibile = possibile && RuotaPossibile(numeri);
        }
        // A draw that cannot exist is passed over and its id used by the next.
        if (!possibile) {
            tmp.CancelUpdate();
            --UltimoId;
            ++scartate;
            continue;
        }
        tmp.imposta("data", Valore(voce(0)));
        tmp.Update();
        attesa.valore(attesa.stato.valore + 1);
    }
}

}  // namespace

long ParseEstrNum(const ElementoHtml& e) {
    auto span = e.getElementsByTagName("span");
    if (span.empty()) return -1;
    std::string cifre;
    for (char ch : span[0].innerText())
        if (ch >= '0' && ch <= '9') cifre += ch;
    if (cifre.empty() || cifre.size() > 9) return -1;
    return std::stol(cifre);
}

bool IsDataValida(const std::string& t) { return t.size() == 10 && t[2] == '/' && t[5] == '/'; }

std::string DataToISO(const std::string& t) {
    auto p = dividi(t, '/');
    if (p.size() < 3) throw errori::indiceFuoriIntervallo();
    return p[2] + "-" + p[1] + "-" + p[0];
}

bool EsisteDataLotto(ArchivioEstrazioni& a, const std::string& iso) {
    auto d = DataInIso(iso);
    if (!d) throw errori::tipoNonCorrispondente();
    Cursore c = a.OpenRecordset("SELECT ID FROM estrazioni WHERE data = ?", {Valore(*d)});
    bool esiste = !c.Eof();
    c.Close();
    return esiste;
}

EsitoPagina ParseLottoHTML(ArchivioEstrazioni& a, const std::string& html, int /*anno*/) {
    EsitoPagina esito;
    DocumentoHtml doc(html);
    auto estrazioni = doc.radice().getElementsByClassName("lottoDraws");
    if (estrazioni.empty()) {
        // A page that came (one that did not arrives empty) but shows no draw at all.
        esito.senzaEstrazioni = html.find_first_not_of(" \t\r\n") != std::string::npos;
        return esito;
    }
    Cursore tmp = a.OpenRecordset("select * from EstrazioniTMP");
    long id = 0;
    if (!tmp.Eof()) {
        tmp.MoveLast();
        id = static_cast<long>(tmp.campo("id").comeIntero());
    }
    for (const auto& e : estrazioni) {
        auto forti = e.getElementsByTagName("strong");
        if (forti.empty()) continue;
        std::string testo = togliSpazi(sostituisci(togliSpazi(forti[0].innerText()), "del", ""));
        if (!IsDataValida(testo)) continue;
        std::string iso = DataToISO(testo);
        // Pages list the newest first: what follows a known draw is known too.
        if (EsisteDataLotto(a, iso)) break;
        std::vector<ElementoHtml> righe;
        for (const auto& ul : e.getElementsByTagName("ul"))
            if (ContieneSenzaMaiuscole(ul.className(), "ballRow") && righe.size() < 11) righe.push_back(ul);
        if (righe.size() != 11) continue;
        tmp.AddNew();
        ++id;
        tmp.imposta("id", id);
        tmp.imposta("data", Valore(iso));
        bool completa = true, possibile = true;
        for (int w = 0; w < NumRuote && completa; ++w) {
            int conta = 0;
            int numeri[5] = {};
            for (const auto& li : righe[static_cast<size_t>(w)].getElementsByTagName("li")) {
                if (!ContieneSenzaMaiuscole(li.className(), "ball")) continue;
                ++conta;
                if (conta <= 5) {
                    numeri[conta - 1] = NumeroPallina(li.innerText());
                    tmp.imposta(PrefissiRuote[w] + std::string(1, static_cast<char>('0' + conta)), Valore(numeri[conta - 1]));
                }
            }
            // A wheel without exactly five numbers: the draw is dropped, the id keeps its step.
            if (conta != 5) completa = false;
            // So is one with a number that cannot be drawn, or drawn twice on a wheel.
            else if (!RuotaPossibile(numeri)) possibile = false;
        }
        if (completa && possibile) {
            tmp.Update();
        } else {
            tmp.CancelUpdate();
            if (completa) ++esito.scartate;
        }
    }
    tmp.Close();
    return esito;
}

void AggiornaEstrazioni(ContestoAggiornamento& c) {
    if (!c.impostazioni.completa()) {
        c.ui.messaggio(SenzaSiti, Titolo, Icona::Critico);
        return;
    }
    ArchivioEstrazioni& a = c.archivio;
    FinestraAttesa attesa(c.ui);
    try {
        const int AnnoFine = c.annoCorrente;
        int scartate = 0;
        std::vector<int> anniVuoti;
        long UltimoId = 0;
        // An empty archive starts from the first year of the settings.
        int AnnoInizio = c.impostazioni.annoIniziale;
        {
            Cursore est = a.OpenRecordset("select * from estrazioni order by id");
            if (!est.Eof()) {
                est.MoveLast();
                UltimoId = static_cast<long>(est.campo("id").comeIntero());
                AnnoInizio = AnnoDi(est.campo("data").comeTesto());
                est.MoveFirst();
            }
        }
        // The year of the last stored draw is always fetched again.
        for (int anno = AnnoInizio; anno <= AnnoFine; ++anno) {
            // One transaction a year: a failure leaves the archive as the year found it.
            ArchivioEstrazioni::Transazione transazione(a);
            {
                Cursore tmp = a.OpenRecordset("select * from EstrazioniTMP");
                if (!tmp.Eof()) {
                    tmp.MoveFirst();
                    while (!tmp.Eof()) {
                        tmp.Delete();
                        tmp.MoveNext();
                    }
                }
            }
            attesa.valore(0);
            const std::string scaricato = c.cartella + "/tmp" + TestoSemplice(anno) + ".txt";
            // The first source is always fetched; a failure here aborts the update.
            c.fonte.Scarica(c.impostazioni.url1(anno), scaricato);
            // Kept as found: the test is for a file without the year, which nothing
            // writes, so the result pages are what is normally read.
            std::error_code ec;
            if (!fs::exists(c.cartella + "/tmp.txt", ec)) {
                const EsitoPagina pagina = ParseLottoHTML(a, c.fonte.GetHTML(c.impostazioni.url2(anno)), anno);
                scartate += pagina.scartate;
                if (pagina.senzaEstrazioni) anniVuoti.push_back(anno);
                Cursore tmp = a.OpenRecordset("select * from estrazioniTMP");
                if (!tmp.Eof()) {
                    tmp.MoveLast();
                    attesa.limiti(0, static_cast<double>(tmp.RecordCount()));
                    tmp.MoveFirst();
                } else {
                    attesa.limiti(0, 1);
                }
                attesa.stato.valore = 0;
                attesa.mostra("Aggiornamento anno " + TestoSemplice(anno));
            } else {
                leggiFileDiTesto(a, attesa, c.impostazioni, scaricato, anno, UltimoId, scartate);
            }
            copiaInOrdine(a, attesa, anno, UltimoId);
            transazione.Commit();
            fs::remove(scaricato, ec);
        }
        attesa.scarica();
        c.ui.messaggio(Successo, TitoloSuccesso, Icona::Informazione);
        if (scartate > 0) c.ui.messaggio(EstrazioniScartate(scartate), TitoloSuccesso, Icona::Esclamazione);
        for (int anno : anniVuoti) c.ui.messaggio(PaginaSenzaEstrazioni(anno), TitoloSuccesso, Icona::Esclamazione);
    } catch (const std::exception& e) {
        // From here on the handler passes over its own errors.
        std::error_code ec;
        for (const auto& voce : fs::directory_iterator(c.cartella, ec)) {
            std::string nome = voce.path().filename().string();
            if (nome.rfind("tmp", 0) == 0 && nome.size() >= 7 && nome.compare(nome.size() - 4, 4, ".txt") == 0)
                fs::remove(voce.path(), ec);
        }
        attesa.scarica();
        auto* err = dynamic_cast<const ErroreEsecuzione*>(&e);
        int numero = err ? err->numero : 0;
        if (numero == errori::ValoreProprietaNonValido)
            c.ui.messaggio(NonNecessario, Titolo, Icona::Critico);
        else if (numero != errori::AnnullaDialogo)
            c.ui.messaggio(NonEffettuato, Titolo, Icona::Critico);
    }
}

}  // namespace zef
