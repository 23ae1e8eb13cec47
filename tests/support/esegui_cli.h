// Runs zefiranto-cli as a script would and collects its output and exit status.
#pragma once

#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <string>

namespace zef::prova {

struct Esito {
    int stato = -1;
    std::string uscita;  // stdout and stderr together
};

inline Esito Esegui(const std::string& argomenti) {
    std::string comando = std::string(ZEF_DATI_BIN) + "/zefiranto-cli " + argomenti + " 2>&1";
    Esito e;
    FILE* p = popen(comando.c_str(), "r");
    if (!p) return e;
    std::array<char, 4096> buf;
    size_t letti;
    while ((letti = fread(buf.data(), 1, buf.size(), p)) > 0) e.uscita.append(buf.data(), letti);
    int st = pclose(p);
    e.stato = WIFEXITED(st) ? WEXITSTATUS(st) : -1;
    return e;
}

}  // namespace zef::prova
