// The view of "Parametri delle colonne in archivio" (model: zef::Form29), and the
// "Suggerisci" button of the conditions dialog that leads to it.
//
// Ten tabs in the order of the conditions dialog, switched by a strip of two rows;
// below them the mean delay and frequency the draws showed, and the two buttons.
// The measuring is done by the model's load before the window shows.
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
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QStackedWidget;
class QToolButton;

namespace zef {
class Form28;
class Form29;
struct Sistema;
}  // namespace zef

namespace zef::ui {

class Form29View : public QDialog {
    Q_OBJECT
public:
    Form29View(Form29& modello, Interfaccia& ui, QWidget* parent = nullptr);

    void aggiorna();

    // Controls under their names, for tests.
    QAbstractButton* scheda(int i) const;
    QStackedWidget* SSTab1() const { return pagine_; }
    QComboBox* Combo(int n) const { return combo_.at(n); }
    QLineEdit* campo(const std::string& nome) const { return campi_.at(nome); }
    QCheckBox* Check1(int i) const { return check1_[i]; }
    QCheckBox* chkInterruzioniPD(int i) const { return interruzioniPD_[i]; }
    QCheckBox* chkGruppiPari(int i) const { return gruppiPari_[i]; }
    QCheckBox* chkGruppiDispari(int i) const { return gruppiDispari_[i]; }
    QListWidget* List3() const { return list3_; }
    QPushButton* Check18(int i) const { return check18_[i]; }
    QToolButton* UpDown10(bool su) const { return su ? su_ : giu_; }
    QLabel* ritardoFrequenza() const { return ritFrq_; }
    QPushButton* axButton1() const { return imposta_; }
    QPushButton* axButton2() const { return chiudi_; }

    // Escape and the close button leave as "Chiudi finestra" does.
    void reject() override;

private:
    QWidget* pagina(int i);
    QComboBox* combo(int n, int* campo);
    QLineEdit* testo(const std::string& nome);
    template <size_t N>
    QWidget* caselle(std::array<QCheckBox*, N>& widget, std::array<int, N>& modello, const char* nome);
    void evento(const std::function<void()>& gestore);

    Form29& m_;
    Interfaccia& ui_;
    QButtonGroup* striscia_ = nullptr;
    QStackedWidget* pagine_ = nullptr;
    std::map<int, QComboBox*> combo_;
    std::map<int, int*> campiCombo_;
    std::map<std::string, QLineEdit*> campi_;
    std::array<QCheckBox*, 6> check1_{};
    std::array<QCheckBox*, 6> interruzioniPD_{};
    std::array<QCheckBox*, 4> gruppiPari_{};
    std::array<QCheckBox*, 7> gruppiDispari_{};
    std::array<QPushButton*, 90> check18_{};
    QListWidget* list3_ = nullptr;
    QToolButton* su_ = nullptr;
    QToolButton* giu_ = nullptr;
    QLabel* ritFrq_ = nullptr;
    QPushButton* imposta_ = nullptr;
    QPushButton* chiudi_ = nullptr;
    std::vector<std::function<void()>> specchi_;
};

// Form28's "Suggerisci" in the program: the question, then the conditions dialog
// `vista28` hides and Form29 comes up modal over `padre`. True when "Imposta questi
// parametri" asks for the conditions dialog to be shown again.
bool SuggerisciCondizioni(Sistema& s, Interfaccia& ui, Form28& f28, QDialog& vista28, QWidget* padre,
                          const std::function<void()>& scaricaForm3 = {});

}  // namespace zef::ui
