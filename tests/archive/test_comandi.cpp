// The archive's commands as the main window runs them, through the scripted interface.
#include "aiuto.h"

#include "archive/comandi_archivio.h"
#include "core/interfaccia_scriptata.h"

#include <gtest/gtest.h>

using namespace zef;
using prova::CartellaTemporanea;

namespace {

TEST(ComandiArchivio, AvvioCreaERiempieOppureDiceLErrore) {
    CartellaTemporanea dir;
    InterfacciaScriptata ui;
    // The shipped draws beside the test programs.
    auto a = ApriDbArchivio(ui, dir / "archivio.db");
    ASSERT_NE(a, nullptr);
    EXPECT_TRUE(ui.box.empty());
    EXPECT_EQ(a->NumeroEstrazioni(), 7359);
    a.reset();
    // Opened again as it is, not filled twice.
    a = ApriDbArchivio(ui, dir / "archivio.db");
    EXPECT_EQ(a->NumeroEstrazioni(), 7359);

    prova::ScriviFile(dir / "rotto.db", std::string(4096, 'x'));
    EXPECT_EQ(ApriDbArchivio(ui, dir / "rotto.db"), nullptr);
    ASSERT_EQ(ui.box.size(), 1u);
    EXPECT_EQ(ui.box[0].testo,
              "Si è verificato l'errore seguente: Formato di database non riconosciuto '" + (dir / "rotto.db") + "'.");
    EXPECT_EQ(ui.box[0].icona, Icona::Critico);
}

TEST(ComandiArchivio, ImportaDalMenu) {
    CartellaTemporanea dir;
    InterfacciaScriptata ui;
    auto a = ArchivioEstrazioni::ApriOCrea(dir / "archivio.db");
    prova::ScriviFile(dir / "buono.txt", "2025/01/02\tBA\t1\t2\t3\t4\t5\n");
    prova::ScriviFile(dir / "cattivo.txt", "2025/01/04\tBA\t1\t2\t3\t4\t5\n2025/01/07\tZZ\t1\t2\t3\t4\t5\n");
    ui.fileApri = {std::nullopt, dir / "buono.txt", dir / "cattivo.txt"};
    ImportaArchivioStorico(*a, ui);  // cancelled: nothing
    EXPECT_TRUE(ui.box.empty());
    ImportaArchivioStorico(*a, ui);
    ASSERT_EQ(ui.box.size(), 1u);
    EXPECT_EQ(ui.box[0].testo, "Estrazioni importate: 1.\nEstrazioni in archivio: 1.");
    ImportaArchivioStorico(*a, ui);
    EXPECT_EQ(ui.box[1].testo,
              "Errore alla riga 2: ruota sconosciuta \"ZZ\".\nNessuna estrazione è stata importata.");
    EXPECT_EQ(a->NumeroEstrazioni(), 1);
}

}  // namespace
