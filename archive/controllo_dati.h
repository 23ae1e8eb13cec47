// ControlloDati: the bound view of the archive (a data control) that Form3 and Form6
// hold. It opens its own connection to `DatabaseName`, shows `RecordSource` through
// one cursor, `Recordset`, and raises `Reposition` whenever the current row changes,
// whoever moved it. Other windows read the number of draws from its Recordset.
//
// Its arrows never leave the cursor outside the rows: past either end they go back
// to the first or the last row, as the control does by default.
#pragma once

#include "archive/archivio.h"
#include "archive/cursore.h"

#include <functional>
#include <memory>
#include <string>

namespace zef {

class ControlloDati {
public:
    ControlloDati() = default;
    ControlloDati(const ControlloDati&) = delete;
    ControlloDati& operator=(const ControlloDati&) = delete;

    std::string Caption = "Estrazioni";
    std::string DatabaseName;
    std::string RecordSource = "Estrazioni";
    // The control's reposition event.
    std::function<void()> Reposition;

    // Opens (or reopens) the view; raises ErroreArchivio when the file is not an archive.
    // The first row becomes current and Reposition fires.
    void Refresh();
    bool aperto() const { return rs_.aperto(); }
    // The bound cursor; opened on first use.
    Cursore& Recordset();
    void Chiudi();
    // The control's own connection (opened on first use), for a write in a transaction.
    ArchivioEstrazioni* connessione() {
        Recordset();
        return db_.get();
    }

    // The four arrows.
    void primo();
    void precedente();
    void successivo();
    void ultimo();

private:
    std::unique_ptr<ArchivioEstrazioni> db_;
    Cursore rs_;
};

}  // namespace zef
