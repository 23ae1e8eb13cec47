// Helpers of the view tests: clicks on widgets and the modal dialog that comes up.
#pragma once

#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QRadioButton>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <functional>

namespace zef::prova {

// A click as the user gives it: on the indicator of a check or option box (the
// widget may be wider than its caption), in the middle of anything else.
inline void Clic(QWidget* w) {
    QPoint p = w->rect().center();
    if (qobject_cast<QCheckBox*>(w) || qobject_cast<QRadioButton*>(w)) p.setX(std::min(8, p.x()));
    QTest::mouseClick(w, Qt::LeftButton, Qt::NoModifier, p);
}

// Runs `azione` on the next modal dialog of type D that comes up (checked every 10 ms),
// then closes it with done(risultato) unless the action closed it already.
template <class D>
void AlProssimoModale(std::function<void(D*)> azione) {
    auto* timer = new QTimer;
    timer->setInterval(10);
    QObject::connect(timer, &QTimer::timeout, [timer, azione] {
        auto* d = qobject_cast<D*>(QApplication::activeModalWidget());
        if (!d || !d->isVisible()) return;
        timer->stop();
        timer->deleteLater();
        azione(d);
        if (d->isVisible()) static_cast<QDialog*>(d)->reject();
    });
    timer->start();
}

}  // namespace zef::prova
