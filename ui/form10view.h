// The views of "AVVIO DELLA STAMPA" (model: zef::Form10) and "OPZIONI DI STAMPA"
// (model: zef::Form24).
#pragma once

#include "core/interfaccia.h"

#include <QDialog>

class QCheckBox;
class QPushButton;
class QRadioButton;

namespace zef {
class Form10;
class Form24;
}  // namespace zef

namespace zef::ui {

class Form10View : public QDialog {
    Q_OBJECT
public:
    Form10View(Form10& modello, Interfaccia& ui, QWidget* parent = nullptr);

    QRadioButton* Option1() const { return option1_; }
    QRadioButton* Option2() const { return option2_; }
    QPushButton* Command1() const { return command1_; }
    QPushButton* Command2() const { return command2_; }
    void aggiorna();
    // The close button unloads the window: its choice starts over.
    void reject() override;

protected:
    void showEvent(QShowEvent* e) override;

private:
    Form10& m_;
    Interfaccia& ui_;
    QRadioButton* option1_;
    QRadioButton* option2_;
    QPushButton* command1_;
    QPushButton* command2_;
};

class Form24View : public QDialog {
    Q_OBJECT
public:
    Form24View(Form24& modello, QWidget* parent = nullptr);

    QCheckBox* Check(int n) const;  // 1..3
    QPushButton* Command1() const { return command1_; }
    QPushButton* Command2() const { return command2_; }
    void aggiorna();
    void reject() override;

protected:
    void showEvent(QShowEvent* e) override;

private:
    Form24& m_;
    QCheckBox* check_[3];
    QPushButton* command1_;
    QPushButton* command2_;
};

}  // namespace zef::ui
