// The running tally of wins (the single record of table Vincite) and Form16,
// "STATISTICHE SULLE VINCITE EFFETTUATE", which shows it.
#pragma once

#include "core/basic.h"
#include "core/interfaccia.h"
#include "wincheck/spoglio.h"

#include <array>
#include <cstdint>
#include <string>

namespace zef {

class ArchivioEstrazioni;

struct TotaliVincite {
    // By kind, 0 estratti .. 4 cinquine.
    std::array<int64_t, NumSorti> conteggi{};
    Currency sommavinta;
    Currency sommaspesa;
};

// Reads the record; raises ErroreEsecuzione 3021 when the table holds none.
TotaliVincite LeggiVincite(ArchivioEstrazioni& a);
// Adds to the record in one transaction: the kinds flagged in `sorti`, the two sums.
void AggiungiVincite(ArchivioEstrazioni& a, const std::array<int64_t, NumSorti>& conteggi,
                     const std::array<bool, NumSorti>& sorti, Currency vinta, Currency spesa);

class Form16 {
public:
    static constexpr const char* Titolo = "STATISTICHE SULLE VINCITE EFFETTUATE";
    static constexpr const char* Label1 = "VINCITE TOTALIZZATE:";
    // Row captions of Text1..Text5.
    static constexpr std::array<const char*, 5> Righe = {"Cinquine", "Quaterne", "Terni", "Ambi", "Estratti"};
    static constexpr const char* EtichettaVinta = "Vincita totalizzata:";
    static constexpr const char* EtichettaSpesa = "Spese sostenute:";
    static constexpr const char* EtichettaTotale = "TOTALE:";
    static constexpr int Rosso = 255;

    Form16(Interfaccia& ui, std::string archivio = "");

    std::array<std::string, 5> Text;  // Text1..Text5: cinquine, quaterne, terni, ambi, estratti
    std::string MaskEdBox1, MaskEdBox2, MaskEdBox3;
    bool totaleRosso = false;
    bool caricato = false;

    void carica();
    void clickCommand1() { caricato = false; }

private:
    Interfaccia& ui_;
    std::string archivio_;
};

}  // namespace zef
