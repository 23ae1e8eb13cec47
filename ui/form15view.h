// "SMORFIA" (model: zef::Form15): the subject and the object, the list of objects in
// the object's place when one is offered, the eight numbers, and the three commands,
// each lying under its label until the mouse passes over it.
#pragma once

#include "core/interfaccia.h"

#include <QDialog>

#include <array>
#include <functional>
#include <memory>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QStackedWidget;

namespace zef {
class Form1;
class Form15;
struct Sistema;
}  // namespace zef

namespace zef::ui {

class Form1View;

class Form15View : public QDialog {
    Q_OBJECT
public:
    Form15View(Form15& modello, Interfaccia& ui, QWidget* parent = nullptr);
    void aggiorna();
    void evento(const std::function<void()>& gestore);

    // Run after the numbers went to the forecast: the main window repaints its pad.
    std::function<void()> dopoAggiunta;

    QLineEdit* Text1() const { return text1_; }
    QLineEdit* Text2() const { return text2_; }
    QComboBox* Combo1() const { return combo1_; }
    QLabel* lblnum(int i) const { return lblnum_[static_cast<size_t>(i)]; }
    // Command1 (add), Command2 (OK), Command3 (ELABORA), and the labels over them.
    QPushButton* Command(int i) const { return comandi_[static_cast<size_t>(i)]; }
    QLabel* etichetta(int i) const { return etichette_[static_cast<size_t>(i)]; }

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    QWidget* sovrapposti(int comando, const char* testoEtichetta, const char* nomeEtichetta);
    Form15& m_;
    Interfaccia& ui_;
    QLineEdit* text1_ = nullptr;
    QLineEdit* text2_ = nullptr;
    QComboBox* combo1_ = nullptr;
    QStackedWidget* oggetto_ = nullptr;
    std::array<QLabel*, 8> lblnum_{};
    std::array<QPushButton*, 4> comandi_{};
    std::array<QLabel*, 4> etichette_{};  // by command
};

// The window and its model, owned together and opened by the main window's Smorfia.
std::shared_ptr<void> InstallaSmorfia(Form1& f1, Sistema& s, Interfaccia& ui, Form1View& finestra);

}  // namespace zef::ui
