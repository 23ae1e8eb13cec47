#include "core/form2.h"

#include "core/sistema.h"
#include "core/vocabolario.h"

namespace zef {

namespace {
// Kinds in the order the cost walks them: Ambo, Terno, Quaterna, Cinquina, Estratto.
constexpr std::array<int, 5> OrdineCosto = {1, 2, 3, 4, 0};

// What one euro wins with k numbers on one wheel, taken exactly as the table stands.
constexpr double Fattori[9][5] = {
    // Estratto Ambo    Terno   Quaterna  Cinquina
    {5.62, 250, 0, 0, 0},                         // 2
    {3.74, 83.3, 4500, 0, 0},                     // 3
    {2.81, 41.67, 1125, 120000, 0},               // 4
    {2.25, 25, 450, 24000, 6000000},              // 5
    {1.87, 16.67, 225, 8000, 1000000},            // 6
    {1.6, 11.9, 128.57, 3428.57, 285714.29},      // 7
    {1.4, 8.93, 80.36, 1714.29, 107142.86},       // 8
    {1.25, 6.94, 53.57, 952, 47619.05},           // 9
    {1.12, 5.56, 37.5, 571, 23809.52},            // 10
};
}  // namespace

double FattoreVincita(int k, int sorte) {
    if (k < 2 || k > 10 || sorte < 0 || sorte > 4) return 0;
    return Fattori[k - 2][sorte];
}

void Form2::carica() {
    if (s_.form2.caricato) return;
    s_.form2.scarica();
    s_.form2.caricato = true;
}

void Form2::scarica() { s_.form2.scarica(); }

void Form2::attiva() {
    carica();
    auto& f = s_.form2;
    for (int sorte = 1; sorte <= 4; ++sorte) f.abilitato[sorte] = false;
    f.abilitato[0] = s_.SviluppoK != 0;
    // A kind is on offer only if a column can hold it; the ticks are left alone.
    for (int sorte = 1; sorte <= 4; ++sorte)
        if (s_.SviluppoK >= sorte + 1) f.abilitato[sorte] = true;
}

Currency Form2::CalcolaCosto() {
    auto& f = s_.form2;
    Currency totale;
    for (auto& t : f.testi) t = FormatoDecimali(0, 2);
    for (int sorte : OrdineCosto) {
        if (!f.Check[sorte]) continue;
        for (int i = 0; i < 13; ++i) {
            if (!f.chkAmbo[BaseChkAmbo[sorte] + i]) continue;
            Currency importo = Currency::daDecimillesimi(ImportiPuntata[i]);
            totale += importo;
            // The label is read back and added to as a number: a running sum, never rounded.
            f.testi[sorte] = DoubleInTesto(NumeroDaTesto(f.testi[sorte]) + importo.inDouble());
        }
    }
    return totale;
}

void Form2::clickCheck(int sorte, bool spuntata) {
    carica();
    if (sorte < 0 || sorte > 4) return;
    s_.form2.Check[sorte] = spuntata ? 1 : 0;
    s_.form2.lblCosto = CalcolaCosto().testoDueDecimali();
}

void Form2::clickChkAmbo(int indice, bool spuntata) {
    carica();
    if (indice < 0 || indice > 64) return;
    s_.form2.chkAmbo[indice] = spuntata;
    s_.form2.lblCosto = CalcolaCosto().testoDueDecimali();
}

void Form2::clickOption1(int ruota) {
    carica();
    if (ruota < 0 || ruota > 11) return;
    s_.form2.Option1.fill(false);
    s_.form2.Option1[ruota] = true;
}

void Form2::clickCommand1() {
    carica();
    auto& f = s_.form2;
    Currency t = CalcolaCosto();
    const Currency uno = Currency::daInteri(1), duecento = Currency::daInteri(200);
    if (t < uno && s_.NumColonne >= 1) {
        ui_.messaggio("L'importo totale di giocata non può essere inferiore di 1", "Puntata non valida",
                      Icona::Critico);
        scarica();
        return;
    }
    if (t > duecento && s_.NumColonne >= 1) {
        ui_.messaggio("L'importo totale di giocata non può superare 200", "Puntata non valida", Icona::Critico);
        scarica();
        return;
    }
    int r = f.ruota();
    std::string ruota = r < 12 ? NomiRuote[r] : "";
    static constexpr std::array<const char*, 5> Prefissi = {"Estratto € ", "Ambo € ", "Terno € ", "Quaterna € ",
                                                           "Cinquina € "};
    std::string didascalia = ruota;
    for (int sorte = 0; sorte < 5; ++sorte) {
        didascalia += ", ";
        if (f.Check[sorte]) didascalia += Prefissi[sorte] + Currency::daTestoLocale(f.testi[sorte]).testoDueDecimali();
    }
    s_.Command2 = didascalia;
    s_.CostoColonna = Currency{};
    for (int sorte : {0, 1, 2, 3, 4})
        if (f.Check[sorte]) s_.CostoColonna += Currency::daTestoLocale(f.testi[sorte]);
    s_.pannelli[2] = pannello::Costo((s_.CostoColonna * s_.MSFlexGrid1.Rows()).testoLocale());
}

void Form2::clickCommand2() {
    carica();
    Currency t = CalcolaCosto();
    if (t < Currency::daInteri(1)) {
        ui_.messaggio("La giocata non è valida deve essere di almeno 1 euro a scheda", "", Icona::Critico);
        return;
    }
    if (t > Currency::daInteri(200)) {
        ui_.messaggio("La giocata non è valida deve essere al massimo di 200 euro a scheda", "", Icona::Critico);
        return;
    }
    if (mostraForm23) mostraForm23();
}

void Form23::carica() {
    const auto& f = s_.form2;
    static constexpr std::array<int, 5> Righe = {4, 3, 2, 1, 0};  // Cinquina .. Estratto
    for (int riga = 0; riga < 5; ++riga) {
        const int sorte = Righe[riga];
        Currency v;
        double fattore = FattoreVincita(s_.SviluppoK, sorte);
        if (f.Check[sorte] && fattore != 0) v = Currency::daDouble(NumeroDaTesto(f.testi[sorte]) * fattore);
        if (f.Option1[TutteLeRuote]) v = Currency::daDouble(v.inDouble() / 10);
        maschera[riga] = v.testoLocale();
        if (v <= Currency{}) {
            etichetta[riga] = "-";
        } else {
            // 8 per cent withheld at the source.
            double netto = v.inDouble() - v.inDouble() / 100 * 8;
            maschera[riga] = DoubleInTesto(netto);
            etichetta[riga] = FormatoDecimali(netto, 2);
        }
    }
}

}  // namespace zef
