#include "dreambook/form15.h"

#include "core/basic.h"
#include "core/sistema.h"
#include "dreambook/libro.h"

#include <memory>

namespace zef {

namespace {

// One step of the look-up with its errors passed over.
template <class F>
void Passa(F&& f) {
    try {
        f();
    } catch (const std::exception&) {
    }
}

// FindFirst on a column: the first row in table order whose text matches.
const VoceLibro* Trova(const std::vector<VoceLibro>& righe, const std::string& cercato, bool prefisso) {
    const std::string c = FormaPiana(cercato);
    for (const auto& r : righe) {
        const std::string t = FormaPiana(r.testo);
        if (prefisso ? t.compare(0, c.size(), c) == 0 : t == c) return &r;
    }
    return nullptr;
}

}  // namespace

Form15::Form15(Sistema& s, Interfaccia& ui, std::string libro) : s_(s), ui_(ui), libro_(std::move(libro)) {}

void Form15::cambiaText1(const std::string& testo) {
    Text1 = testo;
    Text2.clear();
    Combo1Visibile = false;
}

void Form15::scriviNumero(int n) {
    for (auto& l : lblnum)
        if (l.empty()) {
            l = TestoSemplice(n);
            return;
        }
}

std::vector<int> Form15::numeri() const {
    std::vector<int> v;
    for (const auto& l : lblnum)
        if (!Trim(l).empty()) v.push_back(static_cast<int>(Val(l)));
    return v;
}

void Form15::clickCommand3() {
    for (auto& l : lblnum) l.clear();
    std::unique_ptr<Libro> libro;
    Passa([&] { libro = std::make_unique<Libro>(libro_.empty() ? PercorsoLibro() : libro_); });
    if (libro) {
        for (const char* tabella : {"Nomi Propri", "Personaggi"})
            Passa([&] {
                const std::vector<VoceLibro> righe = libro->tabella(tabella);
                if (const VoceLibro* v = Trova(righe, Text1, false)) scriviNumero(v->numero);
            });
        const std::string iniziale = Iniziale(Text1);
        const VoceLibro* soggetto = nullptr;
        std::vector<VoceLibro> soggetti;
        Passa([&] {
            soggetti = libro->tabella("soggetti " + iniziale);
            soggetto = Trova(soggetti, Text1, false);
        });
        if (soggetto) {
            scriviNumero(soggetto->numero);
            const int64_t P = soggetto->primaVoce;
            if (P == 0) {
                Combo1.clear();
                Combo1Testo.clear();
                Combo1Visibile = false;
                Text2.clear();
            } else {
                bool offerto = false;
                Passa([&] {
                    const std::vector<VoceLibro> oggetti = libro->tabella("oggetti" + iniziale);
                    const std::string T = Combo1Visibile ? Combo1Testo : Text2;
                    const std::string W = T.substr(0, T.find(' '));
                    // Several words are sought by the first, one word exactly.
                    const VoceLibro* trovato = W.size() < T.size() ? Trova(oggetti, W, true) : Trova(oggetti, T, false);
                    if (trovato) {
                        scriviNumero(trovato->numero);
                        if (!Combo1Testo.empty()) Text2 = Combo1Testo;
                        Combo1.clear();
                        Combo1Testo.clear();
                        Combo1Visibile = false;
                        return;
                    }
                    // The block: from the entry after the head to the one that closes it;
                    // the count is taken one entry on before the first test of the mark.
                    size_t i = 0;
                    while (i < oggetti.size() && oggetti[i].puntatore != P + 1) ++i;
                    if (i == oggetti.size()) return;
                    int64_t C = 1;
                    do {
                        ++C;
                        ++i;
                    } while (i < oggetti.size() && !oggetti[i].fineBlocco);
                    std::vector<std::string> elenco;
                    for (const auto& o : oggetti)
                        if (o.puntatore >= P + 1 && o.puntatore <= P + C) elenco.push_back(o.testo);
                    std::sort(elenco.begin(), elenco.end());
                    Combo1 = std::move(elenco);
                    Combo1Testo.clear();
                    Combo1Visibile = true;
                    offerto = true;
                });
                if (offerto) {
                    ui_.messaggio(OggettoNonTrovato, TitoloEsito, Icona::Esclamazione);
                    return;
                }
            }
        }
    }
    if (lblnum[0].empty()) ui_.messaggio(SoggettoNonTrovato, TitoloEsito);
}

void Form15::clickCommand1() {
    int conta = static_cast<int>(Val(s_.Label2));
    for (const auto& l : lblnum) {
        if (Trim(l).empty()) continue;
        const int n = static_cast<int>(Val(l));
        if (n < 1 || n > 90 || s_.pad[static_cast<size_t>(n - 1)]) continue;
        s_.pad[static_cast<size_t>(n - 1)] = true;
        ++conta;
        s_.Label2 = TestoSemplice(conta);
    }
    s_.pannelli[0] = pannello::CondizionateZero;
    if (conta > 0) s_.PronosticoDalPad();
    if (scaricaForm14) scaricaForm14();
}

}  // namespace zef
