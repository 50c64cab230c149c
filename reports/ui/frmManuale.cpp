#include "reports/ui/frmManuale.h"

#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <fstream>
#include <sstream>

#include "core/Cartelle.h"
#include "core/Testo.h"

namespace fornax::ui {

frmManuale::frmManuale(const std::string& cartellaProgramma, Messaggi& msg, QWidget* padre)
    : QDialog(padre), cartella_(cartellaProgramma), msg_(msg) {
    setObjectName(QStringLiteral("frmManuale"));
    setWindowTitle(QStringLiteral("Manuale"));
    auto* lay = new QVBoxLayout(this);
    Text1 = new QPlainTextEdit(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setReadOnly(true);
    Text1->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    lay->addWidget(Text1);
    auto* chiudi = new QPushButton(QStringLiteral("Chiudi"), this);
    connect(chiudi, &QPushButton::clicked, this, &QDialog::accept);
    lay->addWidget(chiudi, 0, Qt::AlignRight);
    resize(760, 560);
}

bool frmManuale::LoadManuale() {
    const std::string percorso = TrovaFile(cartella_, "fornax.txt");
    std::ifstream in(percorso, std::ios::binary);
    if (!in) {
        msg_.Mostra("Non trovo il file fornax.txt ");
        return false;
    }
    // The file is Windows text: its lines are shown one by one, whatever their line ends.
    QStringList righe;
    std::string riga;
    while (std::getline(in, riga)) {
        if (!riga.empty() && riga.back() == '\r') riga.pop_back();
        righe << QString::fromStdString(Cp1252AUtf8(riga));
    }
    Text1->setPlainText(righe.join(QLatin1Char('\n')));
    return true;
}

}  // namespace fornax::ui
