// The view of the play dialog "Selezione tipo di giocata/puntata" (model: zef::Form2,
// whose controls live in Sistema::form2).
#pragma once

#include "core/interfaccia.h"

#include <QDialog>

#include <array>

class QCheckBox;
class QLabel;
class QPushButton;
class QRadioButton;

namespace zef {
class Form2;
struct Sistema;
}

namespace zef::ui {

class Form2View : public QDialog {
    Q_OBJECT
public:
    // Unless the model's mostraForm23 is already wired, "Vincite possibili" opens a
    // Form23View over the same sistema, modal.
    Form2View(Form2& modello, Sistema& s, Interfaccia& ui, QWidget* parent = nullptr);

    QRadioButton* Option1(int ruota) const { return option1_[ruota]; }
    QCheckBox* Check(int sorte) const { return check_[sorte]; }
    QCheckBox* chkAmbo(int indice) const { return chkAmbo_[indice]; }
    QLabel* testo(int sorte) const { return testi_[sorte]; }  // text0, Text1..Text3, text4
    QLabel* lblCosto() const { return lblCosto_; }
    QPushButton* Command1() const { return command1_; }
    QPushButton* Command2() const { return command2_; }

    // Mirrors Sistema::form2 into the widgets.
    void aggiorna();

protected:
    void showEvent(QShowEvent* e) override;

private:
    void evento(const std::function<void()>& gestore);

    Form2& m_;
    Sistema& s_;
    Interfaccia& ui_;
    std::array<QRadioButton*, 12> option1_{};
    std::array<QCheckBox*, 5> check_{};
    std::array<QCheckBox*, 65> chkAmbo_{};
    std::array<QLabel*, 5> testi_{};
    QLabel* lblCosto_;
    QPushButton* command1_;
    QPushButton* command2_;
};

}  // namespace zef::ui
