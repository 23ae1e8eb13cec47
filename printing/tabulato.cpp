#include "printing/tabulato.h"

#include "core/basic.h"
#include "core/errori.h"
#include "core/sistema.h"

#include <clocale>
#include <ctime>
#include <locale.h>

namespace zef {
namespace {

const char* const Stelle62 = "    **************************************************************";

// Characters of a UTF-8 text (the broken bar and accented letters are one each).
size_t Caratteri(std::string_view t) {
    size_t n = 0;
    for (unsigned char c : t) n += (c & 0xC0) != 0x80;
    return n;
}

// The first `n` characters of a UTF-8 text.
std::string Primi(std::string_view t, size_t n) {
    size_t i = 0, visti = 0;
    for (; i < t.size(); ++i) {
        if ((static_cast<unsigned char>(t[i]) & 0xC0) != 0x80) {
            if (visti == n) break;
            ++visti;
        }
    }
    return std::string(t.substr(0, i));
}

void Vuote(Stampante& st, int n) {
    for (int i = 0; i < n; ++i) st.rigaVuota();
}

void SezionePronostico(const Sistema& s, Stampante& st) {
    st.stampa("    ************************* PRONOSTICO *************************");
    st.stampa("    Numeri in elenco: " + s.Label2);
    st.rigaVuota();
    for (int r = 1; r <= 9; ++r) st.stampa(RigaTabellaNumeri(s, r));
    st.stampa(Stelle62);
    st.stampa(RigaTipoSistema(s));
    st.rigaVuota();
    st.stampa("     GIOCATE " + s.pannelli[0]);
    st.rigaVuota();
    st.stampa("     GIOCATE " + s.pannelli[1]);
    st.rigaVuota();
    st.stampa("     " + s.pannelli[2]);
    Vuote(st, 2);
    st.stampa("     TIPO DI GIOCATA: " + s.Command2);
}

void TabellaPercentuali(const Sistema& s, Stampante& st) {
    const char* const trattini = "      -----------------------------------------------------------------------";
    const char* const separatore = "     ¦-----------¦--------------¦--------------¦--------------¦--------------¦";
    static const char* const righe[4] = {"     ¦ Cinquina  ¦ ", "     ¦ Quaterna  ¦ ", "     ¦ Terno     ¦ ",
                                         "     ¦ Ambo      ¦ "};
    st.stampa(trattini);
    st.stampa("     ¦ PUNTEGGIO ¦ Con 5 numeri ¦ Con 4 numeri ¦ Con 3 numeri ¦ Con 2 numeri ¦");
    st.stampa(separatore);
    for (int kind = 0; kind < 4; ++kind) {
        if (kind > 0) st.stampa(separatore);
        std::string riga = righe[kind];
        for (int L = 5; L >= 2; --L) {
            const std::string& cella = s.form8.Perc[kind][L];
            riga += cella;
            for (size_t c = Caratteri(cella); c < 12; ++c) riga += ' ';
            riga += " ¦ ";
        }
        st.stampa(riga);
    }
    st.stampa(trattini);
}

void SezioneCondizioni(const Sistema& s, Stampante& st) {
    if (s.DistanzaMin > 0) {
        Vuote(st, 2);
        st.stampa("     Distanza tra coppie numeriche: " + TestoSemplice(s.DistanzaMin));
    }
    if (s.NumFissi >= 1) {
        Vuote(st, 2);
        st.stampa("     Fisse impostate: " + TestoSemplice(s.NumFissi));
        for (int f = 1; f <= s.NumFissi; ++f) {
            // The table may have been cut back by the conditions dialog since.
            const int i = f - s.NumeriFissiBase;
            if (i < 0 || i >= static_cast<int>(s.NumeriFissi.size())) throw errori::indiceFuoriIntervallo();
            st.stampa("     " + TestoSemplice(s.NumeriFissi[i]));
        }
    }
    if (s.PercentualiValide) {
        st.rigaVuota();
        st.stampa("     PERCENTUALI DI VINCITA");
        TabellaPercentuali(s, st);
        st.stampa("     Valori espressi in %.");
        st.rigaVuota();
        st.stampa("     GARANZIA MINIMA: " + s.form8.GaranziaMin);
        st.rigaVuota();
        st.stampa("     GARANZIA MASSIMA: " + s.form8.GaranziaMax);
    }
}

// The whole list is printed again on each round: a list of more than 120 rows
// comes out once per 120 rows, each time from the first row.
void SezioneGiocate(const Sistema& s, Stampante& st) {
    const ListaGiocate& lista = s.MSFlexGrid1;
    const int64_t righe = lista.Rows();
    st.nuovaPagina();
    const int64_t giri = (righe - 1) / tabulato::RighePerGiro;  // truncated: 0 for an empty list
    std::string riga;
    for (int64_t p = 0; p <= giri; ++p) {
        Vuote(st, 3);
        st.stampa("     Giocate ");
        st.rigaVuota();
        for (int64_t j = 0; j <= righe + 2; j += 3) {
            // A row past the end stops the line where it got.
            riga.clear();
            if (j < righe) {
                riga.append("    ").append(lista.riga(j));
                if (j + 1 < righe) riga.append("     ").append(lista.riga(j + 1));
                if (j + 2 < righe) riga.append("     ").append(lista.riga(j + 2));
            }
            st.stampa(riga);
        }
        if (p < giri) st.nuovaPagina();
    }
}

}  // namespace

int64_t RigheSezioneGiocate(int64_t righe) {
    const int64_t giri = (righe - 1) / tabulato::RighePerGiro + 1;
    return giri * (5 + (righe + 2) / 3 + 1);
}

std::string RigaNomeSistema(const std::string& fileName) {
    if (fileName.empty()) return "    NOME DEL SISTEMA: nessuno";
    return "    NOME DEL SISTEMA: " + Primi(fileName, 50);
}

std::string RigaTabellaNumeri(const Sistema& s, int r) {
    std::string riga = "   ";
    for (int n = 10 * r - 9; n <= 10 * r; ++n) {
        if (s.pad[n - 1]) {
            riga += " * ";
            if (n < 10) riga += ' ';
            riga += TestoSemplice(n);
        } else {
            riga += " * --";
        }
    }
    return riga;
}

std::string RigaTipoSistema(const Sistema& s) {
    static const char* const livelli[4] = {"cinquina", "quaterna", "terno", "ambo"};
    const std::string inizio = "     TIPO DI SISTEMA: Ridotto a garanzia ";
    // Every full guarantee is tested before any partial one.
    if (s.GaranziaAttiva)
        for (int o = 0; o < 4; ++o)
            if (s.form5.Option[o]) return inizio + livelli[o] + ".";
    if (!s.GaranziaAttiva)
        for (int o = 0; o < 4; ++o)
            if (s.form5.Option[o]) return inizio + livelli[o] + " non al 100%.";
    return "     TIPO DI SISTEMA: Condizionato senza riduzione.";
}

void StampaTabulato(const Sistema& s, const SezioniTabulato& sezioni, const std::string& data, Stampante& st) {
    st.impostaCarattere(tabulato::Titolo);
    Vuote(st, 2);
    st.stampa("    Zefiranto 2.0");
    st.impostaCarattere(tabulato::Righe);
    st.rigaVuota();
    st.stampa("   Elaboratore di sistemi avanzati per Lotto");
    st.rigaVuota();
    st.stampa("   ***************************************************************");
    st.stampa(RigaNomeSistema(s.FileName));
    st.rigaVuota();
    st.stampa("    DATA DI STAMPA: " + data);
    st.rigaVuota();
    if (sezioni.pronostico) SezionePronostico(s, st);
    st.stampa(Stelle62);
    if (sezioni.condizioni) SezioneCondizioni(s, st);
    if (sezioni.giocate) SezioneGiocate(s, st);
    st.fineDocumento();
}

std::string DataCortaLocale() {
    const std::time_t adesso = std::time(nullptr);
    std::tm t{};
    localtime_r(&adesso, &t);
    char buf[64] = {};
    locale_t loc = newlocale(LC_TIME_MASK, "", static_cast<locale_t>(0));
    if (loc == static_cast<locale_t>(0)) loc = newlocale(LC_TIME_MASK, "C", static_cast<locale_t>(0));
    const size_t n = strftime_l(buf, sizeof buf, "%x", &t, loc);
    freelocale(loc);
    return std::string(buf, n);
}

}  // namespace zef
