#pragma once
// The start of the program: one instance per user, the splash, the archives in their order,
// the main frame, the project named on the command line, the start-of-work chooser.

#include <QString>
#include <QStringList>
#include <string>

class QApplication;

namespace fornax::ui {

// The project named on the command line: the arguments joined and trimmed, then one leading
// and one trailing double quote taken away where there are any.
QString PercorsoDaRigaComandi(const QStringList& argomenti);

// Runs the program on the archives of `cartellaProgramma`; returns the exit status.
int Main(QApplication& app, const std::string& cartellaProgramma);

}  // namespace fornax::ui
