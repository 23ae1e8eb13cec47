// The view of "IMPOSTAZIONI DI STAMPA" (model: zef::Form11): the geometry of the
// slip with its spinners, the range, the number of draws, single-slip mode, and the
// picture of the slip with the marks where the settings put them.
#pragma once

#include "core/interfaccia.h"
#include "printing/form11.h"

#include <QDialog>

#include <array>

class QCheckBox;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QToolButton;

namespace zef::ui {

class DisegnoScheda;

class Form11View : public QDialog {
    Q_OBJECT
public:
    Form11View(Form11& modello, Interfaccia& ui, QWidget* parent = nullptr);

    QLineEdit* casella(Form11::Casella c) const { return caselle_[c]; }
    // The spinner's arrows of a box: +1 up, -1 down.
    QToolButton* freccia(Form11::Casella c, int verso) const { return frecce_[c][verso > 0 ? 0 : 1]; }
    QRadioButton* Option1() const { return option1_; }
    QRadioButton* Option2() const { return option2_; }
    QRadioButton* Option3(int i) const { return option3_[i - 1]; }  // 1..7
    QCheckBox* Check1() const { return check1_; }
    QPushButton* Command1() const { return command1_; }
    QPushButton* Command2() const { return command2_; }
    DisegnoScheda* Image1() const { return image1_; }

    // Mirrors the model into the widgets and redraws the picture.
    void aggiorna();
    void reject() override;

protected:
    void showEvent(QShowEvent* e) override;

private:
    void aggiornaAnteprima();

    Form11& m_;
    Interfaccia& ui_;
    std::array<QLineEdit*, 6> caselle_{};
    std::array<std::array<QToolButton*, 2>, 6> frecce_{};
    QRadioButton* option1_;
    QRadioButton* option2_;
    std::array<QRadioButton*, 7> option3_{};
    QCheckBox* check1_;
    QPushButton* command1_;
    QPushButton* command2_;
    DisegnoScheda* image1_;
};

}  // namespace zef::ui
