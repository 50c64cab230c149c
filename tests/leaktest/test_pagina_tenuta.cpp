// The leak-test page driven as an installer drives it: typing, Enter, clicks on the options,
// the calendar; each boundary of the rules seen on the controls, the page of a gas it can't
// judge and of a pressure network, a project without a record, and a record typed on the page
// saved and reopened as it was typed.
#include <QApplication>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <map>
#include <memory>

#include "core/ui/Controlli.h"
#include "leaktest/CampiTenuta.h"
#include "leaktest/ui/PaginaTenuta.h"
#include "tests/ui/AmbienteUi.h"

using namespace fornax;
using namespace fornax::ui;

namespace {

template <typename T>
T* Figlio(QWidget* w, const QString& nome) {
    T* x = w->findChild<T*>(nome);
    if (x == nullptr) qFatal("manca %s", qPrintable(nome));
    return x;
}

const QColor kGiallo(255, 255, 192);

}  // namespace

class TestPaginaTenuta : public QObject {
    Q_OBJECT

    std::unique_ptr<prova::AmbienteUi> amb;
    std::unique_ptr<PaginaTenuta> p;

    bool Apri(const std::string& percorso) {
        p.reset();
        AvanzamentoNullo av;
        if (!ApriProgetto(amb->s, percorso, amb->msg, av)) return false;
        p = std::make_unique<PaginaTenuta>(amb->s, amb->msg);
        p->resize(1300, 700);
        p->show();
        return true;
    }
    // A new internal installation (no pipes yet): its page is filled when it is made.
    void Nuovo() {
        p.reset();
        QVERIFY(NuovoProgetto(amb->s, false, amb->msg));
        QVERIFY(!amb->s.PaginaTenuta.inizializzata);
        p = std::make_unique<PaginaTenuta>(amb->s, amb->msg);
        QVERIFY(amb->s.PaginaTenuta.inizializzata);
        p->resize(1300, 700);
        p->show();
    }
    QLineEdit* E(int campo) {
        const std::string_view n = NomeCampoTenuta(campo);
        return Figlio<QLineEdit>(p.get(), QString::fromLatin1(n.data(), static_cast<qsizetype>(n.size())));
    }
    QRadioButton* O(const char* nome) { return Figlio<QRadioButton>(p.get(), QLatin1String(nome)); }
    QLabel* L(const char* nome) { return Figlio<QLabel>(p.get(), QLatin1String(nome)); }
    // Types into a field as a user does, replacing what it held.
    static void Digita(QLineEdit* e, const QString& testo) {
        e->selectAll();
        QTest::keyClick(e, Qt::Key_Backspace);
        // Key by key with the character each key types (accented letters included).
        for (const QChar c : testo) {
            QKeyEvent giu(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
            QApplication::sendEvent(e, &giu);
            QKeyEvent su(QEvent::KeyRelease, 0, Qt::NoModifier, QString(c));
            QApplication::sendEvent(e, &su);
        }
    }
    static void Invio(QLineEdit* e, const QString& testo) {
        Digita(e, testo);
        QTest::keyClick(e, Qt::Key_Return);
    }
    // On the box of an option: a wide option takes clicks on its box and its caption only.
    static void Clic(QAbstractButton* b) { QTest::mouseClick(b, Qt::LeftButton, {}, QPoint(6, b->height() / 2)); }
    int Verdetto() {
        int v = 0;
        for (int k = 1; k <= 3; ++k)
            if (O(k == 1   ? "optTenutaImpiantoIdoneo"
                  : k == 2 ? "optTenutaImpiantoTemporaneo"
                           : "optTenutaImpiantoNonIdoneo")
                    ->isChecked())
                v = v == 0 ? k : -1;  // two verdicts at once would be a fault
        return v;
    }

private slots:
    void init() { amb = prova::NuovoAmbiente(); }
    void cleanup() {
        p.reset();
        amb.reset();
    }

    // A natural-gas installation: the meter method from Qn to the verdict, each boundary.
    void metodoDelContatore() {
        QVERIFY(Apri(prova::AmbienteUi::Esempio("appartamento.RTG")));
        QCOMPARE(PaginaTenuta::Titolo(), QStringLiteral("Verifica tenuta"));
        QCOMPARE(L("lblTenutaImpiantoDescrizioneProva")->text(),
                 QStringLiteral("Verifica di tenuta dell'impianto in base alla normativa UNI 11137-1"));
        QVERIFY(O("optTenutaImpianto2afam")->isChecked());
        QVERIFY(!O("optTenutaImpianto1afam")->isChecked());
        auto* contatore = Figlio<QGroupBox>(p.get(), "FrameTenutaImpiantoProvaContatore");
        auto* cdp = Figlio<QGroupBox>(p.get(), "FrameTenutaImpiantoProvaCDP");
        // Nothing chosen yet: both pairs are pale yellow, neither method's frame is open.
        for (const char* o :
             {"optTenutaImpiantoMetodoContatore", "optTenutaImpiantoMetodoCDP",
              "optTenutaImpiantoDisposIntercettATenuta", "optTenutaImpiantoDisposIntercettNonATenuta"}) {
            QVERIFY2(O(o)->autoFillBackground() && O(o)->palette().color(O(o)->backgroundRole()) == kGiallo, o);
        }
        QVERIFY(!contatore->isEnabled());
        QVERIFY(!cdp->isEnabled());
        QCOMPARE(Verdetto(), 3);
        QCOMPARE(O("optTenutaImpiantoNonIdoneo")->palette().color(QPalette::WindowText), QColor(Qt::red));

        amb->d.ReteModificata = FALSO;
        Clic(O("optTenutaImpiantoMetodoContatore"));
        QCOMPARE(amb->d.Tenuta.MetodoProva, int16_t(1));
        QCOMPARE(amb->d.ReteModificata, VERO);
        QVERIFY(contatore->isEnabled());
        QVERIFY(!cdp->isEnabled());
        QVERIFY(!O("optTenutaImpiantoMetodoContatore")->autoFillBackground());
        QVERIFY(O("optTenutaImpiantoDisposIntercettATenuta")->autoFillBackground());
        Clic(O("optTenutaImpiantoDisposIntercettATenuta"));
        QVERIFY(!O("optTenutaImpiantoDisposIntercettATenuta")->autoFillBackground());
        QVERIFY(O("optTenutaImpiantoDisposIntercettATenuta")->isChecked());

        auto* qn = E(CampoTenuta::CONT_QN);
        auto* errore = L("lblTenutaImpiantoProvaContErrore");
        Invio(qn, "0");
        QCOMPARE(errore->text(), QStringLiteral("Portata nominale > 1 o pari a 0. L'idoneità della tenuta non può "
                                                "essere attestata con questo metodo ma tramite C.D.P."));
        Invio(E(CampoTenuta::CONT_PPROVA), "2200");
        Invio(E(CampoTenuta::CONT_DISP_RIL), "1");
        QCOMPARE(Verdetto(), 3);
        QCOMPARE(E(CampoTenuta::CONT_PRIF)->text(), QString());
        Invio(qn, "1,01");
        QVERIFY(!errore->text().isEmpty());
        QCOMPARE(Verdetto(), 3);
        Invio(qn, "1");
        QCOMPARE(errore->text(), QString());
        QCOMPARE(E(CampoTenuta::CONT_PRIF)->text(), QStringLiteral("2200"));
        QCOMPARE(E(CampoTenuta::CONT_DISP_RIF)->text(), QStringLiteral("1"));  // D exactly 1
        QCOMPARE(Verdetto(), 1);
        QCOMPARE(O("optTenutaImpiantoNonIdoneo")->palette().color(QPalette::WindowText),
                 p->palette().color(QPalette::WindowText));
        QCOMPARE(amb->d.Tenuta.EsitoProva, int16_t(1));
        Invio(E(CampoTenuta::CONT_DISP_RIL), "5");  // D exactly 5
        QCOMPARE(Verdetto(), 2);
        Invio(E(CampoTenuta::CONT_PPROVA), "1100");  // D = 10
        QCOMPARE(E(CampoTenuta::CONT_DISP_RIF)->text(), QStringLiteral("10"));
        QCOMPARE(Verdetto(), 3);
        Invio(E(CampoTenuta::CONT_PPROVA), "0");  // Pp 0
        QCOMPARE(E(CampoTenuta::CONT_DISP_RIF)->text(), QStringLiteral("NC"));
        QCOMPARE(Verdetto(), 3);
        QCOMPARE(amb->d.Tenuta.ContDispRif, std::string("NC"));

        // A click on a verdict only judges again: the computed one comes back.
        Invio(E(CampoTenuta::CONT_PPROVA), "2200");
        Invio(E(CampoTenuta::CONT_DISP_RIL), "0,8");
        QCOMPARE(Verdetto(), 1);
        Clic(O("optTenutaImpiantoNonIdoneo"));
        QCOMPARE(Verdetto(), 1);
        Clic(O("optTenutaImpiantoIdoneo"));  // a click on the checked one doesn't clear it
        QCOMPARE(Verdetto(), 1);
        // The device not tight makes the test unsuitable, whatever the meter says.
        Clic(O("optTenutaImpiantoDisposIntercettNonATenuta"));
        QCOMPARE(Verdetto(), 3);
        QVERIFY(!O("optTenutaImpiantoDisposIntercettATenuta")->isChecked());
        Clic(O("optTenutaImpiantoDisposIntercettATenuta"));
        QCOMPARE(Verdetto(), 1);

        // The meter's capacity: Enter holds it to 3 litres.
        auto* capContatore = E(CampoTenuta::CAPACITA_CONTATORE);
        Invio(capContatore, "3,5");
        QCOMPARE(capContatore->text(), QStringLiteral("3"));
        QCOMPARE(amb->d.Tenuta.CapacitaContatore, std::string("3"));
        QCOMPARE(Verdetto(), 1);
        // A meter of more than 3 litres from the record judges the test unsuitable.
        Digita(capContatore, "3,1");
        p->Aggiorna();
        QCOMPARE(capContatore->text(), QStringLiteral("3,1"));
        QCOMPARE(Verdetto(), 3);
    }

    // The 25-litre limit of the pressure-drop method, and its figures.
    void metodoCdpEVenticinqueLitri() {
        Nuovo();
        // The page's first judgement keeps the capacity recorded; the next follow the network.
        QCOMPARE(E(CampoTenuta::CAPACITA_IMPIANTO)->text(), QString());
        p->Aggiorna();
        QCOMPARE(E(CampoTenuta::CAPACITA_IMPIANTO)->text(), QStringLiteral("0.0"));  // no pipes
        QCOMPARE(L("lblTenutaImpiantoDescrizioneProva")->text(),
                 QStringLiteral("Verifica di tenuta dell'impianto in base alla normativa UNI 11137-1"));
        Clic(O("optTenutaImpiantoDisposIntercettATenuta"));
        Clic(O("optTenutaImpiantoMetodoCDP"));
        QVERIFY(Figlio<QGroupBox>(p.get(), "FrameTenutaImpiantoProvaCDP")->isEnabled());
        QVERIFY(!Figlio<QGroupBox>(p.get(), "FrameTenutaImpiantoProvaContatore")->isEnabled());
        Digita(E(43), QStringLiteral("Manometro digitale"));
        Invio(E(CampoTenuta::CDP_PPROVA), "2200");
        Invio(E(CampoTenuta::CDP_CDP), "68");
        QCOMPARE(E(CampoTenuta::CDP_PRIFER)->text(), QStringLiteral("2200"));
        QCOMPARE(E(CampoTenuta::CDP_CDPMAX)->text(), QStringLiteral("68"));
        QCOMPARE(Verdetto(), 1);
        Invio(E(CampoTenuta::CDP_CDP), "68,5");
        QCOMPARE(Verdetto(), 3);
        Invio(E(CampoTenuta::CDP_CDP), "60");
        QCOMPARE(Verdetto(), 1);
        Invio(E(CampoTenuta::CDP_PPROVA), "0");  // no admissible drop
        QCOMPARE(E(CampoTenuta::CDP_CDPMAX)->text(), QStringLiteral("0"));
        QCOMPARE(Verdetto(), 3);
        Invio(E(CampoTenuta::CDP_PPROVA), "2200");

        // The total is the pipes' capacity and the meter's: 25 litres exactly keep the method.
        auto* cap = E(CampoTenuta::CAPACITA_CONTATORE);
        auto* totale = E(CampoTenuta::CAPACITA_TOTALE);
        Digita(cap, "25");
        p->Aggiorna();  // the meter from the record, not through Enter
        QCOMPARE(totale->text(), QStringLiteral("25"));
        QVERIFY(O("optTenutaImpiantoMetodoCDP")->isEnabled());
        QVERIFY(O("optTenutaImpiantoMetodoCDP")->isChecked());
        QCOMPARE(E(43)->text(), QStringLiteral("Manometro digitale"));
        QCOMPARE(Verdetto(), 3);  // a meter above 3 litres
        Digita(cap, "25,1");
        Clic(Figlio<QPushButton>(p.get(), "btnTenutaImpiantoRicalcola"));
        QCOMPARE(totale->text(), QStringLiteral("25.1"));
        QVERIFY(!O("optTenutaImpiantoMetodoCDP")->isEnabled());
        QVERIFY(!O("optTenutaImpiantoMetodoCDP")->isChecked());
        QVERIFY(!Figlio<QGroupBox>(p.get(), "FrameTenutaImpiantoMetodologia")->isEnabled());
        QVERIFY(O("optTenutaImpiantoMetodoCDP")->autoFillBackground());  // no method: pale yellow
        QCOMPARE(E(CampoTenuta::CDP_PPROVA)->text(), QStringLiteral("0"));
        QCOMPARE(E(CampoTenuta::CDP_CDP)->text(), QStringLiteral("0"));
        QCOMPARE(E(CampoTenuta::CDP_PRIFER)->text(), QStringLiteral("0"));
        QCOMPARE(E(CampoTenuta::CDP_CDPMAX)->text(), QStringLiteral("0"));
        QCOMPARE(E(43)->text(), QString());
        QCOMPARE(amb->d.Tenuta.CdpStrumento, std::string());
        QVERIFY(!Figlio<QGroupBox>(p.get(), "FrameTenutaImpiantoProvaCDP")->isEnabled());
        QCOMPARE(Verdetto(), 3);
    }

    // Numeric fields take digits and the decimal comma; counts digits only. Nothing typed is
    // lost when the window asks the page to show the document again.
    void campiEFiltri() {
        QVERIFY(Apri(prova::AmbienteUi::Esempio("appartamento.RTG")));
        Clic(O("optTenutaImpiantoMetodoContatore"));
        auto* qn = E(CampoTenuta::CONT_QN);
        Digita(qn, "1a.,5 x");
        QCOMPARE(qn->text(), QStringLiteral("1,5"));
        auto* n = E(CampoTenuta::APP_COMPLESSIVO);
        Digita(n, "1,2b");
        QCOMPARE(n->text(), QStringLiteral("12"));

        // Typed, not confirmed: the refresh of the window takes them.
        Digita(E(5), QStringLiteral("Anna Bianchi"));
        Digita(E(CampoTenuta::NOTE), QStringLiteral("Prova ripetuta; tubo in cantina"));
        amb->d.ReteModificata = FALSO;
        p->Aggiorna();
        QCOMPARE(E(5)->text(), QStringLiteral("Anna Bianchi"));
        QCOMPARE(amb->d.Tenuta.ProprietarioNome, std::string("Anna Bianchi"));
        QCOMPARE(amb->d.Tenuta.Note, std::string("Prova ripetuta; tubo in cantina"));
        QCOMPARE(amb->d.Tenuta.AppComplessivo, int16_t(12));
        QCOMPARE(amb->d.Tenuta.ContQn, std::string("1,5"));
        QCOMPARE(amb->d.ReteModificata, VERO);
        QVERIFY(!L("lblTenutaImpiantoProvaContErrore")->text().isEmpty());

        // The causes.
        Clic(Figlio<QCheckBox>(p.get(), "ckTenutaImpiantoCausaSostApp"));
        Clic(Figlio<QCheckBox>(p.get(), "ckTenutaImpiantoCausaRiattImp"));
        QCOMPARE(amb->d.Tenuta.CauseIntervento, std::string("1;;3;;;;"));
        Clic(Figlio<QCheckBox>(p.get(), "ckTenutaImpiantoCausaSostApp"));
        QCOMPARE(amb->d.Tenuta.CauseIntervento, std::string(";;3;;;;"));

        // The date picked on the calendar is the text the record holds.
        auto* cal = Figlio<QCalendarWidget>(p.get(), "calTenutaImpiantoDataEsecuzione");
        emit cal->clicked(QDate(2026, 3, 7));
        QCOMPARE(E(CampoTenuta::DATA)->text(), QStringLiteral("07/03/2026"));
        QCOMPARE(amb->d.Tenuta.DataEsecuzione, std::string("07/03/2026"));
        // A typed one stays as typed.
        Digita(E(CampoTenuta::DATA), QStringLiteral("7 marzo 2026"));
        QTest::keyClick(E(CampoTenuta::DATA), Qt::Key_Return);
        QCOMPARE(amb->d.Tenuta.DataEsecuzione, std::string("7 marzo 2026"));
        Clic(Figlio<QPushButton>(p.get(), "btnTenutaImpiantoRicalcola"));
        QCOMPARE(E(CampoTenuta::DATA)->text(), QStringLiteral("7 marzo 2026"));
    }

    // LPG (third family): the page is closed and the verdict is the record's.
    void gplEReteInPressione() {
        QVERIFY(Apri(prova::AmbienteUi::Esempio("bifamiliare-gpl.RTG")));
        auto* descr = L("lblTenutaImpiantoDescrizioneProva");
        QCOMPARE(descr->text(), QStringLiteral("III Famiglia: Norma in corso di elaborazione alla data di "
                                               "aggiornamento del software"));
        QCOMPARE(descr->palette().color(QPalette::WindowText), QColor(Qt::red));
        QVERIFY(descr->isEnabled());
        QVERIFY(!E(1)->isEnabled());
        QVERIFY(!O("optTenutaImpiantoIdoneo")->isEnabled());
        QVERIFY(O("optTenutaImpianto3afam")->isChecked());
        QCOMPARE(Verdetto(), 0);  // the record holds none, and nothing judges it
        p->Aggiorna();
        QCOMPARE(Verdetto(), 0);
        QCOMPARE(amb->d.Tenuta.EsitoProva, int16_t(0));
        QCOMPARE(amb->d.Tenuta.FamigliaGas, int16_t(3));

        QVERIFY(Apri(prova::AmbienteUi::Esempio("rete-media-pressione.RTG")));
        QCOMPARE(L("lblTenutaImpiantoDescrizioneProva")->text(),
                 QStringLiteral("Rete gas in pressione: verifica non disponibile"));
        QCOMPARE(L("lblTenutaImpiantoDescrizioneProva")->palette().color(QPalette::WindowText), QColor(Qt::red));
        QVERIFY(!E(CampoTenuta::CONT_QN)->isEnabled());
        QVERIFY(!O("optTenutaImpiantoMetodoContatore")->isEnabled());
        QVERIFY(amb->msg.mostrati.empty());
    }

    // A project written before the record existed: the firm's defaults show on the page.
    void progettoSenzaBlocco() {
        const std::string testo = prova::CartellaProva::LeggiFile(prova::AmbienteUi::Esempio("appartamento.RTG"));
        const size_t da = testo.find("!VERIFICATENUTA1137-1");
        const size_t a = testo.find("!PARAMETERS-DOCUMENTPATH");
        QVERIFY(da != std::string::npos && a > da);
        amb->cartella.ScriviByte("vecchio.RTG", testo.substr(0, da) + testo.substr(a));
        amb->cartella.Scrivi("TENIMPTECDEF.CFG",
                             "4.0\nImpianti Verdi snc\nVia Po 3, Torino\n011 555 0101\nMario Verdi\n");
        QVERIFY(Apri(amb->cartella.Percorso("vecchio.RTG")));
        QCOMPARE(E(1)->text(), QStringLiteral("Impianti Verdi snc"));
        QCOMPARE(E(2)->text(), QStringLiteral("Via Po 3, Torino"));
        QCOMPARE(E(3)->text(), QStringLiteral("011 555 0101"));
        QCOMPARE(E(4)->text(), QStringLiteral("Mario Verdi"));
        QCOMPARE(E(5)->text(), QString());
        QVERIFY(!O("optTenutaImpiantoMetodoContatore")->isChecked());
        QVERIFY(!O("optTenutaImpiantoMetodoCDP")->isChecked());
        QCOMPARE(Verdetto(), 3);
        for (const char* c : {"ckTenutaImpiantoCausaSostApp", "ckTenutaImpiantoCausaAltro"})
            QVERIFY(!Figlio<QCheckBox>(p.get(), c)->isChecked());
    }

    // Every field typed on the page is saved and reopened as typed, byte for byte.
    void salvaERiapri() {
        QVERIFY(Apri(prova::AmbienteUi::Esempio("appartamento.RTG")));
        Clic(O("optTenutaImpiantoMetodoContatore"));
        Clic(O("optTenutaImpiantoDisposIntercettATenuta"));
        std::map<int, QString> digitati;
        for (int c = 1; c <= NUM_CAMPI_TENUTA; ++c) {
            if (!CampoTenutaDigitato(c) || (c >= 43 && c <= 47)) continue;  // the drop method is not chosen
            QString t;
            if (CampoTenutaIntero(c))
                t = QString::number(c - 20);
            else if (c == CampoTenuta::CONT_QN)
                t = QStringLiteral("0,6");
            else if (CampoTenutaNumerico(c))
                t = QStringLiteral("2%1,5").arg(c % 10);
            else
                t = QStringLiteral("Città n° %1 «prova» & <x>").arg(c);
            Digita(E(c), t);
            digitati[c] = t;
        }
        Clic(Figlio<QCheckBox>(p.get(), "ckTenutaImpiantoCausaAltro"));
        p->TerminaModifica();
        for (const auto& [c, t] : digitati) QCOMPARE(E(c)->text(), t);
        const std::string primo = amb->cartella.Percorso("primo.RTG");
        QVERIFY(SalvaProgetto(amb->s, primo, amb->msg));
        const VerificaTenuta salvato = amb->d.Tenuta;

        QVERIFY(Apri(primo));
        for (int c = 1; c <= NUM_CAMPI_TENUTA; ++c) {
            const QString t = Q(TestoCampoTenuta(amb->d.Tenuta, c));
            QCOMPARE(t, Q(TestoCampoTenuta(salvato, c)));
            if (digitati.count(c)) {
                QCOMPARE(t, digitati[c]);
                QCOMPARE(E(c)->text(), t);
            }
        }
        QVERIFY(Figlio<QCheckBox>(p.get(), "ckTenutaImpiantoCausaAltro")->isChecked());
        QVERIFY(O("optTenutaImpiantoMetodoContatore")->isChecked());
        const std::string secondo = amb->cartella.Percorso("secondo.RTG");
        p->TerminaModifica();
        QVERIFY(SalvaProgetto(amb->s, secondo, amb->msg));
        QCOMPARE(prova::CartellaProva::LeggiFile(secondo), prova::CartellaProva::LeggiFile(primo));
    }
};

QTEST_MAIN(TestPaginaTenuta)
#include "test_pagina_tenuta.moc"
