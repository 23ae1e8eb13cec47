// The load of "Parametri delle colonne in archivio" written out plainly, step by step,
// as the reference the fast measuring is held to: recordsets taken by id as the SQL
// text takes them, a bubble sort of the column, and for every column the two passes
// over the last draws up to it, read row by row.
#pragma once

#include "archive/fonte_estrazioni.h"
#include "conditions/misura_colonne.h"
#include "core/errori.h"

#include <array>
#include <cmath>
#include <vector>

namespace zef::prova {

// "select * from estrazioni where id <= X order by id"
inline std::vector<const EstrazioneLetta*> FinoAId(const std::vector<EstrazioneLetta>& archivio, long x) {
    std::vector<const EstrazioneLetta*> rs;
    for (const auto& e : archivio)
        if (e.id <= x) rs.push_back(&e);
    return rs;
}

// A field read into a table index: null is "invalid use of Null", outside 0..90 a subscript error.
inline int Campo(const EstrazioneLetta& e, int ruota, int p) {
    const int v = e.numero(ruota, p);
    if (v == 0) throw errori::usoNonValidoNull();
    if (v < 0 || v > 90) throw errori::indiceFuoriIntervallo();
    return v;
}

inline std::vector<int> RuotePassata(int w) {
    if (w == 12) return {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    return {w};
}

// ElaboraFrequenze(id, n): ValoriNumeri over the last n + 1 draws up to id.
inline std::array<int, 91> ElaboraFrequenzeLetterale(const std::vector<EstrazioneLetta>& archivio, long id, long n, int w) {
    std::array<int, 91> ValoriNumeri{};
    const auto rs = FinoAId(archivio, id);
    const long RC = static_cast<long>(rs.size());
    try {
        for (int r : RuotePassata(w)) {
            if (RC == 0) throw errori::nessunRecordCorrente();  // MoveFirst on no rows
            long cursore = 0 + (RC - n - 1);                     // Move RC - n - 1
            for (long i = RC - n; i <= RC; ++i) {
                if (cursore < 0 || cursore >= RC) throw errori::nessunRecordCorrente();
                for (int p = 1; p <= 5; ++p) ValoriNumeri[Campo(*rs[cursore], r, p)] += 1;
                ++cursore;
            }
        }
    } catch (const ErroreEsecuzione&) {
    }
    return ValoriNumeri;
}

// ElaboraRitardi(id, n): RitardiNumeri, not cleared between the wheels of "Tutte".
inline std::array<int, 91> ElaboraRitardiLetterale(const std::vector<EstrazioneLetta>& archivio, long id, long n, int w) {
    std::array<int, 91> RitardiNumeri{};
    const auto rs = FinoAId(archivio, id);
    const long RC = static_cast<long>(rs.size());
    try {
        for (int r : RuotePassata(w)) {
            if (RC == 0) throw errori::nessunRecordCorrente();
            long cursore = RC - n - 1;
            for (long i = RC - n; i <= RC; ++i) {
                if (cursore < 0 || cursore >= RC) throw errori::nessunRecordCorrente();
                for (int x = 1; x <= 90; ++x) RitardiNumeri[x] += 1;
                for (int p = 1; p <= 5; ++p) RitardiNumeri[Campo(*rs[cursore], r, p)] = 0;
                ++cursore;
            }
        }
    } catch (const ErroreEsecuzione&) {
    }
    return RitardiNumeri;
}

// Steps 2 to 4 of the load for wheel w (1..11, or 12 "Tutte"). The passes give the
// same tables for every wheel of a row, so they are taken once a row.
inline ParametriColonne Form29Letterale(const std::vector<EstrazioneLetta>& archivio, long Prima, long Ultima, int w,
                                        long nRitardi = 500, long nFrequenze = 90) {
    ParametriColonne m;
    if (w == 0) return m;
    m.misurate = true;
    std::vector<const EstrazioneLetta*> rs;
    for (const auto& e : archivio)
        if (e.id >= Prima && e.id <= Ultima) rs.push_back(&e);
    const long R = static_cast<long>(rs.size());
    m.righe = R;
    std::vector<std::array<bool, 91>> visti(R + 1);
    long distanza = 0;
    std::vector<int> ruote = w == 12 ? std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10} : std::vector<int>{w};
    long i = 0;
    try {
        if (R == 0) throw errori::nessunRecordCorrente();  // MoveLast
        for (i = 1; i <= R; ++i) {
            const EstrazioneLetta& riga = *rs[i - 1];
            const long id = Prima - 1 + i;
            const auto RitardiNumeri = ElaboraRitardiLetterale(archivio, id, nRitardi, w);
            const auto ValoriNumeri = ElaboraFrequenzeLetterale(archivio, id, nFrequenze, w);
            for (int ruota : ruote) {
                int N[6];
                for (int p = 1; p <= 5; ++p) {
                    N[p] = riga.numero(ruota, p);
                    if (N[p] == 0) throw errori::usoNonValidoNull();
                }
                for (int a = 1; a <= 4; ++a)  // OrdinaColonna
                    for (int b = 1; b <= 5 - a; ++b)
                        if (N[b] > N[b + 1]) std::swap(N[b], N[b + 1]);
                // a
                int minimo = 84;
                for (int j = 1; j <= 4; ++j)
                    if (N[j + 1] - N[j] - 1 < minimo) minimo = N[j + 1] - N[j] - 1;
                distanza += minimo;
                // b
                int cons = 0;
                for (int j = 1; j <= 4; ++j) {
                    if (N[j + 1] == N[j] + 1) cons = cons + 1;
                    else if (cons > m.Combo2) m.Combo2 = cons;
                }
                if (cons < m.Combo1) m.Combo1 = cons;
                if (cons > m.Combo2) m.Combo2 = cons;
                // c
                int corrente = 0, totale = 0, massimo = 0;
                for (int j = 1; j <= 4; ++j) {
                    if (N[j + 1] == N[j] + 1) {
                        corrente = 0;
                    } else {
                        corrente++;
                        totale++;
                        if (massimo < corrente) massimo = corrente;
                    }
                }
                m.Check1[totale] = 1;
                if (massimo > m.Combo5 + 1) m.Combo5 = massimo - 1;
                // d
                bool stato = false;
                int pari = 0, dispari = 0;
                for (int j = 1; j <= 4; ++j) {
                    const double meta = (N[j] + N[j + 1]) / 2.0;
                    if (meta == std::floor(meta)) {
                        stato = !stato;
                        if (j == 4) {
                            if (stato) pari++;
                            else dispari++;
                        }
                    } else {
                        if (stato) {
                            pari++;
                            stato = false;
                        } else {
                            dispari++;
                        }
                        if (j == 4) dispari++;
                    }
                }
                m.chkGruppiPari[pari] = 1;
                m.chkGruppiDispari[dispari] = 1;
                // e
                for (int j = 1; j <= 5; ++j) {
                    if (N[j] < 0 || N[j] > 90) throw errori::indiceFuoriIntervallo();
                    if (m.PosizioniSuggerite[j][N[j]] == 0) m.PosizioniSuggerite[j][N[j]] = 1;
                }
                // f
                for (int s = 1; s <= 3; ++s) {
                    auto& z = m.SezioniSuggerite[s];
                    int presenze = 0, passi = 0;
                    for (int j = 1; j <= 4; ++j)
                        if (N[j] >= z[1] && N[j] <= z[2]) {
                            presenze++;
                            if (N[j + 1] == N[j] + 1) passi++;
                        }
                    if (z[5] > passi) z[5] = static_cast<int16_t>(passi);
                    if (z[6] < passi) z[6] = static_cast<int16_t>(passi);
                    if (N[5] >= z[1] && N[5] <= z[2]) presenze++;
                    if (z[3] > presenze) z[3] = static_cast<int16_t>(presenze);
                    if (z[4] < presenze) z[4] = static_cast<int16_t>(presenze);
                }
                // g
                int somma = 0;
                for (int j = 1; j <= 5; ++j) somma += N[j];
                if (somma < m.sommaMin) m.sommaMin = somma;
                if (somma > m.sommaMax) m.sommaMax = somma;
                // h
                int nPari = 0, nDispari = 0, cPari = 0, cDispari = 0, maxPari = 0, maxDispari = 0;
                for (int j = 1; j <= 5; ++j) {
                    if (N[j] == 2 * static_cast<int>(std::floor(N[j] / 2.0))) {
                        nPari++;
                        cPari++;
                        cDispari = 0;
                        if (maxPari < cPari) maxPari = cPari;
                    } else {
                        nDispari++;
                        cDispari++;
                        cPari = 0;
                        if (maxDispari < cDispari) maxDispari = cDispari;
                    }
                }
                if (nPari < m.pariMin) m.pariMin = nPari;
                if (nPari > m.pariMax) m.pariMax = nPari;
                if (maxPari > m.pariCons) m.pariCons = maxPari;
                if (nDispari < m.dispariMin) m.dispariMin = nDispari;
                if (nDispari > m.dispariMax) m.dispariMax = nDispari;
                if (maxDispari > m.dispariCons) m.dispariCons = maxDispari;
                // i
                int runPari = 0, runDispari = 0;
                totale = 0;
                corrente = 0;
                massimo = 0;
                for (int j = 1; j <= 5; ++j) {
                    if (N[j] == 2 * static_cast<int>(std::floor(N[j] / 2.0))) {
                        if (runDispari < 1) {
                            corrente = 0;
                        } else {
                            totale++;
                            corrente++;
                            if (massimo < corrente) massimo = corrente;
                        }
                        runPari++;
                        runDispari = 0;
                    } else {
                        if (runPari < 1) {
                            corrente = 0;
                        } else {
                            totale++;
                            corrente++;
                            if (massimo < corrente) massimo = corrente;
                        }
                        runDispari++;
                        runPari = 0;
                    }
                }
                m.chkInterruzioniPD[totale] = 1;
                if (massimo > m.Combo7 + 1) m.Combo7 = massimo - 1;
                // j
                if (i >= 11)
                    for (long c = 1; c <= 10; ++c) {
                        int punti = 0;
                        for (int j = 1; j <= 5; ++j)
                            if (visti[i - c][N[j]]) punti++;
                        if (punti > m.Combo10) m.Combo10 = punti;
                    }
                for (int p = 1; p <= 5; ++p) visti[i][Campo(riga, ruota, p)] = true;
                // k
                int sr = 0, sf = 0;
                for (int j = 1; j <= 5; ++j) {
                    sr += RitardiNumeri[N[j]];
                    sf += ValoriNumeri[N[j]];
                }
                const int mr = static_cast<int>(std::floor(sr / 5.0)), mf = static_cast<int>(std::floor(sf / 5.0));
                if (mr < m.ritardoMin) m.ritardoMin = static_cast<int16_t>(mr);
                if (mr > m.ritardoMax) m.ritardoMax = static_cast<int16_t>(mr);
                if (mf < m.frequenzaMin) m.frequenzaMin = static_cast<int16_t>(mf);
                if (mf > m.frequenzaMax) m.frequenzaMax = static_cast<int16_t>(mf);
            }
            if (w == 12) distanza = static_cast<long>(std::nearbyint(distanza / 10.0));
        }
    } catch (const ErroreEsecuzione& e) {
        m.interrotta = true;
        m.errore = e.numero;
        m.rigaErrore = i;
    }
    m.sommaDistanze = static_cast<int32_t>(distanza);
    return m;
}

}  // namespace zef::prova
