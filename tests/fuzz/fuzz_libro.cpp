// The dream book's sources: any bytes as a subjects file either build a book whose
// every number is 1..90 and whose blocks close, or are refused with a message naming
// the line; the look-up of the window then runs on what was built.
#include "core/interfaccia_scriptata.h"
#include "core/sistema.h"
#include "dreambook/form15.h"
#include "dreambook/libro.h"
#include "fuzz/file_fuzz.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* dati, size_t n) {
    namespace fs = std::filesystem;
    static const fs::path cartella = fs::path(zef::fuzz::FileDiLavoro("_libro"));
    fs::create_directories(cartella / "soggetti");
    const std::string testo(reinterpret_cast<const char*>(dati), n);
    std::ofstream(cartella / "soggetti" / "g.txt", std::ios::binary | std::ios::trunc) << testo;
    std::ofstream(cartella / "nomi_propri.txt", std::ios::trunc) << "maria\t1\n";
    std::ofstream(cartella / "personaggi.txt", std::ios::trunc) << "";
    const std::string db = (cartella / "smorfia.db").string();
    try {
        zef::CostruisciLibro(cartella.string(), db);
    } catch (const zef::ErroreLibro&) {
        return 0;
    }
    zef::Libro libro(db);
    for (const auto& r : libro.tabella("oggettig"))
        if (r.numero < 1 || r.numero > 90) std::abort();
    // The first line's subject looked up, with the rest of the line as object.
    zef::Sistema s;
    zef::InterfacciaScriptata ui;
    zef::Form15 f(s, ui, db);
    const std::string riga = testo.substr(0, testo.find('\n'));
    f.cambiaText1(riga.substr(0, riga.find('\t')));
    f.Text2 = riga.size() > 3 ? riga.substr(3) : riga;
    f.clickCommand3();
    if (f.Combo1Visibile) {
        f.Combo1Testo = f.Combo1.empty() ? std::string() : f.Combo1.front();
        f.clickCommand3();
    }
    for (int x : f.numeri())
        if (x < 1 || x > 90) std::abort();
    return 0;
}
