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

// What a round gave.
struct EsitoTurno {
    uint64_t accettate = 0;  // counted up to the limit, the one at the limit included
    uint64_t esaminate = 0;
    bool completo = true;    // false when cut short by the limit, an error or a stop
    uint64_t limite = 0;     // the acceptances it was allowed (0: no limit)
    std::optional<ErroreEsecuzione> errore;
    bool alLimite() const { return !completo && !errore && limite && accettate == limite; }
};

struct Contesto {
    int n = 0;
    int k = 0;
    uint8_t numero[91] = {};  // forecast number at each place, 1-based
};

// Where accepted columns go: straight into the store, or into a worker's buffer.
// A column goes with one 16-byte write that spills into the places of the next ones:
// the store keeps 16 writable bytes past its end, a buffer is kept 16 bytes ahead.
struct NelMagazzino {
    uint8_t* dest;
    int k;
    void operator()(const uint8_t* num) {
        std::memcpy(dest, num, 16);
        dest += k;
    }
    // Room for `quante` columns written in a row, then the count written.
    uint8_t* spazio(size_t) { return dest; }
    void scritte(size_t quante) { dest += quante * static_cast<size_t>(k); }
};
struct Buffer {
    std::vector<uint8_t> byte;  // its size only grows: a reused buffer spares page faults
    size_t usati = 0;
};
struct NelBuffer {
    Buffer* out;
    int k;
    void operator()(const uint8_t* num) {
        if (out->usati + 16 > out->byte.size()) out->byte.resize(std::max<size_t>(out->byte.size() * 2, 1 << 16));
        std::memcpy(out->byte.data() + out->usati, num, 16);
        out->usati += static_cast<size_t>(k);
    }
    uint8_t* spazio(size_t quante) {
        const size_t serve = out->usati + quante * static_cast<size_t>(k) + 16;
        if (serve > out->byte.size()) out->byte.resize(std::max<size_t>(out->byte.size() * 2, std::max<size_t>(serve, 1 << 16)));
        return out->byte.data() + out->usati;
    }
    void scritte(size_t quante) { out->usati += quante * static_cast<size_t>(k); }
};

// Every candidate passes: writes the first `quante` columns of the round straight
// into `dest`, the last level in a tight loop. Each column goes with one 16-byte
// write that spills into the places of the next ones, except near the end of the
// run, so that two threads writing neighbouring blocks never overwrite each other.
void ScriviTutte(const Contesto& c, const Turno& t, uint8_t* dest, uint64_t quante) {
    const int n = c.n, k = c.k;
    if (quante == 0) return;
    alignas(16) uint8_t buf[16] = {};
    buf[0] = c.numero[t.i1];
    buf[1] = c.numero[t.i2];
    // The last level from place `da`: the prefix goes from a register, then the last
    // number over it, so that no load waits on the byte just stored. False when done.
    auto ultimo = [&](int da) {
        uint8_t modello[16];
        std::memcpy(modello, buf, 16);
        for (int j = da; j <= n; ++j) {
            if (quante * k < 16) {  // near the end: no spill past it
                modello[k - 1] = c.numero[j];
                std::memcpy(dest, modello, k);
            } else {
                std::memcpy(dest, modello, 16);
                dest[k - 1] = c.numero[j];
            }
            dest += k;
            if (--quante == 0) return false;
        }
        return true;
    };
    if (k == 2) {
        std::memcpy(dest, buf, 2);
        return;
    }
    if (k == 3) {
        ultimo(t.i2 + 1);
        return;
    }
    // positions 2..k-2 form the prefix; position k-1 runs in the last level
    int liv[KMax + 1];
    liv[1] = t.i2;
    int p = 2;
    liv[2] = liv[1];
    while (p >= 2) {
        if (liv[p] < n - k + p + 1) {
            ++liv[p];
            buf[p] = c.numero[liv[p]];
            if (p == k - 2) {
                if (!ultimo(liv[p] + 1)) return;
            } else {
                ++p;
                liv[p] = liv[p - 1];
            }
        } else {
            --p;
        }
    }
}

// Walks the candidates of one round in lexicographic order. Accepted columns go to
// `scrivi`, except the one that reaches `limite` (0: no limit), where the round
// stops, as it does at an error or when `interrompi` is raised.
template <class Scrivi>
void ElaboraTurno(const Contesto& c, const Turno& t, const FiltroColonna* filtro, Scrivi&& scrivi, EsitoTurno& e,
                  uint64_t limite, const std::atomic<bool>* interrompi = nullptr) {
    e.limite = limite;
    uint32_t battito = 0;
    const int n = c.n, k = c.k;
    int liv[KMax + 1];
    uint8_t num[16] = {};  // KMax numbers, padded for the 16-byte writes
    liv[0] = t.i1;
    liv[1] = t.i2;
    num[0] = c.numero[t.i1];
    num[1] = c.numero[t.i2];
    // what the filter reads of the prefix up to each level, kept as the walk goes
    int somma[KMax] = {};
    unsigned passi[KMax] = {}, pari[KMax] = {};
    auto segna = [&](int p) {
        const int x = num[p];
        const bool pr = !(x & 1);
        if (p == 0) {
            somma[0] = x;
            passi[0] = 0;
            pari[0] = pr ? 1u : 0u;
            return;
        }
        somma[p] = somma[p - 1] + x;
        passi[p] = passi[p - 1] | (x == num[p - 1] + 1 ? 1u << p : 0u);
        pari[p] = pari[p - 1] | (pr ? 1u << p : 0u);
    };
    auto prefisso = [&](int lunghezza) {
        return Prefisso{num, liv, lunghezza, somma[lunghezza - 1], passi[lunghezza - 1], pari[lunghezza - 1]};
    };
    segna(0);
    segna(1);

    // Periodically looks at the stop request of the pass.
    auto fermato = [&](uint32_t candidati) {
        if (!interrompi) return false;
        battito += candidati;
        if (battito < 4096) return false;
        battito = 0;
        if (!interrompi->load(std::memory_order_relaxed)) return false;
        e.completo = false;
        return true;
    };
    // An accepted candidate: false when it is the one at the limit, where the round stops.
    auto accettata = [&]() -> bool {
        if (limite && ++e.accettate >= limite) {
            e.completo = false;
            return false;
        }
        if (!limite) ++e.accettate;
        scrivi(num);
        return true;
    };
    auto candidato = [&]() -> bool {  // false: stop the round
        if (fermato(1)) return false;
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
        return !ok || accettata();
    };
    // The last level under a prefix of k - 1 numbers: the filter names the places
    // that may pass; the others are counted as examined where the plain walk would
    // meet them, so that a stop inside the level finds the counts of the plain walk.
    auto ultimoLivello = [&]() -> bool {
        Maschera ammessi;
        const bool deciso = filtro ? filtro->ultimoLivello(prefisso(k - 1), k, n, ammessi) : true;
        if (!filtro) ammessi = Maschera::Intervallo(liv[k - 2] + 1, n);
        if (fermato(static_cast<uint32_t>(n - liv[k - 2]))) return false;
        if (deciso) {
            const auto quante = static_cast<uint64_t>(ammessi.conta());
            if (!limite || e.accettate + quante < limite) {
                // the whole level at once: no stop can fall inside it
                uint8_t* d = scrivi.spazio(quante);
                // the prefix goes from a register, then the last number over it: no
                // load waits on the byte just stored
                uint8_t modello[16];
                std::memcpy(modello, num, 16);
                ammessi.perOgni([&](int q) {
                    std::memcpy(d, modello, 16);
                    d[k - 1] = c.numero[q];
                    d += k;
                    return true;
                });
                scrivi.scritte(quante);
                e.accettate += quante;
                e.esaminate += static_cast<uint64_t>(n - liv[k - 2]);
                return true;
            }
        }
        int contati = liv[k - 2];  // places counted so far
        const bool avanti = ammessi.perOgni([&](int q) {
            liv[k - 1] = q;
            num[k - 1] = c.numero[q];
            if (deciso) {
                e.esaminate += static_cast<uint64_t>(q - contati);
                contati = q;
                return accettata();
            }
            e.esaminate += static_cast<uint64_t>(q - contati - 1);
            contati = q;
            return candidato();
        });
        if (!avanti) return false;
        e.esaminate += static_cast<uint64_t>(n - contati);
        return true;
    };

    if (k == 2) {
        candidato();
        return;
    }
    if (filtro && filtro->scartaPrefisso(prefisso(2), k)) {
        e.esaminate += Binomiale(n - t.i2, k - 2);
        return;
    }
    if (k == 3) {
        ultimoLivello();
        return;
    }
    // levels 2..k-2 walk the prefixes; the last level is one call per prefix
    int p = 2;
    liv[2] = liv[1];
    while (p >= 2) {
        if (liv[p] < n - k + p + 1) {
            ++liv[p];
            num[p] = c.numero[liv[p]];
            segna(p);
            int salta = filtro ? filtro->scartaPrefisso(prefisso(p + 1), k) : 0;
            if (salta) {
                // the subtrees of places liv[p]..salta-1 at this level, by the hockey stick
                salta = std::min(salta, n - k + p + 2);
                e.esaminate += Binomiale(n - liv[p] + 1, k - p) - Binomiale(n - salta + 1, k - p);
                liv[p] = salta - 1;
            } else if (p == k - 2) {
                if (!ultimoLivello()) return;
            } else {
                ++p;
                liv[p] = liv[p - 1];
            }
        } else {
            --p;
        }
    }
}

// Consecutive rounds worked by one worker ahead of the commit.
struct Lotto {
    size_t primo = 0;  // rounds [primo, fine)
    size_t fine = 0;
    Buffer colonne;
    std::vector<EsitoTurno> esiti;
    bool pronto = false;
};

void ElaboraLotto(const Contesto& c, const std::vector<Turno>& turni, Lotto& l, const FiltroColonna* filtro,
                  uint64_t limite, const std::atomic<bool>* interrompi) {
    l.esiti.clear();
    l.colonne.usati = 0;
    uint64_t totale = 0;
    for (size_t r = l.primo; r < l.fine; ++r) {
        EsitoTurno& e = l.esiti.emplace_back();
        // A batch stops where the store would surely overflow.
        ElaboraTurno(c, turni[r], filtro, NelBuffer{&l.colonne, c.k}, e, limite - totale, interrompi);
        totale += e.accettate;
        if (!e.completo) break;
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
    const int64_t capacita = s.colonne.capacita();

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
    if (filtro && filtro->accettaTutte()) filtro = nullptr;
    std::unique_ptr<FiltroColonna> copiaLocale = filtro ? filtro->clona() : nullptr;

    // A round is over: its columns are in the store (or come from `dati`). Returns
    // false when the pass has ended here.
    auto chiudiTurno = [&](const Turno& t, const EsitoTurno& e, const uint8_t* dati) -> bool {
        const int64_t libere = capacita - s.NumColonne;
        s.ContatoreLavoro = t.i1;
        s.ColonneEsaminate += static_cast<int64_t>(e.esaminate);
        if (static_cast<int64_t>(e.accettate) > libere) {
            // The column past the store's end is counted, its write fails and the
            // handler takes it off again: the store keeps exactly its capacity.
            if (dati && libere) std::memcpy(s.colonne.colonna(s.NumColonne + 1), dati, libere * k);
            s.NumColonne += static_cast<int32_t>(libere);
            memoriaEsaurita();
            return false;
        }
        if (dati && e.accettate) std::memcpy(s.colonne.colonna(s.NumColonne + 1), dati, e.accettate * k);
        s.NumColonne += static_cast<int32_t>(e.accettate);
        if (e.errore) {
            // Whatever the error, the handler takes one column off the count.
            s.NumColonne -= 1;
            memoriaEsaurita();
            return false;
        }
        // End of a round of level 2: serve the keys, show the counts.
        CediForm4(s, ui);
        if (s.form4.visibile) {
            s.form4.valore = static_cast<double>(s.ColonneEsaminate);
            s.form4.Text1 = TestoSemplice(s.NumColonne);
            s.form4.Text2 = TestoSemplice(s.ColonneEsaminate);
            AggiornaForm4(s, ui);
        }
        return s.form4.visibile;
    };

    int lavoratori = par.thread > 0 ? par.thread : static_cast<int>(std::max(1u, std::thread::hardware_concurrency()));
    if (totale < par.sogliaParallela) lavoratori = 1;

    if (lavoratori == 1) {
        for (const Turno& t : turni) {
            const int64_t libere = capacita - s.NumColonne;
            EsitoTurno e;
            if (!copiaLocale) {
                // No filter: the round's columns are known without asking; the one
                // past the store's end is examined and counted like any other.
                const uint64_t limite = static_cast<uint64_t>(libere) + 1;
                const uint64_t quante = std::min(t.candidati, limite - 1);
                ScriviTutte(c, t, s.colonne.colonna(s.NumColonne + 1), quante);
                e.limite = limite;
                e.accettate = e.esaminate = std::min(t.candidati, limite);
                e.completo = t.candidati < limite;
                if (!chiudiTurno(t, e, nullptr)) return;
                continue;
            }
            ElaboraTurno(c, t, copiaLocale.get(), NelMagazzino{s.colonne.colonna(s.NumColonne + 1), k}, e,
                         static_cast<uint64_t>(libere) + 1);
            if (!chiudiTurno(t, e, nullptr)) return;
        }
        chiudi();
        return;
    }

    if (!copiaLocale) {
        // No filter: every round's place in the store is known in advance, so the
        // workers write the rounds straight to their places and the commit only
        // follows them in order with the counts.
        struct Blocco {
            size_t primo, fine;
            uint64_t inizio;  // columns before the block
        };
        std::vector<Blocco> blocchi;
        uint64_t prima = 0;
        for (size_t r = 0; r < turni.size();) {
            Blocco b{r, r, prima};
            uint64_t somma = 0;
            while (r < turni.size() && (somma < par.candidatiPerLotto || r == b.primo)) somma += turni[r++].candidati;
            b.fine = r;
            prima += somma;
            blocchi.push_back(b);
        }
        const uint64_t base = static_cast<uint64_t>(s.NumColonne);
        std::vector<std::atomic<bool>> fatto(blocchi.size());
        std::atomic<size_t> prossimo{0};
        std::atomic<bool> basta{false};
        std::mutex m;
        std::condition_variable cv;
        auto lavora = [&] {
            for (size_t b; !basta && (b = prossimo++) < blocchi.size();) {
                uint64_t pos = base + blocchi[b].inizio;
                for (size_t r = blocchi[b].primo; r < blocchi[b].fine && pos < static_cast<uint64_t>(capacita); ++r) {
                    uint64_t quante = std::min<uint64_t>(turni[r].candidati, capacita - pos);
                    ScriviTutte(c, turni[r], s.colonne.colonna(static_cast<int64_t>(pos) + 1), quante);
                    pos += turni[r].candidati;
                }
                std::lock_guard l(m);
                fatto[b] = true;
                cv.notify_all();
            }
        };
        std::vector<std::thread> thread;
        for (int i = 0; i < lavoratori; ++i) thread.emplace_back(lavora);
        auto ferma = [&] {
            basta = true;
            for (auto& t : thread) t.join();
        };
        try {
            for (size_t b = 0; b < blocchi.size(); ++b) {
                {
                    std::unique_lock l(m);
                    cv.wait(l, [&] { return fatto[b].load(); });
                }
                for (size_t r = blocchi[b].primo; r < blocchi[b].fine; ++r) {
                    const Turno& t = turni[r];
                    const uint64_t limite = static_cast<uint64_t>(capacita - s.NumColonne) + 1;
                    EsitoTurno e;
                    e.limite = limite;
                    e.accettate = e.esaminate = std::min(t.candidati, limite);
                    e.completo = t.candidati < limite;
                    if (!chiudiTurno(t, e, nullptr)) {
                        ferma();
                        return;
                    }
                }
            }
        } catch (...) {
            ferma();
            throw;
        }
        ferma();
        chiudi();
        return;
    }

    // Batches of consecutive rounds, worked ahead by the workers and committed in order.
    std::vector<Lotto> lotti;
    for (size_t r = 0; r < turni.size();) {
        Lotto l;
        l.primo = r;
        uint64_t somma = 0;
        while (r < turni.size() && (somma < par.candidatiPerLotto || r == l.primo)) somma += turni[r++].candidati;
        l.fine = r;
        lotti.push_back(std::move(l));
    }

    std::mutex m;
    std::condition_variable cvPronto, cvSpazio;
    size_t prossimo = 0, consumati = 0;
    bool fermo = false;
    std::atomic<bool> interrompi{false};
    std::atomic<int64_t> memorizzate{s.NumColonne};
    std::vector<Buffer> riserva;  // buffers given back, reused to spare page faults
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
                if (!riserva.empty()) {
                    lotti[b].colonne = std::move(riserva.back());
                    riserva.pop_back();
                }
            }
            int64_t libere = capacita - memorizzate.load();
            uint64_t limite = static_cast<uint64_t>(std::max<int64_t>(libere, 0)) + 1;
            try {
                ElaboraLotto(c, turni, lotti[b], copia.get(), limite, &interrompi);
            } catch (const std::bad_alloc&) {
                lotti[b].colonne.usati = 0;
                lotti[b].esiti.assign(1, EsitoTurno{});
                lotti[b].esiti[0].completo = false;
                lotti[b].esiti[0].errore = errori::memoriaEsaurita();
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
        interrompi = true;
        cvSpazio.notify_all();
        for (auto& t : thread) t.join();
        thread.clear();
    };

    for (int i = 0; i < lavoratori; ++i) thread.emplace_back(lavora, filtro ? filtro->clona() : nullptr);

    try {
        for (size_t b = 0; b < lotti.size(); ++b) {
            Lotto& l = lotti[b];
            {
                std::unique_lock lk(m);
                cvPronto.wait(lk, [&] { return l.pronto; });
            }
            size_t offset = 0;
            for (size_t r = l.primo; r < l.fine; ++r) {
                const Turno& t = turni[r];
                EsitoTurno e;
                if (r - l.primo < l.esiti.size()) e = l.esiti[r - l.primo];
                else e.completo = false;  // not reached by the worker
                const uint8_t* dati = l.colonne.byte.data() + offset;
                offset += std::min<uint64_t>(e.accettate, e.alLimite() ? e.accettate - 1 : e.accettate) * k;
                const int64_t libere = capacita - s.NumColonne;
                const bool oltre = static_cast<int64_t>(e.accettate) > libere;
                bool rifare;
                if (e.errore) rifare = oltre;  // the error came first unless past the end
                else if (e.alLimite()) rifare = e.limite != static_cast<uint64_t>(libere) + 1;
                else if (!e.completo) rifare = true;  // not reached, or stopped
                else rifare = oltre;                  // whole round, but past the end
                if (rifare) {
                    // Worked again here, straight into the store, up to the exact point.
                    e = EsitoTurno{};
                    ElaboraTurno(c, t, copiaLocale.get(), NelMagazzino{s.colonne.colonna(s.NumColonne + 1), k}, e,
                                 static_cast<uint64_t>(libere) + 1);
                    dati = nullptr;
                }
                if (!chiudiTurno(t, e, dati)) {
                    ferma();
                    return;
                }
                memorizzate.store(s.NumColonne);
            }
            {
                std::lock_guard lk(m);
                riserva.push_back(std::move(l.colonne));
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
