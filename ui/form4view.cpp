#include "ui/form4view.h"

#include "ui/vista_comune.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace zef::ui {

using vista::Q;

Form4View::Form4View(QWidget* parent) : QDialog(parent) {
    setObjectName("Form4");
    setWindowTitle("Zefiranto 2.0");
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    setFont(vista::CarattereFinestra(9));
    label1_ = new QLabel(this);
    label1_->setFont(vista::CarattereFinestra(12, true));
    label1_->setAlignment(Qt::AlignCenter);
    label2_ = new QLabel(this);
    label3_ = new QLabel(this);
    text1_ = new QLabel(this);
    text2_ = new QLabel(this);
    for (QLabel* t : {text1_, text2_}) {
        t->setFrameShape(QFrame::StyledPanel);
        t->setFrameShadow(QFrame::Sunken);
        t->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        t->setMinimumWidth(120);
    }
    label4_ = new QLabel(this);
    label4_->setAlignment(Qt::AlignCenter);
    label4_->setStyleSheet("color: #800000");
    barra_ = new QProgressBar(this);
    barra_->setTextVisible(false);

    auto* griglia = new QGridLayout;
    griglia->addWidget(label2_, 0, 0);
    griglia->addWidget(text1_, 0, 1);
    griglia->addWidget(label3_, 1, 0);
    griglia->addWidget(text2_, 1, 1);
    auto* v = new QVBoxLayout(this);
    v->addWidget(label1_);
    v->addLayout(griglia);
    v->addWidget(barra_);
    v->addWidget(label4_);
    setMinimumWidth(360);
}

void Form4View::mostra(const StatoAvanzamento& st) {
    if (!st.titolo.empty()) setWindowTitle(Q(st.titolo));
    label1_->setText(Q(st.etichetta));
    label2_->setText(Q(st.etichetta1));
    label3_->setText(Q(st.etichetta2));
    text1_->setText(Q(st.testo1));
    text2_->setText(Q(st.testo2));
    label4_->setText(Q(st.suggerimento));
    const bool primo = !st.etichetta1.empty() || !st.testo1.empty();
    const bool secondo = !st.etichetta2.empty() || !st.testo2.empty();
    label2_->setVisible(primo);
    text1_->setVisible(primo);
    label3_->setVisible(secondo);
    text2_->setVisible(secondo);
    // The bar works in ints: large counts are scaled to a thousandths range.
    const double span = st.massimo - st.minimo;
    if (span <= 0) {
        barra_->setRange(0, 1);
        barra_->setValue(0);
    } else {
        const double frazione = std::clamp((st.valore - st.minimo) / span, 0.0, 1.0);
        barra_->setRange(0, 1000);
        barra_->setValue(static_cast<int>(std::lround(frazione * 1000)));
    }
}

void Form4View::keyPressEvent(QKeyEvent* e) {
    const int codice = e->key() == Qt::Key_Escape ? 27 : (e->text().isEmpty() ? 0 : e->text().at(0).unicode());
    if (codice && tasto) tasto(codice);
    e->accept();
}

void Form4View::closeEvent(QCloseEvent* e) {
    if (tasto) tasto(27);
    e->ignore();
}

}  // namespace zef::ui
