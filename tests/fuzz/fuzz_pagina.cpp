// A year's results page of the web update: any HTML fills the staging table only with
// draws that can exist, or with nothing.
#include "archive/aggiorna.h"
#include "archive/archivio.h"
#include "fuzz/file_fuzz.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <cstdlib>
#include <memory>

namespace {
zef::ArchivioEstrazioni& Archivio() {
    static std::unique_ptr<zef::ArchivioEstrazioni> a = [] {
        const std::string file = zef::fuzz::FileDiLavoro(".db");
        std::remove(file.c_str());
        return zef::ArchivioEstrazioni::ApriOCrea(file);
    }();
    return *a;
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* dati, size_t n) {
    zef::ArchivioEstrazioni& a = Archivio();
    a.db().exec("DELETE FROM EstrazioniTMP");
    try {
        zef::ParseLottoHTML(a, std::string(reinterpret_cast<const char*>(dati), n), 2025);
    } catch (const zef::ErroreEsecuzione&) {
        return 0;
    }
    SQLite::Statement st(a.db(), "SELECT * FROM EstrazioniTMP");
    while (st.executeStep())
        for (int c = 2; c < st.getColumnCount(); ++c) {
            const auto v = st.getColumn(c);
            if (!v.isNull() && (v.getInt() < 1 || v.getInt() > 90)) std::abort();
        }
    return 0;
}
