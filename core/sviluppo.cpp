#include "core/sviluppo.h"

#include "core/errori.h"
#include "core/sistema.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <cstring>
#include <mutex>
#include <new>
#include <optional>
#include <thread>
#include <vector>

namespace zef {

double CalcolaCombinazioni(Sistema& s, long long ultimo, long long n) {
    s.NumCombinazioni = 1.0;
    for (long long i = 0; i <= ultimo; ++i)
        s.NumCombinazioni = s.NumCombinazioni * static_cast<double>(n - i) / static_cast<double>(i + 1);
    return s.NumCombinazioni;
}

namespace {

// A round: one pair of places at the two outer levels.
struct Turno {
    int i1 = 0;
    int i2 = 0;
    uint64_t candidati = 0;
};

// What a round gave: its accepted columns sit in the batch buffer in order.
struct EsitoTurno {
    uint64_t accettate = 0;
    uint64_t esaminate = 0;
    bool completo = true;  // false when cut short by a limit
    std::optional<ErroreEsecuzione> errore;
};

struct Lotto {
    size_t primo = 0;  // rounds [primo, fine)
    size_t fine = 0;
    std::vector<uint8_t> colonne;
    std::vector<EsitoTurno> esiti;
    bool pronto = false;
};

struct Contesto {
    int n = 0;
    int k = 0;
    uint8_t numero[91] = {};  // forecast number at each place, 1-based
};

// Walks the candidates of one round in lexicographic order, appending accepted
// columns to `out`. Stops after `limite` acceptances (0: no limit) or at an error.
void ElaboraTurno(const Contesto& c, const Turno& t, const FiltroColonna* filtro, std::vector<uint8_t>& out,
                  EsitoTurno& e, uint64_t limite) {
    const int n = c.n, k = c.k;
    int liv[KMax + 1];
    uint8_t num[KMax + 1];
    liv[0] = t.i1;
    liv[1] = t.i2;
    num[0] = c.numero[t.i1];
    num[1] = c.numero[t.i2];

    auto candidato = [&]() -> bool {  // false: stop the round
        ++e.esaminate;
        bool ok = true;
        if (filtro) {
            try {
                ok = filtro->accetta(num, liv, k);
            } catch (const ErroreEsecuzione& err) {
                e.errore = err;
                e.completo = false;
                return false;
            }
        }
        if (ok) {
            out.insert(out.end(), num, num + k);
            ++e.accettate;
            if (limite && e.accettate >= limite) {
                e.completo = false;
                return false;
            }
        }
        return true;
    };

    if (k == 2) {
        candidato();
        return;
    }
    if (filtro && filtro->scartaPrefisso(num, liv, 2, k)) {
        e.esaminate += Binomiale(n - t.i2, k - 2);
        return;
    }
    int p = 2;
    liv[2] = liv[1];
    while (p >= 2) {
        if (liv[p] < n - k + p + 1) {
            ++liv[p];
            num[p] = c.numero[liv[p]];
            if (p == k - 1) {
                if (!candidato()) return;
            } else if (filtro && filtro->scartaPrefisso(num, liv, p + 1, k)) {
                e.esaminate += Binomiale(n - liv[p], k - p - 1);
            } else {
                ++p;
                liv[p] = liv[p - 1];
            }
        } else {
            --p;
        }
    }
}

void ElaboraLotto(const Contesto& c, const std::vector<Turno>& turni, Lotto& l, const FiltroColonna* filtro,
                  uint64_t limite) {
    l.esiti.assign(l.fine - l.primo, EsitoTurno{});
    uint64_t totale = 0;
    for (size_t r = l.primo; r < l.fine; ++r) {
        EsitoTurno& e = l.esiti[r - l.primo];
        // A batch stops where the store would surely overflow; the round is then
        // worked again at commit time up to the exact point.
        ElaboraTurno(c, turni[r], filtro, l.colonne, e, limite ? limite - totale : 0);
        totale += e.accettate;
        if (!e.completo) {
            l.esiti.resize(r - l.primo + 1);
            break;
        }
    }
}

}  // namespace

void SviluppaColonne(Sistema& s, Interfaccia& ui, const ParametriSviluppo& par) {
    Contesto c;
    c.n = s.NumPronostico;
    c.k = s.SviluppoK;
    for (int i = 1; i <= c.n && i < static_cast<int>(s.Pronostico.size()); ++i)
        c.numero[i] = static_cast<uint8_t>(s.Pronostico[i]);
    const int n = c.n, k = c.k;
    const int64_t capacita = s.colonne.capacita();

    // The closing steps of a pass that ran to its end (or ended on an error).
    auto chiudi = [&] {
        s.pannelli[0] = pannello::Condizionate(s.NumColonne);
        if (s.NumColonne > 0) s.pannelli[2] = pannello::Costo((s.CostoColonna * s.NumColonne).testoLocale());
        ScaricaForm4(s, ui);
    };
    auto memoriaEsaurita = [&] {
        ui.messaggio("Impossibile elaborare oltre " + TestoSemplice(s.NumColonne) +
                         " di colonne, attivare le condizioni!",
                     "MEMORIA ESAURITA", Icona::Critico);
        chiudi();
    };

    if (k < 2 || k > KMax || n < k) {
        chiudi();  // level 1 has no round to run
        return;
    }
    if (s.colonne.k() != k || s.colonne.capacita() == 0) s.colonne.dimensiona(k);

    std::vector<Turno> turni;
    uint64_t totale = 0;
    for (int i1 = 1; i1 <= n - k + 1; ++i1)
        for (int i2 = i1 + 1; i2 <= n - k + 2; ++i2) {
            Turno t{i1, i2, Binomiale(n - i2, k - 2)};
            totale += t.candidati;
            turni.push_back(t);
        }

    std::shared_ptr<FiltroColonna> filtro = s.filtro;
    if (filtro) filtro->prepara(s);

    // Batches of consecutive rounds.
    std::vector<Lotto> lotti;
    for (size_t r = 0; r < turni.size();) {
        Lotto l;
        l.primo = r;
        uint64_t somma = 0;
        while (r < turni.size() && (somma < par.candidatiPerLotto || r == l.primo)) somma += turni[r++].candidati;
        l.fine = r;
        lotti.push_back(std::move(l));
    }

    int lavoratori = par.thread > 0 ? par.thread : static_cast<int>(std::max(1u, std::thread::hardware_concurrency()));
    if (totale < par.sogliaParallela) lavoratori = 1;
    const bool parallelo = lavoratori > 1 && lotti.size() > 1;

    std::mutex m;
    std::condition_variable cvPronto, cvSpazio;
    size_t prossimo = 0, consumati = 0;
    bool fermo = false;
    std::atomic<int64_t> memorizzate{s.NumColonne};
    const size_t finestra = static_cast<size_t>(lavoratori) * 2;
    std::vector<std::thread> thread;

    auto lavora = [&](std::unique_ptr<FiltroColonna> copia) {
        for (;;) {
            size_t b;
            {
                std::unique_lock l(m);
                cvSpazio.wait(l, [&] { return fermo || prossimo < consumati + finestra; });
                if (fermo || prossimo >= lotti.size()) return;
                b = prossimo++;
            }
            int64_t libere = capacita - memorizzate.load();
            uint64_t limite = static_cast<uint64_t>(std::max<int64_t>(libere, 0)) + 1;
            try {
                ElaboraLotto(c, turni, lotti[b], copia.get(), limite);
            } catch (const std::bad_alloc&) {
                lotti[b].esiti.resize(1);
                lotti[b].esiti[0] = EsitoTurno{};
                lotti[b].esiti[0].completo = false;
                lotti[b].esiti[0].errore = errori::memoriaEsaurita();
                lotti[b].colonne.clear();
            }
            std::lock_guard l(m);
            lotti[b].pronto = true;
            cvPronto.notify_all();
        }
    };
    auto ferma = [&] {
        {
            std::lock_guard l(m);
            fermo = true;
        }
        cvSpazio.notify_all();
        for (auto& t : thread) t.join();
        thread.clear();
    };

    if (parallelo)
        for (int i = 0; i < lavoratori; ++i)
            thread.emplace_back(lavora, filtro ? filtro->clona() : nullptr);

    std::unique_ptr<FiltroColonna> copiaLocale = filtro ? filtro->clona() : nullptr;

    auto copia = [&](const uint8_t* da, uint64_t quante) {
        if (quante) std::memcpy(s.colonne.colonna(s.NumColonne + 1), da, quante * k);
        s.NumColonne += static_cast<int32_t>(quante);
    };

    try {
        for (size_t b = 0; b < lotti.size(); ++b) {
            Lotto& l = lotti[b];
            if (parallelo) {
                std::unique_lock lk(m);
                cvPronto.wait(lk, [&] { return l.pronto; });
            } else {
                int64_t libere = capacita - s.NumColonne;
                ElaboraLotto(c, turni, l, copiaLocale.get(), static_cast<uint64_t>(std::max<int64_t>(libere, 0)) + 1);
            }
            size_t offset = 0;
            for (size_t r = l.primo; r < l.fine; ++r) {
                const Turno& t = turni[r];
                EsitoTurno e = r - l.primo < l.esiti.size() ? l.esiti[r - l.primo] : EsitoTurno{0, 0, false, {}};
                const uint8_t* dati = l.colonne.data() + offset;
                std::vector<uint8_t> rifatte;
                const int64_t libere = capacita - s.NumColonne;
                if (static_cast<int64_t>(e.accettate) > libere ||
                    (!e.completo && !e.errore && static_cast<int64_t>(e.accettate) <= libere)) {
                    // Past the store's end, or cut short by a worker's cautious limit:
                    // the round is worked again here up to the exact point.
                    e = EsitoTurno{};
                    ElaboraTurno(c, t, copiaLocale.get(), rifatte, e, static_cast<uint64_t>(libere) + 1);
                    dati = rifatte.data();
                }
                offset += e.accettate * k;
                s.ContatoreLavoro = t.i1;
                if (static_cast<int64_t>(e.accettate) > libere) {
                    // The column past the store's end is counted, its write fails and the
                    // handler takes it off again: the store keeps exactly its capacity.
                    copia(dati, static_cast<uint64_t>(libere));
                    s.ColonneEsaminate += static_cast<int64_t>(e.esaminate);
                    ferma();
                    memoriaEsaurita();
                    return;
                }
                copia(dati, e.accettate);
                memorizzate.store(s.NumColonne);
                s.ColonneEsaminate += static_cast<int64_t>(e.esaminate);
                if (e.errore) {
                    // Whatever the error, the handler takes one column off the count.
                    s.NumColonne -= 1;
                    ferma();
                    memoriaEsaurita();
                    return;
                }
                // End of a round of level 2: serve the keys, show the counts.
                CediForm4(s, ui);
                if (s.form4.visibile) {
                    s.form4.valore = static_cast<double>(s.ColonneEsaminate);
                    s.form4.Text1 = TestoSemplice(s.NumColonne);
                    s.form4.Text2 = TestoSemplice(s.ColonneEsaminate);
                    AggiornaForm4(s, ui);
                }
                if (!s.form4.visibile) {
                    ferma();
                    return;
                }
            }
            l.colonne.clear();
            l.colonne.shrink_to_fit();
            {
                std::lock_guard lk(m);
                consumati = b + 1;
            }
            cvSpazio.notify_all();
        }
    } catch (...) {
        ferma();
        throw;
    }
    ferma();
    chiudi();
}

}  // namespace zef
