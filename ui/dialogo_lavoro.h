// A dialog whose main button runs a long pass off the interface thread (AVVIA of the
// development and of the reduction): while the pass runs, its controls are off, it
// cannot be closed, and it steps aside when the progress window comes up after the
// model has unloaded it.
#pragma once

#include "core/interfaccia.h"
#include "ui/vista_comune.h"

#include <QDialog>

#include <functional>

namespace zef::ui {

class DialogoConLavoro : public QDialog {
    Q_OBJECT
public:
    // `esegui` runs a job off the interface thread and waits for it (empty: a
    // std::thread with a local event loop).
    DialogoConLavoro(Interfaccia& ui, vista::EseguiInLavoro esegui, QWidget* parent);

protected:
    bool inLavoro() const { return inLavoro_; }
    // Runs `lavoro` off the interface thread and waits; false if a pass is running already.
    bool eseguiLavoro(const std::function<void()>& lavoro);
    // The model has unloaded the dialog.
    virtual bool scaricato() const = 0;
    virtual void abilitaComandi(bool abilitati) = 0;

    void closeEvent(QCloseEvent* e) override;
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

    Interfaccia& ui_;

private:
    vista::EseguiInLavoro esegui_;
    bool inLavoro_ = false;
};

}  // namespace zef::ui
