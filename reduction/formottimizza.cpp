#include "reduction/formottimizza.h"

#include "core/colonne.h"
#include "core/giocate.h"
#include "core/sistema.h"
#include "reduction/copertura.h"
#include "reduction/form19.h"
#include "reduction/riduzione.h"
#include "reduction/sottoinsiemi.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <map>

namespace zef {

namespace {

StatoAvanzamento Stato(const AvanzamentoOttimizza& a, double secondi) {
    StatoAvanzamento st;
    st.titolo = FormOttimizza::Titolo;
    st.etichetta = "Ottimizzazione in corso...";
    st.etichetta1 = "Colonne (migliore):";
    st.testo1 = TestoSemplice(a.migliore);
    st.etichetta2 = a.limite > 0 ? "Partenza / limite inferiore:" : "Colonne di partenza:";
    st.testo2 = TestoSemplice(a.iniziale) + (a.limite > 0 ? " / " + TestoSemplice(a.limite) : std::string());
    st.suggerimento = "ESC per fermare e tenere la migliore";
    st.minimo = 0;
    st.massimo = secondi;
    st.valore = std::min(a.secondi, secondi);
    return st;
}

}  // namespace

void FormOttimizza::carica() {
    if (s_.TipoGaranzia >= 2 && s_.TipoGaranzia <= 5) garanzia = s_.TipoGaranzia;
    if (s_.SviluppoK >= 3 && s_.SviluppoK <= 10) k = s_.SviluppoK;
    if (garanzia >= k) garanzia = std::max(2, k - 1);
    compito = s_.NumColonne >= 1 && !s_.GaranziaAttiva ? 1 : 2;
}

bool FormOttimizza::clickAvvia() {
    const std::string t = Trim(secondi);
    const double sec = Val(t);
    if (t.empty() || t.find_first_not_of("0123456789") != std::string::npos || sec < 1 || sec > 3600) {
        ui_.messaggio(MessaggioSecondi, Titolo, Icona::Esclamazione);
        return false;
    }
    OpzioniOttimizza o;
    o.secondi = sec;
    o.seme = static_cast<uint64_t>(std::max(0.0, Val(seme)));
    o.passi = passi;
    return compito == 1 ? riduci(o) : copri(o);
}

bool FormOttimizza::riduci(const OpzioniOttimizza& o) {
    const int64_t n = s_.NumColonne;
    const int kk = s_.SviluppoK;
    if (n < 1 || kk < 2 || s_.colonne.k() != kk) {
        ui_.messaggio(MessaggioNessunaColonna, Titolo, Icona::Esclamazione);
        return false;
    }
    const int g = std::min(garanzia, kk);
    if (n * static_cast<int64_t>(riduzione::C(kk, g)) > LimiteVociRiduzione) {
        ui_.messaggio(MessaggioTroppe, Titolo, Icona::Esclamazione);
        return false;
    }
    // The start: the accurate reduction at this guarantee.
    int16_t tipo = static_cast<int16_t>(g);
    int16_t dimensione = static_cast<int16_t>(kk);
    s_.NumRidotte = 0;
    s_.MSFlexGrid1.Clear();
    ImpostaListaCol(s_, "0");
    RiduciAccurato(s_, ui_, tipo, dimensione);
    s_.TipoGaranzia = tipo;
    std::vector<Riga> colonne(static_cast<size_t>(n));
    for (int64_t c = 1; c <= n; ++c) {
        const uint8_t* p = s_.colonne.colonna(c);
        colonne[static_cast<size_t>(c - 1)].assign(p, p + kk);
    }
    // The kept columns as indices into the developed ones.
    std::vector<int64_t> inizio;
    {
        // A column is a set of numbers: its mask identifies it.
        std::map<std::pair<uint64_t, uint64_t>, int64_t> indice;
        for (size_t i = 0; i < colonne.size(); ++i) {
            Maschera m;
            for (uint8_t x : colonne[i]) m.aggiungi(x);
            indice.emplace(std::make_pair(m.lo, m.hi), static_cast<int64_t>(i));
        }
        for (int64_t r = 1; r <= s_.NumRidotte; ++r) {
            Maschera m;
            for (int p = 1; p <= kk; ++p) m.aggiungi(s_.ColonneRidotte.colonna(r)[p - 1]);
            const auto it = indice.find(std::make_pair(m.lo, m.hi));
            if (it == indice.end()) {
                ui_.messaggio(MessaggioPartenza, Titolo, Icona::Esclamazione);
                return false;
            }
            inizio.push_back(it->second);
        }
    }
    iniziale = static_cast<int64_t>(inizio.size());
    limite = 0;
    std::atomic<bool> ferma{false};
    AvanzamentoOttimizza primo;
    primo.iniziale = primo.migliore = iniziale;
    ui_.mostraAvanzamento(Stato(primo, o.secondi));
    EsitoOttimizza e;
    try {
        e = OttimizzaRiduzione(colonne, g, inizio, o, &ferma, [&](const AvanzamentoOttimizza& a) {
            ui_.aggiornaAvanzamento(Stato(a, o.secondi));
            for (int tasto : ui_.tastiAvanzamento())
                if (tasto == 27) ferma = true;
        });
    } catch (...) {
        ui_.chiudiAvanzamento();
        throw;
    }
    ui_.chiudiAvanzamento();
    interrotta = e.interrotta;
    // A start that does not keep the guarantee comes back as it was.
    if (static_cast<int64_t>(e.righe.size()) == iniziale) {
        std::vector<uint8_t> coperta(colonne.size(), 0);
        for (int64_t i : inizio) {
            Maschera m;
            for (uint8_t x : colonne[static_cast<size_t>(i)]) m.aggiungi(x);
            for (size_t c = 0; c < colonne.size(); ++c) {
                if (coperta[c]) continue;
                Maschera d;
                for (uint8_t x : colonne[c]) d.aggiungi(x);
                if (comuni(m, d) >= g) coperta[c] = 1;
            }
        }
        if (!std::all_of(coperta.begin(), coperta.end(), [](uint8_t c) { return c != 0; })) {
            ui_.messaggio(MessaggioPartenza, Titolo, Icona::Esclamazione);
            return false;
        }
    }
    ottimizzate = static_cast<int64_t>(e.righe.size());
    s_.ColonneRidotte.dimensiona(kk, ottimizzate + 1);
    for (int64_t r = 1; r <= ottimizzate; ++r)
        for (int p = 1; p <= kk; ++p) s_.ColonneRidotte.set(p, r, e.righe[static_cast<size_t>(r - 1)][static_cast<size_t>(p - 1)]);
    s_.NumRidotte = static_cast<int32_t>(ottimizzate);
    s_.pannelli[1] = "RIDOTTE: " + TestoConSegno(ottimizzate);
    s_.PercentualiValide = false;
    s_.SistemaSalvato = false;
    return true;
}

bool FormOttimizza::copri(const OpzioniOttimizza& o) {
    std::vector<uint8_t> numeri;
    for (int i = 1; i <= s_.NumPronostico && i < static_cast<int>(s_.Pronostico.size()); ++i)
        numeri.push_back(static_cast<uint8_t>(s_.Pronostico[static_cast<size_t>(i)]));
    std::sort(numeri.begin(), numeri.end());
    if (k < 3 || k > 10 || garanzia < 2 || garanzia >= k || static_cast<int>(numeri.size()) < k) {
        ui_.messaggio(MessaggioCopertura, Titolo, Icona::Esclamazione);
        return false;
    }
    // The start: the cover, without the integral plays.
    {
        Form19 f(s_, ui_);
        f.Combo1 = k - 3;
        f.Combo2 = garanzia - 2;
        if (!f.clickCommand1()) return false;
        EseguiTimer4(s_, ui_);
    }
    if (s_.Timer4Abilitato) return false;  // stopped half way
    std::vector<Riga> inizio;
    for (int64_t r = 0; r < s_.MSFlexGrid1.Rows(); ++r) {
        Riga riga;
        for (int p = 1; p <= k; ++p) riga.push_back(static_cast<uint8_t>(NumeroInRiga(s_.MSFlexGrid1.riga(r), p)));
        std::sort(riga.begin(), riga.end());
        inizio.push_back(std::move(riga));
    }
    std::vector<uint8_t> fisse;
    for (int f = 1; f <= s_.NumFissi; ++f) {
        const int i = f - s_.NumeriFissiBase;
        if (i >= 0 && i < static_cast<int>(s_.NumeriFissi.size())) fisse.push_back(static_cast<uint8_t>(s_.NumeriFissi[static_cast<size_t>(i)]));
    }
    if (!CoperturaCompleta(numeri, k, garanzia, fisse, s_.DistanzaMin, inizio)) {
        ui_.messaggio(MessaggioPartenza, Titolo, Icona::Esclamazione);
        return false;
    }
    iniziale = static_cast<int64_t>(inizio.size());
    std::atomic<bool> ferma{false};
    AvanzamentoOttimizza primo;
    primo.iniziale = primo.migliore = iniziale;
    ui_.mostraAvanzamento(Stato(primo, o.secondi));
    EsitoOttimizza e;
    try {
        e = OttimizzaCopertura(numeri, k, garanzia, fisse, s_.DistanzaMin, inizio, o, &ferma,
                               [&](const AvanzamentoOttimizza& a) {
                                   ui_.aggiornaAvanzamento(Stato(a, o.secondi));
                                   for (int tasto : ui_.tastiAvanzamento())
                                       if (tasto == 27) ferma = true;
                               });
    } catch (...) {
        ui_.chiudiAvanzamento();
        throw;
    }
    ui_.chiudiAvanzamento();
    interrotta = e.interrotta;
    limite = e.limite;
    ottimizzate = static_cast<int64_t>(e.righe.size());
    // The list and the rows as the cover leaves them.
    s_.MSFlexGrid1.Clear();
    s_.RigheRidotte.dimensiona(k, std::max<int64_t>(ottimizzate + 1, 2));
    for (int64_t r = 1; r <= ottimizzate; ++r) {
        const Riga& riga = e.righe[static_cast<size_t>(r - 1)];
        for (int p = 1; p <= k; ++p) s_.RigheRidotte.set(p, r, riga[static_cast<size_t>(p - 1)]);
        s_.MSFlexGrid1.AddItem(RigaCopertura(riga.data(), k));
    }
    ImpostaListaCol(s_, TestoSemplice(ottimizzate));
    s_.pannelli[1] = pannello::Ridotte(ottimizzate);
    if (ottimizzate > 0) Riprezza(s_);
    s_.TipoGaranzia = static_cast<int16_t>(garanzia);
    s_.GaranziaAttiva = true;
    s_.PercentualiValide = false;
    s_.SistemaSalvato = false;
    return true;
}

}  // namespace zef
