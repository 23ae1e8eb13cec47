#include "archive/controllo_dati.h"

namespace zef {

void ControlloDati::Refresh() {
    rs_.Close();
    db_.reset();
    db_ = std::make_unique<ArchivioEstrazioni>(DatabaseName);
    rs_ = db_->OpenRecordset(RecordSource);
    rs_.alRiposizionamento = [this] {
        if (Reposition) Reposition();
    };
    if (Reposition) Reposition();
}

Cursore& ControlloDati::Recordset() {
    if (!rs_.aperto()) Refresh();
    return rs_;
}

void ControlloDati::Chiudi() {
    rs_.Close();
    db_.reset();
}

void ControlloDati::primo() { Recordset().MoveFirst(); }
void ControlloDati::ultimo() { Recordset().MoveLast(); }

void ControlloDati::precedente() {
    Cursore& c = Recordset();
    if (c.Bof()) return c.MoveFirst();
    c.MovePrevious();
    if (c.Bof()) c.MoveFirst();
}

void ControlloDati::successivo() {
    Cursore& c = Recordset();
    if (c.Eof()) return c.MoveLast();
    c.MoveNext();
    if (c.Eof()) c.MoveLast();
}

}  // namespace zef
