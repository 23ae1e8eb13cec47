// The start-up picture (frmSplash) and the about window (frmAbout).
#pragma once

#include <QDialog>

class QLabel;
class QPushButton;
class QTimer;

namespace zef::ui {

// A picture with the product name and the version; its Timer1 unloads it, and a
// click or a key does too.
class FrmSplash : public QDialog {
    Q_OBJECT
public:
    explicit FrmSplash(QWidget* parent = nullptr, int millisecondi = 2500);
    QLabel* lblVersion() const { return lblVersion_; }
    QTimer* Timer1() const { return timer1_; }
    // Shows it modal and returns when Timer1 (or the user) has unloaded it.
    void mostraModale();

protected:
    void paintEvent(QPaintEvent* e) override;
    void mousePressEvent(QMouseEvent* e) override;
    void keyPressEvent(QKeyEvent* e) override;

private:
    QLabel* lblVersion_;
    QTimer* timer1_;
};

// "Informazioni su Zefiranto 2.0": name, version, description, a warning, OK, and a
// button that starts the platform's system information tool.
class FrmAbout : public QDialog {
    Q_OBJECT
public:
    explicit FrmAbout(QWidget* parent = nullptr);
    QLabel* lblVersion() const { return lblVersion_; }
    QPushButton* cmdOK() const { return cmdOK_; }
    QPushButton* cmdSysInfo() const { return cmdSysInfo_; }

    // The system information tool found on this machine (empty: none).
    static QString StrumentoInfoSistema();
    // Starts it, or tells that there is none.
    void StartSysInfo();

private:
    QLabel* lblVersion_;
    QPushButton* cmdOK_;
    QPushButton* cmdSysInfo_;
};

// Paints a lotto ball with its number, for the splash and the about window.
void DisegnaPallina(class QPainter& p, const QPointF& centro, qreal raggio, int numero, const QColor& colore);

}  // namespace zef::ui
