// The plain column filter: the fourteen tests one after another, as written.
#include "conditions/filtra_colonna.h"

#include "core/errori.h"

#include <cmath>

namespace zef {

namespace {
inline bool Pari(int x) { return x == 2 * (x / 2); }

// 14 mean delay and frequency: the frequency limits are joined by "or"
bool RitardoFrequenzaMedia(const Condizioni& c, const int* N, int k) {
    float medie[3] = {};
    for (int j = 1; j <= k; ++j) {
        medie[1] += static_cast<float>(c.ValoriNumeri[N[j]]);
        medie[2] += static_cast<float>(c.RitardiNumeri[N[j]]);
    }
    medie[1] = std::trunc(medie[1] / static_cast<float>(k));
    medie[2] = std::trunc(medie[2] / static_cast<float>(k));
    const auto& R = c.RitardoFrequenza;
    return (medie[2] >= R[1][1] && medie[2] <= R[1][2]) && (medie[1] >= R[2][1] || medie[1] <= R[2][2]);
}
}  // namespace

// 13 parity sequences: `segni` holds five signs, the constant 4 is absolute
bool Sequele(const Condizioni& c, const int* N, int k) {
    int segni[6] = {};
    for (int j = 1; j <= k; ++j) {
        if (j > 5) throw errori::indiceFuoriIntervallo();
        segni[j] = Pari(N[j]) ? 1 : 2;
    }
    for (int s = 1; s <= c.numSequele(); ++s) {
        const int s1 = c.SequelePD[s][1], s2 = c.SequelePD[s][2], s3 = c.SequelePD[s][3];
        const int p = c.SequelePD[s][4];
        int presenze = 0, j = 1;
        while (j < 4) {
            if (segni[j] == s1 && segni[j + 1] == s2 && (s3 == 0 || segni[j + 2] == s3)) {
                ++presenze;
                if (p == 0) --j;
            }
            if (p == 1) {
                if ((s3 != 0 && j < 4) || (s3 == 0 && j < 5)) ++j;
                else break;
            } else if (p == 0 || p == 2) {
                if ((s3 != 0 && j < 3) || (s3 == 0 && j < 5)) j += 2;
                else break;
            } else if (p == 3) {
                if (j < 4) j += 3;
                else break;
            } else {
                break;
            }
        }
        if (presenze + 1 > c.righePresenzeSequele) throw errori::indiceFuoriIntervallo();
        if (!c.PresenzeSequele[s][presenze + 1]) return false;
    }
    return true;
}

// Every failed test refuses the candidate at once: the allowance of RECUPERO is
// never set, so the failure rule cannot let a column through.
bool FiltraColonna(const Condizioni& c, const uint8_t* numeri, const int* livelli, int k) {
    int N[11] = {};  // NumeriColonna(1..k)
    int L[11] = {};
    for (int j = 1; j <= k; ++j) {
        N[j] = numeri[j - 1];
        L[j] = livelli[j - 1];
    }
    const auto& A = c.CondizioneAttiva;

    // 1 fixed numbers
    if (A[1]) {
        for (int i = 1; i <= c.numFissi(); ++i) {
            bool trovato = false;
            for (int j = 1; j <= k; ++j)
                if (N[j] == c.NumeriFissi[i]) {
                    trovato = true;
                    break;
                }
            if (!trovato) return false;
        }
    }
    // 2 number positions: only the value 1 in the state row counts as on
    if (A[11]) {
        for (int i = 1; i <= k; ++i)
            if (c.PosizioniNumeri[i][91] == 1 && c.PosizioniNumeri[i][N[i]] == 0) return false;
    }
    // 3 distance
    if (A[8]) {
        const int mn = c.DistanzaNumeri[1], mx = c.DistanzaNumeri[2];
        for (int i = 1; i <= k - 1; ++i) {
            int d = c.DistanzaNumeri[3] != 0 ? L[i + 1] - L[i] : N[i + 1] - N[i];
            if (d < mn || d > mx) return false;
        }
    }
    // 4 consecutiveness
    if (A[2]) {
        const int mn = c.Consecutivita[1], mx = c.Consecutivita[2], modo = c.Consecutivita[3];
        int cons = 0, maxCons = 0;
        for (int i = 1; i <= k - 1; ++i) {
            if (N[i + 1] == N[i] + 1) {
                ++cons;
                if (maxCons < cons) maxCons = cons;
            } else {
                if (cons > mx) return false;
                if (modo == 0) cons = 0;
            }
        }
        if (cons > mx || maxCons < mn) return false;
    }
    // 5 interruptions
    if (A[3]) {
        int corrente = 0, totale = 0, massimo = 0;
        for (int i = 1; i <= k - 1; ++i) {
            if (N[i + 1] == N[i] + 1) {
                corrente = 0;
            } else {
                ++corrente;
                ++totale;
                if (massimo < corrente) massimo = corrente;
            }
        }
        // element 6 doubles as the run limit, so five interruptions always pass the presence check
        if (c.Interruzioni[totale + 1] == 0 || massimo > c.Interruzioni[6]) return false;
    }
    // 6 parity groups
    if (A[9]) {
        bool stato = false;
        int pari = 0, dispari = 0;
        for (int i = 1; i <= k - 1; ++i) {
            if (Pari(N[i] + N[i + 1])) {
                stato = !stato;
                if (i == k - 1) {
                    if (stato) ++pari;
                    else ++dispari;
                }
            } else {
                if (stato) {
                    ++pari;
                    stato = false;
                } else {
                    ++dispari;
                }
                if (i == k - 1) ++dispari;  // the last number stands alone
            }
        }
        if (!c.GruppiPD[1][pari + 1] || !c.GruppiPD[2][dispari + 1]) return false;
    }
    // 7 filter columns
    if (A[4]) {
        for (int f = 1; f <= c.numFiltri(); ++f) {
            int punti = 0;
            for (int j = 1; j <= k; ++j)
                if (c.ColonneFiltro[f][N[j]]) ++punti;
            if (punti + 1 > c.righePuntiFiltro) throw errori::indiceFuoriIntervallo();
            if (!c.PuntiFiltro[f][punti + 1]) return false;
        }
    }
    // 8 points on archive columns: the most points allowed is never set, so it is 0
    if (A[13]) {
        const int puntiMassimi = 0;
        for (int col = 1; col <= c.numColonneArchivio(); ++col) {
            int punti = 0;
            for (int j = 1; j <= k; ++j)
                if (c.NumeriArchivio[col][N[j]]) ++punti;
            if (punti > puntiMassimi) return false;
        }
    }
    // 9 sections: the last number never closes a run
    if (A[5]) {
        for (int s = 1; s <= c.numSezioni(); ++s) {
            const auto& S = c.Sezioni[s];
            int presenze = 0, consecutivi = 0;
            for (int j = 1; j <= k - 1; ++j) {
                if (N[j] >= S[1] && N[j] <= S[2]) {
                    ++presenze;
                    if (N[j + 1] == N[j] + 1) {
                        ++consecutivi;
                    } else {
                        if (!(S[5] <= consecutivi && consecutivi <= S[6])) return false;
                        consecutivi = 0;
                    }
                }
            }
            if (N[k] >= S[1] && N[k] <= S[2]) ++presenze;
            if (!(S[3] <= presenze && presenze <= S[4])) return false;
        }
    }
    // 10 sum, as a 16-bit value
    if (A[6]) {
        int16_t somma = 0;
        for (int j = 1; j <= k; ++j) somma = static_cast<int16_t>(somma + N[j]);
        if (somma < c.SommaGlobale[1] || somma > c.SommaGlobale[2]) return false;
    }
    // 11 even and odd
    if (A[7]) {
        int pari = 0, dispari = 0, runP = 0, runD = 0, maxP = 0, maxD = 0;
        for (int j = 1; j <= k; ++j) {
            if (Pari(N[j])) {
                ++pari;
                ++runP;
                runD = 0;
                if (maxP < runP) maxP = runP;
            } else {
                ++dispari;
                ++runD;
                runP = 0;
                if (maxD < runD) maxD = runD;
            }
        }
        const auto& P = c.PariDispari;
        if (!(pari >= P[1] && pari <= P[2] && maxP <= P[3] && dispari >= P[4] && dispari <= P[5] && maxD <= P[6]))
            return false;
    }
    // 12 parity interruptions
    if (A[10]) {
        int runP = 0, runD = 0, totale = 0, corrente = 0, massimo = 0;
        for (int j = 1; j <= k; ++j) {
            if (Pari(N[j])) {
                if (runD < 1) {
                    corrente = 0;
                } else {
                    ++totale;
                    ++corrente;
                    if (massimo < corrente) massimo = corrente;
                }
                ++runP;
                runD = 0;
            } else {
                if (runP < 1) {
                    corrente = 0;
                } else {
                    ++totale;
                    ++corrente;
                    if (massimo < corrente) massimo = corrente;
                }
                ++runD;
                runP = 0;
            }
        }
        if (c.InterruzioniPD[totale + 1] == 0 || massimo > c.InterruzioniPD[6]) return false;
    }
    if (A[12] && !Sequele(c, N, k)) return false;
    if (A[15] && !RitardoFrequenzaMedia(c, N, k)) return false;
    return true;
}

}  // namespace zef
