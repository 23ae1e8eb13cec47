#include "core/interfaccia_scriptata.h"

namespace zef {

Risposta InterfacciaScriptata::messaggio(const std::string& testo, const std::string& titolo, Icona icona,
                                         Pulsanti pulsanti) {
    std::lock_guard l(m_);
    Risposta r;
    if (pulsanti == Pulsanti::Ok) {
        r = Risposta::Ok;
    } else if (!risposte.empty()) {
        r = risposte.front();
        risposte.pop_front();
    } else {
        r = rispostaPredefinita;
    }
    box.push_back({testo, titolo, icona, pulsanti, r});
    return r;
}

std::optional<std::string> InterfacciaScriptata::inputBox(const std::string& p, const std::string&,
                                                          const std::string& predefinito) {
    std::lock_guard l(m_);
    prompt.push_back(p);
    if (input.empty()) return predefinito;
    auto v = input.front();
    input.pop_front();
    return v;
}

std::optional<std::string> InterfacciaScriptata::dialogoApri(const std::string&, const std::string&) {
    std::lock_guard l(m_);
    if (fileApri.empty()) return std::nullopt;
    auto v = fileApri.front();
    fileApri.pop_front();
    return v;
}

std::optional<std::string> InterfacciaScriptata::dialogoSalva(const std::string&, const std::string&) {
    std::lock_guard l(m_);
    if (fileSalva.empty()) return std::nullopt;
    auto v = fileSalva.front();
    fileSalva.pop_front();
    return v;
}

void InterfacciaScriptata::mostraAvanzamento(const StatoAvanzamento& s) {
    std::lock_guard l(m_);
    ++avanzamentiAperti;
    avanzamenti.push_back(s);
}

void InterfacciaScriptata::aggiornaAvanzamento(const StatoAvanzamento& s) {
    std::lock_guard l(m_);
    if (registraOgniAvanzamento || avanzamenti.empty()) avanzamenti.push_back(s);
    else avanzamenti.back() = s;
}

void InterfacciaScriptata::chiudiAvanzamento() {
    std::lock_guard l(m_);
    --avanzamentiAperti;
    ++chiusureAvanzamento;
}

std::vector<int> InterfacciaScriptata::tastiAvanzamento() {
    std::lock_guard l(m_);
    ++cessioni;
    auto it = tastiAllaCessione.find(cessioni);
    if (it == tastiAllaCessione.end()) return {};
    return it->second;
}

void InterfacciaScriptata::barraPrincipale(double, double, double) {}
void InterfacciaScriptata::clessidra(bool) {}

void InterfacciaScriptata::apriDocumento(const std::string& percorso) {
    std::lock_guard l(m_);
    documentiAperti.push_back(percorso);
}

BoxMostrato InterfacciaScriptata::ultimoBox() const {
    return box.empty() ? BoxMostrato{"", "", Icona::Nessuna, Pulsanti::Ok, Risposta::Ok} : box.back();
}

}  // namespace zef
