// The view of the window "INFORMAZIONI SUL SISTEMA" (model: zef::Form9), filled each
// time it is activated.
#pragma once

#include "core/interfaccia.h"

#include <QDialog>

class QLabel;
class QPushButton;

namespace zef {
class Form9;
}

namespace zef::ui {

class Form9View : public QDialog {
    Q_OBJECT
public:
    Form9View(Form9& modello, Interfaccia& ui, QWidget* parent = nullptr);

    QLabel* Tipogiocata() const { return tipogiocata_; }
    QLabel* TipoSistema() const { return tipoSistema_; }
    QLabel* CondInt() const { return condInt_; }
    QLabel* RidInt() const { return ridInt_; }
    QLabel* RidCond() const { return ridCond_; }
    QPushButton* Command1() const { return command1_; }

    void aggiorna();

protected:
    void showEvent(QShowEvent* e) override;

private:
    Form9& m_;
    Interfaccia& ui_;
    QLabel* tipogiocata_;
    QLabel* tipoSistema_;
    QLabel* condInt_;
    QLabel* ridInt_;
    QLabel* ridCond_;
    QPushButton* command1_;
};

}  // namespace zef::ui
