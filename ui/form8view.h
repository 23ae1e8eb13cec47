// The view of the win percentages window (model: zef::Form8, table in
// Sistema::form8): "CALCOLO PERCENTUALI IN CORSO..." while Timer1 runs, then the
// table "RESA DEL SISTEMA".
//
// Timer1 runs the model's events off the interface thread, a slice of whole events
// at a time; between slices the table is mirrored and the keys pressed in the
// window are handed to the model, as they would be between two timer events.
// Hidden by its button, the window keeps computing on the interface thread.
#pragma once

#include "core/interfaccia.h"
#include "ui/vista_comune.h"

#include <QDialog>

#include <array>
#include <chrono>
#include <vector>

class QLabel;
class QProgressBar;
class QPushButton;
class QTimer;

namespace zef {
class Form8;
struct Sistema;
}  // namespace zef

namespace zef::ui {

class Form8View : public QDialog {
    Q_OBJECT
public:
    Form8View(Form8& modello, Sistema& s, Interfaccia& ui, vista::EseguiInLavoro esegui = {},
              QWidget* parent = nullptr);

    // Cell of kind `riga` (0 cinquine .. 3 ambi) and L (2..5): Perc5(L)..Perc2(L).
    QLabel* Perc(int riga, int L) const { return perc_[riga][L]; }
    QLabel* titolo(int riga) const { return titoli_[riga]; }  // cinquine, quaterne, terni, ambi
    QLabel* GaranziaMax() const { return garanziaMax_; }
    QLabel* GaranziaMin() const { return garanziaMin_; }
    QProgressBar* ProgressBar1() const { return barra_; }
    QPushButton* Command1() const { return command1_; }
    QTimer* Timer1() const { return timer1_; }

    // Mirrors Sistema::form8; Timer1 follows the model's.
    void aggiorna();
    // Stops Timer1 before the model is started over or unloaded.
    void ferma();
    // Any other close than Command1 unloads the window.
    void reject() override;

protected:
    void showEvent(QShowEvent* e) override;
    void keyPressEvent(QKeyEvent* e) override;

private:
    void passo();
    // Timer events back to back for about `durata` (at least one).
    void eventi(std::chrono::milliseconds durata);
    void tasto(int codice);
    void chiudiSeScaricato();

    Form8& m_;
    Sistema& s_;
    Interfaccia& ui_;
    vista::EseguiInLavoro esegui_;
    bool inLavoro_ = false;
    bool chiusuraRichiesta_ = false;
    std::vector<int> tasti_;  // pressed while a slice runs
    std::array<std::array<QLabel*, 6>, 4> perc_{};
    std::array<QLabel*, 4> titoli_{};
    QLabel* garanziaMax_;
    QLabel* garanziaMin_;
    QProgressBar* barra_;
    QPushButton* command1_;
    QTimer* timer1_;
};

}  // namespace zef::ui
