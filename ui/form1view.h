// The main window "Zefiranto 2.0" (model: zef::Form1): the pad of 90 numbers, the
// play list, the buttons, toolbar, menus, status bar and progress bar. Every event
// is forwarded to the model under the event boundary, then the view mirrors the
// model and the sistema again.
#pragma once

#include "core/interfaccia.h"

#include <QMainWindow>

#include <array>
#include <map>
#include <string>

class QAction;
class QLabel;
class QProgressBar;
class QPushButton;
class QTableView;
class QTimer;
class QToolBar;

namespace zef {
class Form1;
struct Sistema;
}  // namespace zef

namespace zef::ui {

class ModelloLista;

class Form1View : public QMainWindow {
    Q_OBJECT
public:
    Form1View(Form1& modello, Sistema& s, Interfaccia& ui, QWidget* parent = nullptr);

    // Mirrors the model into the widgets; `lista` also reloads the play list.
    void aggiorna(bool lista = true);
    // Runs a handler of the model under the event boundary, then mirrors.
    void evento(const std::function<void()>& gestore, bool lista = true);

    // Controls under their names, for tests and for the other windows.
    QPushButton* Command1(int i) const { return pad_[i]; }
    QLabel* Label2() const { return label2_; }
    QLabel* ListaCol() const { return listaCol_; }
    QPushButton* Command2() const { return pulsanti_.at("Command2"); }
    QPushButton* pulsante(const std::string& nome) const { return pulsanti_.at(nome); }
    QTableView* MSFlexGrid1() const { return griglia_; }
    ModelloLista* modelloLista() const { return modello_; }
    QProgressBar* ProgressBar1() const { return barra_; }
    QLabel* pannello(int i) const { return pannelli_[i]; }
    QLabel* lblVersion() const { return lblVersion_; }
    // Menu items and toolbar buttons by name ("Apri", "Garanzia5") and key ("apri").
    QAction* voce(const std::string& nome) const;
    QAction* tasto(const std::string& chiave) const;
    QToolBar* Toolbar1() const { return toolbar_; }
    QTimer* Timer4() const { return timer4_; }
    QTimer* Timer6() const { return timer6_; }

protected:
    void closeEvent(QCloseEvent* e) override;

private:
    void creaMenu();
    void creaBarra();
    QWidget* creaPad();
    QWidget* creaLista();
    QWidget* creaComandi();
    void selezioneCambiata();

    Form1& m_;
    Sistema& s_;
    Interfaccia& ui_;
    std::array<QPushButton*, 90> pad_{};
    std::array<bool, 90> padMostrato_{};
    QLabel* label2_ = nullptr;
    QLabel* listaCol_ = nullptr;
    QLabel* lblVersion_ = nullptr;
    QTableView* griglia_ = nullptr;
    ModelloLista* modello_ = nullptr;
    QProgressBar* barra_ = nullptr;
    std::array<QLabel*, 3> pannelli_{};
    QToolBar* toolbar_ = nullptr;
    std::map<std::string, QPushButton*> pulsanti_;
    std::map<std::string, QAction*> voci_;
    std::map<std::string, QAction*> tasti_;
    QTimer* timer4_ = nullptr;
    QTimer* timer6_ = nullptr;
};

}  // namespace zef::ui
