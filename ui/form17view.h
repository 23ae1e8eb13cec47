// The view of the dialog "COLONNA DA AGGIUNGERE" (model: zef::Form17).
#pragma once


#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

namespace zef {
class Form17;
}

namespace zef::ui {

class Form17View : public QDialog {
    Q_OBJECT
public:
    explicit Form17View(Form17& modello, QWidget* parent = nullptr);

    QLineEdit* MaskEdBox1() const { return maskEdBox1_; }
    QPushButton* Command1() const { return command1_; }

private:
    void testoCambiato();

    Form17& m_;
    QLineEdit* maskEdBox1_;
    QPushButton* command1_;
};

}  // namespace zef::ui
