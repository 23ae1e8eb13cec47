// Helpers of the printing tests: a sistema with a list, and a recorded print as lines.
#pragma once

#include "core/giocate.h"
#include "core/sistema.h"
#include "printing/registrazione.h"
#include "printing/testo_stampa.h"
#include "support/prova_sistema.h"

#include <sstream>
#include <string>
#include <vector>

namespace zef::prova {

// The rows as the list holds them, with k numbers a column and the price repriced.
inline void ImpostaLista(Sistema& s, int k, const std::vector<std::string>& righe) {
    s.SviluppoK = static_cast<int16_t>(k);
    s.MSFlexGrid1.Clear();
    for (const std::string& r : righe) s.MSFlexGrid1.AddItem(r);
    ImpostaListaCol(s, TestoSemplice(s.MSFlexGrid1.Rows()));
}

// A row of the list from its numbers, as VISUALIZZA writes it.
inline std::string Riga(const std::vector<int>& numeri) {
    std::vector<uint8_t> b(numeri.begin(), numeri.end());
    return TestoRiga(b.data(), static_cast<int>(b.size()));
}

// The printed lines; a new page is a line "\f".
inline std::vector<std::string> Righe(const StampanteRegistrata& st) {
    std::vector<std::string> v;
    std::istringstream in(RigheStampate(st.operazioni));
    std::string r;
    while (std::getline(in, r)) v.push_back(r);
    return v;
}

// The texts printed (marks included), in order.
inline std::vector<OperazioneStampa> Testi(const StampanteRegistrata& st) {
    std::vector<OperazioneStampa> v;
    for (const auto& o : st.operazioni)
        if (o.tipo == OperazioneStampa::Tipo::Testo) v.push_back(o);
    return v;
}

inline int Conta(const StampanteRegistrata& st, OperazioneStampa::Tipo t) {
    int n = 0;
    for (const auto& o : st.operazioni) n += o.tipo == t;
    return n;
}

}  // namespace zef::prova
