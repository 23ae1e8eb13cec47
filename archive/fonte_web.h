// Where the update gets its pages and files. FonteCurl goes to the web; tests put a
// source of their own in its place.
#pragma once

#include <string>

namespace zef {

class FonteWeb {
public:
    virtual ~FonteWeb() = default;
    // GetHTML: an HTTP GET following redirects, with "User-Agent: Mozilla/5.0" and
    // "Accept: text/html"; the body (UTF-8) when the status is 200, else "".
    virtual std::string GetHTML(const std::string& url) = 0;
    // Downloads the URL and writes its bytes as they are to `percorso`. A failed
    // transfer raises ErroreEsecuzione; an HTTP error status still writes the body.
    virtual void Scarica(const std::string& url, const std::string& percorso) = 0;
};

class FonteCurl : public FonteWeb {
public:
    explicit FonteCurl(long secondiMassimi = 60) : secondi_(secondiMassimi) {}
    std::string GetHTML(const std::string& url) override;
    void Scarica(const std::string& url, const std::string& percorso) override;

private:
    long secondi_;
};

// The settings of the update, from aggiornamento.ini beside the program:
//   sito1 = host of the yearly text files   (https unless written http://...)
//   sito2 = host of the yearly result pages
//   intestazione = the banner line of the text files
//   anno_iniziale = first year fetched into an empty archive (2005)
struct ImpostazioniAggiornamento {
    std::string sito1;  // "https://host" form, no trailing slash
    std::string sito2;
    std::string intestazione;
    int annoIniziale = 2005;

    // Missing file: no sites, so the update says it cannot run.
    static ImpostazioniAggiornamento Leggi(const std::string& percorso);
    static std::string PercorsoPredefinito();  // aggiornamento.ini in the data folder, else beside the program
    bool completa() const { return !sito1.empty() && !sito2.empty(); }
    std::string url1(int anno) const;  // "/lotto/archivio-estrazioni/?as=TXT&year=" + year
    std::string url2(int anno) const;  // "/risultati/archivio-lotto-" + year
};

}  // namespace zef
