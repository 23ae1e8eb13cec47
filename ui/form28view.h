// The view of the conditions dialog "Impostazione delle condizioni" (model: zef::Form28).
//
// Fifteen tabs switched by a strip of three rows (fifteen captions do not fit one row
// of a dialog), the "attiva" box and help text on each, Accetta and Resetta below,
// and the saving and loading of condition files. Every typed key goes through the
// model's key rule, every field left through its limit; after any call into the model
// the whole view is written again from the model's fields.
#pragma once

#include "core/interfaccia.h"

#include <QDialog>

#include <array>
#include <functional>
#include <map>
#include <string>
#include <vector>

class QAbstractButton;
class QButtonGroup;
class QCheckBox;
class QComboBox;
class QGridLayout;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTabWidget;
class QToolButton;

namespace zef {
class Form28;
}

namespace zef::ui {

class Form28View : public QDialog {
    Q_OBJECT
public:
    Form28View(Form28& modello, Interfaccia& ui, QWidget* parent = nullptr);
    ~Form28View() override;

    // Writes every widget from the model's fields.
    void aggiorna();
    // Runs a handler of the model under the event boundary, then mirrors.
    void evento(const std::function<void()>& gestore);

    // Suggerisci: shown only when something answers it.
    std::function<void()> suggerisci;

    // Controls under their names, for tests.
    QTabWidget* SSTab1() const { return tab_; }
    QAbstractButton* scheda(int i) const;  // the strip's button of tab i
    QCheckBox* chkAttivo(int i) const { return chkAttivo_[i]; }
    QListWidget* List1() const { return list1_; }
    QListWidget* List2() const { return list2_; }
    QListWidget* List3() const { return list3_; }
    QListWidget* List4() const { return list4_; }
    QComboBox* Combo(int n) const { return combo_.at(n); }
    QLineEdit* campo(const std::string& nome) const { return campi_.at(nome); }
    QToolButton* spin(const std::string& nome, bool su) const;
    QPushButton* Command(int n) const { return comandi_.at(n); }
    QPushButton* Command11(int i) const { return command11_[i]; }
    QPushButton* chkNumeriCF(int i) const { return numeriCF_[i]; }
    QPushButton* Check18(int i) const { return check18_[i]; }
    QCheckBox* chkPuntiCF(int i) const { return puntiCF_[i]; }
    QCheckBox* Check1(int i) const { return check1_[i]; }
    QCheckBox* Check2(int i) const { return check2_[i]; }
    QCheckBox* chkGruppiPari(int i) const { return gruppiPari_[i]; }
    QCheckBox* chkGruppiDispari(int i) const { return gruppiDispari_[i]; }
    QCheckBox* chkInterruzioniPD(int i) const { return interruzioniPD_[i]; }
    QCheckBox* Check20() const { return check20_; }
    QPushButton* axButton1() const { return accetta_; }
    QPushButton* axButton2() const { return resetta_; }
    QPushButton* axButton3() const { return suggerisciPulsante_; }
    QPushButton* salvaCondizioni() const { return salva_; }
    QPushButton* caricaCondizioni() const { return caricaPulsante_; }

    // Escape and the close button hide the dialog: it keeps its state for the run.
    void reject() override;

protected:
    void showEvent(QShowEvent* e) override;
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    // ---- pages (form28view_schede.cpp) ----
    QWidget* paginaNumeriFissi();
    QWidget* paginaConsecutivita();
    QWidget* paginaInterruzioni();
    QWidget* paginaColonneFiltro();
    QWidget* paginaSezioni();
    QWidget* paginaSomma();
    QWidget* paginaPariDispari();
    QWidget* paginaDistanza();
    QWidget* paginaGruppi();
    QWidget* paginaInterruzioniPD();
    QWidget* paginaPosizioni();
    QWidget* paginaSequele();
    QWidget* paginaPuntiColonne();
    QWidget* paginaRecupero();
    QWidget* paginaRitFrq();

    // ---- building blocks ----
    QWidget* pagina(int i, QWidget* controlli);
    QLineEdit* testo(const std::string& nome);
    // A field with its spin pair beside it (the pair may move another field).
    QWidget* conSpin(const std::string& campo, const std::string& nomeSpin);
    QWidget* coppiaSpin(const std::string& nome);
    QComboBox* combo(int n);
    QPushButton* comando(int n, const char* testo);
    // A row of boxes captioned "0".. bound to a model array of 0/1.
    template <size_t N>
    QWidget* caselle(std::array<QCheckBox*, N>& widget, std::array<int, N>& modello, const char* nome);
    // The 90 number boxes, ten to a row.
    QWidget* griglia90(std::array<QPushButton*, 90>& numeri, const char* nome, std::function<void(int, int)> clic);
    QListWidget* lista(const char* nome, int* indice);
    // The column of list-editor buttons.
    QWidget* colonnaComandi(std::initializer_list<std::pair<int, const char*>> voci);

    void aggiornaLista(QListWidget* l, const std::vector<std::string>& voci, int indice);
    void aggiornaNumeri(const std::array<QPushButton*, 90>& numeri, const std::array<int, 90>& spunte,
                        const std::array<bool, 90>& abilitati, bool testoColorato);

    void accetta();
    void resetta();
    void salva();
    void carica();
    // Brings the dialog back in front after Resetta has reloaded the model.
    void mostraDiNuovo();

    Form28& m_;
    Interfaccia& ui_;
    bool attivato_ = false;  // the model ran its activation for the coming show already

    QTabWidget* tab_ = nullptr;
    QButtonGroup* striscia_ = nullptr;
    std::array<QCheckBox*, 15> chkAttivo_{};
    QListWidget* list1_ = nullptr;
    QListWidget* list2_ = nullptr;
    QListWidget* list3_ = nullptr;
    QListWidget* list4_ = nullptr;
    std::map<int, QComboBox*> combo_;
    std::map<std::string, QLineEdit*> campi_;
    std::map<std::string, std::pair<QToolButton*, QToolButton*>> spin_;  // up, down
    std::map<int, QPushButton*> comandi_;
    std::array<QPushButton*, 3> command11_{};
    std::array<QPushButton*, 90> numeriCF_{};
    std::array<QPushButton*, 90> check18_{};
    std::array<QCheckBox*, 6> puntiCF_{};
    std::array<QCheckBox*, 6> check1_{};
    std::array<QCheckBox*, 6> check2_{};
    std::array<QCheckBox*, 4> gruppiPari_{};
    std::array<QCheckBox*, 7> gruppiDispari_{};
    std::array<QCheckBox*, 6> interruzioniPD_{};
    QCheckBox* check20_ = nullptr;
    QPushButton* accetta_ = nullptr;
    QPushButton* resetta_ = nullptr;
    QPushButton* suggerisciPulsante_ = nullptr;
    QPushButton* salva_ = nullptr;
    QPushButton* caricaPulsante_ = nullptr;
    // Binds of the plain boxes, re-read by aggiorna.
    std::vector<std::function<void()>> specchi_;
};

}  // namespace zef::ui
