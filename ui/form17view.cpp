#include "ui/form17view.h"

#include "core/giocate.h"

#include "ui/vista_comune.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <string>

namespace zef::ui {

Form17View::Form17View(Form17& modello, QWidget* parent) : QDialog(parent), m_(modello) {
    setWindowTitle(Form17::Titolo);
    setFont(vista::CarattereFinestra(10));
    setModal(true);

    auto* label1 = new QLabel("Numeri della colonna:");
    maskEdBox1_ = new QLineEdit;
    // '#' takes a digit, a sign or a blank, as the masked box does; blanks show as spaces.
    maskEdBox1_->setInputMask(QString(Form17::Maschera) + "; ");
    maskEdBox1_->setFont(vista::CarattereFisso(12, true));
    maskEdBox1_->setMinimumWidth(maskEdBox1_->fontMetrics().horizontalAdvance(QString(Form17::Maschera)) + 24);
    label1->setBuddy(maskEdBox1_);
    command1_ = new QPushButton("Aggiungi");
    command1_->setDefault(true);

    auto* riga = new QHBoxLayout;
    riga->addWidget(maskEdBox1_);
    riga->addWidget(command1_);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label1);
    layout->addLayout(riga);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    connect(maskEdBox1_, &QLineEdit::textEdited, this, &Form17View::testoCambiato);
    connect(command1_, &QPushButton::clicked, this, [this] {
        testoCambiato();
        m_.clickCommand1();
        if (m_.scaricato()) accept();
    });
}

void Form17View::testoCambiato() {
    // The box's positions, blanks included, are typed into the model from the start.
    const QString mostrato = maskEdBox1_->displayText();
    const std::string maschera = Form17::Maschera;
    std::string posti;
    for (size_t i = 0; i < maschera.size(); ++i) {
        if (maschera[i] != '#') continue;
        QChar c = static_cast<int>(i) < mostrato.size() ? mostrato[static_cast<int>(i)] : QChar(' ');
        posti += c.toLatin1() ? c.toLatin1() : ' ';
    }
    m_.MaskEdBox1.clear();
    // An untouched box reads as empty.
    if (posti.find_first_not_of(' ') != std::string::npos) m_.digita(posti);
}

}  // namespace zef::ui
