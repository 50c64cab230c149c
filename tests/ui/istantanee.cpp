// Pictures of the main windows, for looking at the layout: run under xvfb-run, writes PNG
// files into the folder given (default /tmp).
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QTableView>
#include <QTimer>

#include "app/FinestraDocumento.h"
#include "app/frmAttivita.h"
#include "app/frmMainForm.h"
#include "app/frmSplash.h"
#include "archives/ui/Parametri.h"
#include "archives/ui/ViewDiametriFrm.h"
#include "archives/ui/frmDefaultValue.h"
#include "archives/ui/frmEquiv.h"
#include "archives/ui/frmPDC.h"
#include "archives/ui/frmSpeciali.h"
#include "editing/ui/GasGrid.h"
#include "editing/ui/ModelloTronchi.h"
#include "editing/ui/PTronchi.h"
#include "editing/ui/frmCopySelect.h"
#include "editing/ui/frmCportata.h"
#include "editing/ui/frmDelete.h"
#include "tests/ui/AmbienteUi.h"

using namespace fornax;
using namespace fornax::ui;

namespace {
QString cartella = QStringLiteral("/tmp");

void Salva(QWidget* w, const QString& nome) {
    QApplication::processEvents();
    const QString f = QDir(cartella).filePath(QStringLiteral("fornax-%1.png").arg(nome));
    w->grab().save(f);
    qInfo("%s %dx%d", qPrintable(f), w->width(), w->height());
}

void Dialogo(QDialog& d, const QString& nome) {
    d.show();
    QApplication::processEvents();
    Salva(&d, nome);
    d.close();
}
// The section panel on a junction and on a consumer, the multiple selection's fields and the
// consumer dialogs, for the network open.
void DialoghiTronco(prova::AmbienteUi& amb, QWidget* padre, const QString& rete) {
    for (const int t : {1, static_cast<int>(amb.d.NumTronchi())}) {
        PTronchi p(amb.s, amb.msg, padre);
        p.SReteSync();
        p.TroncoSync(t);
        Dialogo(p, QStringLiteral("ptronchi-%1-%2").arg(rete).arg(t));
    }
    {
        frmCopySelect f(amb.d, padre);
        Dialogo(f, QStringLiteral("copyselect-") + rete);
    }
    {
        frmCportata f(amb.d, padre);
        f.SetDati(amb.d.NumTronchi(), amb.d.T(amb.d.NumTronchi()).ID_P_UTENZE);
        f.SceltaGruppo(0);
        f.Command3Click();
        Dialogo(f, QStringLiteral("cportata-cottura-") + rete);
        f.SceltaGruppo(1);
        Dialogo(f, QStringLiteral("cportata-caldaia-") + rete);
    }
    {
        frmPortata f(amb.d, padre);
        f.SetDati(amb.d.NumTronchi(), amb.d.T(amb.d.NumTronchi()).ID_P_UTENZE);
        Dialogo(f, QStringLiteral("portata-") + rete);
    }
}
}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    if (argc > 1) cartella = QString::fromLocal8Bit(argv[1]);
    auto amb = prova::NuovoAmbiente();
    amb->s.mru.AddItem(prova::AmbienteUi::Esempio("rete-media-pressione.RTG"));
    amb->s.mru.AddItem(prova::AmbienteUi::Esempio("appartamento.RTG"));

    frmMainForm form(amb->s, amb->msg);
    form.ParametriDopoNuovo = false;
    form.resize(1366, 740);
    form.show();
    Salva(&form, QStringLiteral("vuota"));

    {
        frmSplash s(false);
        s.ShowWorking(QStringLiteral("Caricamento archivio gas"));
        s.ImpostaPasso(2);
        Dialogo(s, QStringLiteral("splash"));
    }
    {
        frmAttivita f(amb->s.mru, &form);
        Dialogo(f, QStringLiteral("attivita"));
    }

    form.ApriPercorso(QString::fromStdString(prova::AmbienteUi::Esempio("appartamento.RTG")));
    Salva(&form, QStringLiteral("principale-interno"));
    DialoghiTronco(*amb, &form, QStringLiteral("interno"));
    {
        Parametri p(amb->a, amb->d, amb->msg, &form);
        Dialogo(p, QStringLiteral("parametri-interno"));
    }
    {
        frmDefaultValue f(amb->a, amb->d, amb->imp, amb->msg, &form);
        Dialogo(f, QStringLiteral("default"));
    }
    {
        frmPDC f(amb->a, amb->d, amb->msg, &form);
        Dialogo(f, QStringLiteral("pdc"));
    }
    {
        ViewDiametriFrm f(&form);
        f.SetMateriale(amb->a, 1);
        Dialogo(f, QStringLiteral("diametri"));
    }
    {
        frmDelete f(&form);
        Dialogo(f, QStringLiteral("cancella"));
    }
    {
        frmEquiv f("RAME-X", 1, amb->a.NomiMateriali(), amb->msg, &form);
        Dialogo(f, QStringLiteral("equiv"));
    }
    // Failing values: the sizes fixed, then a limit imposed far below what they give; the last
    // section at its material's largest size.
    form.Griglia()->BloccaDiametri(true);
    const Tronco& t3 = amb->d.T(3);
    const MaterialeTubo& m3 = amb->a.Materiali[static_cast<size_t>(t3.IndiceMateriale)];
    amb->d.T(3).ID_DIAMETRO = m3.Righe[static_cast<size_t>(m3.NumRighe())].DN;
    amb->d.T(3).ID_LEN = 300;
    amb->d.DpMax = 20;
    form.Griglia()->InitDPMaxCombo();
    form.Finestra()->Elaborazione();
    Salva(&form, QStringLiteral("griglia-fallita"));

    form.ApriPercorso(QString::fromStdString(prova::AmbienteUi::Esempio("rete-media-pressione.RTG")));
    Salva(&form, QStringLiteral("pressione"));
    DialoghiTronco(*amb, &form, QStringLiteral("pressione"));
    // Failing values: a final pressure that the network can't hold everywhere.
    amb->d.PressioneFinale = 285;
    amb->d.T(6).ID_DIAMCUSTOM = VERO;
    amb->d.T(6).ID_DIAMETRO = "20x3";
    form.Griglia()->InitInitialPressureCombo();
    form.Finestra()->Elaborazione();
    Salva(&form, QStringLiteral("pressione-fallita"));
    {
        Parametri p(amb->a, amb->d, amb->msg, &form);
        Dialogo(p, QStringLiteral("parametri-pressione"));
    }
    {
        frmSpeciali f(amb->a, amb->msg, &form);
        Dialogo(f, QStringLiteral("speciali"));
    }
    // An editor open on a cell.
    GasGrid* g = form.Griglia();
    g->VaiA(2, g->Modello()->ColonnaDi(Id::ID_DIAMETRO));
    g->GridEditing(QString());
    Salva(&form, QStringLiteral("editor-diametro"));
    amb->d.ReteModificata = FALSO;
    form.AttivitaDopoChiusura = false;
    return 0;
}
