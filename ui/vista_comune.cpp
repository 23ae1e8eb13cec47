#include "ui/vista_comune.h"

#include <QEventLoop>
#include <QMetaObject>

#include <exception>
#include <mutex>
#include <thread>

namespace zef::ui::vista {

void InstallaSostituzioni() {
    static std::once_flag fatto;
    std::call_once(fatto, [] {
        QFont::insertSubstitutions("Comic Sans MS", {"Comic Neue", "Comic Sans", "DejaVu Sans"});
        QFont::insertSubstitutions("Courier New", {"Liberation Mono", "DejaVu Sans Mono"});
    });
}

QFont CarattereFinestra(qreal punti, bool grassetto) {
    InstallaSostituzioni();
    QFont f("Comic Sans MS");
    f.setPointSizeF(punti);
    f.setBold(grassetto);
    return f;
}

QFont CarattereFisso(qreal punti, bool grassetto) {
    InstallaSostituzioni();
    QFont f("Courier New");
    f.setStyleHint(QFont::Monospace);
    f.setPointSizeF(punti);
    f.setBold(grassetto);
    return f;
}

void EseguiInThread(std::function<void()> lavoro) {
    QEventLoop attesa;
    std::exception_ptr errore;
    std::thread t([&] {
        try {
            lavoro();
        } catch (...) {
            errore = std::current_exception();
        }
        QMetaObject::invokeMethod(&attesa, &QEventLoop::quit, Qt::QueuedConnection);
    });
    attesa.exec();
    t.join();
    if (errore) std::rethrow_exception(errore);
}

}  // namespace zef::ui::vista
