#include "reduction/percentuali.h"

#include "core/basic.h"
#include "core/errori.h"
#include "core/giocate.h"
#include "core/sistema.h"

#include <algorithm>
#include <bit>
#include <cstdio>

namespace zef {

namespace {

// h: positions of the row holding a number of the combination.
int Colpiti(const uint8_t* riga, int k, const uint8_t* comb, int L) {
    int h = 0;
    for (int p = 0; p < k; ++p)
        for (int q = 0; q < L; ++q)
            if (riga[p] == comb[q]) {
                ++h;
                break;
            }
    return h;
}

bool Distinti(const uint8_t* v, int n) {
    for (int i = 0; i < n; ++i) {
        if (v[i] < 1 || v[i] > 90) return false;
        for (int j = 0; j < i; ++j)
            if (v[i] == v[j]) return false;
    }
    return true;
}

std::string TestoGaranzia(int tipo, int m, int L) {
    static const char* uno[4] = {"1 CINQUINA CON ", "1 QUATERNA CON ", "1 TERNO CON ", "1 AMBO CON "};
    static const char* due[4] = {"2 CINQUINE CON ", "2 QUATERNE CON ", "2 TERNI CON ", "2 AMBI CON "};
    // many cinquine have no "CON": "PIU' CINQUINE 5 NUMERI"
    static const char* piu[4] = {"PIU' CINQUINE ", "PIU' QUATERNE CON ", "PIU' TERNI CON ", "PIU' AMBI CON "};
    const char* t = m == 1 ? uno[tipo] : m == 2 ? due[tipo] : piu[tipo];
    return t + TestoSemplice(L) + " NUMERI";
}

}  // namespace

void Form8::azzeraStat() {
    for (auto& r : StatVincite) r.fill(0);
}

void Form8::leggiLista() {
    const int k = s_.SviluppoK;
    const int64_t R = s_.MSFlexGrid1.Rows();
    righe_.assign(static_cast<size_t>(R), Riga{});
    for (int64_t r = 0; r < R; ++r) {
        Riga& x = righe_[r];
        std::string_view t = s_.MSFlexGrid1.riga(r);
        for (int p = 1; p <= k && p <= 10; ++p) x.n[p - 1] = static_cast<uint8_t>(NumeroInRiga(t, p));
        x.regolare = Distinti(x.n, std::min(k, 10));
        x.m = MascheraDi(x.n, std::min(k, 10));
    }
    righePerNumero_.clear();
    parole_ = 0;
    const bool tutteRegolari = std::all_of(righe_.begin(), righe_.end(), [](const Riga& x) { return x.regolare; });
    if (tutteRegolari && R > 0 && R <= (int64_t{1} << 20)) {
        parole_ = static_cast<size_t>((R + 63) / 64);
        righePerNumero_.assign(91 * parole_, 0);
        for (int64_t r = 0; r < R; ++r)
            for (int p = 0; p < std::min(k, 10); ++p)
                righePerNumero_[righe_[r].n[p] * parole_ + (r >> 6)] |= uint64_t{1} << (r & 63);
        for (auto& v : conColpi_) v.assign(parole_, 0);
    }
}

namespace {

// Index of the highest set bit over words 0..fino, or -1.
int64_t UltimoBit(const uint64_t* v, size_t fino) {
    for (size_t w = fino + 1; w-- > 0;)
        if (v[w]) return static_cast<int64_t>(w * 64 + 63 - std::countl_zero(v[w]));
    return -1;
}

__attribute__((target_clones("popcnt", "default")))
int Conta(const uint64_t* v, size_t fino, int64_t dopo) {
    // bits above `dopo` (-1: all) over words 0..fino
    int c = 0;
    for (size_t w = 0; w <= fino; ++w) {
        uint64_t x = v[w];
        const int64_t base = static_cast<int64_t>(w) * 64;
        if (dopo >= base + 63) continue;
        if (dopo >= base) x &= ~uint64_t{0} << (dopo - base + 1);
        c += __builtin_popcountll(x);
    }
    return c;
}

}  // namespace

void Form8::valutaPerInsiemi(const uint8_t* comb, int W[6], int G[6]) {
    const size_t P = parole_;
    const uint64_t* insiemi[5];
    for (int q = 0; q < L; ++q) insiemi[q] = &righePerNumero_[comb[q] * P];
    // h of every row as a 3-bit count in (s2 s1 s0), 64 rows at a time.
    size_t fino = P - 1;
    for (size_t w = 0; w < P; ++w) {
        uint64_t s0 = 0, s1 = 0, s2 = 0;
        for (int q = 0; q < L; ++q) {
            const uint64_t x = insiemi[q][w];
            const uint64_t c0 = s0 & x;
            s0 ^= x;
            const uint64_t c1 = s1 & c0;
            s1 ^= c0;
            s2 |= c1;
        }
        conColpi_[5][w] = s2 & ~s1 & s0;
        conColpi_[4][w] = s2 & ~s1 & ~s0;
        conColpi_[3][w] = ~s2 & s1 & s0;
        conColpi_[2][w] = ~s2 & s1 & ~s0;
        const uint64_t interi = conColpi_[L][w];
        if (interi) {
            // the first row holding the whole draw ends the scan: later rows don't count
            const uint64_t fino_a = interi & (~interi + 1);
            const uint64_t tieni = fino_a | (fino_a - 1);
            for (int h = 2; h <= 5; ++h) conColpi_[h][w] &= tieni;
            fino = w;
            break;
        }
    }
    for (int h = 2; h <= 5; ++h) W[h] = Conta(conColpi_[h].data(), fino, -1);
    // A row with a higher win sets the lower kinds to their minimum: what counts is
    // the rows after the last such row.
    G[5] = W[5];
    std::vector<uint64_t>& sopra = conColpi_[0];
    sopra.assign(P, 0);
    for (int h = 4; h >= 2; --h) {
        for (size_t w = 0; w <= fino; ++w) sopra[w] |= conColpi_[h + 1][w];
        const int64_t ultimo = UltimoBit(sopra.data(), fino);
        G[h] = ultimo < 0 ? W[h] : MinimoVincite[5 - h] + Conta(conColpi_[h].data(), fino, ultimo);
    }
}

void Form8::EnumeraPercentuali() {
    Sistema& s = s_;
    const int n = s.NumPronostico;
    int liv[6] = {};
    // The nest of L levels, each from the level above plus 1 up to NumPronostico.
    int l = 1;
    liv[1] = static_cast<int>(s.Liv[1]);
    for (;;) {
        if (liv[l] < n) {
            ++liv[l];
            if (l < L) {
                liv[l + 1] = liv[l];
                ++l;
                continue;
            }
            for (int p = 1; p <= L; ++p) s.NumeriColonna[p] = static_cast<int16_t>(s.Pronostico[liv[p]]);
            ++s.ColonneEsaminate;
            bool ok = true;
            for (int x = 1; x <= L - 1; ++x)
                if (s.NumeriColonna[x + 1] - (s.NumeriColonna[x] + 1) < s.DistanzaMin) ok = false;
            if (ok && s.NumFissi >= 1) {
                int c = 0;
                for (int f = 1; f <= s.NumFissi; ++f) {
                    const int i = f - s.NumeriFissiBase;
                    const int fisso = (i >= 0 && i < static_cast<int>(s.NumeriFissi.size())) ? s.NumeriFissi[i] : 0;
                    for (int p = 1; p <= L; ++p) c += fisso == s.NumeriColonna[p];
                }
                if (c < s.NumFissi) ok = false;
            }
            if (ok) {
                ++s.NumColonne;
                if (s.NumColonne > ColonneTemp.capacita()) throw errori::indiceFuoriIntervallo();
                for (int p = 1; p <= L; ++p) ColonneTemp.set(p, s.NumColonne, static_cast<uint8_t>(s.NumeriColonna[p]));
            }
        } else {
            if (l == 1) break;
            --l;
        }
    }
    s.Liv[1] = liv[1];
}

bool Form8::VisualizzaPercentuali() {
    Sistema& s = s_;
    if (s.NumColonne <= 0 && s.NumRidotte <= 0) {
        ui_.messaggio("Le giocate non sono presenti in memoria, impossibile calcolare le percentuali di vincita.",
                      "Attenzione", Icona::Informazione);
        return false;
    }
    if (s.MSFlexGrid1.Rows() == 0) Visualizza(s, ui_);
    if (s.PercentualiValide) return true;
    s.ContatoreLavoro = s.NumColonne;
    s.ContatorePercentuali = 0;
    s.ColonneEsaminate = 0;
    s.Liv[1] = 0;
    azzeraStat();
    const int16_t R = static_cast<int16_t>(std::min<int64_t>(s.MSFlexGrid1.Rows(), INT16_MAX));
    MinimoVincite.fill(R);
    leggiLista();
    L = 5;
    if (Val(s.Label2) > 35) {
        Risposta r = ui_.messaggio(
            "Il calcolo delle percentuali di vincita con 5 numeri potrebbe richiedere molto tempo.\nProseguire "
            "ugualmente?",
            "ATTENZIONE", Icona::Nessuna, Pulsanti::SiNo);
        if (r != Risposta::Si) L = 4;
    }
    if (L > s.NumPronostico) L = s.NumPronostico;
    s.ContatorePercentuali = 0;
    s.ColonneEsaminate = 0;
    s.NumColonne = 0;
    ui_.clessidra(true);
    s.NumCombinazioni = 1;
    for (int i = 0; i < L; ++i) s.NumCombinazioni = s.NumCombinazioni * (s.NumPronostico - i) / (i + 1);
    ColonneTemp.dimensiona(5, std::max<int64_t>(1, static_cast<int64_t>(s.NumCombinazioni)));
    ui_.clessidra(false);
    s.Liv[1] = 0;
    EnumeraPercentuali();
    s.ColonneEsaminate = 0;
    if (!s.PercentualiValide) {
        s.form8.scarica();
        s.form8.caricato = true;
    }
    s.form8.barraMinimo = 0;
    s.form8.barraMassimo = s.NumColonne;
    s.form8.barraValore = 0;
    return true;
}

void Form8::attiva() {
    Sistema& s = s_;
    s.form8.caricato = true;
    s.form8.titoli = {"Cinquina/e al", "Quaterna/e al", "Terno/i al", "Ambo/i al"};
    if (!s.PercentualiValide) {
        s.form8.barraVisibile = true;
        // a forecast set but not developed opens the window with nothing running
        if (!s.PronosticoNonSviluppato) s.form8.Timer1 = true;
    }
}

void Form8::timer1() {
    Sistema& s = s_;
    const int k = std::min<int>(s.SviluppoK, 10);
    const int64_t R = static_cast<int64_t>(righe_.size());
    int contatore = 0;
    for (;;) {
        ++contatore;
        ++s.ColonneEsaminate;
        if (s.ColonneEsaminate > ColonneTemp.capacita()) throw errori::indiceFuoriIntervallo();
        const uint8_t* comb = ColonneTemp.colonna(s.ColonneEsaminate);
        for (int p = 1; p <= L; ++p) s.NumeriColonna[p] = comb[p - 1];
        ++s.ContatorePercentuali;
        const bool combRegolare = Distinti(comb, L);
        const Maschera mc = MascheraDi(comb, L);
        int W5 = 0, W4 = 0, W3 = 0, W2 = 0;
        int G5 = 0, G4 = 0, G3 = 0, G2 = 0;
        if (combRegolare && parole_ > 0 && L >= 2) {
            int Wh[6] = {}, Gh[6] = {};
            valutaPerInsiemi(comb, Wh, Gh);
            W5 = Wh[5]; W4 = Wh[4]; W3 = Wh[3]; W2 = Wh[2];
            G5 = Gh[5]; G4 = Gh[4]; G3 = Gh[3]; G2 = Gh[2];
            StatVincite[4][2] += W5; StatVincite[3][2] += W4; StatVincite[2][2] += W3; StatVincite[1][2] += W2;
        }
        const bool fatto = combRegolare && parole_ > 0 && L >= 2;
        for (int64_t r = 0; r < (fatto ? 0 : R); ++r) {
            const Riga& x = righe_[r];
            const int h = (combRegolare && x.regolare) ? comuni(x.m, mc) : Colpiti(x.n, k, comb, L);
            switch (h) {
                case 5:
                    ++StatVincite[4][2]; ++W5; ++G5;
                    // a higher win raises the lower kinds to their minimum
                    G4 = MinimoVincite[1]; G3 = MinimoVincite[2]; G2 = MinimoVincite[3];
                    break;
                case 4:
                    ++StatVincite[3][2]; ++W4; ++G4;
                    G3 = MinimoVincite[2]; G2 = MinimoVincite[3];
                    break;
                case 3:
                    ++StatVincite[2][2]; ++W3; ++G3;
                    G2 = MinimoVincite[3];
                    break;
                case 2:
                    ++StatVincite[1][2]; ++W2; ++G2;
                    break;
            }
            if (h == L) break;  // a column holding the whole draw ends the search
        }
        if (W5 > 0) ++StatVincite[4][1];
        else if (W4 > 0) ++StatVincite[3][1];
        else if (W3 > 0) ++StatVincite[2][1];
        else if (W2 > 0) ++StatVincite[1][1];
        const int G[4] = {G5, G4, G3, G2};
        for (int i = 0; i < 4; ++i)
            if (G[i] < MinimoVincite[i]) MinimoVincite[i] = static_cast<int16_t>(G[i]);
        if (s.ColonneEsaminate == s.NumColonne || contatore == 100) break;
    }
    s.form8.barraValore = static_cast<double>(s.ColonneEsaminate);
    if (s.ColonneEsaminate < s.NumColonne) return;
    fineLivello();
}

void Form8::preparaLivello(int nuovoL) {
    Sistema& s = s_;
    s.ContatorePercentuali = 0;
    s.ColonneEsaminate = 0;
    azzeraStat();
    MinimoVincite.fill(static_cast<int16_t>(std::min<size_t>(righe_.size(), INT16_MAX)));
    L = nuovoL;
    s.NumColonne = 0;
    ui_.clessidra(true);
    ColonneTemp.dimensiona(5, Colonne::CapacitaSviluppo);
    ui_.clessidra(false);
    s.Liv[1] = 0;
    s.NumCombinazioni = 1;
    for (int i = 0; i < L; ++i) s.NumCombinazioni = s.NumCombinazioni * (s.NumPronostico - i) / (i + 1);
    EnumeraPercentuali();
    s.form8.barraMassimo = s.NumColonne;
    s.form8.barraValore = 0;
    s.ColonneEsaminate = 0;
}

void Form8::fineLivello() {
    Sistema& s = s_;
    auto& f = s.form8;
    const double c = s.ContatorePercentuali;
    if (s.ContatorePercentuali == 0) {
        ui_.messaggio("Parametri errati, impossibile stabilire le percentuali di vincita.");
        f.Timer1 = false;
        return;
    }
    const double S4 = StatVincite[4][1], S3 = StatVincite[3][1], S2 = StatVincite[2][1], S1 = StatVincite[1][1];
    auto cella = [](double v) {
        std::string t = StrDouble(v).substr(0, 5);
        if (Val(t) > 100) t = "100";
        return t;
    };
    if (s.SviluppoK >= 5) f.Perc[0][L] = cella(100 * S4 / c);
    if (s.SviluppoK >= 4) f.Perc[1][L] = cella(100 * (S4 + S3) / c);
    if (s.SviluppoK >= 3) f.Perc[2][L] = cella(100 * (S4 + S3 + S2) / c);
    f.Perc[3][L] = cella(100 * (S4 + S3 + S2 + S1) / c);
    for (int i = 0; i < 4; ++i)
        if (MinimoVincite[i] > 0) f.Perc[i][L] = "100";
    for (int i = 0; i < 4; ++i) {
        if (MinimoVincite[i] > 0) {
            std::string t = TestoGaranzia(i, MinimoVincite[i], L);
            f.GaranziaMin = t;
            if (f.GaranziaMax == "nessuna") f.GaranziaMax = t;
            break;
        }
    }
    if (L > 2) {
        preparaLivello(L - 1);
        return;
    }
    ColonneTemp.libera();
    s.NumColonne = s.ContatoreLavoro;
    f.barraValore = 0;
    f.barraVisibile = false;
    s.PercentualiValide = true;
    s.PronosticoNonSviluppato = false;
    f.Caption = Titolo;
    f.Timer1 = false;
}

void Form8::scarica() {
    s_.form8.scarica();
    s_.PercentualiValide = false;
}

void Form8::tasto(int codice) {
    Sistema& s = s_;
    s.form8.Timer1 = false;  // any key halts: only ESC and No start it again
    if (codice != 27) return;
    if (ui_.messaggio("Annullare l'elaborazione corrente?", "RICHIESTA", Icona::Nessuna, Pulsanti::SiNo) !=
        Risposta::Si) {
        s.form8.Timer1 = true;
        return;
    }
    if (L > 2) {
        if (ui_.messaggio("Annullare anche le altre elaborazioni?", "RICHIESTA", Icona::Nessuna, Pulsanti::SiNo) !=
            Risposta::Si) {
            preparaLivello(L - 1);  // the cells of the abandoned L stay as they were
            s.form8.Timer1 = true;
            return;
        }
        ColonneTemp.libera();
        s.NumColonne = s.ContatoreLavoro;
        scarica();
        return;
    }
    scarica();  // NumColonne is not put back here
}

void Form8::esegui() {
    while (s_.form8.caricato && s_.form8.Timer1) {
        timer1();
        for (int t : ui_.tastiAvanzamento()) {
            if (!s_.form8.caricato) break;
            tasto(t);
        }
    }
}

void Form8::avviaEdEsegui() {
    if (!VisualizzaPercentuali()) return;
    attiva();
    esegui();
}

}  // namespace zef
