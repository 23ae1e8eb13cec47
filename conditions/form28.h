// "Impostazione delle condizioni": the conditions dialog, without a window.
//
// Fifteen tabs, each with its "attiva" box; the controls under their own names; the
// list editors of filter columns, sections and sequences, which write their tables
// at each add or delete; the fixed numbers list, written at each tick; Accetta
// (CliccaAccetta) copies the rest of the controls into the condition set. The
// constructor installs the filter of the development on the sistema.
#pragma once

#include "conditions/condizioni.h"
#include "archive/fonte_estrazioni.h"
#include "core/interfaccia.h"

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace zef {

struct Sistema;

namespace form28 {
inline const char* Titolo = "Impostazione delle condizioni";
extern const std::array<const char*, 15> Schede;
extern const std::array<const char*, 15> Aiuti;
constexpr int ColoreGiallo = 65535;
constexpr int ColorePulsante = -2147483633;  // the system's button face
constexpr int ColoreBlu = 16711680;
constexpr int ColoreNero = 0;
}  // namespace form28

class Form28 {
public:
    Form28(Sistema& s, Interfaccia& ui);
    // Takes its reset hook off the sistema; the installed filter keeps the set alive.
    ~Form28();
    Form28(const Form28&) = delete;
    Form28& operator=(const Form28&) = delete;

    // The condition set the filter reads.
    std::shared_ptr<Condizioni> condizioni() const { return cond_; }
    // The archive for the two archive-based conditions (null: those tables stay empty).
    FonteEstrazioni* archivio = nullptr;
    // Shows the dialog again after Resetta (the window layer wires it).
    std::function<void()> mostra;

    // ---- controls -------------------------------------------------------------------
    int SSTab1 = 0;
    std::array<int, 15> chkAttivo{};
    std::vector<std::string> List1;  // fixed numbers, with a tick each
    std::vector<bool> List1Spuntato;
    int Combo1 = 0, Combo2 = 4, Combo3 = 1, Combo5 = 4, Combo6 = 0, Combo7 = 4, Combo8 = 1, Combo9 = 0, Combo10 = 6;
    std::array<int, 6> Check1{};
    std::array<int, 90> chkNumeriCF{};
    std::array<int, 6> chkPuntiCF{};
    std::array<bool, 90> chkNumeriCFAbilitato{};
    std::vector<std::string> List2, List3, List4;
    int List2Indice = -1, List3Indice = -1, List4Indice = -1;  // selected entry, -1 none
    std::string txtSezioneDa, txtSezioneA, txtSezioneMin, txtSezioneMax, txtSezioneCMin, txtSezioneCMax;
    std::array<std::string, 2> txtSomma;
    std::string txtPariMin, txtPariMax, txtPariCons, txtDispariMin, txtDispariMax, txtDispariCons;
    std::string txtDistanzaMin, txtDistanzaMax;
    std::array<int, 4> chkGruppiPari{};
    std::array<int, 7> chkGruppiDispari{};
    std::array<int, 6> chkInterruzioniPD{};
    std::array<int, 90> Check18{};
    std::array<bool, 90> Check18Abilitato{};
    int Check20 = 0;
    std::string txtPosizioni;
    std::array<std::string, 3> Command11;  // "", "P", "D"
    std::array<int, 6> Check2{};
    std::string txtNcolonne, txtRitardoMin, txtRitardoMax, txtFrequenzaMin, txtFrequenzaMax, txtUltimeEstrazioni;
    std::string Text1;  // hidden focus box, also a scratch field for the archive count

    static std::vector<std::string> voci(int combo);  // items of ComboN

    // ---- life --------------------------------------------------------------------------
    void carica();
    // Each time the dialog comes to the front.
    void attiva();
    // Fits the sums and the fixed numbers list to the forecast.
    void ResettaCondizioni();

    // ---- fixed numbers -------------------------------------------------------------------
    void spuntaList1(int indice, bool spuntato);

    // ---- typing and limits ------------------------------------------------------------------
    // A key typed in a field: false when the field refuses it; "." becomes ",".
    bool tasto(const std::string& campo, char& c);
    // Leaving a field applies its limit.
    void esci(const std::string& campo);
    // A spin button by its name ("UpDown7(1)", "UpDown12", "UpDownPariMax"...).
    void spin(const std::string& nome, bool su);
    // Text of a field by name (null if unknown).
    std::string* campo(const std::string& nome);

    // ---- boxes --------------------------------------------------------------------------------
    void clickNumeroCF(int i, int valore);
    void clickCheck18(int i, int valore);
    int coloreNumeroCF(int i) const { return chkNumeriCF[i] ? form28::ColoreGiallo : form28::ColorePulsante; }
    int coloreCheck18(int i) const { return Check18[i] ? form28::ColoreGiallo : form28::ColorePulsante; }
    int testoNumeroCF(int i) const { return chkNumeriCFAbilitato[i] ? form28::ColoreBlu : form28::ColoreNero; }

    // ---- list editors ---------------------------------------------------------------------------
    void clickCommand1();  // filter: add
    void clickCommand2();  // modify
    void clickCommand3();  // delete
    void clickCommand4();  // reset, asks
    void clickCommand5();  // clear the boxes
    void clickCommand10();  // section: add
    void clickCommand9();
    void clickCommand8();
    void clickCommand7();
    void clickCommand6();
    void clickCommand11(int i);  // sign button: "" -> "P" -> "D" -> ""
    void clickCommand15();       // sequence: add
    void clickCommand14();
    void clickCommand13();
    void clickCommand12();
    void clickCommand16();  // clear: runs off Check2, raises error 9

    // ---- positions --------------------------------------------------------------------------------
    void upDown10(bool su);
    void cambiaTxtPosizioni();

    // ---- buttons ----------------------------------------------------------------------------------
    void CliccaAccetta();  // axButton1
    void clickResetta();   // axButton2, asks
    bool visibile = false;

    void ElaboraFrequenze(long n);
    void ElaboraRitardi(long n);

private:
    int ruota() const;  // w = 1..12, 0 when no wheel is chosen
    void costruisciNumeriArchivio();
    bool scorriUltime(long n, const std::function<void(const EstrazioneLetta&, int)>& visita);

    Sistema& s_;
    Interfaccia& ui_;
    std::shared_ptr<Condizioni> cond_;
};

// Loads a conditions file (JSON) into the dialog as a user would set it, then accepts.
// A bad file shows a clear message and changes nothing; returns false then.
bool CaricaCondizioniJson(const std::string& percorso, Form28& f, Interfaccia& ui);
// Writes the dialog's controls to a conditions file. False (with a message) on failure.
bool SalvaCondizioniJson(const std::string& percorso, const Form28& f, Interfaccia& ui);

}  // namespace zef
