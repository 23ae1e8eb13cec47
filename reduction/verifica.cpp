#include "reduction/verifica.h"

#include "core/basic.h"
#include "core/giocate.h"
#include "core/sistema.h"
#include "reduction/sottoinsiemi.h"

#include <algorithm>

namespace zef {

using riduzione::C;
using riduzione::PerOgniSottoinsieme;

namespace {

// Distinct numbers 1..90 of a row of the list, ascending.
int NumeriRiga(std::string_view riga, uint8_t* v) {
    int m = 0;
    const int posizioni = static_cast<int>((riga.size() + 2) / 3);
    for (int p = 1; p <= posizioni && m < 16; ++p) {
        int n = NumeroInRiga(riga, p);
        if (n >= 1 && n <= 90 && std::find(v, v + m, n) == v + m) v[m++] = static_cast<uint8_t>(n);
    }
    riduzione::OrdinaPochi(v, m);
    return m;
}

const char* NomeTipo(int g) {
    switch (g) {
        case 2: return "l'ambo";
        case 3: return "il terno";
        case 4: return "la quaterna";
        case 5: return "la cinquina";
    }
    return "la garanzia";
}

std::string Colonna(const std::vector<int>& v) {
    std::string t;
    for (size_t i = 0; i < v.size(); ++i) t += (i ? " " : "") + TestoSemplice(v[i]);
    return t;
}

}  // namespace

EsitoVerifica VerificaGaranzia(const Sistema& s, int g, size_t quante) {
    EsitoVerifica e;
    e.controColonne = s.NumRidotte > 0;
    if (g < 2 || g > 5) return e;
    std::vector<uint64_t> coperti((C(90, g) + 63) / 64, 0);
    uint8_t v[16];
    for (int64_t r = 0; r < s.MSFlexGrid1.Rows(); ++r) {
        int m = NumeriRiga(s.MSFlexGrid1.riga(r), v);
        if (m >= g) PerOgniSottoinsieme(v, m, g, [&](uint64_t x) { coperti[x >> 6] |= uint64_t{1} << (x & 63); });
    }
    auto copre = [&](const uint8_t* numeri, int k) {
        bool si = false;
        PerOgniSottoinsieme(numeri, k, g, [&](uint64_t x) { si |= (coperti[x >> 6] >> (x & 63)) & 1; });
        return si;
    };
    auto scoperta = [&](const uint8_t* numeri, int k) {
        ++e.scoperte;
        if (e.prime.size() < quante) e.prime.emplace_back(numeri, numeri + k);
    };
    if (e.controColonne) {
        const int k = s.colonne.k();
        for (int64_t c = 1; c <= s.NumColonne; ++c) {
            const uint8_t* col = s.colonne.colonna(c);
            uint8_t w[16];
            for (int p = 0; p < k && p < 16; ++p) w[p] = col[p];
            riduzione::OrdinaPochi(w, k);
            const int m = static_cast<int>(std::unique(w, w + k) - w);
            ++e.esaminate;
            if (m < g || w[0] < 1 || !copre(w, m)) scoperta(col, k);
        }
        return e;
    }
    const int n = s.NumPronostico;
    std::vector<uint8_t> numeri;
    for (int i = 1; i <= n; ++i) numeri.push_back(static_cast<uint8_t>(s.Pronostico[i]));
    std::sort(numeri.begin(), numeri.end());
    if (g > n) return e;
    int idx[8];
    for (int i = 0; i < g; ++i) idx[i] = i;
    for (;;) {
        uint8_t comb[8];
        for (int i = 0; i < g; ++i) comb[i] = numeri[idx[i]];
        ++e.esaminate;
        if (!copre(comb, g)) scoperta(comb, g);
        int i = g - 1;
        while (i >= 0 && idx[i] == n - g + i) --i;
        if (i < 0) break;
        ++idx[i];
        for (int j = i + 1; j < g; ++j) idx[j] = idx[j - 1] + 1;
    }
    return e;
}

std::string TestoVerifica(const EsitoVerifica& e, int g) {
    const std::string cosa = e.controColonne
                                 ? "le " + TestoSemplice(e.esaminate) + " colonne sviluppate"
                                 : "le " + TestoSemplice(e.esaminate) + " combinazioni di " + TestoSemplice(g) +
                                       " numeri del pronostico";
    if (e.scoperte == 0) return std::string("La lista garantisce ") + NomeTipo(g) + " su tutte " + cosa + ".";
    std::string t = std::string("La lista non garantisce ") + NomeTipo(g) + ": " + TestoSemplice(e.scoperte) +
                    " su " + cosa + " restano scoperte.";
    if (!e.prime.empty()) {
        t += e.scoperte > static_cast<int64_t>(e.prime.size()) ? " Le prime:" : " Sono:";
        for (const auto& v : e.prime) t += "\n" + Colonna(v);
    }
    return t;
}

bool VerificaEMostra(Sistema& s, Interfaccia& ui, int g, EsitoVerifica* esito) {
    if (s.MSFlexGrid1.Rows() == 0) {
        ui.messaggio("Nessuna giocata in lista da verificare.", TitoloVerifica, Icona::Esclamazione);
        return false;
    }
    if (g < 2 || g > 5) {
        ui.messaggio("La garanzia da verificare va da 2 (ambo) a 5 (cinquina).", TitoloVerifica, Icona::Esclamazione);
        return false;
    }
    if (s.NumRidotte == 0 && s.NumPronostico < g) {
        ui.messaggio("Il pronostico ha meno di " + TestoSemplice(g) + " numeri: non c'è nulla da verificare.",
                     TitoloVerifica, Icona::Esclamazione);
        return false;
    }
    ui.clessidra(true);
    EsitoVerifica e = VerificaGaranzia(s, g);
    ui.clessidra(false);
    ui.messaggio(TestoVerifica(e, g), TitoloVerifica, e.scoperte == 0 ? Icona::Informazione : Icona::Esclamazione);
    if (esito) *esito = e;
    return true;
}

bool MenuVerificaGaranzia(Sistema& s, Interfaccia& ui, EsitoVerifica* esito) {
    const int proposta = s.TipoGaranzia >= 2 && s.TipoGaranzia <= 5 ? s.TipoGaranzia : 3;
    auto r = ui.inputBox("Garanzia da verificare (2 ambo, 3 terno, 4 quaterna, 5 cinquina):", TitoloVerifica,
                         TestoSemplice(proposta));
    if (!r) return false;
    return VerificaEMostra(s, ui, static_cast<int>(Val(*r)), esito);
}

}  // namespace zef
