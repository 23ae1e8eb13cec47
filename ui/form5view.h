// The view of the reduction dialog "IMPOSTAZIONE RIDUZIONE" (model: zef::Form5, whose
// options live in Sistema::form5).
#pragma once

#include "core/interfaccia.h"
#include "ui/dialogo_lavoro.h"

#include <array>
#include <functional>

class QCheckBox;
class QPushButton;
class QRadioButton;

namespace zef {
class Form5;
struct Sistema;
}  // namespace zef

namespace zef::ui {

class Form5View : public DialogoConLavoro {
    Q_OBJECT
public:
    // `esegui` runs AVVIA off the interface thread and waits for it (empty: a
    // std::thread with a local event loop).
    Form5View(Form5& modello, Sistema& s, Interfaccia& ui, vista::EseguiInLavoro esegui = {},
              QWidget* parent = nullptr);

    QRadioButton* Option(int n) const { return option_[n - 1]; }  // 1..4
    QCheckBox* Check1() const { return check1_; }
    QCheckBox* Check2() const { return check2_; }
    QPushButton* Command1() const { return command1_; }
    QPushButton* Command2() const { return command2_; }

    // Mirrors Sistema::form5 into the widgets.
    void aggiorna();
    // Escape and the close button unload the dialog: its options start over.
    void reject() override;

protected:
    void showEvent(QShowEvent* e) override;
    bool scaricato() const override;
    void abilitaComandi(bool abilitati) override;

private:
    void evento(const std::function<void()>& gestore);
    void avvia();

    Form5& m_;
    Sistema& s_;
    std::array<QRadioButton*, 4> option_{};
    QCheckBox* check1_;
    QCheckBox* check2_;
    QPushButton* command1_;
    QPushButton* command2_;
};

}  // namespace zef::ui
