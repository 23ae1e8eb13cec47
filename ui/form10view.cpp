#include "ui/form10view.h"

#include "printing/form10.h"
#include "ui/vista_comune.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace zef::ui {
namespace {

QHBoxLayout* Pulsanti(QPushButton* a, QPushButton* b) {
    for (QPushButton* p : {a, b}) {
        p->setFont(vista::CarattereFinestra(10, true));
        p->setMinimumWidth(110);
    }
    a->setDefault(true);
    auto* l = new QHBoxLayout;
    l->addStretch();
    l->addWidget(a);
    l->addWidget(b);
    l->addStretch();
    return l;
}

}  // namespace

Form10View::Form10View(Form10& modello, Interfaccia& ui, QWidget* parent) : QDialog(parent), m_(modello), ui_(ui) {
    setObjectName("Form10");
    setWindowTitle(Form10::Titolo);
    setFont(vista::CarattereFinestra(10));
    setModal(true);

    auto* label1 = new QLabel(Form10::Label1);
    label1->setObjectName("Label1");
    label1->setFont(vista::CarattereFinestra(12, true));
    label1->setAlignment(Qt::AlignCenter);
    option1_ = new QRadioButton(Form10::CaptionOption1);
    option1_->setObjectName("Option1");
    option2_ = new QRadioButton(Form10::CaptionOption2);
    option2_->setObjectName("Option2");
    auto* riquadro = new QGroupBox;
    auto* lr = new QVBoxLayout(riquadro);
    lr->addWidget(option1_);
    lr->addWidget(option2_);
    connect(option1_, &QRadioButton::clicked, this, [this] { m_.clickOption(1); });
    connect(option2_, &QRadioButton::clicked, this, [this] { m_.clickOption(2); });

    command1_ = new QPushButton(Form10::CaptionCommand1);
    command1_->setObjectName("Command1");
    command2_ = new QPushButton(Form10::CaptionCommand2);
    command2_->setObjectName("Command2");
    connect(command1_, &QPushButton::clicked, this, [this] {
        EseguiEvento(ui_, [this] { m_.clickCommand1(); });
        aggiorna();
    });
    connect(command2_, &QPushButton::clicked, this, [this] {
        m_.clickCommand2();
        QDialog::reject();  // hidden only: the choice stays
    });

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label1);
    layout->addWidget(riquadro);
    layout->addLayout(Pulsanti(command1_, command2_));
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void Form10View::aggiorna() {
    QSignalBlocker a(option1_), b(option2_);
    option1_->setChecked(m_.Option1);
    option2_->setChecked(m_.Option2);
}

void Form10View::showEvent(QShowEvent* e) {
    m_.visibile = true;
    aggiorna();
    QDialog::showEvent(e);
}

void Form10View::reject() {
    m_.scarica();
    QDialog::reject();
}

Form24View::Form24View(Form24& modello, QWidget* parent) : QDialog(parent), m_(modello) {
    setObjectName("Form24");
    setWindowTitle(Form24::Titolo);
    setFont(vista::CarattereFinestra(10));
    setModal(true);

    const char* didascalie[3] = {Form24::CaptionCheck1, Form24::CaptionCheck2, Form24::CaptionCheck3};
    auto* riquadro = new QGroupBox;
    auto* lr = new QVBoxLayout(riquadro);
    for (int i = 0; i < 3; ++i) {
        check_[i] = new QCheckBox(didascalie[i]);
        check_[i]->setObjectName(QString("Check%1").arg(i + 1));
        lr->addWidget(check_[i]);
        connect(check_[i], &QCheckBox::toggled, this, [this, i](bool v) {
            bool* campi[3] = {&m_.Check1, &m_.Check2, &m_.Check3};
            *campi[i] = v;
        });
    }
    command1_ = new QPushButton(Form24::CaptionCommand1);
    command1_->setObjectName("Command1");
    command2_ = new QPushButton(Form24::CaptionCommand2);
    command2_->setObjectName("Command2");
    connect(command1_, &QPushButton::clicked, this, [this] {
        m_.clickCommand1();
        accept();
    });
    connect(command2_, &QPushButton::clicked, this, [this] {
        m_.clickCommand2();
        QDialog::reject();
    });

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(riquadro);
    layout->addLayout(Pulsanti(command1_, command2_));
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

QCheckBox* Form24View::Check(int n) const { return check_[n - 1]; }

void Form24View::aggiorna() {
    const bool valori[3] = {m_.Check1, m_.Check2, m_.Check3};
    for (int i = 0; i < 3; ++i) {
        QSignalBlocker b(check_[i]);
        check_[i]->setChecked(valori[i]);
    }
}

void Form24View::showEvent(QShowEvent* e) {
    aggiorna();
    QDialog::showEvent(e);
}

void Form24View::reject() {
    m_.scarica();
    QDialog::reject();
}

}  // namespace zef::ui
