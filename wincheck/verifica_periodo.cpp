#include "wincheck/verifica_periodo.h"

#include "archive/archivio.h"
#include "core/csv.h"
#include "core/vocabolario.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <thread>

namespace zef {

std::vector<EstrazioneSpoglio> LeggiEstrazioni(ArchivioEstrazioni& a, const std::string& dal, const std::string& al,
                                               long ultime) {
    std::string sql = "SELECT id, data";
    for (int w = 1; w <= NumRuote; ++w)
        for (int p = 1; p <= 5; ++p) sql += ", " + NomeCampo(w, p);
    sql += " FROM estrazioni WHERE (? = '' OR data >= ?) AND (? = '' OR data <= ?) ORDER BY id";
    SQLite::Statement st(a.db(), sql);
    st.bind(1, dal);
    st.bind(2, dal);
    st.bind(3, al);
    st.bind(4, al);
    std::vector<EstrazioneSpoglio> v;
    while (st.executeStep()) {
        EstrazioneSpoglio e;
        e.id = static_cast<long>(st.getColumn(0).getInt64());
        e.data = st.getColumn(1).isNull() ? std::string() : st.getColumn(1).getString();
        for (int i = 0; i < NumCaselle; ++i) {
            const auto c = st.getColumn(2 + i);
            e.caselle[static_cast<size_t>(i)] = c.isNull() ? 0.0 : c.getDouble();
        }
        v.push_back(std::move(e));
    }
    if (ultime > 0 && v.size() > static_cast<size_t>(ultime)) v.erase(v.begin(), v.end() - ultime);
    return v;
}

VerificaPeriodo::VerificaPeriodo(const ListaGiocate& lista, const GiocataSpoglio& g,
                                 std::array<std::string, NumSorti> puntate, Currency costoColonna)
    : g_(g), puntate_(std::move(puntate)), costoRiga_(costoColonna) {
    righe_ = lista.Rows();
    parole_ = static_cast<size_t>((righe_ + 63) / 64);
    insiemi_.assign(static_cast<size_t>(NumeriLotto + 1) * parole_, 0);
    for (int w = 1; w <= NumRuote; ++w)
        if (g_.contaRuota(w)) ruote_.push_back(w);
    const int k = std::max(0, static_cast<int>(g_.k));
    std::vector<int> numeri(static_cast<size_t>(k));
    for (int64_t r = 0; r < righe_; ++r) {
        const std::string_view testo = lista.riga(r);
        bool regolare = true;
        uint64_t visti[2] = {0, 0};
        for (int p = 0; p < k && regolare; ++p) {
            const size_t inizio = static_cast<size_t>(3 * p);
            const double v = inizio < testo.size() ? Val(testo.substr(inizio, 3)) : 0.0;
            if (v != std::floor(v) || v < 1 || v > NumeriLotto) {
                regolare = false;
                break;
            }
            const int n = static_cast<int>(v);
            uint64_t& parola = visti[n >> 6];
            if (parola >> (n & 63) & 1) regolare = false;
            parola |= uint64_t{1} << (n & 63);
            numeri[static_cast<size_t>(p)] = n;
        }
        if (!regolare) {
            irregolari_.AddItem(testo);
            continue;
        }
        for (int p = 0; p < k; ++p)
            insiemi_[static_cast<size_t>(numeri[static_cast<size_t>(p)]) * parole_ + static_cast<size_t>(r >> 6)] |=
                uint64_t{1} << (r & 63);
    }
}

std::array<int64_t, NumSorti> VerificaPeriodo::Conta(const Caselle& c) const {
    std::array<int64_t, NumSorti> vincite{};
    bool quali = false;
    for (bool b : g_.giocata) quali |= b;
    if (!quali || righe_ == 0) return vincite;
    std::array<int64_t, 6> conRighe{};  // rows with h hits, h 1..5, summed over the wheels
    for (int w : ruote_) {
        const uint64_t* set[5];
        int quanti = 0;
        for (int b = 0; b < 5; ++b) {
            const double v = c[static_cast<size_t>(5 * (w - 1) + b)];
            if (v == std::floor(v) && v >= 1 && v <= NumeriLotto)
                set[quanti++] = insiemi_.data() + static_cast<size_t>(v) * parole_;
        }
        if (quanti == 0) continue;
        for (size_t i = 0; i < parole_; ++i) {
            // Three-bit counter per row, added one set at a time.
            uint64_t a = 0, b = 0, d = 0;
            for (int s = 0; s < quanti; ++s) {
                const uint64_t x = set[s][i];
                const uint64_t ca = a & x;
                a ^= x;
                const uint64_t cb = b & ca;
                b ^= ca;
                d |= cb;
            }
            conRighe[1] += std::popcount(a & ~b & ~d);
            conRighe[2] += std::popcount(~a & b & ~d);
            conRighe[3] += std::popcount(a & b & ~d);
            conRighe[4] += std::popcount(~a & ~b & d);
            conRighe[5] += std::popcount(a & ~b & d);
        }
    }
    for (int s = 0; s < NumSorti; ++s) {
        if (!g_.giocata[static_cast<size_t>(s)]) continue;
        for (int h = 1; h <= 5; ++h) vincite[static_cast<size_t>(s)] += conRighe[static_cast<size_t>(h)] * VinciteDaColpiti(h, s);
    }
    if (!irregolari_.vuota()) {
        // The odd rows, as CERCA reads them.
        const EsitoSpoglio e = Spoglia(irregolari_, g_, c, false);
        for (int s = 0; s < NumSorti; ++s) vincite[static_cast<size_t>(s)] += e.vincite[static_cast<size_t>(s)];
    }
    return vincite;
}

std::vector<EsitoEstrazione> VerificaPeriodo::Esegui(const std::vector<EstrazioneSpoglio>& estrazioni,
                                                     const std::atomic<bool>* ferma,
                                                     const std::function<void(size_t)>& avanzamento, int fili) const {
    const size_t n = estrazioni.size();
    std::vector<EsitoEstrazione> esiti(n);
    std::vector<char> fatto(n, 0);
    const Currency spesa = costoRiga_ * righe_;
    auto lavora = [&](size_t inizio, size_t passo, bool principale) {
        for (size_t i = inizio; i < n; i += passo) {
            if (ferma && ferma->load(std::memory_order_relaxed)) return;
            const EstrazioneSpoglio& e = estrazioni[i];
            EsitoEstrazione& r = esiti[i];
            r.id = e.id;
            r.data = e.data;
            r.vincite = Conta(e.caselle);
            std::array<std::string, NumSorti> punti;
            for (size_t s = 0; s < NumSorti; ++s)
                punti[s] = r.vincite[s] > 0 ? TestoSemplice(r.vincite[s]) : std::string(" 0");
            r.vincitaTesto = ValoreVincite(punti, puntate_, g_);
            r.vincita = Currency::daTestoLocale(r.vincitaTesto);
            r.spesa = spesa;
            fatto[i] = 1;
            if (principale && avanzamento && (i % 64) == 0) avanzamento(i);
        }
    };
    if (fili <= 0) fili = std::max(1u, std::min(2u, std::thread::hardware_concurrency()));
    if (fili == 1 || n < 64) {
        lavora(0, 1, true);
    } else {
        std::vector<std::jthread> altri;
        for (int t = 1; t < fili; ++t) altri.emplace_back([&, t] { lavora(static_cast<size_t>(t), static_cast<size_t>(fili), false); });
        lavora(0, static_cast<size_t>(fili), true);
    }
    // Keep the draws checked without a gap, and run the balance through them.
    size_t fine = 0;
    while (fine < n && fatto[fine]) ++fine;
    esiti.resize(fine);
    Currency saldo;
    for (auto& r : esiti) {
        saldo += r.vincita - r.spesa;
        r.saldo = saldo;
    }
    return esiti;
}

TotaliPeriodo VerificaPeriodo::Totali(const std::vector<EsitoEstrazione>& esiti) {
    TotaliPeriodo t;
    for (const auto& r : esiti) {
        ++t.estrazioni;
        if (r.vincita > Currency{}) ++t.conVincita;
        t.spesa += r.spesa;
        t.vinta += r.vincita;
        if (r.vincita > t.massima) {
            t.massima = r.vincita;
            t.dataMassima = r.data;
        }
    }
    t.saldo = t.vinta - t.spesa;
    return t;
}

void ScriviVerificaCsv(const std::string& percorso, const std::vector<EsitoEstrazione>& esiti) {
    std::vector<RigaCsv> righe;
    righe.reserve(esiti.size() + 1);
    righe.push_back({"Data", "Estratti", "Ambi", "Terni", "Quaterne", "Cinquine", "Vincita", "Spesa", "Saldo"});
    for (const auto& r : esiti) {
        RigaCsv riga{r.data};
        for (auto n : r.vincite) riga.push_back(TestoSemplice(n));
        riga.push_back(ImportoCsv(r.vincita.decimillesimi()));
        riga.push_back(ImportoCsv(r.spesa.decimillesimi()));
        riga.push_back(ImportoCsv(r.saldo.decimillesimi()));
        righe.push_back(std::move(riga));
    }
    ScriviCsv(percorso, righe);
}

}  // namespace zef
