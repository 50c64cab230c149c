#include "housekeeping/ui/frmCopyArchieves.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <filesystem>

#include "core/Servizi.h"
#include "core/ui/Controlli.h"
#include "housekeeping/ui/frmCopyArchievesMessage.h"

namespace fornax::ui {

namespace {

QPushButton* Bottone(const QString& testo, const QString& nome, QWidget* padre) {
    auto* b = new QPushButton(testo, padre);
    b->setObjectName(nome);
    return b;
}

QPushButton* BottoneSfoglia(const QString& nome, QWidget* padre) {
    auto* b = Bottone(QStringLiteral("..."), nome, padre);
    b->setToolTip(QStringLiteral("Sfoglia"));
    b->setMaximumWidth(36);
    b->setAutoDefault(false);
    return b;
}

QLineEdit* Casella(const QString& nome, QWidget* padre) {
    auto* e = new QLineEdit(padre);
    e->setObjectName(nome);
    e->setMinimumWidth(380);
    return e;
}

QLabel* Nota(const QString& testo, QWidget* padre) {
    auto* l = new QLabel(testo, padre);
    l->setWordWrap(true);
    l->setStyleSheet(QStringLiteral("color: #4a5563;"));
    return l;
}

// The row of the two closing buttons.
void Bottoni(QVBoxLayout* lay, QPushButton* copia, QPushButton* annulla) {
    auto* linea = new QFrame;
    linea->setFrameShape(QFrame::HLine);
    linea->setFrameShadow(QFrame::Sunken);
    lay->addWidget(linea);
    auto* riga = new QHBoxLayout;
    riga->addStretch(1);
    copia->setDefault(true);
    riga->addWidget(copia);
    riga->addWidget(annulla);
    lay->addLayout(riga);
}

std::string Conteggio(size_t n, const char* uno, const char* molti) {
    return std::to_string(n) + " " + (n == 1 ? uno : molti);
}

bool StessaCartella(const std::string& x, const std::string& y) {
    std::error_code ec;
    const bool uguali = std::filesystem::equivalent(x, y, ec);
    return !ec && uguali;
}

}  // namespace

QString ScegliCartella(QWidget* padre, const QString& titolo, const QString& filtro, const QString& da) {
    QFileDialog f(padre, titolo, da);
    f.setFileMode(QFileDialog::Directory);
    f.setOption(QFileDialog::DontUseNativeDialog, true);
    f.setOption(QFileDialog::ShowDirsOnly, false);
    f.setNameFilter(filtro);
    f.setLabelText(QFileDialog::LookIn, QStringLiteral("Cerca in:"));
    f.setLabelText(QFileDialog::FileName, QStringLiteral("Cartella:"));
    f.setLabelText(QFileDialog::FileType, QStringLiteral("Tipo file:"));
    f.setLabelText(QFileDialog::Accept, QStringLiteral("Scegli"));
    f.setLabelText(QFileDialog::Reject, QStringLiteral("Annulla"));
    if (f.exec() != QDialog::Accepted || f.selectedFiles().isEmpty()) return {};
    const QFileInfo scelto(f.selectedFiles().first());
    // A file chosen stands for its folder.
    return QDir::toNativeSeparators(scelto.isDir() ? scelto.absoluteFilePath() : scelto.absolutePath());
}

// ---- Copia Archivi ----

frmCopyArchieves::frmCopyArchieves(const std::string& cartellaProgramma, Messaggi& msg, QWidget* padre)
    : QDialog(padre), programma_(cartellaProgramma), msg_(msg) {
    setObjectName(QStringLiteral("frmCopyArchieves"));
    setWindowTitle(QStringLiteral("Copia Archivi"));
    Sfoglia = [this](const QString& titolo, const QString& filtro, const QString& da) {
        return ScegliCartella(this, titolo, filtro, da);
    };
    auto* lay = new QVBoxLayout(this);
    lay->addWidget(Nota(QStringLiteral("Copia le tubazioni, le lunghezze equivalenti, i gas, i parametri delle "
                                       "famiglie, le perdite di carico e i dati della prova di tenuta. I gas "
                                       "vengono aggiunti a quelli della cartella di destinazione."),
                        this));
    lay->addSpacing(4);
    auto* g = new QGridLayout;
    g->addWidget(new QLabel(QStringLiteral("Copia da:"), this), 0, 0);
    txtCopyFrom = Casella(QStringLiteral("txtCopyFrom"), this);
    g->addWidget(txtCopyFrom, 0, 1);
    cmdOpenCopyFromDlg = BottoneSfoglia(QStringLiteral("cmdOpenCopyFromDlg"), this);
    g->addWidget(cmdOpenCopyFromDlg, 0, 2);
    g->addWidget(new QLabel(QStringLiteral("Copia in:"), this), 1, 0);
    txtCopyTo = Casella(QStringLiteral("txtCopyTo"), this);
    txtCopyTo->setText(QDir::toNativeSeparators(Q(cartellaProgramma)));
    g->addWidget(txtCopyTo, 1, 1);
    cmdOpenCopyToDlg = BottoneSfoglia(QStringLiteral("cmdOpenCopyToDlg"), this);
    g->addWidget(cmdOpenCopyToDlg, 1, 2);
    lay->addLayout(g);
    cmdCopy = Bottone(QStringLiteral("Copia"), QStringLiteral("cmdCopy"), this);
    cmdCancel = Bottone(QStringLiteral("Annulla"), QStringLiteral("cmdCancel"), this);
    Bottoni(lay, cmdCopy, cmdCancel);

    const QString filtro = QStringLiteral("File Archivio (*.CFG *.MAT *.cfg *.mat)");
    connect(cmdOpenCopyFromDlg, &QPushButton::clicked, this, [this, filtro] {
        const QString c = Sfoglia(QStringLiteral("Copia archivi da:"), filtro, txtCopyFrom->text());
        if (!c.isEmpty()) txtCopyFrom->setText(c);
    });
    connect(cmdOpenCopyToDlg, &QPushButton::clicked, this, [this, filtro] {
        const QString c = Sfoglia(QStringLiteral("Copia archivi in:"), filtro, txtCopyTo->text());
        if (!c.isEmpty()) txtCopyTo->setText(c);
    });
    connect(cmdCopy, &QPushButton::clicked, this, &frmCopyArchieves::Copia);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmCopyArchieves::Copia() {
    const std::string da = S(txtCopyFrom->text().trimmed());
    const std::string a = S(txtCopyTo->text().trimmed());
    if (const std::string problema = ControllaCartelleArchivi(da, a); !problema.empty()) {
        msg_.Mostra(problema, Box::EXCLAMATION, "Copia Archivi");
        return;
    }
    DomandeCopiaQt domande(msg_, this);
    riepilogo_ = CopiaArchivi(da, a, programma_, msg_, domande);
    if (riepilogo_.esito != EsitoCopia::Completata) return;
    std::string testo =
        "Copia degli archivi completata: " + Conteggio(riepilogo_.copiati.size(), "file copiato", "file copiati");
    if (!riepilogo_.uniti.empty()) testo += ", gas uniti";
    if (!riepilogo_.lasciati.empty())
        testo += ", " + Conteggio(riepilogo_.lasciati.size(), "file non sovrascritto", "file non sovrascritti");
    testo += ".";
    // The archives in use were read at start.
    if (StessaCartella(a, programma_) && (riepilogo_.copiati.size() + riepilogo_.uniti.size()) > 0)
        testo += "\r\nGli archivi copiati saranno utilizzati dal prossimo avvio di Fornax.";
    msg_.Mostra(testo, Box::INFORMATION, "Copia Archivi");
    accept();
}

// ---- Copia File di Progetto ----

frmCopyProjectFiles::frmCopyProjectFiles(const std::string& cartellaLavoro, const std::string& cartellaProgramma,
                                         Messaggi& msg, QWidget* padre)
    : QDialog(padre), lavoro_(cartellaLavoro), programma_(cartellaProgramma), msg_(msg) {
    setObjectName(QStringLiteral("frmCopyProjectFiles"));
    setWindowTitle(QStringLiteral("Copia File di Progetto"));
    Sfoglia = [this](const QString& titolo, const QString& filtro, const QString& da) {
        return ScegliCartella(this, titolo, filtro, da);
    };
    auto* lay = new QVBoxLayout(this);
    auto* g = new QGridLayout;
    g->addWidget(new QLabel(QStringLiteral("Copia da:"), this), 0, 0);
    txtCopyFrom = Casella(QStringLiteral("txtCopyFrom"), this);
    g->addWidget(txtCopyFrom, 0, 1);
    cmdOpenCopyFromDlg = BottoneSfoglia(QStringLiteral("cmdOpenCopyFromDlg"), this);
    g->addWidget(cmdOpenCopyFromDlg, 0, 2);
    lay->addLayout(g);
    auto* dove = Nota(QStringLiteral("I progetti (.RTG) vengono copiati in: %1")
                          .arg(QDir::toNativeSeparators(Q(CartellaArchivioLavori(cartellaLavoro)))),
                      this);
    dove->setObjectName(QStringLiteral("lblDestinazione"));
    dove->setTextInteractionFlags(Qt::TextSelectableByMouse);
    lay->addWidget(dove);
    cmdCopy = Bottone(QStringLiteral("Copia"), QStringLiteral("cmdCopy"), this);
    cmdCancel = Bottone(QStringLiteral("Annulla"), QStringLiteral("cmdCancel"), this);
    Bottoni(lay, cmdCopy, cmdCancel);

    connect(cmdOpenCopyFromDlg, &QPushButton::clicked, this, [this] {
        const QString c =
            Sfoglia(QStringLiteral("Copia archivi da:"), QStringLiteral("Reti Gas (*.RTG *.rtg)"), txtCopyFrom->text());
        if (!c.isEmpty()) txtCopyFrom->setText(c);
    });
    connect(cmdCopy, &QPushButton::clicked, this, &frmCopyProjectFiles::Copia);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmCopyProjectFiles::Copia() {
    const std::string da = S(txtCopyFrom->text().trimmed());
    if (const std::string problema = ControllaCartellaProgetti(da, lavoro_); !problema.empty()) {
        msg_.Mostra(problema, Box::EXCLAMATION, "Copia File di Progetto");
        return;
    }
    DomandeCopiaQt domande(msg_, this);
    riepilogo_ = CopiaProgetti(da, lavoro_, programma_, msg_, domande);
    if (riepilogo_.esito != EsitoCopia::Completata) return;
    const size_t visti = riepilogo_.copiati.size() + riepilogo_.lasciati.size();
    std::string testo;
    if (visti == 0) {
        testo = "Nella cartella di provenienza non ci sono file di progetto (.RTG).";
    } else {
        testo = "Copia dei file di progetto completata: " +
                Conteggio(riepilogo_.copiati.size(), "file copiato", "file copiati");
        if (!riepilogo_.lasciati.empty())
            testo += ", " + Conteggio(riepilogo_.lasciati.size(), "file non sovrascritto", "file non sovrascritti");
        testo += ".\r\nCartella: " + CartellaArchivioLavori(lavoro_);
    }
    msg_.Mostra(testo, Box::INFORMATION, "Copia File di Progetto");
    if (visti > 0) accept();
}

}  // namespace fornax::ui
