#include "printing/form11.h"

#include "core/basic.h"
#include "core/errori.h"
#include "core/percorsi.h"
#include "core/sistema.h"
#include "core/vocabolario.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <fstream>
#include <system_error>

#include <unistd.h>

namespace zef {

double ValoreCasella(const std::string& testo) {
    std::string t = testo;
    for (char& c : t)
        if (c == ',') c = '.';
    return Val(t);
}

std::string NumeroPunto(double v) {
    if (v == 0) v = 0;  // no "-0"
    // Fifteen significant digits give back the number as typed: 7.1, not 7.0999999...
    char buf[64];
    const auto r = std::to_chars(buf, buf + sizeof buf, v, std::chars_format::general, 15);
    return std::string(buf, r.ptr);
}

void LeggiGeometriaDaTesto(std::string_view testo, std::array<std::string, 4>& caselle) {
    size_t inizio = 0;
    for (size_t n = 0; n < caselle.size() && inizio < testo.size(); ++n) {
        size_t fine = testo.find('\n', inizio);
        if (fine == std::string_view::npos) fine = testo.size();
        std::string riga(testo.substr(inizio, fine - inizio));
        if (!riga.empty() && riga.back() == '\r') riga.pop_back();
        caselle[n] = NumeroPunto(ValoreCasella(riga));
        inizio = fine + 1;
    }
}

void LeggiGeometria(const std::string& file, std::array<std::string, 4>& caselle) {
    std::ifstream in(file, std::ios::binary);
    if (!in) return;  // no file: the values stay
    // Four short lines are all it holds: a bigger file is read no further than needed.
    std::string testo(4096, '\0');
    in.read(testo.data(), static_cast<std::streamsize>(testo.size()));
    testo.resize(static_cast<size_t>(in.gcount()));
    LeggiGeometriaDaTesto(testo, caselle);
}

void ScriviGeometria(const std::string& file, const std::array<std::string, 4>& caselle) {
    std::string testo;
    for (const std::string& c : caselle) testo += NumeroPunto(ValoreCasella(c)) + "\r\n";
    // Written beside and then put in place, so that a failure leaves the old file whole.
    const std::string temporaneo = file + ".tmp" + std::to_string(::getpid());
    {
        std::ofstream out(temporaneo, std::ios::binary | std::ios::trunc);
        out << testo;
        out.flush();
        if (!out) {
            out.close();
            std::remove(temporaneo.c_str());
            throw ErroreEsecuzione(75, "Errore di accesso al percorso/file: " + file);
        }
    }
    if (std::rename(temporaneo.c_str(), file.c_str()) != 0) {
        std::remove(temporaneo.c_str());
        throw ErroreEsecuzione(75, "Errore di accesso al percorso/file: " + file);
    }
}

Form11::Form11(Sistema& s, Interfaccia& ui, DestinazioneStampa& destinazione)
    : s_(s), ui_(ui), destinazione_(destinazione) {}

void Form11::carica() {
    scarica();
    schedeDA = "1";
    schedeA = TestoSemplice(s_.MSFlexGrid1.Rows());
    LeggiGeometria(fileGeometria.empty() ? FileDati(NomeFileGeometria) : fileGeometria, geometria);
    caricato = true;
}

// The controls come back to their design state; where the geometry is kept is not one.
void Form11::scarica() {
    geometria = {"5", "5", "7", "7"};
    schedeDA = "1";
    schedeA = "0";
    Option1 = false;
    Option2 = true;
    Option3.fill(false);
    Check1 = false;
    Check1ToolTip = ToolTipNonSpuntato;
    caricato = false;
    visibile = false;
}

void Form11::clickCheck1() {
    Check1 = !Check1;
    Check1ToolTip = Check1 ? ToolTipSpuntato : ToolTipNonSpuntato;
}

void Form11::clickOption(int n) {
    Option1 = n == 1;
    Option2 = n == 2;
}

void Form11::clickOption3(int i) {
    if (i < 1 || i > 7) return;
    const bool era = Option3[i];
    Option3.fill(false);
    Option3[i] = !era;
}

const std::string& Form11::testo(Casella c) const {
    switch (c) {
        case SchedeDA: return schedeDA;
        case SchedeA: return schedeA;
        default: return geometria[c];
    }
}

void Form11::cambia(Casella c, const std::string& t) {
    switch (c) {
        case SchedeDA: schedeDA = t; break;
        case SchedeA: schedeA = t; break;
        default: geometria[c] = t; break;
    }
}

void Form11::upDown(Casella c, int verso) {
    if (c == SchedeDA || c == SchedeA) {
        long long v = static_cast<long long>(Val(testo(c))) + verso;
        if (c == SchedeDA && v < 1) v = 1;
        cambia(c, TestoSemplice(v));
        return;
    }
    double v = ValoreCasella(geometria[c]) + verso * PassoGeometria;
    if (v < 0) v = 0;
    geometria[c] = NumeroPunto(v);
}

Geometria Form11::valori() const {
    return {ValoreCasella(geometria[MSuperiore]), ValoreCasella(geometria[MSinistro]),
            ValoreCasella(geometria[PVerticale]), ValoreCasella(geometria[POrizzontale])};
}

std::string Form11::intestazione(int64_t s) const {
    const Form2Controlli& f2 = s_.form2;
    Currency puntata;
    for (int sorte : {1, 2, 3, 4, 0})
        if (f2.Check[sorte]) puntata += Currency::daTestoLocale(f2.testi[sorte]);
    return "Scheda n." + TestoSemplice(s) + " €." + puntata.testoLocale();
}

void Form11::clickCommand1() {
    try {
        const bool stampato = destinazione_.stampa(DocumentoSchedine, Modulo::Schedine,
                                                   [this](Stampante& st, bool anteprima) { StampaSchede(st, anteprima); });
        if (!stampato) return;  // given up at the preview: the window stays
        if (salvaGeometria)
            ScriviGeometria(fileGeometria.empty() ? FileDati(NomeFileGeometria) : fileGeometria, geometria);
        visibile = false;
    } catch (const std::exception&) {
        // A printer error ends the print with no message of its own, and the
        // geometry file is not written.
    }
}

void Form11::StampaSchede(Stampante& st, bool anteprima) {
    const Geometria g = valori();
    const Form2Controlli& f2 = s_.form2;
    const ListaGiocate& lista = s_.MSFlexGrid1;
    const int k = std::clamp<int>(s_.SviluppoK, 0, KMax);
    const bool intervallo = Option1;
    const double da = Val(schedeDA), a = Val(schedeA);


    auto segno = [&st](Punto p) {
        st.impostaX(p.x);
        st.impostaY(p.y);
        st.stampa(caratteri::Segno);
    };

    st.scalaMillimetri();
    st.impostaCarattere(scheda::SegniIniziali);
    std::array<int16_t, 11> numeri{};
    for (int64_t r = 0; r < lista.Rows(); ++r) {
        const int64_t s = r + 1;
        const std::string_view riga = lista.riga(r);
        for (int p = 1; p <= k; ++p) {
            const size_t inizio = static_cast<size_t>(3 * p - 3);
            const std::string_view campo = inizio < riga.size() ? riga.substr(inizio, 3) : std::string_view{};
            numeri[p] = InInteger(ArrotondaBanker(Val(campo)));
        }
        if (intervallo && (s < da || s > a)) continue;
        if (allaScheda) allaScheda(s);

        const Punto testata = scheda::PosIntestazione(g);
        st.impostaCarattere(scheda::Intestazione);
        st.impostaX(testata.x);
        st.impostaY(testata.y);
        st.stampa(intestazione(s));

        st.impostaCarattere(scheda::SegniSchedina);
        const int ruota = f2.ruota();
        if (ruota < 12) segno(scheda::PosRuota(g, scheda::RigaRuota(ruota)));

        if (f2.Check[0])
            for (int i = 65; i >= 53; --i)
                if (f2.chkAmbo[i - 1]) segno(scheda::PosEstratto(g, i));
        int q = 5;
        for (int j = 52; j >= 1; --j) {
            if (j % 13 == 0) --q;
            if (f2.Check[q] && f2.chkAmbo[j - 1]) segno(scheda::PosSorte(g, q, j));
        }

        for (int p = 1; p <= k; ++p) segno(scheda::PosNumero(g, numeri[p]));

        for (int i = 1; i <= 7; ++i)
            if (Option3[i]) segno(scheda::PosConcorsi(g, i));

        st.nuovaPagina();
        if (intervallo && s == a) break;
        if (Check1 && !anteprima) {
            // The slip comes out before the user is asked for the next.
            st.fineDocumento();
            if (ui_.messaggio(MessaggioAttesa, TitoloAttesa, Icona::Informazione, Pulsanti::OkAnnulla) ==
                    Risposta::Annulla &&
                ui_.messaggio(MessaggioAnnulla, TitoloAnnulla, Icona::Domanda, Pulsanti::SiNo) == Risposta::Si)
                break;
        }
    }
    st.fineDocumento();
}

}  // namespace zef
