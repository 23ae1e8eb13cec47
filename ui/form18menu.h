// The popup menu "Colonna" of the play list (Form18.mnufile): Aggiungi and Elimina.
#pragma once

#include <QMenu>

#include <functional>

namespace zef {
struct Sistema;
}

namespace zef::ui {

class Form18Menu : public QMenu {
    Q_OBJECT
public:
    // `dopoModifica` runs after a row was added or deleted, for the list's view.
    Form18Menu(Sistema& s, std::function<void()> dopoModifica = {}, QWidget* parent = nullptr);

    QAction* Aggiungi() const { return aggiungi_; }
    QAction* Elimina() const { return elimina_; }

    // Aggiungi: "COLONNA DA AGGIUNGERE", modal. Replaceable for tests.
    std::function<void()> mostraForm17;

private:
    Sistema& s_;
    std::function<void()> dopoModifica_;
    QAction* aggiungi_;
    QAction* elimina_;
};

}  // namespace zef::ui
