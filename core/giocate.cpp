#include "core/giocate.h"

#include "core/errori.h"
#include "core/sistema.h"

#include <algorithm>
#include <new>

namespace zef {

void ScriviRiga(const uint8_t* numeri, int k, char* dest) {
    for (int p = 0; p < k; ++p) {
        int n = numeri[p];
        char* d = dest + p * LarghezzaNumero;
        // blank where the sign would stand, the digits, blanks up to the width
        d[0] = ' ';
        if (n >= 10) {
            d[1] = static_cast<char>('0' + n / 10);
            d[2] = static_cast<char>('0' + n % 10);
        } else {
            d[1] = static_cast<char>('0' + n);
            d[2] = ' ';
        }
    }
}

std::string TestoRiga(const uint8_t* numeri, int k) {
    std::string r(static_cast<size_t>(k) * LarghezzaNumero, ' ');
    ScriviRiga(numeri, k, r.data());
    return r;
}

int NumeroInRiga(std::string_view riga, int p) {
    size_t inizio = static_cast<size_t>(3 * p - 3);
    if (inizio >= riga.size()) return 0;
    return static_cast<int>(Val(riga.substr(inizio, 3)));
}

void Riprezza(Sistema& s) {
    double costo = s.CostoColonna.inDouble() * static_cast<double>(s.MSFlexGrid1.Rows());
    s.pannelli[2] = pannello::Costo(DoubleInTesto(costo));
}

void ImpostaListaCol(Sistema& s, const std::string& testo) {
    if (s.ListaCol == testo) return;  // a change event fires only on a change
    s.ListaCol = testo;
    Riprezza(s);
}

void Visualizza(Sistema& s, Interfaccia& ui) {
    // A count below 1 (a development that ended on its first candidate leaves -1) is
    // an empty store.
    if (s.NumColonne <= 0 && s.NumRidotte <= 0) {
        ui.messaggio("Nessuna giocata presente in memoria!", "FINESTRA INFORMATIVA", Icona::Informazione);
        return;
    }
    ui.clessidra(true);
    s.MSFlexGrid1.Clear();
    const bool ridotte = s.NumRidotte > 0;
    const Colonne& sorgente = ridotte ? s.ColonneRidotte : s.colonne;
    const int64_t conta = ridotte ? s.NumRidotte : s.NumColonne;
    if (!ridotte) {
        s.TipoGaranzia = 0;
        s.pannelli[1] = pannello::RidotteZero;
        s.pannelli[2] = pannello::CostoZero;
    }
    const int k = sorgente.k();
    try {
        ui.barraPrincipale(0, static_cast<double>(conta), 0);
        int passo = 0;
        s.MSFlexGrid1.costruisci(conta, k * LarghezzaNumero, [&](int64_t r, char* dest) {
            ScriviRiga(sorgente.colonna(r + 1), k, dest);
            if (++passo == 300) {
                passo = 0;
                ui.barraPrincipale(0, static_cast<double>(conta), static_cast<double>(r + 1));
            }
        });
    } catch (const std::bad_alloc&) {
        s.MSFlexGrid1.Clear();
        ui.barraPrincipale(0, 0, 0);
        ui.clessidra(false);
        ui.messaggio("Errore: " + std::string(errori::memoriaEsaurita().testo()));
        return;
    }
    ImpostaListaCol(s, TestoSemplice(conta));
    if (ridotte) {
        s.pannelli[1] = pannello::Ridotte(s.NumRidotte);
        s.pannelli[2] = pannello::Costo((s.CostoColonna * s.NumRidotte).testoLocale());
    }
    ui.barraPrincipale(0, static_cast<double>(conta), 0);
    s.PercentualiValide = false;
    ui.clessidra(false);
    if (s.form4.visibile) {
        s.form4.visibile = false;
        ui.chiudiAvanzamento();
    }
}

void EliminaSelezionate(Sistema& s) {
    ListaGiocate& g = s.MSFlexGrid1;
    if (g.Rows() == 0) return;
    int64_t a = g.Row, b = g.RowSel;
    if (b < a) std::swap(a, b);
    a = std::clamp<int64_t>(a, 0, g.Rows() - 1);
    b = std::clamp<int64_t>(b, 0, g.Rows() - 1);
    // Moving each selected row to the end and dropping it keeps the others in order.
    g.rimuovi(a, b);
    g.Row = g.RowSel = std::min<int64_t>(a, std::max<int64_t>(g.Rows() - 1, 0));
    ImpostaListaCol(s, TestoSemplice(g.Rows()));
}

void EliminaRigaCorrente(Sistema& s) {
    ListaGiocate& g = s.MSFlexGrid1;
    if (g.Rows() == 1) {
        g.Clear();
    } else if (g.Rows() > 1) {
        int64_t r = std::clamp<int64_t>(g.Row, 0, g.Rows() - 1);
        g.rimuovi(r, r);
        g.Row = g.RowSel = std::min<int64_t>(r, g.Rows() - 1);
    }
    ImpostaListaCol(s, TestoSemplice(g.Rows()));
}

void Form17::digita(std::string_view caratteri) {
    std::string maschera = Maschera;
    if (MaskEdBox1.empty()) MaskEdBox1.assign(maschera.size(), ' ');
    size_t pos = 0;
    for (char c : caratteri) {
        while (pos < maschera.size() && maschera[pos] != '#') ++pos;
        if (pos >= maschera.size()) break;
        bool valido = (c >= '0' && c <= '9') || c == ' ' || c == '+' || c == '-';
        if (!valido) continue;
        MaskEdBox1[pos++] = c;
    }
}

void Form17::clickCommand1() {
    // An untouched box reads as empty: nothing is added.
    if (!MaskEdBox1.empty() && MaskEdBox1.find_first_not_of(' ') != std::string::npos) {
        s_.MSFlexGrid1.AddItem(MaskEdBox1);
        ImpostaListaCol(s_, TestoSemplice(s_.MSFlexGrid1.Rows()));
    }
    scaricato_ = true;
}

}  // namespace zef
