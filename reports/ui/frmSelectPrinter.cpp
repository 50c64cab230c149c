#include "reports/ui/frmSelectPrinter.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPrinterInfo>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "core/Numeri.h"
#include "core/ui/Controlli.h"
#include "reports/ui/Carta.h"

namespace fornax::ui {

QStringList StampantiInstallate() { return QPrinterInfo::availablePrinterNames(); }

StampanteScelta StampanteCorrente(Impostazioni& imp) {
    StampanteScelta s;
    const QString nome = Q(imp.Leggi("Stampa", "Stampante"));
    const int carta = static_cast<int>(LeggiNumero(imp.Leggi("Stampa", "Carta")));
    const QStringList installate = StampantiInstallate();
    if (nome == STAMPANTE_PDF || (!nome.isEmpty() && installate.contains(nome)))
        s.nome = nome;
    else
        s.nome = installate.isEmpty() ? STAMPANTE_PDF : QPrinterInfo::defaultPrinterName();
    if (s.nome.isEmpty()) s.nome = installate.front();
    const std::vector<int> carte = CarteAccettate(s.nome);
    if (std::find(carte.begin(), carte.end(), carta) != carte.end())
        s.carta = carta;
    else if (std::find(carte.begin(), carte.end(), 9) == carte.end() && !carte.empty())
        s.carta = carte.front();
    return s;
}

std::vector<int> CarteAccettate(const QString& stampante) {
    std::vector<int> codici;
    if (stampante == STAMPANTE_PDF) {
        for (int c = 1; c <= 41; ++c)
            if (QPageSize::id(c) != QPageSize::Custom) codici.push_back(c);
        return codici;
    }
    for (const QPageSize& f : QPrinterInfo::printerInfo(stampante).supportedPageSizes()) {
        const int c = CodiceCarta(f);
        if (c >= 1 && c <= 41 && std::find(codici.begin(), codici.end(), c) == codici.end()) codici.push_back(c);
    }
    std::sort(codici.begin(), codici.end());
    return codici;
}

QString TestoStampante(const StampanteScelta& s) { return NomeCarta(s.carta) + QStringLiteral("   -   ") + s.nome; }

frmSelectPrinter::frmSelectPrinter(Impostazioni& imp, QWidget* padre) : QDialog(padre), imp_(imp) {
    setObjectName(QStringLiteral("frmSelectPrinter"));
    setWindowTitle(QStringLiteral("Stampante"));
    scelta_ = StampanteCorrente(imp_);
    auto* lay = new QVBoxLayout(this);
    SelectedPrinterText = new QLabel(this);
    SelectedPrinterText->setObjectName(QStringLiteral("SelectedPrinterText"));
    lay->addWidget(SelectedPrinterText);
    List1 = new QListWidget(this);
    List1->setObjectName(QStringLiteral("List1"));
    lay->addWidget(List1);
    auto* riga = new QHBoxLayout;
    riga->addWidget(new QLabel(QStringLiteral("Formato carta:"), this));
    cmbFormat = new QComboBox(this);
    cmbFormat->setObjectName(QStringLiteral("cmbFormat"));
    riga->addWidget(cmbFormat, 1);
    lay->addLayout(riga);
    auto* bottoni = new QHBoxLayout;
    bottoni->addStretch();
    Command2 = new QPushButton(QStringLiteral("OK"), this);
    Command2->setObjectName(QStringLiteral("Command2"));
    Command2->setDefault(true);
    Command1 = new QPushButton(QStringLiteral("Annulla"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    bottoni->addWidget(Command2);
    bottoni->addWidget(Command1);
    lay->addLayout(bottoni);
    connect(List1, &QListWidget::currentRowChanged, this, &frmSelectPrinter::Seleziona);
    connect(Command1, &QPushButton::clicked, this, &QDialog::reject);
    connect(Command2, &QPushButton::clicked, this, &frmSelectPrinter::Applica);
    LoadList();
    resize(460, 320);
}

void frmSelectPrinter::LoadList() {
    List1->clear();
    nomi_.clear();
    for (const QPrinterInfo& p : QPrinterInfo::availablePrinters()) {
        nomi_ << p.printerName();
        const QString dove = p.location().isEmpty() ? p.makeAndModel() : p.location();
        List1->addItem(p.printerName() + QStringLiteral("   -   ") + dove);
    }
    nomi_ << STAMPANTE_PDF;
    List1->addItem(STAMPANTE_PDF + QStringLiteral("   -   ") +
                   (nomi_.size() == 1 ? QStringLiteral("nessuna stampante installata: si crea un file PDF")
                                      : QStringLiteral("si crea un file PDF")));
    SelectedPrinterText->setText(scelta_.nome);
    const int riga = std::max(0, static_cast<int>(nomi_.indexOf(scelta_.nome)));
    const int carta = scelta_.carta;
    List1->setCurrentRow(riga);
    Seleziona(riga);
    const int i = cmbFormat->findData(carta);
    if (i >= 0) cmbFormat->setCurrentIndex(i);
}

void frmSelectPrinter::Seleziona(int riga) {
    if (riga < 0 || riga >= nomi_.size()) return;
    scelta_.nome = nomi_[riga];
    SelectedPrinterText->setText(scelta_.nome);
    cmbFormat->clear();
    for (int c : CarteAccettate(scelta_.nome)) cmbFormat->addItem(NomeCarta(c), c);
    const int a4 = cmbFormat->findData(9);
    cmbFormat->setCurrentIndex(a4 >= 0 ? a4 : 0);
}

void frmSelectPrinter::Applica() {
    if (cmbFormat->currentIndex() >= 0) scelta_.carta = cmbFormat->currentData().toInt();
    imp_.Scrivi("Stampa", "Stampante", S(scelta_.nome));
    imp_.Scrivi("Stampa", "Carta", std::to_string(scelta_.carta));
    accept();
}

}  // namespace fornax::ui
