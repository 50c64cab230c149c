// The session on the main frame: the command line, save and reopen, the question before a
// project is closed, new projects of both kinds, the start-of-work chooser and its recent
// files, the gas list, the calculation switches and the zoom, damaged settings.
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <filesystem>
#include <fstream>

#include "app/Avvio.h"
#include "app/frmAttivita.h"
#include "app/frmMainForm.h"
#include "core/ImpostazioniFile.h"
#include "documento/Progetto.h"
#include "editing/ui/GasGrid.h"
#include "editing/ui/ModelloTronchi.h"
#include "tests/comune/EseguiComando.h"
#include "tests/ui/AmbienteUi.h"

using namespace fornax;
using namespace fornax::ui;

class TestSessione : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<prova::AmbienteUi> amb;
    std::unique_ptr<frmMainForm> f;

    void Crea() {
        f.reset();
        amb = prova::NuovoAmbiente();
        f = std::make_unique<frmMainForm>(amb->s, amb->msg);
        f->ParametriDopoNuovo = false;
        f->AttivitaDopoChiusura = false;
        f->show();
        f->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(f.get()));
    }

    // A copy of a sample project in the test's folder, so that saving can't touch the original.
    std::string Copia(const std::string& nome) {
        const std::string destinazione = amb->cartella.Percorso(nome);
        std::filesystem::copy_file(prova::AmbienteUi::Esempio(nome), destinazione,
                                   std::filesystem::copy_options::overwrite_existing);
        return destinazione;
    }

    QAction* Azione(const char* nome) const { return f->findChild<QAction*>(QString::fromLatin1(nome)); }

    // Types a value in a cell of the document window and commits it with Enter.
    void Scrivi(int riga, int id, const QString& testo) {
        GasGrid* g = f->Griglia();
        g->VaiA(riga, g->Modello()->ColonnaDi(id));
        g->GridEditing(testo);
        QTest::keyClick(g->EditorTesto(), Qt::Key_Return);
    }

private slots:
    void cleanup() {
        if (amb) amb->d.ReteModificata = FALSO;
        f.reset();
    }
    void rigaDiComando();
    void salvaERiapri();
    void domandaPrimaDiChiudere();
    void nuoviProgettiDeiDueTipi();
    void sceltaDiAvvioEFileRecenti();
    void listaDeiGas();
    void interruttoriEZoom();
    void impostazioniRovinateNonFermanoIlProgramma();
    void manualeMancante();
    void salvaComeLaRigaDiComando();
};

void TestSessione::rigaDiComando() {
    QCOMPARE(PercorsoDaRigaComandi({QStringLiteral("\"/home/utente/Lavori/casa"), QStringLiteral("nuova.RTG\"")}),
             QStringLiteral("/home/utente/Lavori/casa nuova.RTG"));
    QCOMPARE(PercorsoDaRigaComandi({QStringLiteral("  /tmp/a.RTG ")}), QStringLiteral("/tmp/a.RTG"));
    QCOMPARE(PercorsoDaRigaComandi({}), QString());
    // One quote at each end only.
    QCOMPARE(PercorsoDaRigaComandi({QStringLiteral("\"\"x.RTG\"\"")}), QStringLiteral("\"x.RTG\""));
}

void TestSessione::salvaERiapri() {
    Crea();
    const std::string primo = Copia("appartamento.RTG");
    QVERIFY(f->ApriPercorso(QString::fromStdString(primo)));
    QCOMPARE(f->windowTitle(), QString::fromStdString("Fornax - " + primo));
    QCOMPARE(amb->s.mru.GetItem(1), primo);
    QCOMPARE(amb->imp.Leggi("MRUFileList", "Item1"), primo);

    Scrivi(2, Id::ID_LEN, QStringLiteral("7"));
    QCOMPARE(amb->d.T(2).ID_LEN, 7.0f);
    QCOMPARE(amb->d.ReteModificata, VERO);

    // Save as: the new name, the recent files, the work directory; the modified mark stays.
    const std::string secondo = amb->cartella.Percorso("copia.rtg");
    f->DialogoSalva = [&] { return QString::fromStdString(secondo); };
    Azione("SaveAsMnu")->trigger();
    QVERIFY(std::filesystem::exists(secondo));
    QCOMPARE(f->windowTitle(), QString::fromStdString("Fornax - " + secondo));
    QCOMPARE(amb->d.NomeFileProgetto, secondo);
    QCOMPARE(amb->d.ReteModificata, VERO);
    QCOMPARE(amb->s.mru.GetItem(1), secondo);
    QCOMPARE(amb->s.mru.GetItem(2), primo);
    QCOMPARE(amb->imp.Leggi("Recent", "LastWorkDirectory"), amb->cartella.Percorso());

    // Save under the known name clears it.
    Scrivi(3, Id::ID_LEN, QStringLiteral("2.5"));
    Azione("SalvaMnu")->trigger();
    QCOMPARE(amb->d.ReteModificata, FALSO);

    // New project: nothing to ask, the window goes, the title shows the reset.
    Azione("NuovoMnu")->trigger();
    QVERIFY(amb->msg.mostrati.empty());
    QVERIFY(!f->ProgettoAperto());
    QCOMPARE(f->windowTitle(), QStringLiteral("Fornax  - "));
    QCOMPARE(amb->d.NumTronchi(), 0);

    // Reopened through the open command: what was typed is there.
    f->DialogoApri = [&] { return QString::fromStdString(secondo); };
    Azione("ApriMnu")->trigger();
    QVERIFY(f->ProgettoAperto());
    QCOMPARE(amb->d.T(2).ID_LEN, 7.0f);
    QCOMPARE(amb->d.T(3).ID_LEN, 2.5f);
    QCOMPARE(f->Griglia()->Modello()->cella(3, f->Griglia()->Modello()->ColonnaDi(Id::ID_LEN)).testo,
             QStringLiteral("2.50"));
    // A cancelled dialog leaves everything as it stands.
    f->DialogoApri = [] { return QString(); };
    Azione("ApriMnu")->trigger();
    QVERIFY(f->ProgettoAperto());
    QCOMPARE(amb->d.NomeFileProgetto, secondo);
}

void TestSessione::domandaPrimaDiChiudere() {
    Crea();
    QVERIFY(f->ApriPercorso(QString::fromStdString(Copia("appartamento.RTG"))));
    Scrivi(2, Id::ID_LEN, QStringLiteral("9"));
    // Cancel: the project stays open, and so does the program.
    amb->msg.risposte.push_back(Risposta::CANCEL);
    Azione("NuovoMnu")->trigger();
    QCOMPARE(amb->msg.mostrati.size(), size_t(1));
    QCOMPARE(amb->msg.mostrati[0].testo, std::string("Salvare il progetto aperto"));
    QCOMPARE(amb->msg.mostrati[0].flags, Box::YESNOCANCEL | Box::QUESTION);
    QVERIFY(f->ProgettoAperto());
    amb->msg.risposte.push_back(Risposta::CANCEL);
    QVERIFY(!f->close());
    QVERIFY(f->isVisible());
    // No: closed without saving.
    amb->msg.risposte.push_back(Risposta::NO);
    Azione("NuovoMnu")->trigger();
    QVERIFY(!f->ProgettoAperto());
    AvanzamentoNullo av;
    Documento riletto;
    QVERIFY(LeggiProgetto(riletto, amb->a, amb->cartella.Percorso("appartamento.RTG"), amb->msg, av));
    QVERIFY(riletto.T(2).ID_LEN != 9.0f);
}

void TestSessione::nuoviProgettiDeiDueTipi() {
    Crea();
    QVERIFY(f->NuovoProgetto(false));
    QVERIFY(f->ProgettoAperto());
    QCOMPARE(f->Griglia()->TipoGriglia, 0);
    QCOMPARE(amb->d.ReteInPressione, FALSO);
    QCOMPARE(amb->d.OrientamentoSorgente, int16_t(0));
    // The limit in force is shown above the grid.
    QCOMPARE(f->Griglia()->findChild<QLabel*>(QStringLiteral("lblLimite"))->text(),
             QStringLiteral("Perdita massima ammessa: 100 Pa"));
    QCOMPARE(amb->d.Speciali[1].Lunghezza[2][1], 0.2f);

    QVERIFY(f->NuovoProgetto(true));
    QCOMPARE(f->Griglia()->TipoGriglia, 5);
    QCOMPARE(amb->d.OrientamentoSorgente, int16_t(1));
    QCOMPARE(amb->d.Speciali[1].Nome, std::string("CURVA"));
    QCOMPARE(amb->d.Speciali[1].Lunghezza[1][1], 0.7f);

    // Without the fittings table of pressure networks there is no pressure network.
    std::filesystem::remove(amb->cartella.Percorso("EQLEN.CFG"));
    amb->msg.mostrati.clear();
    QVERIFY(!f->NuovoProgetto(true));
    QCOMPARE(amb->msg.Testi(),
             std::vector<std::string>{"Il file eqlen.cfg non e' presente nel disco. Reinstallare il programma."});
}

void TestSessione::sceltaDiAvvioEFileRecenti() {
    Crea();
    const std::string esistente = Copia("rete-media-pressione.RTG");
    const std::string mancante = amb->cartella.Percorso("sparito.RTG");
    amb->s.mru.AddItem(mancante);
    amb->s.mru.AddItem(esistente);
    {
        frmAttivita a(amb->s.mru);
        QCOMPARE(a.windowTitle(), QStringLiteral("Avvio attivita'"));
        auto* primo = a.findChild<QPushButton*>(QStringLiteral("lblMRUFile0"));
        QCOMPARE(primo->text(), QStringLiteral(" 1. rete-media-pressione.RTG"));
        // An entry shorter than three characters doesn't react.
        QVERIFY(!a.findChild<QPushButton*>(QStringLiteral("lblMRUFile2"))->isEnabled());
    }
    // A missing recent file: the message, and the chooser comes back; the entry stays.
    std::vector<QString> titoli;
    prova::QuandoModale([&](QWidget* w) {
        titoli.push_back(w->windowTitle());
        w->findChild<QPushButton*>(QStringLiteral("lblMRUFile1"))->click();
        prova::QuandoModale([&](QWidget* w2) {
            titoli.push_back(w2->windowTitle());
            w2->findChild<QPushButton*>(QStringLiteral("lblMRUFile0"))->click();
        });
    });
    f->MostraAttivita();
    QCOMPARE(titoli.size(), size_t(2));
    QCOMPARE(amb->msg.Testi(), std::vector<std::string>{"Il file '" + mancante + "' non esiste"});
    QVERIFY(f->ProgettoAperto());
    QCOMPARE(amb->d.NomeFileProgetto, esistente);
    QCOMPARE(amb->s.mru.GetItem(1), esistente);
    QCOMPARE(amb->s.mru.GetItem(2), mancante);

    // "Apri" with the dialog cancelled keeps the chooser; "Esci" leaves the program.
    amb->d.ReteModificata = FALSO;
    f->ChiudiDocumento();
    f->DialogoApri = [] { return QString(); };
    int volte = 0;
    prova::QuandoModale([&](QWidget* w) {
        ++volte;
        w->findChild<QPushButton*>(QStringLiteral("cmdApri"))->click();
        prova::QuandoModale([&](QWidget* w2) {
            ++volte;
            w2->findChild<QPushButton*>(QStringLiteral("cmdESCI"))->click();
        });
    });
    f->MostraAttivita();
    QCOMPARE(volte, 2);
    QVERIFY(!f->isVisible());
}

void TestSessione::listaDeiGas() {
    Crea();
    QVERIFY(f->NuovoProgetto(false));
    auto* gas = f->findChild<QComboBox*>(QStringLiteral("ComboGas"));
    QCOMPARE(gas->currentText(), QStringLiteral("METANO"));
    // A gas that doesn't burn is refused for an internal installation.
    const int aria = gas->findText(QStringLiteral("ARIA"));
    QVERIFY(aria >= 0);
    gas->setCurrentIndex(aria);
    emit gas->activated(aria);
    QCOMPARE(amb->msg.Testi(),
             std::vector<std::string>{
                 "Nel calcolo dell'impianto interno gas non può essere utilizzato un gas non combustibile"});
    QCOMPARE(gas->currentText(), QStringLiteral("METANO"));
    QCOMPARE(amb->d.GasCorrente.Nome, std::string("METANO"));
    const int butano = gas->findText(QStringLiteral("BUTANO"));
    gas->setCurrentIndex(butano);
    emit gas->activated(butano);
    QCOMPARE(amb->d.GasCorrente.Nome, std::string("BUTANO"));
    QCOMPARE(amb->d.GasCorrente.Famiglia, int16_t(3));
    QCOMPARE(amb->d.ReteModificata, VERO);

    // The calculation refuses it too.
    amb->msg.mostrati.clear();
    amb->d.GasCorrente = amb->a.Gas[static_cast<size_t>(aria + 1)];
    Azione("CommandCalculate")->trigger();
    QCOMPARE(amb->msg.mostrati.size(), size_t(1));
}

void TestSessione::interruttoriEZoom() {
    Crea();
    QVERIFY(f->ApriPercorso(QString::fromStdString(Copia("appartamento.RTG"))));
    Azione("CommandCursorLocked")->trigger();
    QCOMPARE(amb->s.CursorLocked, VERO);
    QVERIFY(Azione("CommandCursorLocked")->isChecked());
    Azione("CommandAutomaticRecalculate")->trigger();
    QCOMPARE(amb->s.RicalcoloAutomatico, FALSO);
    // Without the automatic recalculation a commit changes the input only.
    const float portata = amb->d.T(1).ID_P_TRONCO;
    Scrivi(2, Id::ID_P_UTENZE, QStringLiteral("5"));
    QCOMPARE(amb->d.T(1).ID_P_TRONCO, portata);
    Azione("CommandCalculate")->trigger();
    QVERIFY(amb->d.T(1).ID_P_TRONCO > portata);

    // All diameters fixed, then all free again.
    Azione("cmdDiamLocked")->trigger();
    for (int i = 1; i <= amb->d.NumTronchi(); ++i) QCOMPARE(amb->d.T(i).ID_DIAMCUSTOM, VERO);
    QVERIFY(Azione("cmdDiamLocked")->isChecked());
    Azione("cmdDiamLocked")->trigger();
    for (int i = 1; i <= amb->d.NumTronchi(); ++i) QCOMPARE(amb->d.T(i).ID_DIAMCUSTOM, FALSO);

    // Zoom: the level of the schema and its scale in the tool bar.
    auto* scala = f->findChild<QLineEdit*>(QStringLiteral("txtScaleW"));
    QCOMPARE(scala->text(), QStringLiteral("100"));
    for (int k = 0; k < 10; ++k) Azione("Command6")->trigger();
    QCOMPARE(f->Griglia()->Zoom, 5);
    QCOMPARE(scala->text(), QStringLiteral("169"));
    for (int k = 0; k < 20; ++k) Azione("Command7")->trigger();
    QCOMPARE(f->Griglia()->Zoom, -12);
    QCOMPARE(scala->text(), QStringLiteral("28"));
}

void TestSessione::impostazioniRovinateNonFermanoIlProgramma() {
    auto amb2 = prova::NuovoAmbiente();
    const std::string percorso = amb2->cartella.Percorso("Fornax.ini");
    {
        std::ofstream out(percorso, std::ios::binary);
        out << "[MRUFileList\nItem1\n\x01\x02garbage==\n[Recent]\nLastWorkDirectory=\"senza fine\n";
    }
    ImpostazioniFile imp(percorso);
    Sessione s(amb2->a, imp);
    s.mru.Setup("MRUFileList", 4);
    s.mru.Load();
    s.d = amb2->d;
    frmMainForm form(s, amb2->msg);
    form.ParametriDopoNuovo = false;
    QVERIFY(form.NuovoProgetto(false));
    s.mru.AddItem("/tmp/prova.RTG");
    ImpostazioniFile riletta(percorso);
    QCOMPARE(riletta.Leggi("MRUFileList", "Item1"), std::string("/tmp/prova.RTG"));
    s.d.ReteModificata = FALSO;
}

void TestSessione::manualeMancante() {
    Crea();
    Azione("mnuManuale")->trigger();
    QCOMPARE(amb->msg.mostrati.size(), size_t(1));
    const std::string& t = amb->msg.mostrati[0].testo;
    QVERIFY(t.rfind("Impossibile visualizzare il manuale '", 0) == 0);
    QVERIFY(t.find("Fornax5.htm'. Provare a lanciarlo manualmente da Internet Explorer") != std::string::npos);
}

// The same project saved by the desktop and by fornax-cli, on the same program folder, is the
// same file: both open it through the session (the leak-test page filled, the firm's defaults
// into an empty firm, the verdict judged) and save it through the session.
void TestSessione::salvaComeLaRigaDiComando() {
    for (const char* nome : {"appartamento.RTG", "bifamiliare-gpl.RTG", "rete-media-pressione.RTG"}) {
        Crea();
        // The samples leave the firm empty: the page fills it from the program's folder.
        const std::string progetto = Copia(nome);
        {
            std::ofstream out(amb->cartella.Percorso("TENIMPTECDEF.CFG"), std::ios::binary | std::ios::trunc);
            out << "4.0\r\nImpianti Verdi snc\r\nVia Po 3, Torino\r\n011 555 0101\r\nMario Verdi\r\n";
        }
        const std::string riga = amb->cartella.Percorso("riga.RTG");
        const prova::Esito e = prova::EseguiComando(
            "'" FORNAX_CLI "' --data '" + amb->cartella.Percorso() + "' save '" + progetto + "' '" + riga + "'",
            amb->cartella.Percorso("stderr.txt"));
        QCOMPARE(e.stato, 0);

        QVERIFY(f->ApriPercorso(QString::fromStdString(progetto)));
        const std::string desktop = amb->cartella.Percorso("desktop.RTG");
        f->DialogoSalva = [&] { return QString::fromStdString(desktop); };
        Azione("SaveAsMnu")->trigger();
        QVERIFY(std::filesystem::exists(desktop));
        const std::string daDesktop = prova::CartellaProva::LeggiFile(desktop);
        const std::string daRiga = prova::CartellaProva::LeggiFile(riga);
        size_t k = 0;
        while (k < daDesktop.size() && k < daRiga.size() && daDesktop[k] == daRiga[k]) ++k;
        QVERIFY2(daDesktop == daRiga, (std::string(nome) + ": desktop '" + daDesktop.substr(k, 60) +
                                       "' riga di comando '" + daRiga.substr(k, 60) + "'")
                                          .c_str());
        QVERIFY(daDesktop.find("Mario Verdi") != std::string::npos);
        cleanup();
    }
}

QTEST_MAIN(TestSessione)
#include "test_sessione.moc"
