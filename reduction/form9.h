// The window "INFORMAZIONI SUL SISTEMA": kind of play, kind of system, reduction ratios.
#pragma once

#include "core/interfaccia.h"

#include <string>

namespace zef {

struct Sistema;

class Form9 {
public:
    static constexpr const char* Caption = "INFORMAZIONI SUL SISTEMA";

    Form9(Sistema& s, Interfaccia& ui) : s_(s), ui_(ui) {}

    std::string Tipogiocata;
    std::string TipoSistema;
    std::string CondInt;
    std::string RidInt;
    std::string RidCond;

    // Fills the fields, as each activation does.
    void attiva();

private:
    Sistema& s_;
    Interfaccia& ui_;
};

// Menu "Informazioni": true when the window is to be shown.
bool MenuInformazioni(Sistema& s, Interfaccia& ui);

}  // namespace zef
