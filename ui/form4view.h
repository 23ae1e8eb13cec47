// The shared progress window (Form4): a heading, two counts with their captions,
// the bar and the "ESC per interrompere" hint. Keys pressed in it are handed to
// the owner, which queues them for the running pass.
#pragma once

#include "core/interfaccia.h"

#include <QDialog>

#include <functional>

class QLabel;
class QProgressBar;

namespace zef::ui {

class Form4View : public QDialog {
    Q_OBJECT
public:
    explicit Form4View(QWidget* parent = nullptr);

    void mostra(const StatoAvanzamento& stato);
    // A key pressed in the window (27 for ESC).
    std::function<void(int)> tasto;

    QLabel* Label1() const { return label1_; }
    QLabel* Text1() const { return text1_; }
    QLabel* Text2() const { return text2_; }
    QProgressBar* ProgressBar1() const { return barra_; }

protected:
    void keyPressEvent(QKeyEvent* e) override;
    // The close button does not stop a pass: only ESC and its question do.
    void closeEvent(QCloseEvent* e) override;
    void reject() override {}

private:
    QLabel* label1_;
    QLabel* label2_;
    QLabel* label3_;
    QLabel* label4_;
    QLabel* text1_;
    QLabel* text2_;
    QProgressBar* barra_;
};

}  // namespace zef::ui
