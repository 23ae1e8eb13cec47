// The play list as Qt sees it: one column, rows read from Sistema::MSFlexGrid1 on
// demand, so a list of 20,000,000 rows costs the view nothing per row.
#pragma once

#include <QAbstractTableModel>
#include <QFont>

namespace zef {
struct Sistema;
}

namespace zef::ui {

class ModelloLista : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit ModelloLista(const Sistema& s, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& indice, int ruolo = Qt::DisplayRole) const override;

    // The list changed under the model (rebuilt, rows added or deleted).
    void ricarica();

private:
    const Sistema& s_;
    QFont carattere_;
};

}  // namespace zef::ui
