#include "ui/form12view.h"

#include "core/form20.h"

#include "ui/vista_comune.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace zef::ui {

using vista::Q;

Form12View::Form12View(Form12& modello, Interfaccia& ui, QWidget* parent)
    : QDialog(parent), m_(modello), ui_(ui) {
    setWindowTitle(Form12::Titolo);
    setFont(vista::CarattereFinestra(10));
    setModal(true);

    list1_ = new QListWidget;
    list1_->setSelectionMode(QAbstractItemView::MultiSelection);
    list1_->setFont(vista::CarattereFinestra(11, true));
    list1_->setMinimumHeight(220);
    list1_->setMinimumWidth(180);
    command1_ = new QPushButton("Accetta");
    command2_ = new QPushButton("Resetta");
    command1_->setDefault(true);

    auto* pulsanti = new QHBoxLayout;
    pulsanti->addWidget(command1_);
    pulsanti->addWidget(command2_);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(list1_);
    layout->addLayout(pulsanti);

    connect(list1_, &QListWidget::itemSelectionChanged, this, &Form12View::selezioneCambiata);
    connect(command1_, &QPushButton::clicked, this, [this] {
        EseguiEvento(ui_, [this] { m_.clickCommand1(); });
        aggiorna();
        if (!m_.visibile) accept();
    });
    connect(command2_, &QPushButton::clicked, this, [this] {
        EseguiEvento(ui_, [this] { m_.clickCommand2(); });
        aggiorna();
    });
}

void Form12View::aggiorna() {
    QSignalBlocker blocco(list1_);
    inAggiornamento_ = true;
    bool stesseRighe = list1_->count() == static_cast<int>(m_.List1.size());
    for (int r = 0; stesseRighe && r < list1_->count(); ++r)
        stesseRighe = list1_->item(r)->text() == Q(m_.List1[r]);
    if (!stesseRighe) {
        list1_->clear();
        for (const auto& t : m_.List1) list1_->addItem(Q(t));
    }
    for (int r = 0; r < list1_->count(); ++r) {
        bool sel = r < static_cast<int>(m_.selezionata.size()) && m_.selezionata[r];
        list1_->item(r)->setSelected(sel);
    }
    list1_->viewport()->update();
    inAggiornamento_ = false;
}

void Form12View::selezioneCambiata() {
    if (inAggiornamento_) return;
    // Each row whose state the user changed is a click on the list, in list order.
    for (int r = 0; r < list1_->count(); ++r) {
        bool sel = list1_->item(r)->isSelected();
        bool prima = r < static_cast<int>(m_.selezionata.size()) && m_.selezionata[r];
        if (sel != prima) EseguiEvento(ui_, [&] { m_.clickList1(r, sel); });
    }
    aggiorna();
}

void Form12View::showEvent(QShowEvent* e) {
    if (!m_.caricato) m_.carica();
    m_.visibile = true;
    aggiorna();
    QDialog::showEvent(e);
}

void Form12View::reject() {
    // Closing the window unloads it, and unloading forgets the fixed numbers.
    m_.scarica();
    QDialog::reject();
}

}  // namespace zef::ui
