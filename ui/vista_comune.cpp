#include "ui/vista_comune.h"

#include <QPainter>
#include <QPixmap>

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

QIcon Freccia(bool sinistra, bool sbarra) {
    QPixmap pm(16, 16);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor("#202020"));
    const qreal x0 = sbarra ? 6 : 4, x1 = sbarra ? 13 : 11;
    QPolygonF t;
    if (sinistra) t << QPointF(x0, 8) << QPointF(x1, 3) << QPointF(x1, 13);
    else t << QPointF(16 - x0, 8) << QPointF(16 - x1, 3) << QPointF(16 - x1, 13);
    p.drawPolygon(t);
    if (sbarra) p.drawRect(sinistra ? QRectF(3, 3, 2, 10) : QRectF(11, 3, 2, 10));
    return QIcon(pm);
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
