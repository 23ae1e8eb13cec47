#include "wincheck/form6.h"

#include "archive/archivio.h"
#include "archive/date.h"
#include "core/errori.h"
#include "core/percorsi.h"
#include "core/sistema.h"
#include "core/vocabolario.h"
#include "wincheck/form16.h"

#include <algorithm>
#include <cctype>
#include <optional>

namespace zef {

namespace {
// Runs one statement with its errors passed over.
template <class F>
void ignoraErrori(F&& f) {
    try {
        f();
    } catch (...) {
    }
}

constexpr const char* ZeroEtichetta = " 0";

// A box of a draw to store: empty, or a whole number 1..90 written in digits.
std::optional<int> NumeroEstratto(const std::string& testo, bool& valido) {
    const std::string t = Trim(testo);
    if (t.empty()) return std::nullopt;
    valido = valido && t.size() <= 2 && std::all_of(t.begin(), t.end(), [](unsigned char c) { return std::isdigit(c); });
    if (!valido) return std::nullopt;
    const int n = std::stoi(t);
    if (n < 1 || n > NumeriLotto) valido = false;
    return n;
}
}  // namespace

Form6::Form6(Sistema& s, Interfaccia& ui, Form7& form7, std::string archivio)
    : s_(s), ui_(ui), f7_(form7), archivio_(std::move(archivio)) {
    oggi = [] { return OggiIso(); };
    punti.fill(ZeroEtichetta);
    lblVincitaTotale = ZeroEtichetta;
    Data1.Reposition = [this] { Data1_Reposition(); };
}

void Form6::carica() {
    f7_.carica();
    Data1.DatabaseName = archivio_.empty() ? FileDati("archivio.db") : archivio_;
    caricato = true;
    // A missing or damaged archive leaves the boxes empty: a draw can still be typed.
    ignoraErrori([&] { Data1.Refresh(); });
    ignoraErrori([&] { Data1.Recordset().MoveLast(); });
}

void Form6::attiva() { Inserimento = false; }

void Form6::Data1_Reposition() {
    if (Inserimento || !Data1.aperto()) return;
    Cursore& rs = Data1.Recordset();
    // A null field fails and is passed over: its box keeps what it held.
    for (int w = 1; w <= NumRuote; ++w)
        for (int p = 1; p <= 5; ++p)
            ignoraErrori([&] { Text1[static_cast<size_t>((w - 1) * 5 + p - 1)] = rs.campo(NomeCampo(w, p)).comeTesto(); });
    ignoraErrori([&] { Label23 = DataBreve(rs.campo("data").comeTesto()); });
}

void Form6::clickCommand1() {
    f7_.List1.clear();
    const int64_t righe = s_.MSFlexGrid1.Rows();
    if (righe == 0) {
        ui_.messaggio(MessaggioListaVuota, "", Icona::Informazione);
        scarica();
        return;
    }
    barraVisibile = true;
    barraMassimo = static_cast<double>(righe);
    barraValore = 0;
    Timer1 = true;
    ui_.clessidra(true);
    focus = 0;
}

void Form6::tickTimer1() {
    if (!Timer1) return;
    punti.fill(ZeroEtichetta);
    lblVincitaTotale = ZeroEtichetta;
    const GiocataSpoglio g = GiocataDa(s_);
    EsitoSpoglio esito = Spoglia(s_.MSFlexGrid1, g, CaselleDaTesti(Text1), true,
                                 [this](int64_t r) { barraValore = static_cast<double>(r); });
    for (int s = 0; s < NumSorti; ++s) {
        const int64_t n = esito.vincite[static_cast<size_t>(s)];
        if (n > 0) punti[static_cast<size_t>(s)] = TestoSemplice(n);
    }
    f7_.List1 = std::move(esito.righe);
    lblVincitaTotale = ValoreVincite(punti, s_.form2.testi, g);
    Timer1 = false;
    barraValore = 0;
    barraVisibile = false;
    ui_.clessidra(false);
}

void Form6::clickCommand2() {
    bool ultima = false;
    if (Data1.aperto()) {
        Cursore& rs = Data1.Recordset();
        ultima = rs.RecordCount() > 0 && rs.AbsolutePosition() + 1 == rs.RecordCount();
    }
    if (!ultima) return;
    if (ui_.messaggio(DomandaMemorizza, TitoloDomanda, Icona::Domanda, Pulsanti::SiNo) != Risposta::Si) return;
    std::array<int64_t, NumSorti> conteggi{};
    std::array<bool, NumSorti> sorti{};
    for (size_t s = 0; s < NumSorti; ++s) {
        conteggi[s] = static_cast<int64_t>(Val(punti[s]));
        sorti[s] = s_.form2.Check[s] == 1;
    }
    const Currency vinta = Currency::daTestoLocale(DoubleInTesto(NumeroDaTesto(lblVincitaTotale)));
    const Currency spesa = s_.CostoColonna * s_.MSFlexGrid1.Rows();
    ArchivioEstrazioni archivio(Data1.DatabaseName);
    AggiungiVincite(archivio, conteggi, sorti, vinta, spesa);
}

void Form6::clickCommand3() {
    for (auto& t : Text1) t.clear();
    Label23 = DataBreve(oggi());
    focus = 0;
}

void Form6::clickCommand4() {
    // Only a draw that can exist is stored: whole wheels of five different numbers
    // 1..90, or wheels left empty (not drawn).
    std::array<std::optional<int>, NumCaselle> numeri;
    bool valido = true;
    int ruotePiene = 0;
    for (int w = 0; w < NumRuote && valido; ++w) {
        int pieni = 0;
        for (int p = 0; p < 5; ++p) {
            const size_t i = static_cast<size_t>(5 * w + p);
            numeri[i] = NumeroEstratto(Text1[i], valido);
            if (numeri[i]) ++pieni;
            for (int q = 0; q < p && numeri[i]; ++q)
                if (numeri[static_cast<size_t>(5 * w + q)] == numeri[i]) valido = false;
        }
        if (pieni != 0 && pieni != 5) valido = false;
        if (pieni == 5) ++ruotePiene;
    }
    if (!valido || ruotePiene == 0) {
        ui_.messaggio(MessaggioNumeriNonValidi, "ATTENZIONE", Icona::Esclamazione);
        return;
    }
    Inserimento = true;
    Cursore& rs = Data1.Recordset();
    ArchivioEstrazioni::Transazione transazione(*Data1.connessione());
    try {
        rs.AddNew();
        for (int w = 1; w <= NumRuote; ++w)
            for (int p = 1; p <= 5; ++p) {
                const auto& n = numeri[static_cast<size_t>((w - 1) * 5 + p - 1)];
                rs.imposta(NomeCampo(w, p), n ? Valore(static_cast<int64_t>(*n)) : Valore());
            }
        rs.imposta("data", Valore(oggi()));
        rs.Update();
        transazione.Commit();
    } catch (...) {
        rs.CancelUpdate();
        throw;
    }
    ui_.messaggio(MessaggioMemorizzata, "FINESTRA INFORMATIVA", Icona::Esclamazione);
}

void Form6::scarica() {
    caricato = false;
    Timer1 = false;
    barraVisibile = false;
    Inserimento = false;
    Data1.Chiudi();
    punti.fill(ZeroEtichetta);
    lblVincitaTotale = ZeroEtichetta;
    for (auto& t : Text1) t.clear();
    Label23.clear();
}

}  // namespace zef
