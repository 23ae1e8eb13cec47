// The view of the window of possible wins "VINCITE POSSIBILI" (model: zef::Form23).
#pragma once


#include <QDialog>

#include <array>

class QLabel;
class QLineEdit;
class QPushButton;

namespace zef {
class Form23;
}

namespace zef::ui {

class Form23View : public QDialog {
    Q_OBJECT
public:
    // Loads the model and shows its values.
    explicit Form23View(Form23& modello, QWidget* parent = nullptr);

    // Rows in the model's order: Cinquina, Quaterna, Terno, Ambo, Estratto.
    QLineEdit* maschera(int riga) const { return maschere_[riga]; }
    QLabel* etichetta(int riga) const { return etichette_[riga]; }
    QPushButton* Command1() const { return command1_; }

    void aggiorna();

private:
    Form23& m_;
    std::array<QLineEdit*, 5> maschere_{};
    std::array<QLabel*, 5> etichette_{};
    QPushButton* command1_;
};

}  // namespace zef::ui
