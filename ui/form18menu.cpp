#include "ui/form18menu.h"

#include "core/giocate.h"
#include "ui/form17view.h"
#include "ui/vista_comune.h"

namespace zef::ui {

Form18Menu::Form18Menu(Sistema& s, std::function<void()> dopoModifica, QWidget* parent)
    : QMenu("Colonna", parent), s_(s), dopoModifica_(std::move(dopoModifica)) {
    setFont(vista::CarattereFinestra(10));
    aggiungi_ = addAction("Aggiungi");
    elimina_ = addAction("Elimina");
    mostraForm17 = [this] {
        Form17 f17(s_);
        Form17View v(f17, parentWidget());
        v.exec();
    };
    connect(aggiungi_, &QAction::triggered, this, [this] {
        if (mostraForm17) mostraForm17();
        if (dopoModifica_) dopoModifica_();
    });
    connect(elimina_, &QAction::triggered, this, [this] {
        EliminaRigaCorrente(s_);
        if (dopoModifica_) dopoModifica_();
    });
}

}  // namespace zef::ui
