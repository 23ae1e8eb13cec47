// Small pieces shared by the dialog views: text between std::string and QString,
// the window fonts, and the runner that keeps long work off the interface thread.
#pragma once

#include <QFont>
#include <QIcon>
#include <QString>

#include <functional>
#include <string>

namespace zef::ui::vista {

inline QString Q(const std::string& s) { return QString::fromStdString(s); }
inline std::string S(const QString& s) { return s.toStdString(); }

// The window faces of the program and their free stand-ins ("Comic Sans MS" and
// "Courier New" are rarely installed outside Windows).
void InstallaSostituzioni();
QFont CarattereFinestra(qreal punti = 9, bool grassetto = false);
QFont CarattereFisso(qreal punti = 10, bool grassetto = false);

// An arrow of the data controls (the archive's and the win check's): a triangle, with a
// bar for the first and the last draw.
QIcon Freccia(bool sinistra, bool sbarra);

// Runs `lavoro` on a worker thread and waits for it with a local event loop, so the
// interface keeps serving the calls that the worker carries over to it. An exception
// escaping the job is raised again here.
using EseguiInLavoro = std::function<void(std::function<void()>)>;
void EseguiInThread(std::function<void()> lavoro);

}  // namespace zef::ui::vista
