// The view of the dialog "RIDUZIONI PARTICOLARI" (model: zef::Form19): the set-up of a
// reduced development. Avvia leaves the cover to the main window's Timer4.
#pragma once

#include "core/interfaccia.h"

#include <QDialog>

#include <functional>

class QComboBox;
class QPushButton;

namespace zef {
class Form19;
}

namespace zef::ui {

class Form19View : public QDialog {
    Q_OBJECT
public:
    Form19View(Form19& modello, Interfaccia& ui, QWidget* parent = nullptr);

    QComboBox* Combo1() const { return combo1_; }
    QComboBox* Combo2() const { return combo2_; }
    QPushButton* Command1() const { return command1_; }
    QPushButton* Command2() const { return command2_; }

    // Mirrors the model's list indices (-1: nothing selected).
    void aggiorna();

private:
    void evento(const std::function<void()>& gestore);

    Form19& m_;
    Interfaccia& ui_;
    QComboBox* combo1_;
    QComboBox* combo2_;
    QPushButton* command1_;
    QPushButton* command2_;
};

}  // namespace zef::ui
