// The win-check windows: "SPOGLIO COLONNE VINCENTI" (Form6View), "VISUALIZZAZIONE
// COLONNE VINCENTI" (Form7View), "STATISTICHE SULLE VINCITE EFFETTUATE" (Form16View)
// and "VERIFICA DEL SISTEMA SULLE ESTRAZIONI" (FormVerificaView), owned in one place
// and opened by the main window's SPOGLIO and its menu "Statistiche sulle vincite".
#pragma once

#include "core/interfaccia.h"
#include "wincheck/form16.h"
#include "wincheck/form6.h"
#include "wincheck/formverifica.h"

#include <QDialog>

#include <array>
#include <functional>
#include <memory>
#include <string>

class QAbstractListModel;
class QAbstractTableModel;
class QButtonGroup;
class QDateEdit;
class QLabel;
class QLineEdit;
class QListView;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QTableView;
class QTimer;
class QToolButton;

class QChartView;

namespace zef {
class Form1;
struct Sistema;
}  // namespace zef

namespace zef::ui {

class Form1View;

class Form7View : public QDialog {
    Q_OBJECT
public:
    Form7View(Form7& modello, QWidget* parent = nullptr);
    void aggiorna();
    QListView* List1() const { return lista_; }

private:
    Form7& m_;
    QListView* lista_ = nullptr;
    QAbstractListModel* modello_ = nullptr;
};

class Form6View : public QDialog {
    Q_OBJECT
public:
    Form6View(Form6& modello, Interfaccia& ui, QWidget* parent = nullptr);

    // Loads the model when it is not, activates it, and shows the window modal.
    void apri();
    void aggiorna();
    void evento(const std::function<void()>& gestore);

    QLineEdit* Text1(int i) const { return text1_[static_cast<size_t>(i)]; }
    QLabel* punti(int i) const { return punti_[static_cast<size_t>(i)]; }
    QLabel* lblVincitaTotale() const { return totale_; }
    QLabel* Label23() const { return label23_; }
    QPushButton* Command(int i) const { return comandi_[static_cast<size_t>(i)]; }
    QPushButton* verifica() const { return verifica_; }
    QProgressBar* ProgressBar1() const { return barra_; }
    QToolButton* freccia(int i) const { return frecce_[static_cast<size_t>(i)]; }

    // Escape and the close button work as ESCI.
    void reject() override;

private:
    Form6& m_;
    Interfaccia& ui_;
    std::array<QLineEdit*, NumCaselle> text1_{};
    std::array<QLabel*, NumSorti> punti_{};
    std::array<QPushButton*, 6> comandi_{};
    std::array<QToolButton*, 4> frecce_{};
    QPushButton* verifica_ = nullptr;
    QLabel* totale_ = nullptr;
    QLabel* label23_ = nullptr;
    QProgressBar* barra_ = nullptr;
    QTimer* timer1_ = nullptr;
    bool chiudendo_ = false;
};

class Form16View : public QDialog {
    Q_OBJECT
public:
    Form16View(Form16& modello, QWidget* parent = nullptr);
    void aggiorna();
    QLineEdit* Text(int i) const { return testi_[static_cast<size_t>(i)]; }
    QLineEdit* MaskEdBox(int i) const { return maschere_[static_cast<size_t>(i - 1)]; }
    QPushButton* Command1() const { return ok_; }

private:
    Form16& m_;
    std::array<QLineEdit*, 5> testi_{};
    std::array<QLineEdit*, 3> maschere_{};
    QPushButton* ok_ = nullptr;
};

class FormVerificaView : public QDialog {
    Q_OBJECT
public:
    FormVerificaView(FormVerifica& modello, Interfaccia& ui, QWidget* parent = nullptr);
    void aggiorna();

    QRadioButton* opzioneUltime() const { return perUltime_; }
    QRadioButton* opzioneDate() const { return perDate_; }
    QLineEdit* ultime() const { return ultime_; }
    QDateEdit* dal() const { return dal_; }
    QDateEdit* al() const { return al_; }
    QPushButton* avvia() const { return avvia_; }
    QPushButton* esporta() const { return esporta_; }
    QTableView* tabella() const { return tabella_; }
    QLabel* riepilogo() const { return riepilogo_; }
    QChartView* grafico() const { return grafico_; }

private:
    void leggiOpzioni();
    void disegnaGrafico();

    FormVerifica& m_;
    Interfaccia& ui_;
    QRadioButton* perUltime_ = nullptr;
    QRadioButton* perDate_ = nullptr;
    QLineEdit* ultime_ = nullptr;
    QDateEdit* dal_ = nullptr;
    QDateEdit* al_ = nullptr;
    QPushButton* avvia_ = nullptr;
    QPushButton* esporta_ = nullptr;
    QTableView* tabella_ = nullptr;
    QAbstractTableModel* modello_ = nullptr;
    QLabel* riepilogo_ = nullptr;
    QChartView* grafico_ = nullptr;
};

class FinestreSpoglio {
public:
    // `archivio`: the archive file the windows read (empty: the program's own).
    FinestreSpoglio(Sistema& s, Interfaccia& ui, QWidget* padre, std::string archivio = "");
    ~FinestreSpoglio();

    // Sets the main window's SPOGLIO and "Statistiche sulle vincite" hooks.
    void collega(Form1& f1);
    void apriForm6();
    void apriForm16();
    // The browser loads Form7 when it loads, and unloads Form6 when a draw is stored.
    void caricaForm7() { form7_.carica(); }
    void scaricaForm6();

    Form6& form6() { return form6_; }
    Form7& form7() { return form7_; }
    Form16& form16() { return form16_; }
    FormVerifica& verifica() { return verifica_; }
    Form6View& vista6() { return *vista6_; }
    Form7View& vista7() { return *vista7_; }
    Form16View& vista16() { return *vista16_; }
    FormVerificaView& vistaVerifica() { return *vistaVerifica_; }

private:
    Interfaccia& ui_;
    Form7 form7_;
    Form6 form6_;
    Form16 form16_;
    FormVerifica verifica_;
    std::unique_ptr<Form6View> vista6_;
    std::unique_ptr<Form7View> vista7_;
    std::unique_ptr<Form16View> vista16_;
    std::unique_ptr<FormVerificaView> vistaVerifica_;
};

std::shared_ptr<FinestreSpoglio> InstallaFinestreSpoglio(Form1& f1, Sistema& s, Interfaccia& ui, Form1View& finestra,
                                                         std::string archivio = "");

}  // namespace zef::ui
