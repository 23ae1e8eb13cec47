// The check for a newer program, once, a few seconds after start.
//
// Only a program that has update.txt beside it ever goes to the network: line 1 is the
// address of the file that carries the newest version, line 2 the base name of the
// local copy (the program's folder + "/" + name + ".upd"). The version of a program
// file is read from a marker the build writes into the executable ("x.y.z"), so
// VersioneFile reads it from any file without running it. Any failure ends the check
// without a word, and the downloaded copy stays in the folder for the updater.
#pragma once

#include "core/interfaccia.h"

#include <functional>
#include <string>

namespace zef {

// This program's version, "2.0.0", as its marker carries it.
std::string VersioneCorrente();
// The version a program file carries in its marker; empty when it has none.
std::string VersioneFile(const std::string& percorso);

// Downloads `url` to `percorso`; true when it came (the check does not look).
class Scaricatore {
public:
    virtual ~Scaricatore() = default;
    virtual bool ScaricaFile(const std::string& url, const std::string& percorso) = 0;
};

// libcurl, following redirects, no cache in between.
class ScaricatoreCurl : public Scaricatore {
public:
    explicit ScaricatoreCurl(long secondiMassimi = 30) : secondi_(secondiMassimi) {}
    bool ScaricaFile(const std::string& url, const std::string& percorso) override;

private:
    long secondi_;
};

struct EsitoControllo {
    bool eseguito = false;             // update.txt was there
    std::string versioneLocale;        // this program's
    std::string versioneDisponibile;   // the local copy's, empty when none
    bool nuova = false;                // the two differ (a lower one counts too)
};

// The check in `cartella` (the program's folder). With `chiedi`, a different version
// asks "nuova versione disponibile di ..." and, on Yes, `avviaAggiornamento` runs (it
// starts the updater and ends the program). Returns what it found.
EsitoControllo ControllaAggiornamento(const std::string& cartella, Scaricatore& scaricatore, Interfaccia& ui,
                                      const std::string& nomeProgramma,
                                      const std::function<void()>& avviaAggiornamento, bool chiedi = true);

}  // namespace zef
