// The view of the fixed-numbers dialog "Impostazione delle fisse" (model: zef::Form12).
#pragma once

#include "core/interfaccia.h"

#include <QDialog>

class QListWidget;
class QPushButton;

namespace zef {
class Form12;
}

namespace zef::ui {

class Form12View : public QDialog {
    Q_OBJECT
public:
    Form12View(Form12& modello, Interfaccia& ui, QWidget* parent = nullptr);

    QListWidget* List1() const { return list1_; }
    QPushButton* Command1() const { return command1_; }
    QPushButton* Command2() const { return command2_; }

    void aggiorna();
    // Escape and the close button unload the dialog.
    void reject() override;

protected:
    void showEvent(QShowEvent* e) override;

private:
    void selezioneCambiata();

    Form12& m_;
    Interfaccia& ui_;
    bool inAggiornamento_ = false;
    QListWidget* list1_;
    QPushButton* command1_;
    QPushButton* command2_;
};

}  // namespace zef::ui
