// The view of the development dialog "SCELTA SVILUPPO" (model: zef::Form20).
#pragma once

#include "core/interfaccia.h"
#include "ui/dialogo_lavoro.h"

class QComboBox;
class QLineEdit;
class QPushButton;

namespace zef {
class Form20;
}

namespace zef::ui {

class Form20View : public DialogoConLavoro {
    Q_OBJECT
public:
    // `esegui` runs a job off the interface thread and waits for it (empty: a
    // std::thread with a local event loop). The model's Interfaccia must accept
    // calls from that thread.
    Form20View(Form20& modello, Interfaccia& ui, vista::EseguiInLavoro esegui = {}, QWidget* parent = nullptr);

    // Control names, for tests and the main window.
    QComboBox* Combo1() const { return combo1_; }
    QLineEdit* Text1() const { return text1_; }
    QPushButton* Command1() const { return command1_; }
    QPushButton* Command2() const { return command2_; }
    QPushButton* Command3() const { return command3_; }
    QPushButton* Command4() const { return command4_; }

    // Mirrors the model's fields into the widgets.
    void aggiorna();
    // Escape and the close button unload the dialog.
    void reject() override;

protected:
    void showEvent(QShowEvent* e) override;
    bool scaricato() const override;
    void abilitaComandi(bool abilitati) override;

private:
    void avvia();
    void chiudiSeScaricato();

    Form20& m_;
    QComboBox* combo1_;
    QLineEdit* text1_;
    QPushButton* command1_;
    QPushButton* command2_;
    QPushButton* command3_;
    QPushButton* command4_;
};

}  // namespace zef::ui
