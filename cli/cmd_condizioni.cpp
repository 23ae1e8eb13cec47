// Conditions from a JSON file for the development commands (--condizioni), with the
// archive (--archivio) that the two archive-based conditions read; and
// `condizioni suggerite`, the conditions that the latest draws would have passed.
#include "archive/archivio.h"
#include "cli/comandi.h"
#include "cli/sviluppo_cli.h"
#include "archive/estrazioni_archivio.h"
#include "conditions/form28.h"
#include "conditions/form29.h"

#include <iostream>
#include <memory>
#include <optional>

namespace zef::cli {

namespace {

std::string MessaggioArchivio(const std::string& testo) {
    return "Impossibile aprire l'archivio delle estrazioni: " + testo;
}

// The program's own archive, opened only when the accepted conditions read it. A
// failure is kept for the caller: the frequency pass would end quietly on it.
class ArchivioAlBisogno : public FonteEstrazioni {
public:
    long numeroEstrazioni() override { return fonte().numeroEstrazioni(); }
    std::vector<EstrazioneLetta> daId(long idMinimo) override { return fonte().daId(idMinimo); }
    std::vector<EstrazioneLetta> tutte() override { return fonte().tutte(); }
    std::optional<std::string> errore;

private:
    FonteEstrazioni& fonte() {
        if (!letture_) {
            try {
                archivio_ = ArchivioEstrazioni::ApriPredefinito();
            } catch (const ErroreEsecuzione& e) {
                errore = e.what();
                throw;
            }
            letture_ = std::make_unique<EstrazioniArchivio>(*archivio_);
        }
        return *letture_;
    }
    std::unique_ptr<ArchivioEstrazioni> archivio_;
    std::unique_ptr<EstrazioniArchivio> letture_;
};

[[maybe_unused]] const bool registrato = [] {
    CaricaCondizioni() = [](Sistema& s, Interfaccia& ui, const OpzioniSviluppo& o) {
        // A named archive must open before anything is loaded; the program's own
        // opens only if the conditions need it.
        std::unique_ptr<ArchivioEstrazioni> archivio;
        std::unique_ptr<FonteEstrazioni> fonte;
        ArchivioAlBisogno* predefinito = nullptr;
        if (!o.archivio.empty()) {
            try {
                archivio = std::make_unique<ArchivioEstrazioni>(o.archivio);
            } catch (const ErroreEsecuzione& e) {
                throw InputNonValido(MessaggioArchivio(e.what()));
            }
            fonte = std::make_unique<EstrazioniArchivio>(*archivio);
        } else {
            auto p = std::make_unique<ArchivioAlBisogno>();
            predefinito = p.get();
            fonte = std::move(p);
        }
        // The dialog goes once the set is accepted; the installed filter keeps the set.
        auto f = std::make_unique<Form28>(s, ui);
        f->archivio = fonte.get();
        f->ResettaCondizioni();
        f->attiva();
        bool caricate = false;
        try {
            caricate = CaricaCondizioniJson(o.condizioni, *f, ui);
        } catch (const ErroreEsecuzione&) {
            if (predefinito && predefinito->errore) throw InputNonValido(MessaggioArchivio(*predefinito->errore));
            throw;
        }
        if (predefinito && predefinito->errore) throw InputNonValido(MessaggioArchivio(*predefinito->errore));
        if (!caricate) {
            auto* scr = dynamic_cast<InterfacciaScriptata*>(&ui);
            throw InputNonValido(scr && !scr->box.empty() ? scr->box.back().testo : "File delle condizioni non valido");
        }
        f->archivio = nullptr;
    };
    return true;
}();

// ---- condizioni suggerite ------------------------------------------------------------------------

struct OpzioniSuggerite {
    std::string ultime;
    std::string ruota = "11";
    std::string archivio;
    std::string uscita;
};

template <size_t N>
std::string Spunte(const std::array<int, N>& a) {
    std::string t;
    for (size_t i = 0; i < N; ++i) t += (i ? "," : "") + std::to_string(a[i] ? 1 : 0);
    return t;
}

void StampaInviluppo(const Form29& f, std::ostream& out) {
    out << "Combo1: " << f.Combo1 << "\nCombo2: " << f.Combo2 << "\nCombo5: " << f.Combo5 << "\nCombo7: " << f.Combo7
        << "\nCombo10: " << f.Combo10 << "\n";
    out << "Check1: " << Spunte(f.Check1) << "\nchkInterruzioniPD: " << Spunte(f.chkInterruzioniPD)
        << "\nchkGruppiPari: " << Spunte(f.chkGruppiPari) << "\nchkGruppiDispari: " << Spunte(f.chkGruppiDispari) << "\n";
    out << "txtSomma0: " << f.txtSomma[0] << "\ntxtSomma1: " << f.txtSomma[1] << "\ntxtPariMin: " << f.txtPariMin
        << "\ntxtPariMax: " << f.txtPariMax << "\ntxtPariCons: " << f.txtPariCons << "\ntxtDispariMin: " << f.txtDispariMin
        << "\ntxtDispariMax: " << f.txtDispariMax << "\ntxtDispariCons: " << f.txtDispariCons
        << "\ntxtDistanzaMin: " << f.txtDistanzaMin << "\n";
    out << "ritardoMin: " << f.ritardoMin << "\nritardoMax: " << f.ritardoMax << "\nfrequenzaMin: " << f.frequenzaMin
        << "\nfrequenzaMax: " << f.frequenzaMax << "\n";
    for (const auto& voce : f.List3) out << "List3: " << voce << "\n";
    for (int p = 1; p <= form29::UltimaPosizione; ++p) {
        out << "PosizioniSuggerite" << p << ": ";
        bool primo = true;
        for (int x = 0; x <= 90; ++x)
            if (f.PosizioniSuggerite[p][x]) {
                out << (primo ? "" : ",") << x;
                primo = false;
            }
        out << "\n";
    }
}

// Suggerisci answered with --ultime on the wheel of --ruota, then "Imposta questi parametri".
int Suggerite(const OpzioniSuggerite& o) {
    Sistema s;
    InterfacciaScriptata ui;
    const int ruota = IndiceRuota(o.ruota);
    s.form2.Option1.fill(false);
    s.form2.Option1[ruota] = true;
    std::unique_ptr<ArchivioEstrazioni> archivio;
    try {
        archivio = o.archivio.empty() ? ArchivioEstrazioni::ApriPredefinito()
                                      : std::make_unique<ArchivioEstrazioni>(o.archivio);
    } catch (const ErroreEsecuzione& e) {
        throw InputNonValido(MessaggioArchivio(e.what()));
    }
    EstrazioniArchivio fonte(*archivio);
    long rc = 0;
    try {
        rc = fonte.numeroEstrazioni();
    } catch (const ErroreEsecuzione& e) {
        throw InputNonValido(MessaggioArchivio(e.what()));
    }
    if (rc == 0) throw InputNonValido("L'archivio delle estrazioni è vuoto.");

    Form28 f28(s, ui);
    f28.archivio = &fonte;
    f28.ResettaCondizioni();
    f28.attiva();
    ui.input.push_back(o.ultime);
    const auto intervallo = ClickSuggerisci(f28, ui);
    if (!intervallo)
        throw InputNonValido("Numero di estrazioni non valido: \"" + o.ultime + "\" (da 1 a " + std::to_string(rc) + ")");
    Form29 f29(s, ui, f28, &fonte, *intervallo);
    f29.carica();
    if (f29.misura.interrotta)
        std::cerr << "Attenzione: misura interrotta all'estrazione " << f29.misura.rigaErrore << " di "
                  << f29.misura.righe << " (errore " << f29.misura.errore << ")\n";
    StampaInviluppo(f29, std::cout);
    f29.clickImposta();
    if (!o.uscita.empty() && !SalvaCondizioniJson(o.uscita, f28, ui)) throw InputNonValido(ui.ultimoBox().testo);
    return 0;
}

RegistraComando condizioni("condizioni", [](CLI::App& app) -> Esecuzione {
    auto o = std::make_shared<OpzioniSuggerite>();
    auto* sub = app.add_subcommand("condizioni", "condizioni per lo sviluppo");
    sub->require_subcommand(1);
    auto* suggerite = sub->add_subcommand(
        "suggerite", "condizioni misurate sulle ultime estrazioni (Suggerisci, poi Imposta questi parametri)");
    suggerite->add_option("--ultime", o->ultime, "numero delle ultime estrazioni da esaminare")->required();
    suggerite->add_option("--ruota", o->ruota, "ruota della giocata: 0 Bari ... 9 Venezia, 10 Nazionale, 11 Tutte (predefinita)");
    suggerite->add_option("--archivio", o->archivio, "archivio.db da leggere (predefinito: quello del programma)");
    suggerite->add_option("-o,--uscita", o->uscita, "file delle condizioni da scrivere, come \"Salva condizioni...\"");
    return [o, suggerite]() { return suggerite->parsed() ? Suggerite(*o) : 1; };
});

}  // namespace

}  // namespace zef::cli
