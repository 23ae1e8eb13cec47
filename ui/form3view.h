// The archive browser "ARCHIVIO ESTRAZIONI" (model: zef::Form3): eleven wheels of five
// boxes, the date and position of the draw, the data control's arrows, and the
// buttons that lie hidden under their labels until the mouse passes over them.
// Every event goes to the model under the event boundary, then the view mirrors it.
#pragma once

#include "core/interfaccia.h"

#include <QDialog>

#include <array>
#include <functional>
#include <vector>

class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;

namespace zef {
class Form3;
}

namespace zef::ui {

class Form3View : public QDialog {
    Q_OBJECT
public:
    Form3View(Form3& modello, Interfaccia& ui, QWidget* parent = nullptr);

    // Loads the model when it is not, activates it and shows the window.
    void apri();
    // Mirrors the model into the widgets.
    void aggiorna();
    // Runs a handler of the model under the event boundary, then mirrors.
    void evento(const std::function<void()>& gestore);

    // Controls under their names, for tests.
    QLineEdit* Text1(int i) const { return text1_[i]; }
    QLabel* Label19() const { return label19_; }
    QLabel* label23() const { return label23_; }
    QLabel* Label(int i) const { return etichette_[i]; }
    QPushButton* Command(int i) const { return comandi_[i]; }
    // The data control's arrows: 0 first, 1 previous, 2 next, 3 last.
    QToolButton* freccia(int i) const { return frecce_[i]; }

    // Escape and the close button unload the window, as ESCI does.
    void reject() override;

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    QWidget* creaRuote();
    QWidget* creaControlloDati();
    QWidget* creaComandi();
    // A button lying under its label in one cell.
    QWidget* sovrapposti(int comando, int etichetta);

    Form3& m_;
    Interfaccia& ui_;
    std::array<QLineEdit*, 55> text1_{};
    std::array<QLabel*, 19> etichette_{};
    std::array<QPushButton*, 9> comandi_{};
    std::array<QToolButton*, 4> frecce_{};
    QLabel* label19_ = nullptr;
    QLabel* label23_ = nullptr;
    QLabel* didascalia_ = nullptr;
    // The surfaces where a passing mouse hides the buttons again.
    std::vector<QWidget*> fondi_;
};

}  // namespace zef::ui
