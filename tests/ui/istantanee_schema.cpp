// Pictures of the schema page for a look at it (not a test): the flat of
// data/esempi/appartamento.RTG built from an empty project with the mouse only, on the
// schema (palette drops on the arrows, double clicks that open the section panel and the
// consumer dialog, whose OK is played by the values of the example), at three zoom levels; a
// drag in progress with its arrows; a 400-section network; the same on paper, PNG and SVG.
//   xvfb-run -a tests/ui/fornax-istantanee-schema <folder>
#include <QApplication>
#include <QDir>
#include <QDropEvent>
#include <QMimeData>
#include <QTest>
#include <deque>

#include "core/Documento.h"
#include "core/Numeri.h"
#include "editing/Modifiche.h"
#include "schema/Direzioni.h"
#include "schema/ui/SchemaPagina.h"
#include "schema/ui/SchemaQt.h"
#include "tests/ui/AmbienteUi.h"

using namespace fornax;
using namespace fornax::schema;
using namespace fornax::schema::ui;

namespace {

void Evento(QWidget* w, const std::string& tag, QPoint punto, bool rilascia) {
    QMimeData dati;
    dati.setData(QLatin1String(MIME_PALETTE), QByteArray::fromStdString(tag));
    QDragEnterEvent entra(punto, Qt::CopyAction, &dati, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(w, &entra);
    QDragMoveEvent muove(punto, Qt::CopyAction, &dati, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(w, &muove);
    if (!rilascia) return;
    QDropEvent cade(QPointF(punto), Qt::CopyAction, &dati, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(w, &cade);
}

QPoint SuFreccia(SchemaPagina& p, const EstremoLibero& e) {
    const double f = p.Stato().SchemaFattore;
    return p.APixel(e.x + PassoX(e.direzione) * 150.0 * f, e.y + PassoY(e.direzione) * 150.0 * f).toPoint();
}

const std::string& TagUtenza(int tipo) {
    switch (tipo) {
        case 1:
            return TagPalette::FORNELLO;
        case 3:
            return TagPalette::BRUCIATORE;
        case 4:
            return TagPalette::CONVETTORE;
        default:
            return TagPalette::CALDAIA;
    }
}

void Salva(QWidget& w, const QString& cartella, const QString& nome) {
    QApplication::processEvents();
    w.grab().save(cartella + QLatin1Char('/') + nome);
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    const QString cartella = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("istantanee-schema");
    QDir().mkpath(cartella);

    // The example, read to know what the user builds.
    auto rif = prova::NuovoAmbiente();
    AvanzamentoNullo av;
    if (!ApriProgetto(rif->s, prova::AmbienteUi::Esempio("appartamento.RTG"), rif->msg, av)) return 1;
    const Documento& r = rif->d;

    auto amb = prova::NuovoAmbiente();
    NuovoProgetto(amb->s, r.ReteInPressione != 0, amb->msg);
    SchemaPagina p(amb->s, amb->msg);
    QObject::connect(&p, &SchemaPagina::richiestaElaborazione, &p, [&] {
        Ricalcola(amb->s, amb->msg);
        p.Aggiorna();
    });
    // The section panel and the consumer dialog, answered with the example's values.
    std::vector<int> mappa(MAX_TRONCHI + 1, 0), inversa(MAX_TRONCHI + 1, 0);
    p.ApriParametriTronco = [&](int t) {
        const Tronco& x = r.T(inversa[static_cast<size_t>(t)]);
        auto nessuno = [](int) { return std::string(); };
        modifica::ConfermaCella(amb->d, amb->a, t, t, Id::ID_LEN, FormattaNumero(x.ID_LEN, "0.0#"), amb->msg, nessuno);
        modifica::ConfermaCella(amb->d, amb->a, t, t, Id::ID_NCURVE, std::to_string(x.ID_NCURVE), amb->msg, nessuno);
        modifica::ConfermaCella(amb->d, amb->a, t, t, Id::ID_RIF, x.ID_RIF, amb->msg, nessuno);
        const auto nomi = amb->a.NomiMateriali();
        for (size_t m = 0; m < nomi.size(); ++m)
            if (nomi[m] == x.ID_MATERIALE) modifica::ScegliMateriale(amb->d, amb->a, t, t, static_cast<int>(m + 1));
    };
    p.ApriUtenza = [&](int t) {
        const Tronco& x = r.T(inversa[static_cast<size_t>(t)]);
        modifica::ConfermaUtenzaDrop(amb->d, static_cast<int16_t>(t), x.ID_P_UTENZE, x.ID_TIPOUTENZA, x.ID_NOMEUTENZA);
    };
    p.resize(1100, 760);
    p.show();
    if (!QTest::qWaitForWindowExposed(&p)) return 1;
    p.Aggiorna();
    Salva(p, cartella, QStringLiteral("00-vuoto.png"));

    // Sections in the order of the tree, each dropped on its parent's arrow of the same turn.
    std::deque<int> coda{1};
    int passo = 0;
    while (!coda.empty()) {
        const int i = coda.front();
        coda.pop_front();
        const Tronco& x = r.T(i);
        const int padre = x.ID_PREV > 0 ? mappa[static_cast<size_t>(x.ID_PREV)] : 0;
        const EstremoLibero* scelto = nullptr;
        for (const EstremoLibero& e : p.Stato().EstremiTronco)
            if (e.tronco == padre && (scelto == nullptr || e.svolta == x.ID_SCHEMA_SVOLTA)) scelto = &e;
        if (scelto == nullptr) return 2;
        if (passo == 1) {
            Evento(p.Display(), TagPalette::TRONCO, SuFreccia(p, *scelto), false);
            Salva(p, cartella, QStringLiteral("01-trascinamento.png"));
        }
        Evento(p.Display(), TagPalette::TRONCO, SuFreccia(p, *scelto), true);
        const int n = amb->d.NumTronchi();
        mappa[static_cast<size_t>(i)] = n;
        inversa[static_cast<size_t>(n)] = i;
        // Double click on the new section: its panel.
        for (const SezioneDisegnata& s : p.Stato().Sezioni)
            if (s.n == n) {
                const QPoint m = p.APixel(s.x - PassoX(s.direzione) * s.lunghezza / 2.0,
                                          s.y - PassoY(s.direzione) * s.lunghezza / 2.0)
                                     .toPoint();
                QTest::mouseDClick(p.Display(), Qt::LeftButton, Qt::NoModifier, m);
            }
        for (int f : {x.ID_LEFT, x.ID_RIGHT})
            if (f > 0) coda.push_back(f);
        ++passo;
    }
    // Consumers on the free ends.
    for (int i = 1; i <= r.NumTronchi(); ++i) {
        const Tronco& x = r.T(i);
        if (x.ID_LEFT != 0 || x.ID_RIGHT != 0 || x.ID_P_UTENZE <= 0) continue;
        const int t = mappa[static_cast<size_t>(i)];
        for (const EstremoLibero& e : p.Stato().EstremiUtenza)
            if (e.tronco == t) {
                const EstremoLibero copia = e;
                if (i == r.NumTronchi()) {
                    Evento(p.Display(), TagUtenza(x.ID_TIPOUTENZA), SuFreccia(p, copia), false);
                    Salva(p, cartella, QStringLiteral("02-trascinamento-utenza.png"));
                }
                Evento(p.Display(), TagUtenza(x.ID_TIPOUTENZA), SuFreccia(p, copia), true);
                break;
            }
    }
    // Selection of section 2.
    for (const SezioneDisegnata& s : p.Stato().Sezioni)
        if (s.n == 2)
            QTest::mouseClick(
                p.Display(), Qt::LeftButton, Qt::NoModifier,
                p.APixel(s.x - PassoX(s.direzione) * s.lunghezza / 2.0, s.y - PassoY(s.direzione) * s.lunghezza / 2.0)
                    .toPoint());
    Salva(p, cartella, QStringLiteral("03-appartamento-selezione.png"));
    for (int z : {-7, 0, 3}) {
        p.ImpostaZoom(z);
        Salva(p, cartella, QStringLiteral("04-appartamento-zoom%1.png").arg(z));
    }
    p.ImpostaZoom(0);
    StatoSchema carta(amb->msg);
    ChiamataSchema c;
    c.modo = 1;
    c.superficie = Superficie::Schema;
    c.titolo = "Appartamento";
    SalvaImmagineSchema(cartella + QStringLiteral("/05-carta.png"), carta, amb->d, amb->a, c, 12000, 9000, 150);
    SalvaImmagineSchema(cartella + QStringLiteral("/05-carta.svg"), carta, amb->d, amb->a, c, 12000, 9000, 96);
    std::printf("appartamento: %d tronchi, riferimento \"%s\" -> \"%s\", portata 1 %.3f (esempio %.3f)\n",
                amb->d.NumTronchi(), amb->d.T(2).ID_RIF.c_str(), r.T(2).ID_RIF.c_str(), amb->d.T(1).ID_P_TRONCO,
                r.T(1).ID_P_TRONCO);

    // 400 sections, each i under i / 2.
    auto grande = prova::NuovoAmbiente();
    NuovoProgetto(grande->s, false, grande->msg);
    const auto nomi = grande->a.NomiMateriali();
    for (int i = 1; i <= MAX_TRONCHI; ++i)
        NuovoTronco(grande->d, static_cast<int16_t>(i / 2), nomi, grande->a.Default.DefaultMateriale, grande->msg);
    for (int i = 1; i <= MAX_TRONCHI; ++i)
        if (grande->d.T(i).IsUtenza()) grande->d.T(i).ID_P_UTENZE = grande->d.T(i).ID_P_TRONCO = 0.05f;
    Ricalcola(grande->s, grande->msg);
    SchemaPagina g(grande->s, grande->msg);
    g.resize(1100, 760);
    g.show();
    if (!QTest::qWaitForWindowExposed(&g)) return 1;
    for (int z : {0, -7}) {
        g.ImpostaZoom(z);
        Salva(g, cartella, QStringLiteral("06-400-zoom%1.png").arg(z));
    }
    std::printf("400: messaggi mostrati %zu\n", grande->msg.mostrati.size());
    return 0;
}
