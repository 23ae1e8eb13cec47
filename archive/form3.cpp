#include "archive/form3.h"

#include "archive/date.h"
#include "core/basic.h"
#include "core/errori.h"
#include "core/percorsi.h"

#include <cmath>
#include <regex>

namespace zef {

namespace {
constexpr const char* MessaggioMemorizzata = "L'estrazione è stata memorizzata con successo.";
constexpr const char* DomandaCancella = "Eliminare l'estrazione corrente?";
constexpr const char* ErroreSeguente = "Si è verificato l'errore seguente: ";

// Runs one statement with its errors passed over.
template <class F>
void ignoraErrori(F&& f) {
    try {
        f();
    } catch (...) {
    }
}

// A text the run time takes for a number: digits with an optional sign and decimals.
std::optional<double> numerico(const std::string& t) {
    static const std::regex forma(R"(^\s*[+-]?(\d+([.,]\d*)?|[.,]\d+)\s*$)");
    if (!std::regex_match(t, forma)) return std::nullopt;
    std::string u = Trim(t);
    for (char& c : u)
        if (c == ',') c = '.';
    return std::strtod(u.c_str(), nullptr);
}
}  // namespace

Form3::Form3(Sistema& s, Interfaccia& ui, Form3Collegamenti collegamenti, std::string archivio)
    : s_(s), ui_(ui), col_(std::move(collegamenti)), archivio_(std::move(archivio)) {
    oggi = [] { return OggiIso(); };
    Command[1] = {" Fr./Rit. Num.", "Elabora le frequenze ed i ritardi dei 90 numeri"};
    Command[2] = {"ESCI", ""};
    Command[3] = {"NUOVA", ""};
    Command[4] = {"MEMORIZZA", ""};
    Command[5] = {"CANCELLA", ""};
    Command[6] = {"Rit. Ambi", "Elabora i ritardi per i 4005 ambi possibili"};
    Command[7] = {"Fr. Ambi", "Elabora le frequenze per i 4005 ambi possibili"};
    Command[8] = {"Vai al n°.", "Visualizza l'estrazione numero...", true};
    Label[4] = Command[1].Caption;
    Label[5] = Command[3].Caption;
    Label[6] = Command[2].Caption;
    Label[7] = Command[5].Caption;
    Label[8] = Command[6].Caption;
    Label[12] = Command[7].Caption;
    Label[13] = Command[4].Caption;
    Label[14] = "Modifica Estrazioni";
    Label[18] = "Statistiche";
    Command[1].Enabled = static_cast<bool>(col_.mostraForm13);
    Command[6].Enabled = static_cast<bool>(col_.mostraForm25);
    Command[7].Enabled = static_cast<bool>(col_.mostraForm27);
    Data1.Reposition = [this] { Data1_Reposition(); };
}

void Form3::carica() {
    if (col_.caricaForm7) col_.caricaForm7();
    Data1.DatabaseName = archivio_.empty() ? FileDati("archivio.db") : archivio_;
    caricato = true;
    try {
        Data1.Refresh();
    } catch (const ErroreEsecuzione& e) {
        // The data control reports a file it cannot open in a box of its own.
        ui_.messaggio(e.testo(), "", Icona::Critico);
    }
}

void Form3::attiva() {
    InModifica = false;
    if (!Data1.aperto()) return;
    Data1.Recordset().MoveLast();
}

void Form3::Data1_Reposition() {
    if (InModifica || !Data1.aperto()) return;
    Cursore& rs = Data1.Recordset();
    // A null field fails and is passed over: its box keeps the previous draw's number.
    for (int w = 1; w <= NumRuote; ++w)
        for (int p = 1; p <= 5; ++p)
            ignoraErrori([&] { Text1[(w - 1) * 5 + p - 1] = rs.campo(NomeCampo(w, p)).comeTesto(); });
    ignoraErrori([&] { label23 = DataBreve(rs.campo("data").comeTesto()); });
    ignoraErrori([&] {
        Label19 = "N° " + TestoConSegno(rs.AbsolutePosition() + 1) + " su " + TestoConSegno(rs.RecordCount());
    });
}

void Form3::mouseSuLabel(int numero) {
    switch (numero) {
        case 4: Command[1].Visible = true; break;
        case 6: Command[2].Visible = true; break;
        case 5: Command[3].Visible = true; break;
        case 13: Command[4].Visible = true; break;
        case 7: Command[5].Visible = true; break;
        case 8: Command[6].Visible = true; break;
        case 12: Command[7].Visible = true; break;
        default: break;
    }
}

void Form3::mouseSuForm() {
    for (int i = 1; i <= 7; ++i) Command[i].Visible = false;
}

void Form3::clickCommand3() {
    for (auto& t : Text1) t.clear();
    label23 = DataBreve(oggi());
    focus = 0;
}

void Form3::clickCommand4() {
    Cursore* rs = nullptr;
    try {
        rs = &Data1.Recordset();
        InModifica = true;
        rs->AddNew();
        for (int w = 1; w <= NumRuote; ++w)
            for (int p = 1; p <= 5; ++p) rs->imposta(NomeCampo(w, p), Valore(Text1[(w - 1) * 5 + p - 1]));
        rs->imposta("data", Valore(label23));
        rs->Update();  // the store gives the id
        InModifica = false;
        rs->MoveFirst();
        rs->MoveLast();
        if (col_.scaricaForm6) col_.scaricaForm6();
        ui_.messaggio(MessaggioMemorizzata, "FINESTRA INFORMATIVA", Icona::Esclamazione);
        if (col_.scaricaForm25) col_.scaricaForm25();
    } catch (const ErroreEsecuzione& e) {
        // The draw stays unsaved; the boxes follow the cursor again.
        if (rs) rs->CancelUpdate();
        InModifica = false;
        ui_.messaggio(std::string(ErroreSeguente) + e.testo(), "ERRORE", Icona::Critico);
    } catch (const std::exception& e) {
        if (rs) rs->CancelUpdate();
        InModifica = false;
        ui_.messaggio(std::string(ErroreSeguente) + e.what(), "ERRORE", Icona::Critico);
    }
}

void Form3::clickCommand5() {
    if (ui_.messaggio(DomandaCancella, "ATTENZIONE", Icona::Domanda, Pulsanti::SiNo) == Risposta::Si) {
        // Passed over: deleting with no current row shows nothing. After deleting the
        // first draw the cursor stands before the first and the boxes keep its numbers.
        ignoraErrori([&] { Data1.Recordset().Delete(); });
        ignoraErrori([&] { Data1.Recordset().MovePrevious(); });
    }
    if (col_.scaricaForm25) col_.scaricaForm25();
}

void Form3::clickCommand8() {
    if (!Data1.aperto()) return;
    Cursore& rs = Data1.Recordset();
    const long totale = rs.RecordCount();
    auto risposta = ui_.inputBox(
        "Inserire l'estrazione che si vuole visualizzare (da 1 a " + TestoConSegno(totale) + ")", "");
    if (!risposta) return;
    auto n = numerico(*risposta);
    if (!n || *n < 1 || *n > totale) return;
    // A position among the rows, not an id.
    rs.MoveFirst();
    rs.Move(static_cast<long>(ArrotondaBanker(*n)) - 1);
}

void Form3::apriStatistica(const std::function<void()>& mostra, bool clessidra) {
    if (!mostra) return;
    if (clessidra) ui_.clessidra(true);
    mostra();
    if (clessidra) ui_.clessidra(false);
}

void Form3::clickCommand1() { apriStatistica(col_.mostraForm13, true); }
void Form3::clickCommand6() { apriStatistica(col_.mostraForm25, false); }
void Form3::clickCommand7() { apriStatistica(col_.mostraForm27, false); }

void Form3::clickCommand2() { scarica(); }

void Form3::scarica() {
    Data1.Chiudi();
    caricato = false;
    InModifica = false;
    for (int i = 1; i <= 7; ++i) Command[i].Visible = false;
}

}  // namespace zef
