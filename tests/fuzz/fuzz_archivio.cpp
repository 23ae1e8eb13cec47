// A damaged archive: any bytes in place of archivio.db open as an archive and read,
// or are refused with the archive's error, never a crash.
#include "archive/archivio.h"
#include "fuzz/file_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* dati, size_t n) {
    const std::string file = zef::fuzz::Scrivi(dati, n, ".db");
    try {
        zef::ArchivioEstrazioni a(file);
        zef::Cursore c = a.OpenRecordset("estrazioni");
        for (; !c.Eof(); c.MoveNext()) (void)c.numero("Bari1");
        (void)a.NumeroEstrazioni();
    } catch (const std::exception&) {
    }
    return 0;
}
