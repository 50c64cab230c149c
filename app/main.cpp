// fornax: the desktop application.
#include <QApplication>
#include <QFont>

#include "app/Avvio.h"
#include "core/Cartelle.h"
#include "core/FileTesto.h"

int main(int argc, char** argv) {
    fornax::IgnoraLimiteDimensione();
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Fornax"));
    QApplication::setOrganizationName(QStringLiteral("Fornax"));
    QApplication::setStyle(QStringLiteral("Fusion"));
    const std::string cartella =
        fornax::CartellaProgramma(QCoreApplication::applicationFilePath().toStdString(), FORNAX_DATA_DIR);
    return fornax::ui::Main(app, cartella);
}
