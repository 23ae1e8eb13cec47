#include "ui/modellolista.h"

#include "core/sistema.h"
#include "ui/vista_comune.h"

#include <algorithm>
#include <limits>

namespace zef::ui {

ModelloLista::ModelloLista(const Sistema& s, QObject* parent)
    : QAbstractTableModel(parent), s_(s), carattere_(vista::CarattereFisso(10)), righe_(righeAttuali()) {}

int ModelloLista::righeAttuali() const {
    return static_cast<int>(std::min<int64_t>(s_.MSFlexGrid1.Rows(), std::numeric_limits<int>::max()));
}

int ModelloLista::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : righe_; }

int ModelloLista::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : 1; }

QVariant ModelloLista::data(const QModelIndex& indice, int ruolo) const {
    if (!indice.isValid() || indice.row() >= s_.MSFlexGrid1.Rows()) return {};
    switch (ruolo) {
        case Qt::DisplayRole: {
            auto riga = s_.MSFlexGrid1.riga(indice.row());
            return QString::fromUtf8(riga.data(), static_cast<qsizetype>(riga.size()));
        }
        case Qt::FontRole: return carattere_;
        default: return {};
    }
}

void ModelloLista::ricarica() {
    const int nuove = righeAttuali();
    if (nuove < righe_) {
        beginResetModel();
        righe_ = nuove;
        endResetModel();
        return;
    }
    if (righe_ > 0) emit dataChanged(index(0, 0), index(righe_ - 1, 0));
    if (nuove > righe_) {
        beginInsertRows({}, righe_, nuove - 1);
        righe_ = nuove;
        endInsertRows();
    }
}

}  // namespace zef::ui
