#include "files/filesistema.h"

#include "core/errori.h"
#include "core/form2.h"
#include "core/giocate.h"
#include "core/sistema.h"
#include "files/formato_lista.h"

#include <algorithm>
#include <filesystem>
#include <new>
#include <stdexcept>

namespace zef {

namespace {

// The columns of a store as the file holds them: k numbers a column. The store must
// hold them all, as the array bounds would demand.
void ScriviColonne(ScrittoreLista& w, const Colonne& c, int64_t quante, int k) {
    if (k <= 0 || quante <= 0) return;
    if (k > c.k() || quante > c.capacita()) throw errori::indiceFuoriIntervallo();
    w.colonne(c.dati(), quante, k, c.k());
}

double MassimoBarra(size_t lunghezza) { return static_cast<double>(std::max<size_t>(1, lunghezza / 128)); }

// The bar of the main window follows the position in 128-byte units, less one;
// it is refreshed only when that value moves by a visible step. Its maximum is
// never 0: a bar with no range would show as busy.
class Barra {
public:
    Barra(Interfaccia& ui, const LettoreLista& r)
        : ui_(ui), r_(r), massimo_(MassimoBarra(r.lunghezza())),
          passo_(std::max<size_t>(128, r.lunghezza() / 200)) {
        ui_.barraPrincipale(0, massimo_, 0);
    }
    void aggiorna() {
        size_t p = r_.posizione();
        if (p < ultimo_ + passo_) return;
        ultimo_ = p;
        double v = std::max(0.0, static_cast<double>(p / 128) - 1);
        ui_.barraPrincipale(0, massimo_, std::min(v, massimo_));
    }

private:
    Interfaccia& ui_;
    const LettoreLista& r_;
    double massimo_;
    size_t passo_;
    size_t ultimo_ = 0;
};

// Reads `quante` columns of k numbers into a store that holds them, a block at a time.
void LeggiColonne(LettoreLista& r, Barra& barra, Colonne& c, int64_t quante, int k) {
    if (k <= 0) return;
    constexpr int64_t Blocco = 4096;
    for (int64_t fatte = 0; fatte < quante; fatte += Blocco) {
        int64_t n = std::min(Blocco, quante - fatte);
        r.numeri(c.colonna(fatte + 1), n * k);
        barra.aggiorna();
    }
}

// A count of columns is taken only when a store can hold that many: a foreign
// file must not leave a count that later commands would walk past the store with.
int32_t Conteggio(LettoreLista& r) {
    long long n = r.intero(INT32_MIN, INT32_MAX);
    if (n < 0 || n > Colonne::CapacitaSviluppo) throw errori::indiceFuoriIntervallo();
    return static_cast<int32_t>(n);
}

ErroreEsecuzione ValoreNonValido() { return {errori::ValoreProprietaNonValido, "Valore della proprietà non valido"}; }

}  // namespace

void ScriviSistema(const Sistema& s, const std::string& percorso) {
    ScrittoreLista w(percorso);
    for (int i = 0; i < 90; ++i) w.intero(s.pad[i] ? 1 : 0);
    w.intero(s.TipoGaranzia);
    for (const auto& p : s.pannelli) w.testo(p);
    const int k = s.SviluppoK;
    w.intero(k);
    // A count below 1 is an empty store, written as 0 so that the file reads back.
    const int32_t colonne = std::max<int32_t>(0, s.NumColonne), ridotte = std::max<int32_t>(0, s.NumRidotte);
    w.intero(colonne);
    ScriviColonne(w, s.colonne, colonne, k);
    w.intero(ridotte);
    ScriviColonne(w, s.ColonneRidotte, ridotte, k);
    w.intero(s.MSFlexGrid1.Rows());
    w.righe(s.MSFlexGrid1);
    for (int i = 0; i <= 10; ++i) w.booleano(s.form2.Option1[i]);
    for (int i = 1; i <= 4; ++i) w.intero(s.form2.Check[i]);
    for (int i = 1; i <= 4; ++i) w.testo(s.form2.testi[i]);
    w.testo(s.Command2);
    w.valuta(s.CostoColonna);
    w.booleano(s.GaranziaAttiva);
    w.intero(s.DistanzaMin);
    w.chiudi();
}

void LeggiSistema(Sistema& s, Interfaccia& ui, const std::string& percorso) {
    FileInLettura file(percorso);
    LettoreLista r(file.fd(), file.lunghezza());
    Barra barra(ui, r);

    int conta = 0;
    for (int i = 0; i < 90; ++i) {
        long long flag = r.intero(INT16_MIN, INT16_MAX);
        s.pad[i] = flag == 1;
        if (s.pad[i]) {
            s.Label2 = TestoSemplice(++conta);
            // kept as it always was: C(n, 6) of the count so far, whatever k the file has
            double n = conta;
            s.NumCombinazioni = n * (n - 1) * (n - 2) * (n - 3) * (n - 4) * (n - 5) / 720;
        }
    }
    barra.aggiorna();
    if (conta > 0) s.PronosticoDalPad();
    s.NumPronostico = static_cast<int16_t>(conta);

    s.TipoGaranzia = static_cast<int16_t>(r.intero(INT16_MIN, INT16_MAX));
    for (auto& p : s.pannelli) p = r.testo();

    long long k = r.intero(INT16_MIN, INT16_MAX);
    if (k < 0) throw errori::indiceFuoriIntervallo();
    if (k > KMax) throw errori::memoriaEsaurita();  // a store of that many rows does not fit
    s.SviluppoK = static_cast<int16_t>(k);
    s.colonne.dimensiona(static_cast<int>(k));

    s.NumColonne = Conteggio(r);
    if (s.NumColonne > 0) s.PronosticoNonSviluppato = false;
    LeggiColonne(r, barra, s.colonne, s.NumColonne, static_cast<int>(k));

    int32_t ridotte = Conteggio(r);
    if (ridotte > 0) s.ColonneRidotte.dimensiona(static_cast<int>(k), ridotte);
    s.NumRidotte = ridotte;
    LeggiColonne(r, barra, s.ColonneRidotte, s.NumRidotte, static_cast<int>(k));

    long long righe = r.intero(INT32_MIN, INT32_MAX);
    if (righe > 0) {
        // room for as many rows as the rest of the file can hold (a row takes 3 bytes at least)
        int64_t posto = std::min<int64_t>(righe, static_cast<int64_t>(r.restanti() / 3));
        if (posto > 0) s.MSFlexGrid1.riserva(posto, static_cast<int64_t>(r.restanti()) / posto + 1);
    }
    r.righe(s.MSFlexGrid1, righe, [&] { barra.aggiorna(); });

    // Reading the play dialog's controls loads it.
    Form2 f2(s, ui);
    f2.carica();
    for (int i = 0; i <= 10; ++i) {
        // options are set one by one: one set True turns the others off
        if (r.booleano()) f2.clickOption1(i);
        else s.form2.Option1[i] = false;
    }
    for (int i = 1; i <= 4; ++i) {
        long long v = r.intero(INT16_MIN, INT16_MAX);
        if (v < 0 || v > 2) throw ValoreNonValido();
        bool cambia = (v != 0) != (s.form2.Check[i] != 0);
        s.form2.Check[i] = static_cast<int>(v);
        if (cambia) s.form2.lblCosto = f2.CalcolaCosto().testoDueDecimali();  // its click event
    }
    for (int i = 1; i <= 4; ++i) {
        std::string t = r.testo();
        if (!t.empty()) s.form2.testi[i] = t;
    }
    s.Command2 = r.testo();
    s.CostoColonna = r.valuta();
    s.GaranziaAttiva = r.booleano();
    s.DistanzaMin = static_cast<int16_t>(r.intero(INT16_MIN, INT16_MAX));
}

void ChiediSalvataggio(Sistema& s, Interfaccia& ui) {
    if (ui.messaggio("Vuoi salvare il sistema ?", "ATTENZIONE", Icona::Esclamazione, Pulsanti::SiNo) == Risposta::Si)
        SalvaConNome(s, ui);
}

namespace {

// The error trap of the three commands: a cancelled dialog passes in silence, any
// other error shows one box; the pointers go back in both cases.
template <class F>
void Intrappola(Interfaccia& ui, F&& comando) {
    auto mostra = [&](const std::string& testo) { ui.messaggio("Si è verificato l'errore seguente: " + testo); };
    try {
        comando();
    } catch (const ErroreEsecuzione& e) {
        ui.clessidra(false);
        if (e.numero != errori::AnnullaDialogo) mostra(e.testo());
    } catch (const std::bad_alloc&) {
        ui.clessidra(false);
        mostra(errori::memoriaEsaurita().testo());
    } catch (const std::length_error&) {
        ui.clessidra(false);
        mostra(errori::memoriaEsaurita().testo());
    }
}

void SalvaSu(Sistema& s, Interfaccia& ui, const std::string& nome) {
    ui.clessidra(true);
    ScriviSistema(s, nome);
    s.titolo = titoli::Sistema(nome);
    s.SistemaSalvato = true;
    s.SalvaAbilitato = true;
    s.PercentualiValide = false;
    ui.clessidra(false);
}

}  // namespace

void SalvaConNome(Sistema& s, Interfaccia& ui) {
    Intrappola(ui, [&] {
        auto nome = ui.dialogoSalva(FiltroFileSistema);
        if (!nome) throw errori::annullaDialogo();
        s.FileName = *nome;
        if (!nome->empty()) SalvaSu(s, ui, *nome);
    });
}

void Salva(Sistema& s, Interfaccia& ui) {
    if (s.FileName.empty()) return;  // the toolbar button stays enabled without a name
    Intrappola(ui, [&] { SalvaSu(s, ui, s.FileName); });
}

void Apri(Sistema& s, Interfaccia& ui) {
    if (!s.SistemaSalvato) ChiediSalvataggio(s, ui);
    Intrappola(ui, [&] {
        auto nome = ui.dialogoApri(FiltroFileSistema);
        if (!nome) throw errori::annullaDialogo();
        s.FileName = *nome;
        s.Pronostico.clear();
        s.PronosticoScalare = true;
        if (nome->empty()) return;
        ui.clessidra(true);
        s.MSFlexGrid1.Clear();
        s.Label2 = "0";
        LeggiSistema(s, ui, *nome);
        ImpostaListaCol(s, TestoSemplice(s.MSFlexGrid1.Rows()));
        // one below the levels of the reduction dialog's options, kept as it always was
        switch (s.TipoGaranzia) {
            case 4: s.form5.Option = {true, false, false, false}; break;
            case 3: s.form5.Option = {false, true, false, false}; break;
            case 2: s.form5.Option = {false, false, true, false}; break;
            case 1: s.form5.Option = {false, false, false, true}; break;
            default: break;
        }
        if (s.TipoGaranzia >= 1 && s.TipoGaranzia <= 4) s.form5.caricato = true;
        s.titolo = titoli::Sistema(*nome);
        s.SistemaSalvato = true;
        s.SalvaAbilitato = true;
        s.PercentualiValide = false;
        ui.clessidra(false);
    });
    // whatever happened: the bar back to 0, on the range of the file when there was one
    double massimo = 100;
    std::error_code e;
    if (!s.FileName.empty()) {
        auto n = std::filesystem::file_size(s.FileName, e);
        if (!e) massimo = MassimoBarra(static_cast<size_t>(n));
    }
    ui.barraPrincipale(0, massimo, 0);
    s.NumeriColonnaMax = 8;
    if (Val(s.Label2) > 0) s.PronosticoDalPad();
}

}  // namespace zef
