#include "wincheck/form16.h"

#include "archive/archivio.h"
#include "core/errori.h"
#include "core/percorsi.h"

#include <SQLiteCpp/SQLiteCpp.h>

namespace zef {

namespace {
// Field names by kind, estratti .. cinquine.
constexpr std::array<const char*, NumSorti> CampiSorti = {"estratti", "ambi", "terni", "quaterne", "cinquine"};

int64_t Intero(const SQLite::Column& c) { return c.isNull() ? 0 : c.getInt64(); }
Currency Importo(const SQLite::Column& c) { return c.isNull() ? Currency{} : Currency::daDouble(c.getDouble()); }
}  // namespace

TotaliVincite LeggiVincite(ArchivioEstrazioni& a) {
    SQLite::Statement st(a.db(),
                         "SELECT estratti, ambi, terni, quaterne, cinquine, sommavinta, sommaspesa FROM Vincite "
                         "ORDER BY rowid LIMIT 1");
    if (!st.executeStep()) throw errori::nessunRecordCorrente();
    TotaliVincite t;
    for (int s = 0; s < NumSorti; ++s) t.conteggi[static_cast<size_t>(s)] = Intero(st.getColumn(s));
    t.sommavinta = Importo(st.getColumn(5));
    t.sommaspesa = Importo(st.getColumn(6));
    return t;
}

void AggiungiVincite(ArchivioEstrazioni& a, const std::array<int64_t, NumSorti>& conteggi,
                     const std::array<bool, NumSorti>& sorti, Currency vinta, Currency spesa) {
    ArchivioEstrazioni::Transazione transazione(a);
    TotaliVincite t = LeggiVincite(a);
    std::string sql = "UPDATE Vincite SET sommavinta = ?, sommaspesa = ?";
    for (int s = 0; s < NumSorti; ++s)
        if (sorti[static_cast<size_t>(s)]) sql += std::string(", ") + CampiSorti[static_cast<size_t>(s)] + " = ?";
    sql += " WHERE rowid = (SELECT min(rowid) FROM Vincite)";
    SQLite::Statement st(a.db(), sql);
    st.bind(1, (t.sommavinta + vinta).inDouble());
    st.bind(2, (t.sommaspesa + spesa).inDouble());
    int indice = 3;
    for (int s = 0; s < NumSorti; ++s)
        if (sorti[static_cast<size_t>(s)])
            st.bind(indice++, static_cast<int64_t>(t.conteggi[static_cast<size_t>(s)] + conteggi[static_cast<size_t>(s)]));
    st.exec();
    transazione.Commit();
}

Form16::Form16(Interfaccia& ui, std::string archivio) : ui_(ui), archivio_(std::move(archivio)) {}

void Form16::carica() {
    caricato = true;
    try {
        ArchivioEstrazioni a(archivio_.empty() ? FileDati("archivio.db") : archivio_);
        const TotaliVincite t = LeggiVincite(a);
        // Rows from cinquine down to estratti.
        for (int riga = 0; riga < 5; ++riga) Text[static_cast<size_t>(riga)] = TestoSemplice(t.conteggi[static_cast<size_t>(4 - riga)]);
        MaskEdBox1 = t.sommavinta.testoDueDecimali();
        MaskEdBox2 = t.sommaspesa.testoDueDecimali();
        const Currency totale = t.sommavinta - t.sommaspesa;
        MaskEdBox3 = totale.testoDueDecimali();
        totaleRosso = totale < Currency{};
    } catch (const std::exception& e) {
        ui_.messaggio(std::string("Si è verificato l'errore seguente: ") + e.what(), "ERRORE", Icona::Critico);
    }
}

}  // namespace zef
