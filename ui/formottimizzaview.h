// "RIDUZIONE OTTIMIZZATA" (model: zef::FormOttimizza): the task, the guarantee, the
// size of a column for the cover, the time and the seed; AVVIA runs the search off the
// interface thread under the progress window.
#pragma once

#include "core/interfaccia.h"

#include <QDialog>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace zef {
class FormOttimizza;
}

namespace zef::ui {

class FormOttimizzaView : public QDialog {
    Q_OBJECT
public:
    FormOttimizzaView(FormOttimizza& modello, Interfaccia& ui, QWidget* parent = nullptr);
    void aggiorna();

    QRadioButton* Option1() const { return option1_; }
    QRadioButton* Option2() const { return option2_; }
    QComboBox* garanzia() const { return garanzia_; }
    QComboBox* sviluppo() const { return sviluppo_; }
    QLineEdit* secondi() const { return secondi_; }
    QLineEdit* seme() const { return seme_; }
    QPushButton* avvia() const { return avvia_; }
    QLabel* esito() const { return esito_; }

private:
    void leggi();
    FormOttimizza& m_;
    Interfaccia& ui_;
    QRadioButton* option1_ = nullptr;
    QRadioButton* option2_ = nullptr;
    QComboBox* garanzia_ = nullptr;
    QComboBox* sviluppo_ = nullptr;
    QLineEdit* secondi_ = nullptr;
    QLineEdit* seme_ = nullptr;
    QPushButton* avvia_ = nullptr;
    QLabel* esito_ = nullptr;
};

}  // namespace zef::ui
