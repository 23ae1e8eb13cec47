// The installed filter: the same answers as the plain one, from flat tables, bit
// sets and prefix judgements.
#include "conditions/filtra_colonna.h"

#include "core/errori.h"
#include "core/sistema.h"

#include <algorithm>
#include <cmath>

namespace zef {

// The tests whose verdict hangs only on which numbers follow their neighbour by one
// (`passi`, bit j for number j) or on which numbers are even (`pari`). The last
// number's level asks them twice, once for each way its bit can go.

bool FiltroCondizioni::distanzaOk(const uint8_t* N, const int* L, int i) const {
    const int d = c_.DistanzaNumeri[3] != 0 ? L[i + 1] - L[i] : N[i + 1] - N[i];
    return d >= c_.DistanzaNumeri[1] && d <= c_.DistanzaNumeri[2];
}

bool FiltroCondizioni::consecutivitaOk(unsigned passi, int k) const {
    const int mn = c_.Consecutivita[1], mx = c_.Consecutivita[2];
    if (c_.Consecutivita[3] != 0) {
        // in Totale mode the count only grows, and the longest run equals it
        const int totale = std::popcount(passi);
        return totale <= mx && totale >= mn;
    }
    // Gruppo: each run of steps within max, the longest at least min
    int cons = 0, maxCons = 0;
    for (int i = 1; i < k; ++i) {
        if (passi >> i & 1) {
            if (++cons > maxCons) maxCons = cons;
        } else {
            if (cons > mx) return false;
            cons = 0;
        }
    }
    return cons <= mx && maxCons >= mn;
}

bool FiltroCondizioni::interruzioniOk(unsigned passi, int k) const {
    int corrente = 0, massimo = 0;
    for (int i = 1; i < k; ++i) {
        if (passi >> i & 1) corrente = 0;
        else if (++corrente > massimo) massimo = corrente;
    }
    // Bit 0 is no step (there is no number before the first): the tables built for
    // every pattern set it too, and it must not make the count negative.
    const int totale = k - 1 - std::popcount(passi >> 1);
    return totale >= 0 && (interruzioni_ >> totale & 1) && massimo <= c_.Interruzioni[6];
}

bool FiltroCondizioni::gruppiOk(unsigned pari, int k) const {
    int g[2] = {0, 0};  // groups of even, odd length
    int lunghezza = 1;
    for (int j = 1; j <= k; ++j) {
        if (j < k && ((pari >> j) & 1) == ((pari >> (j - 1)) & 1)) {
            ++lunghezza;
        } else {
            ++g[lunghezza & 1];
            lunghezza = 1;
        }
    }
    return (gruppiPari_ >> g[0] & 1) && (gruppiDispari_ >> g[1] & 1);
}

bool FiltroCondizioni::pariDispariOk(unsigned pari, int k) const {
    const int nPari = std::popcount(pari), nDispari = k - nPari;
    const auto& P = c_.PariDispari;
    if (nPari < P[1] || nPari > P[2] || nDispari < P[4] || nDispari > P[5]) return false;
    int runP = 0, runD = 0, maxP = 0, maxD = 0;
    for (int j = 0; j < k; ++j) {
        if (pari >> j & 1) {
            runD = 0;
            if (++runP > maxP) maxP = runP;
        } else {
            runP = 0;
            if (++runD > maxD) maxD = runD;
        }
    }
    return maxP <= P[3] && maxD <= P[6];
}

bool FiltroCondizioni::interruzioniPDOk(unsigned pari, int k) const {
    // a change of parity between neighbours is an interruption
    const unsigned tutti = (1u << k) - 1;
    const unsigned cambi = (pari ^ (pari >> 1)) & (tutti >> 1);
    const int totale = std::popcount(cambi);
    int corrente = 0, massimo = 0;
    for (int j = 0; j < k - 1; ++j) {
        if (cambi >> j & 1) {
            if (++corrente > massimo) massimo = corrente;
        } else {
            corrente = 0;
        }
    }
    return (interruzioniPD_ >> totale & 1) && massimo <= c_.InterruzioniPD[6];
}

// The mean delay and frequency from the sums over the column, as the plain test
// takes them: float sums of whole numbers are exact, then truncated means.
bool FiltroCondizioni::mediaOk(int sommaValori, int sommaRitardi, int k) const {
    const float frequenza = std::trunc(static_cast<float>(sommaValori) / static_cast<float>(k));
    const float ritardo = std::trunc(static_cast<float>(sommaRitardi) / static_cast<float>(k));
    const auto& R = c_.RitardoFrequenza;
    return (ritardo >= R[1][1] && ritardo <= R[1][2]) && (frequenza >= R[2][1] || frequenza <= R[2][2]);
}

// The last number never closes a run: only its presence counts.
bool FiltroCondizioni::sezioneOk(const Sezione& s, const uint8_t* N, unsigned passi, int k, bool ultimoDentro) const {
    int presenze = ultimoDentro ? 1 : 0, consecutivi = 0;
    for (int j = 0; j < k - 1; ++j) {
        if (N[j] >= s.da && N[j] <= s.a) {
            ++presenze;
            if (passi >> (j + 1) & 1) {
                ++consecutivi;
            } else {
                if (consecutivi < s.cmin || consecutivi > s.cmax) return false;
                consecutivi = 0;
            }
        }
    }
    return presenze >= s.min && presenze <= s.max;
}

// The same tests on a prefix of `len` numbers with `resto` still to come: true
// when every column that starts with it must fail.
bool FiltroCondizioni::prefissoPassiFallisce(unsigned passi, int len, int resto) const {
    if (attiva(2)) {
        const int mx = c_.Consecutivita[2];
        int cons = 0;
        for (int i = 1; i < len; ++i) {
            if (passi >> i & 1) {
                ++cons;
            } else {
                if (cons > mx) return true;
                if (c_.Consecutivita[3] == 0) cons = 0;
            }
        }
        if (cons > mx) return true;  // the run fails at its gap or at the end
    }
    if (attiva(3)) {
        int corrente = 0, totale = 0, massimo = 0;
        for (int i = 1; i < len; ++i) {
            if (passi >> i & 1) {
                corrente = 0;
            } else {
                ++totale;
                if (++corrente > massimo) massimo = corrente;
            }
        }
        if (massimo > c_.Interruzioni[6]) return true;
        bool qualcuno = false;
        for (int t = totale; t <= totale + resto && t <= 10; ++t)
            if (interruzioni_ >> t & 1) qualcuno = true;
        if (!qualcuno) return true;
    }
    return false;
}

bool FiltroCondizioni::prefissoPariFallisce(unsigned pari, int len, int resto) const {
    if (attiva(7)) {
        const auto& P = c_.PariDispari;
        int nPari = 0, runP = 0, runD = 0, maxP = 0, maxD = 0;
        for (int j = 0; j < len; ++j) {
            if (pari >> j & 1) {
                ++nPari;
                runD = 0;
                if (++runP > maxP) maxP = runP;
            } else {
                runP = 0;
                if (++runD > maxD) maxD = runD;
            }
        }
        const int nDispari = len - nPari;
        if (nPari > P[2] || nDispari > P[5] || nPari + resto < P[1] || nDispari + resto < P[4]) return true;
        if (maxP > P[3] || maxD > P[6]) return true;
    }
    if (attiva(10)) {
        int totale = 0, corrente = 0, massimo = 0;
        for (int j = 1; j < len; ++j) {
            if ((pari >> j & 1) != (pari >> (j - 1) & 1)) {
                ++totale;
                if (++corrente > massimo) massimo = corrente;
            } else {
                corrente = 0;
            }
        }
        if (massimo > c_.InterruzioniPD[6]) return true;
        bool qualcuno = false;
        for (int t = totale; t <= totale + resto && t <= 10; ++t)
            if (interruzioniPD_ >> t & 1) qualcuno = true;
        if (!qualcuno) return true;
    }
    return false;
}

// The tests that see only the steps or only the parities, answered once for every
// pattern of every length: a column (resto 0) by the whole tests, a prefix by the
// prefix checks above.
void FiltroCondizioni::costruisciVerdetti() {
    size_t dimensione = 0;
    for (int len = 1; len <= 10; ++len)
        for (int resto = 0; len + resto <= 10; ++resto) {
            inizioVerdetti_[len][resto] = static_cast<uint16_t>(dimensione);
            dimensione += size_t{1} << len;
        }
    rifiutoPassi_.assign(dimensione, 0);
    rifiutoPari_.assign(dimensione, 0);
    for (int len = 1; len <= 10; ++len)
        for (int resto = 0; len + resto <= 10; ++resto) {
            uint8_t* passi = &rifiutoPassi_[inizioVerdetti_[len][resto]];
            uint8_t* pari = &rifiutoPari_[inizioVerdetti_[len][resto]];
            for (unsigned b = 0; b < (1u << len); ++b) {
                if (resto == 0) {
                    passi[b] = static_cast<uint8_t>((attiva(2) && !consecutivitaOk(b, len) ? Rifiuto2 : 0) |
                                                    (attiva(3) && !interruzioniOk(b, len) ? Rifiuto3 : 0));
                    pari[b] = static_cast<uint8_t>((attiva(9) && !gruppiOk(b, len) ? Rifiuto9 : 0) |
                                                   (attiva(7) && !pariDispariOk(b, len) ? Rifiuto7 : 0) |
                                                   (attiva(10) && !interruzioniPDOk(b, len) ? Rifiuto10 : 0));
                } else {
                    passi[b] = prefissoPassiFallisce(b, len, resto) ? Rifiuto2 : 0;
                    pari[b] = prefissoPariFallisce(b, len, resto) ? Rifiuto7 : 0;
                }
            }
        }
}

void FiltroCondizioni::prepara(const Sistema& s) {
    if (sorgente_) c_ = *sorgente_;
    // The fixed numbers live in the sistema's table (shared with the fixed-numbers dialog).
    const int alto = s.NumeriFissiBase + static_cast<int>(s.NumeriFissi.size()) - 1;
    c_.NumeriFissi.assign(1, 0);
    for (int i = 1; i <= alto; ++i) c_.NumeriFissi.push_back(s.NumeriFissi[i - s.NumeriFissiBase]);
    n_ = s.NumPronostico;
    for (int i = 1; i <= n_ && i < static_cast<int>(s.Pronostico.size()) && i <= 90; ++i)
        numero_[i] = static_cast<uint8_t>(s.Pronostico[i]);
    costruisci();
}

void FiltroCondizioni::preparaDa(const Condizioni& c, const std::vector<int>& pronostico, int n) {
    c_ = c;
    n_ = n;
    for (int i = 1; i <= n && i < static_cast<int>(pronostico.size()) && i <= 90; ++i)
        numero_[i] = static_cast<uint8_t>(pronostico[i]);
    costruisci();
}

void FiltroCondizioni::costruisci() {
    sommaPrima_[0] = 0;
    for (int i = 1; i <= 90; ++i) sommaPrima_[i] = sommaPrima_[i - 1] + (i <= n_ ? numero_[i] : 0);

    // The r smallest and largest delays and frequencies over the places from p on.
    for (int p = 1; p <= 91; ++p) {
        int rit[91], val[91], m = 0;
        for (int q = p; q <= n_ && q <= 90; ++q) {
            const int x = numero_[q] <= 90 ? numero_[q] : 0;
            rit[m] = c_.RitardiNumeri[static_cast<size_t>(x)];
            val[m] = c_.ValoriNumeri[static_cast<size_t>(x)];
            ++m;
        }
        std::sort(rit, rit + m);
        std::sort(val, val + m);
        for (int r = 0; r <= 10; ++r) {
            if (r > m) {
                ritardoMin_[p][r] = valoreMin_[p][r] = 1 << 24;
                ritardoMax_[p][r] = valoreMax_[p][r] = -(1 << 24);
                continue;
            }
            int a = 0, b = 0, c = 0, d = 0;
            for (int i = 0; i < r; ++i) {
                a += rit[i];
                b += rit[m - 1 - i];
                c += val[i];
                d += val[m - 1 - i];
            }
            ritardoMin_[p][r] = a;
            ritardoMax_[p][r] = b;
            valoreMin_[p][r] = c;
            valoreMax_[p][r] = d;
        }
    }

    fissi_ = {};
    fissoImpossibile_ = false;
    for (int i = 1; i <= c_.numFissi(); ++i) {
        int x = c_.NumeriFissi[i];
        if (x >= 1 && x <= 90) fissi_.aggiungi(x);
        else fissoImpossibile_ = true;
    }
    for (int p = 1; p <= 10; ++p) {
        posizione_[p] = {};
        posizioneControllata_[p] = c_.PosizioniNumeri[p][91] == 1;
        for (int x = 1; x <= 90; ++x)
            if (c_.PosizioniNumeri[p][x] != 0) posizione_[p].aggiungi(x);
    }
    filtri_.assign(1, {});
    puntiAmmessi_.assign(1, 0);
    maxPuntiFiltro_ = 0;
    for (int f = 1; f <= c_.numFiltri(); ++f) {
        Maschera m;
        for (int x = 1; x <= 90; ++x)
            if (c_.ColonneFiltro[f][x]) m.aggiungi(x);
        filtri_.push_back(m);
        maxPuntiFiltro_ = std::max(maxPuntiFiltro_, m.conta());
        uint16_t b = 0;
        for (int p = 0; p + 1 <= c_.righePuntiFiltro && p <= 10; ++p)
            if (c_.PuntiFiltro[f][p + 1]) b |= uint16_t(1u << p);
        puntiAmmessi_.push_back(b);
    }
    archivio_ = {};
    for (int col = 1; col <= c_.numColonneArchivio(); ++col)
        for (int x = 1; x <= 90; ++x)
            if (c_.NumeriArchivio[col][x]) archivio_.aggiungi(x);
    sezioni_.clear();
    for (int s = 1; s <= c_.numSezioni(); ++s) {
        const auto& S = c_.Sezioni[s];
        sezioni_.push_back({S[1], S[2], S[3], S[4], S[5], S[6]});
    }
    crescente_ = n_ >= 1 && n_ <= 90;
    for (int i = 1; i <= n_ && crescente_; ++i)
        crescente_ = numero_[i] >= 1 && numero_[i] <= 90 && (i == 1 || numero_[i] > numero_[i - 1]);
    std::fill(std::begin(postoDi_), std::end(postoDi_), uint8_t{0});
    postiPari_ = archivioPosti_ = {};
    posizionePosti_.fill({});
    filtriPosti_.assign(filtri_.size(), {});
    for (int v = 91, i = n_; v >= 1; --v) {
        while (i >= 1 && numero_[i] >= v) --i;
        primoDa_[v] = static_cast<uint8_t>(i + 1);
    }
    primoDa_[91] = static_cast<uint8_t>(n_ + 1);
    for (int i = 1; i <= n_ && crescente_; ++i) {
        const int x = numero_[i];
        postoDi_[x] = static_cast<uint8_t>(i);
        if (!(x & 1)) postiPari_.aggiungi(i);
        if (archivio_.contiene(x)) archivioPosti_.aggiungi(i);
        for (int p = 1; p <= 10; ++p)
            if (posizione_[p].contiene(x)) posizionePosti_[p].aggiungi(i);
        for (size_t f = 1; f < filtri_.size(); ++f)
            if (filtri_[f].contiene(x)) filtriPosti_[f].aggiungi(i);
    }
    // The sequences see only the parities: their verdict for every pattern up to five numbers.
    for (int k = 1; k <= 5; ++k)
        for (unsigned pari = 0; pari < (1u << k); ++pari) {
            int M[11] = {};
            for (int j = 1; j <= k; ++j) M[j] = (pari >> (j - 1) & 1) ? 2 : 1;
            try {
                esitoSequele_[k][pari] = Sequele(c_, M, k) ? Accettata : Rifiutata;
            } catch (const ErroreEsecuzione&) {
                esitoSequele_[k][pari] = Errore;
            }
        }
    gruppiPari_ = gruppiDispari_ = interruzioni_ = interruzioniPD_ = 0;
    for (int t = 0; t <= 10; ++t) {
        if (c_.GruppiPD[1][t + 1]) gruppiPari_ |= uint16_t(1u << t);
        if (c_.GruppiPD[2][t + 1]) gruppiDispari_ |= uint16_t(1u << t);
        if (c_.Interruzioni[t + 1] != 0) interruzioni_ |= uint16_t(1u << t);
        if (c_.InterruzioniPD[t + 1] != 0) interruzioniPD_ |= uint16_t(1u << t);
    }
    costruisciVerdetti();
}

bool FiltroCondizioni::accetta(const uint8_t* N, const int* L, int k) const {
    const auto& c = c_;
    // Refusals commute, so the cheapest tests go first, except where a candidate
    // could otherwise run off the points table of the filter columns first.
    if (!(attiva(4) && k >= c.righePuntiFiltro && maxPuntiFiltro_ >= c.righePuntiFiltro)) {
        if (attiva(6)) {
            int somma = 0;
            for (int j = 0; j < k; ++j) somma += N[j];
            if (somma < c.SommaGlobale[1] || somma > c.SommaGlobale[2]) return false;
        }
        if (attiva(7)) {
            int nPari = 0;
            for (int j = 0; j < k; ++j) nPari += !(N[j] & 1);
            const auto& P = c.PariDispari;
            if (nPari < P[1] || nPari > P[2] || k - nPari < P[4] || k - nPari > P[5]) return false;
        }
    }
    Maschera m = MascheraDi(N, k);
    // bit j: number j is a step from the one before; parity bit j: number j is even
    unsigned passi = 0, pari = 0;
    for (int j = 0; j < k; ++j) {
        if (!(N[j] & 1)) pari |= 1u << j;
        if (j && N[j] == N[j - 1] + 1) passi |= 1u << j;
    }

    if (attiva(1)) {
        if (fissoImpossibile_ || (fissi_ & m) != fissi_) return false;
    }
    if (attiva(11)) {
        for (int i = 1; i <= k; ++i)
            if (posizioneControllata_[i] && !posizione_[i].contiene(N[i - 1])) return false;
    }
    if (attiva(8)) {
        for (int i = 0; i < k - 1; ++i)
            if (!distanzaOk(N, L, i)) return false;
    }
    const size_t inizio = inizioVerdetti_[k][0];
    if (rifiutoPassi_[inizio + passi]) return false;  // tests 2 and 3
    if (rifiutoPari_[inizio + pari] & Rifiuto9) return false;
    if (attiva(4)) {
        for (size_t f = 1; f < filtri_.size(); ++f) {
            const int punti = comuni(filtri_[f], m);
            if (punti + 1 > c.righePuntiFiltro) throw errori::indiceFuoriIntervallo();
            if (!(puntiAmmessi_[f] >> punti & 1)) return false;
        }
    }
    if (attiva(13)) {
        if (comuni(archivio_, m) > 0) return false;
    }
    if (attiva(5)) {
        const int x = N[k - 1];
        for (const Sezione& s : sezioni_)
            if (!sezioneOk(s, N, passi, k, x >= s.da && x <= s.a)) return false;
    }
    if (attiva(6)) {
        int somma = 0;
        for (int j = 0; j < k; ++j) somma += N[j];
        if (somma < c.SommaGlobale[1] || somma > c.SommaGlobale[2]) return false;
    }
    if (rifiutoPari_[inizio + pari] & (Rifiuto7 | Rifiuto10)) return false;
    if (attiva(12)) {
        // the signs run off their table from the sixth number on
        if (k > 5) throw errori::indiceFuoriIntervallo();
        const uint8_t esito = esitoSequele_[k][pari];
        if (esito == Errore) throw errori::indiceFuoriIntervallo();
        if (esito == Rifiutata) return false;
    }
    if (attiva(15)) {
        int valori = 0, ritardi = 0;
        for (int j = 0; j < k; ++j) {
            valori += c.ValoriNumeri[N[j]];
            ritardi += c.RitardiNumeri[N[j]];
        }
        if (!mediaOk(valori, ritardi, k)) return false;
    }
    return true;
}


// A prefix is judged only by tests whose verdict it already fixes. Tests from the
// filter columns on judge it only when no candidate could run off the points table
// first; nothing before the sequences can reach that test's failure.
int FiltroCondizioni::scartaPrefisso(const Prefisso& p, int k) const {
    const auto& c = c_;
    const uint8_t* N = p.numeri;
    const int* L = p.livelli;
    const int len = p.lunghezza;
    const int resto = k - len;
    const int ultimo = N[len - 1];
    const int posto = L[len - 1];
    const int prossimo = posto + 1;  // the place the next number comes from at least
    const bool erroreFiltri = attiva(4) && k >= c.righePuntiFiltro && maxPuntiFiltro_ >= c.righePuntiFiltro;
    // past the last place of this level: every following place is refused too
    const int oltre = crescente_ ? n_ + 1 : prossimo;

    // the sum first: the most selective and the cheapest
    if (attiva(6) && !erroreFiltri && resto > 0 && prossimo + resto - 1 <= n_) {
        const int somma = p.somma;
        const int alto = sommaPrima_[n_] - sommaPrima_[n_ - resto];  // the highest places
        const int minimo = somma + sommaPrima_[prossimo + resto - 1] - sommaPrima_[prossimo - 1];
        // the least sum grows with the place: the following places fail as well
        if (minimo > c.SommaGlobale[2]) return oltre;
        if (somma + alto < c.SommaGlobale[1]) {
            // the most sum grows with this number: the first place that reaches the bound
            const int serve = c.SommaGlobale[1] - (somma - ultimo) - alto;
            return !crescente_ ? prossimo : serve > 90 ? oltre : std::max<int>(prossimo, primoDa_[serve]);
        }
    }

    if (attiva(1)) {
        if (fissoImpossibile_) return oltre;
        // a fixed number below the last one of the prefix can no longer come
        Maschera m = MascheraDi(N, len);
        for (int x = 1; x < ultimo; ++x)
            if (fissi_.contiene(x) && !m.contiene(x)) return oltre;
    }
    if (attiva(11)) {
        for (int i = 1; i <= len; ++i)
            if (posizioneControllata_[i] && !posizione_[i].contiene(N[i - 1])) return prossimo;
    }
    if (attiva(8)) {
        const int mn = c.DistanzaNumeri[1], mx = c.DistanzaNumeri[2];
        const bool segni = c.DistanzaNumeri[3] != 0;
        for (int i = 0; i < len - 2; ++i)
            if (!distanzaOk(N, L, i)) return oltre;  // a pair every place of this level shares
        if (len >= 2) {
            // the last pair widens with the place: too wide stays too wide, too close
            // waits for the first place far enough
            const int d = segni ? posto - L[len - 2] : ultimo - N[len - 2];
            if (d > mx) return oltre;
            if (d < mn) {
                if (!crescente_) return prossimo;
                if (segni) return L[len - 2] + mn;
                return N[len - 2] + mn > 90 ? oltre : std::max<int>(prossimo, primoDa_[N[len - 2] + mn]);
            }
        }
        // the next pair is at least as far apart as the next place allows
        if (resto > 0 && prossimo <= n_) {
            int d = segni ? 1 : numero_[prossimo] - ultimo;
            if (d > mx) return prossimo;
        }
    }
    const size_t inizio = inizioVerdetti_[len][resto];
    if (rifiutoPassi_[inizio + p.passi]) return prossimo;
    if (erroreFiltri) return 0;
    if (attiva(13)) {
        if (comuni(archivio_, MascheraDi(N, len)) > 0) return prossimo;
    }
    if (attiva(5)) {
        for (const Sezione& s : sezioni_) {
            int presenze = 0;
            for (int j = 0; j < len; ++j)
                if (N[j] >= s.da && N[j] <= s.a) ++presenze;
            if (presenze > s.max) return prossimo;
        }
    }
    if (rifiutoPari_[inizio + p.pari]) return prossimo;
    // The mean delay and frequency, last of the tests: judged only where the sequences
    // cannot fail first. Out of reach whatever numbers the later places give.
    if (attiva(15) && !attiva(12) && resto > 0 && prossimo + resto - 1 <= n_) {
        int ritardi = 0, valori = 0;
        for (int j = 0; j < len; ++j) {
            ritardi += c.RitardiNumeri[N[j]];
            valori += c.ValoriNumeri[N[j]];
        }
        auto media = [k](int somma) { return std::trunc(static_cast<float>(somma) / static_cast<float>(k)); };
        const auto& R = c.RitardoFrequenza;
        if (media(ritardi + ritardoMin_[prossimo][resto]) > R[1][2]) return prossimo;
        if (media(ritardi + ritardoMax_[prossimo][resto]) < R[1][1]) return prossimo;
        // the frequency fails only strictly between its two limits
        if (media(valori + valoreMin_[prossimo][resto]) > R[2][2] && media(valori + valoreMax_[prossimo][resto]) < R[2][1])
            return prossimo;
    }
    return 0;
}


// No test on: RECUPERO alone never refuses.
bool FiltroCondizioni::accettaTutte() const {
    for (int i = 1; i <= 15; ++i)
        if (i != 14 && attiva(i)) return false;
    return true;
}

Maschera FiltroCondizioni::postiTra(int da, int a) const {
    // the forecast rises, so the numbers of an interval sit on an interval of places
    if (da < 1) da = 1;
    if (a > 90) a = 90;
    if (da > a) return {};
    return Maschera::Intervallo(primoDa_[da], primoDa_[a + 1] - 1);
}

// Each test in its order narrows the places of the last number. Its verdict turns on
// the last number only through its value, its parity and whether it follows the one
// before by one, so each test is asked once or twice on the prefix and gives a set
// of places. The walk must stop where a candidate could run off a table first.
bool FiltroCondizioni::ultimoLivello(const Prefisso& p, int k, int n, Maschera& m) const {
    const auto& c = c_;
    const uint8_t* N = p.numeri;
    const int* L = p.livelli;
    const int posto = L[k - 2], ultimo = N[k - 2];
    m = Maschera::Intervallo(posto + 1, n);
    if (!crescente_ || n != n_) return false;
    const Maschera nessuno{};

    // the place whose number follows the prefix's last by one, and the others
    const int postoPasso = ultimo < 90 ? postoDi_[ultimo + 1] : 0;
    Maschera passo;
    if (postoPasso > posto) passo.aggiungi(postoPasso);
    const Maschera altri = meno(m, passo);
    const Maschera pari = postiPari_ & m, dispari = meno(m, postiPari_);
    auto secondoPasso = [&](bool con, bool senza) { return (con ? passo : nessuno) | (senza ? altri : nessuno); };
    auto secondoParita = [&](bool sePari, bool seDispari) { return (sePari ? pari : nessuno) | (seDispari ? dispari : nessuno); };

    const unsigned passi = p.passi, parita = p.pari;
    const int somma = p.somma;
    const unsigned bit = 1u << (k - 1);
    const Maschera prefisso = attiva(1) || attiva(4) || attiva(13) ? MascheraDi(N, k - 1) : Maschera{};

    if (attiva(1)) {
        const Maschera mancanti = meno(fissi_, prefisso);
        if (fissoImpossibile_ || mancanti.conta() > 1) return m = {}, true;
        if (mancanti.conta() == 1) {
            Maschera solo;
            mancanti.perOgni([&](int x) {
                if (postoDi_[x]) solo.aggiungi(postoDi_[x]);
                return false;
            });
            m = m & solo;
        }
    }
    if (attiva(11)) {
        for (int i = 1; i < k; ++i)
            if (posizioneControllata_[i] && !posizione_[i].contiene(N[i - 1])) return m = {}, true;
        if (posizioneControllata_[k]) m = m & posizionePosti_[k];
    }
    if (attiva(8)) {
        for (int i = 0; i < k - 2; ++i)
            if (!distanzaOk(N, L, i)) return m = {}, true;
        const int mn = c.DistanzaNumeri[1], mx = c.DistanzaNumeri[2];
        if (c.DistanzaNumeri[3] != 0) m = m & Maschera::Intervallo(posto + mn, posto + mx);
        else m = m & postiTra(ultimo + mn, ultimo + mx);
    }
    const size_t inizio = inizioVerdetti_[k][0];
    if (attiva(2) || attiva(3)) m = m & secondoPasso(!rifiutoPassi_[inizio + (passi | bit)], !rifiutoPassi_[inizio + passi]);
    if (attiva(9))
        m = m & secondoParita(!(rifiutoPari_[inizio + (parita | bit)] & Rifiuto9),
                              !(rifiutoPari_[inizio + parita] & Rifiuto9));
    if (m.vuota()) return true;
    if (attiva(4)) {
        for (size_t f = 1; f < filtri_.size(); ++f) {
            const int punti = comuni(filtri_[f], prefisso);
            const Maschera dentro = filtriPosti_[f];
            // a candidate still here may reach a points count past the table
            if (punti + 1 > c.righePuntiFiltro) return false;
            if (punti + 2 > c.righePuntiFiltro && !(m & dentro).vuota()) return false;
            const bool fuoriOk = puntiAmmessi_[f] >> punti & 1, dentroOk = puntiAmmessi_[f] >> (punti + 1) & 1;
            m = m & ((fuoriOk ? meno(m, dentro) : nessuno) | (dentroOk ? dentro : nessuno));
        }
    }
    if (attiva(13)) {
        if (comuni(archivio_, prefisso) > 0) return m = {}, true;
        m = meno(m, archivioPosti_);
    }
    if (attiva(5)) {
        for (const Sezione& sz : sezioni_) {
            const Maschera dentro = postiTra(sz.da, sz.a);
            Maschera ok;
            if (!altri.vuota()) {
                if (sezioneOk(sz, N, passi, k, true)) ok = ok | (altri & dentro);
                if (sezioneOk(sz, N, passi, k, false)) ok = ok | meno(altri, dentro);
            }
            if (!passo.vuota() && sezioneOk(sz, N, passi | bit, k, ultimo + 1 >= sz.da && ultimo + 1 <= sz.a))
                ok = ok | passo;
            m = m & ok;
        }
    }
    if (attiva(6)) {
        m = m & postiTra(c.SommaGlobale[1] - somma, c.SommaGlobale[2] - somma);
    }
    if (attiva(7) || attiva(10))
        m = m & secondoParita(!(rifiutoPari_[inizio + (parita | bit)] & (Rifiuto7 | Rifiuto10)),
                              !(rifiutoPari_[inizio + parita] & (Rifiuto7 | Rifiuto10)));
    if (m.vuota()) return true;
    if (attiva(12)) {
        if (k > 5) return false;  // every candidate still here runs off the signs' table
        const uint8_t conPari = esitoSequele_[k][parita | bit], conDispari = esitoSequele_[k][parita];
        if ((conPari == Errore && !(m & pari).vuota()) || (conDispari == Errore && !(m & dispari).vuota()))
            return false;
        m = m & secondoParita(conPari == Accettata, conDispari == Accettata);
    }
    if (attiva(15)) {
        int valori = 0, ritardi = 0;
        for (int j = 0; j < k - 1; ++j) {
            valori += c.ValoriNumeri[N[j]];
            ritardi += c.RitardiNumeri[N[j]];
        }
        Maschera ok;
        m.perOgni([&](int q) {
            const int x = numero_[q];
            if (mediaOk(valori + c.ValoriNumeri[x], ritardi + c.RitardiNumeri[x], k)) ok.aggiungi(q);
            return true;
        });
        m = ok;
    }
    return true;
}

}  // namespace zef
