// Conditions from a JSON file for the development commands (--condizioni), with the
// archive (--archivio) that the two archive-based conditions read.
#include "archive/archivio.h"
#include "cli/comandi.h"
#include "cli/sviluppo_cli.h"
#include "archive/estrazioni_archivio.h"
#include "conditions/form28.h"

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

}  // namespace

}  // namespace zef::cli
