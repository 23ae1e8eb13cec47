#include "upkeep/aggiornamento_programma.h"

#include <curl/curl.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#define ZEF_STR2(x) #x
#define ZEF_STR(x) ZEF_STR2(x)

namespace zef {

namespace {

// The marker: a fixed text followed by the version. Only the executable's copy of it
// is followed by the digits; the search below builds its pattern at run time.
[[gnu::used]] const char Marcatore[] = "\x01ZEF-VERSIONE\x02" ZEF_STR(ZEF_VERSIONE_MAJOR) "." ZEF_STR(
    ZEF_VERSIONE_MINOR) "." ZEF_STR(ZEF_VERSIONE_PATCH) "\x03";

size_t Scrivi(char* dati, size_t dimensione, size_t n, void* file) {
    return std::fwrite(dati, dimensione, n, static_cast<FILE*>(file));
}

}  // namespace

std::string VersioneCorrente() {
    const std::string m(Marcatore);
    return m.substr(14, m.size() - 15);
}

std::string VersioneFile(const std::string& percorso) {
    std::ifstream in(percorso, std::ios::binary);
    if (!in) return {};
    const std::string dati((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    std::string inizio = "\x01ZEF-";
    inizio += "VERSIONE\x02";
    for (size_t p = dati.find(inizio); p != std::string::npos; p = dati.find(inizio, p + 1)) {
        const size_t da = p + inizio.size();
        const size_t fine = dati.find('\x03', da);
        if (fine == std::string::npos || fine - da > 32) continue;
        const std::string v = dati.substr(da, fine - da);
        int punti = 0;
        bool ok = !v.empty();
        for (char c : v) {
            if (c == '.') ++punti;
            else if (c < '0' || c > '9') ok = false;
        }
        if (ok && punti == 2) return v;
    }
    return {};
}

bool ScaricatoreCurl::ScaricaFile(const std::string& url, const std::string& percorso) {
    FILE* f = std::fopen(percorso.c_str(), "wb");
    if (!f) return false;
    CURL* c = curl_easy_init();
    bool ok = false;
    if (c) {
        curl_easy_setopt(c, CURLOPT_URL, url.c_str());
        curl_easy_setopt(c, CURLOPT_FOLLOWLOCATION, 1L);
        curl_easy_setopt(c, CURLOPT_FAILONERROR, 1L);
        curl_easy_setopt(c, CURLOPT_TIMEOUT, secondi_);
        curl_easy_setopt(c, CURLOPT_NOSIGNAL, 1L);
        curl_easy_setopt(c, CURLOPT_WRITEFUNCTION, &Scrivi);
        curl_easy_setopt(c, CURLOPT_WRITEDATA, f);
        // The newest version, never a copy kept along the way.
        struct curl_slist* intestazioni = curl_slist_append(nullptr, "Cache-Control: no-cache");
        intestazioni = curl_slist_append(intestazioni, "Pragma: no-cache");
        curl_easy_setopt(c, CURLOPT_HTTPHEADER, intestazioni);
        ok = curl_easy_perform(c) == CURLE_OK;
        curl_slist_free_all(intestazioni);
        curl_easy_cleanup(c);
    }
    std::fclose(f);
    return ok;
}

EsitoControllo ControllaAggiornamento(const std::string& cartella, Scaricatore& scaricatore, Interfaccia& ui,
                                      const std::string& nomeProgramma,
                                      const std::function<void()>& avviaAggiornamento, bool chiedi) {
    EsitoControllo e;
    try {
        std::error_code ec;
        const std::string elenco = cartella + "/update.txt";
        if (!std::filesystem::is_regular_file(elenco, ec)) return e;
        e.eseguito = true;
        std::vector<std::string> righe;
        {
            std::ifstream in(elenco, std::ios::binary);
            std::string r;
            while (std::getline(in, r)) {
                if (!r.empty() && r.back() == '\r') r.pop_back();
                righe.push_back(r);
            }
        }
        if (righe.empty()) return e;
        const std::string nome = righe.size() > 1 ? righe[1] : std::string();
        const std::string copia = cartella + "/" + nome + ".upd";
        // A failed download may leave an older copy: it is compared all the same.
        const std::string provvisorio = copia + ".scarico";
        if (scaricatore.ScaricaFile(righe[0], provvisorio)) std::filesystem::rename(provvisorio, copia, ec);
        else std::filesystem::remove(provvisorio, ec);
        e.versioneLocale = VersioneCorrente();
        if (!std::filesystem::is_regular_file(copia, ec)) return e;
        e.versioneDisponibile = VersioneFile(copia);
        e.nuova = e.versioneDisponibile != e.versioneLocale;
        if (!e.nuova || !chiedi) return e;
        if (ui.messaggio("nuova versione disponibile di " + nomeProgramma + "\r\nAggiornare adesso?", "",
                         Icona::Nessuna, Pulsanti::SiNo) == Risposta::Si &&
            avviaAggiornamento)
            avviaAggiornamento();
    } catch (const std::exception&) {
        // Any failure ends the check without a word.
    }
    return e;
}

}  // namespace zef
