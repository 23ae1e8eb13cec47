// The print windows: "AVVIO DELLA STAMPA", "OPZIONI DI STAMPA" and "IMPOSTAZIONI DI
// STAMPA", with their models and the program's print destination (preview, default
// printer, PDF), owned in one place and opened by the main window's print command.
#pragma once

#include "core/interfaccia.h"
#include "printing/form10.h"
#include "printing/form11.h"
#include "ui/destinazione_qt.h"

#include <functional>
#include <memory>

class QWidget;

namespace zef {
class Form1;
struct Sistema;
}  // namespace zef

namespace zef::ui {

class Form1View;
class Form10View;
class Form11View;
class Form24View;

class FinestreStampa {
public:
    FinestreStampa(Sistema& s, Interfaccia& ui, QWidget* padre);
    ~FinestreStampa();

    // Sets the main window's print hook.
    void collega(Form1& f1);
    void apriForm10();

    DestinazioneQt& destinazione() { return destinazione_; }
    Form10& form10() { return form10_; }
    Form11& form11() { return form11_; }
    Form24& form24() { return form24_; }
    Form10View& vista10() { return *vista10_; }
    Form11View& vista11() { return *vista11_; }
    Form24View& vista24() { return *vista24_; }

private:
    DestinazioneQt destinazione_;
    Form24 form24_;
    Form10 form10_;
    Form11 form11_;
    std::unique_ptr<Form10View> vista10_;
    std::unique_ptr<Form11View> vista11_;
    std::unique_ptr<Form24View> vista24_;
};

std::shared_ptr<FinestreStampa> InstallaFinestreStampa(Form1& f1, Sistema& s, Interfaccia& ui, Form1View& finestra);

}  // namespace zef::ui
