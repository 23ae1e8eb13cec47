// Helpers of the archive tests: a temporary folder and small archives made on the spot.
#pragma once

#include "archive/archivio.h"
#include "archive/date.h"
#include "support/cartella.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

namespace zef::prova {

inline void ScriviFile(const std::string& percorso, const std::string& testo) {
    std::ofstream(percorso, std::ios::binary) << testo;
}

// The numbers of draw `i` on wheel r (1..11), position p (1..5): distinct in a wheel, 1..90.
inline int NumeroProva(int i, int r, int p) { return (i * 7 + r * 13 + p * 17) % 90 + 1; }

// Adds n draws with ids from `primoId`, one a day from `primaData`; Nazionale null when
// `senzaNazionale`.
inline void RiempiProva(ArchivioEstrazioni& a, int n, int primoId = 1, int anno = 2020, bool senzaNazionale = false) {
    ArchivioEstrazioni::Transazione t(a);
    std::string sql = "INSERT INTO estrazioni (id, data";
    for (int r = 1; r <= NumRuote; ++r)
        for (int p = 1; p <= 5; ++p) sql += ", " + NomeCampo(r, p);
    sql += ") VALUES (?, ?";
    for (int k = 0; k < 55; ++k) sql += ", ?";
    sql += ")";
    SQLite::Statement st(a.db(), sql);
    std::chrono::sys_days giorno = std::chrono::year_month_day{std::chrono::year(anno), std::chrono::January, std::chrono::day(1)};
    for (int i = 0; i < n; ++i) {
        std::chrono::year_month_day d{giorno + std::chrono::days(i)};
        st.reset();
        st.bind(1, primoId + i);
        st.bind(2, DataIso(static_cast<int>(d.year()), static_cast<int>(static_cast<unsigned>(d.month())),
                           static_cast<int>(static_cast<unsigned>(d.day()))));
        for (int r = 1; r <= NumRuote; ++r)
            for (int p = 1; p <= 5; ++p) {
                int k = 3 + (r - 1) * 5 + (p - 1);
                if (senzaNazionale && r == 11) st.bind(k);
                else st.bind(k, NumeroProva(primoId + i, r, p));
            }
        st.exec();
    }
    t.Commit();
}

}  // namespace zef::prova
