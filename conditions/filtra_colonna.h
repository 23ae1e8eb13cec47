// The column filter: the fourteen tests of the condition set on one candidate.
//
// FiltraColonna is the plain test, written test by test in its fixed order; it is
// the reference. FiltroCondizioni is what the development installs: the same
// answers from flat tables and bit masks, plus a prefix check that lets the
// generator skip subtrees that must all be refused.
#pragma once

#include "conditions/condizioni.h"
#include "core/colonne.h"
#include "core/filtro.h"

#include <memory>

namespace zef {

// True when the candidate passes. `numeri` holds the k numbers, `livelli` their
// 1-based places in the forecast (both from index 0). Raises error 9 where a test
// runs off its table (sequences from k = 6, six or more points on a filter column).
bool FiltraColonna(const Condizioni& c, const uint8_t* numeri, const int* livelli, int k);

// The parity sequences test alone, on N[1..k] (1-based): true when the column passes.
// Raises error 9 from the sixth number on, or past the table of presences.
bool Sequele(const Condizioni& c, const int* N, int k);

class FiltroCondizioni : public FiltroColonna {
public:
    // Reads the set through `sorgente` at each `prepara`: the dialog keeps editing it.
    explicit FiltroCondizioni(std::shared_ptr<const Condizioni> sorgente) : sorgente_(std::move(sorgente)) {}

    void prepara(const Sistema& s) override;
    // Prepares straight from a set (the fixed numbers are those of the set).
    void preparaDa(const Condizioni& c, const std::vector<int>& pronostico, int n);

    bool accetta(const uint8_t* numeri, const int* livelli, int k) const override;
    int scartaPrefisso(const Prefisso& p, int k) const override;
    bool ultimoLivello(const Prefisso& p, int k, int n, Maschera& ammessi) const override;
    bool accettaTutte() const override;
    std::unique_ptr<FiltroColonna> clona() const override { return std::make_unique<FiltroCondizioni>(*this); }

    const Condizioni& condizioni() const { return c_; }

private:
    struct Sezione {
        int da, a, min, max, cmin, cmax;
    };
    void costruisci();
    bool attiva(int i) const { return c_.CondizioneAttiva[i]; }
    bool distanzaOk(const uint8_t* N, const int* L, int i) const;  // numbers i and i + 1
    bool consecutivitaOk(unsigned passi, int k) const;
    bool interruzioniOk(unsigned passi, int k) const;
    bool gruppiOk(unsigned pari, int k) const;
    bool pariDispariOk(unsigned pari, int k) const;
    bool interruzioniPDOk(unsigned pari, int k) const;
    bool mediaOk(int sommaValori, int sommaRitardi, int k) const;
    bool prefissoPassiFallisce(unsigned passi, int len, int resto) const;
    bool prefissoPariFallisce(unsigned pari, int len, int resto) const;
    void costruisciVerdetti();
    bool sezioneOk(const Sezione& s, const uint8_t* N, unsigned passi, int k, bool ultimoDentro) const;
    // The places of the forecast whose numbers lie in da..a.
    Maschera postiTra(int da, int a) const;

    std::shared_ptr<const Condizioni> sorgente_;
    Condizioni c_;
    // forecast, 1-based, and its prefix sums
    uint8_t numero_[92] = {};
    int sommaPrima_[92] = {};
    int n_ = 0;

    Maschera fissi_;
    bool fissoImpossibile_ = false;  // a fixed number outside 1..90 is never in a column
    std::array<Maschera, 11> posizione_{};
    std::array<bool, 11> posizioneControllata_{};
    std::vector<Maschera> filtri_;
    std::vector<uint16_t> puntiAmmessi_;  // bit p: exactly p points allowed
    int maxPuntiFiltro_ = 0;               // most numbers held by one filter
    Maschera archivio_;                    // union of the archive columns
    std::vector<Sezione> sezioni_;
    uint16_t gruppiPari_ = 0, gruppiDispari_ = 0;
    uint16_t interruzioni_ = 0, interruzioniPD_ = 0;  // bit t: t interruptions allowed
    enum : uint8_t { Rifiutata, Accettata, Errore };
    // Which tests refuse a pattern of steps or of parities (bit j for number j), for
    // `len` numbers with `resto` to come: at inizioVerdetti_[len][resto] + pattern.
    enum : uint8_t { Rifiuto2 = 1, Rifiuto3 = 2, Rifiuto9 = 4, Rifiuto7 = 8, Rifiuto10 = 16 };
    uint16_t inizioVerdetti_[11][11] = {};
    std::vector<uint8_t> rifiutoPassi_, rifiutoPari_;
    uint8_t esitoSequele_[6][32] = {};  // [k][parities, bit j for number j even]

    // The same sets over the places of the forecast, for the last number's level.
    bool crescente_ = false;  // the forecast rises strictly within 1..90
    uint8_t postoDi_[92] = {};  // place of each number, 0 when out of the forecast
    uint8_t primoDa_[92] = {};  // first place whose number is at least v (n + 1: none)
    // The least and the most sum of r delays (frequencies) that the places from p on
    // can give, for the prefix judgement of the mean delay and frequency; a bound
    // beyond reach where fewer than r places are left.
    int ritardoMin_[92][11] = {}, ritardoMax_[92][11] = {};
    int valoreMin_[92][11] = {}, valoreMax_[92][11] = {};
    Maschera postiPari_;
    std::array<Maschera, 11> posizionePosti_{};
    std::vector<Maschera> filtriPosti_;
    Maschera archivioPosti_;
};

}  // namespace zef
