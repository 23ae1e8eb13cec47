// EstrazioniArchivio: the draws of the archive database as the conditions read them.
//
// Each call is one query on table `estrazioni`, read straight off the statement into
// the 55 numbers of a draw (a null field is 0, the reader's "not drawn"). The whole
// archive is a few thousand rows, read in a few tens of milliseconds. A failure of
// the database raises ErroreEsecuzione, as any read of the archive does.
#pragma once

#include "archive/fonte_estrazioni.h"

namespace zef {

class ArchivioEstrazioni;

class EstrazioniArchivio : public FonteEstrazioni {
public:
    // The archive must outlive the source; it is read on the caller's thread.
    explicit EstrazioniArchivio(ArchivioEstrazioni& archivio) : archivio_(archivio) {}

    long numeroEstrazioni() override;
    std::vector<EstrazioneLetta> daId(long idMinimo) override;
    std::vector<EstrazioneLetta> tutte() override;

private:
    std::vector<EstrazioneLetta> leggi(const long* idMinimo);
    ArchivioEstrazioni& archivio_;
};

}  // namespace zef
