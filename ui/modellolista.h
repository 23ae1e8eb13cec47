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

    // The list changed under the model (rebuilt, rows added or deleted). Rows added at
    // the end (the cover grows the list a tick at a time) are announced as inserted,
    // so the view does not start over; fewer rows reset the model.
    void ricarica();

private:
    int righeAttuali() const;
    const Sistema& s_;
    QFont carattere_;
    int righe_ = 0;  // the count the view was told
};

}  // namespace zef::ui
