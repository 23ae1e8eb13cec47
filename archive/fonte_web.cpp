#include "archive/fonte_web.h"

#include "core/basic.h"
#include "core/errori.h"
#include "core/percorsi.h"

#include <curl/curl.h>

#include <fstream>
#include <mutex>

namespace zef {

namespace {

size_t accoda(char* dati, size_t dim, size_t n, void* utente) {
    static_cast<std::string*>(utente)->append(dati, dim * n);
    return dim * n;
}

struct Risposta {
    CURLcode esito = CURLE_OK;
    long stato = 0;
    std::string corpo;
    std::string errore;
};

Risposta Get(const std::string& url, long secondi) {
    static std::once_flag init;
    std::call_once(init, [] { curl_global_init(CURL_GLOBAL_DEFAULT); });
    Risposta r;
    CURL* c = curl_easy_init();
    if (!c) {
        r.esito = CURLE_FAILED_INIT;
        return r;
    }
    char errbuf[CURL_ERROR_SIZE] = {};
    curl_slist* intestazioni = curl_slist_append(nullptr, "Accept: text/html");
    curl_easy_setopt(c, CURLOPT_URL, url.c_str());
    curl_easy_setopt(c, CURLOPT_FOLLOWLOCATION, 1L);
    curl_easy_setopt(c, CURLOPT_MAXREDIRS, 10L);
    curl_easy_setopt(c, CURLOPT_USERAGENT, "Mozilla/5.0");
    curl_easy_setopt(c, CURLOPT_HTTPHEADER, intestazioni);
    curl_easy_setopt(c, CURLOPT_TIMEOUT, secondi);
    curl_easy_setopt(c, CURLOPT_CONNECTTIMEOUT, 20L);
    curl_easy_setopt(c, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(c, CURLOPT_NOPROXY, "127.0.0.1,localhost");  // loopback never goes through a proxy
    curl_easy_setopt(c, CURLOPT_ACCEPT_ENCODING, "");
    curl_easy_setopt(c, CURLOPT_ERRORBUFFER, errbuf);
    curl_easy_setopt(c, CURLOPT_WRITEFUNCTION, accoda);
    curl_easy_setopt(c, CURLOPT_WRITEDATA, &r.corpo);
    r.esito = curl_easy_perform(c);
    curl_easy_getinfo(c, CURLINFO_RESPONSE_CODE, &r.stato);
    r.errore = errbuf[0] ? errbuf : curl_easy_strerror(r.esito);
    curl_slist_free_all(intestazioni);
    curl_easy_cleanup(c);
    return r;
}

std::string conProtocollo(std::string sito) {
    sito = Trim(sito);
    while (!sito.empty() && sito.back() == '/') sito.pop_back();
    if (sito.empty()) return sito;
    if (sito.rfind("http://", 0) != 0 && sito.rfind("https://", 0) != 0) sito = "https://" + sito;
    return sito;
}

}  // namespace

std::string FonteCurl::GetHTML(const std::string& url) {
    Risposta r = Get(url, secondi_);
    if (r.esito != CURLE_OK || r.stato != 200) return {};
    return r.corpo;
}

void FonteCurl::Scarica(const std::string& url, const std::string& percorso) {
    Risposta r = Get(url, secondi_);
    if (r.esito != CURLE_OK) throw ErroreEsecuzione(35761, "Impossibile scaricare " + url + ": " + r.errore);
    std::ofstream f(percorso, std::ios::binary);
    f.write(r.corpo.data(), static_cast<std::streamsize>(r.corpo.size()));
    if (!f) throw ErroreEsecuzione(75, "Errore di accesso al percorso/file " + percorso);
}

ImpostazioniAggiornamento ImpostazioniAggiornamento::Leggi(const std::string& percorso) {
    ImpostazioniAggiornamento imp;
    std::ifstream in(percorso);
    std::string riga;
    while (std::getline(in, riga)) {
        if (!riga.empty() && riga.back() == '\r') riga.pop_back();
        std::string t = Trim(riga);
        if (t.empty() || t[0] == '#' || t[0] == ';' || t[0] == '[') continue;
        size_t uguale = t.find('=');
        if (uguale == std::string::npos) continue;
        std::string chiave = Trim(t.substr(0, uguale));
        std::string valore = Trim(t.substr(uguale + 1));
        for (char& c : chiave) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        if (chiave == "sito1") imp.sito1 = conProtocollo(valore);
        else if (chiave == "sito2") imp.sito2 = conProtocollo(valore);
        else if (chiave == "intestazione") imp.intestazione = valore;
        else if (chiave == "anno_iniziale" && Val(valore) >= 1) imp.annoIniziale = static_cast<int>(Val(valore));
    }
    return imp;
}

std::string ImpostazioniAggiornamento::PercorsoPredefinito() {
    // The data folder first (a user's copy), else the one beside the program.
    std::string p = FileDati("aggiornamento.ini");
    if (std::ifstream(p)) return p;
    return CartellaProgramma() + "/aggiornamento.ini";
}

std::string ImpostazioniAggiornamento::url1(int anno) const {
    return sito1 + "/lotto/archivio-estrazioni/?as=TXT&year=" + TestoSemplice(anno);
}

std::string ImpostazioniAggiornamento::url2(int anno) const {
    return sito2 + "/risultati/archivio-lotto-" + TestoSemplice(anno);
}

}  // namespace zef
