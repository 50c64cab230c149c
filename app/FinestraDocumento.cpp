#include "app/FinestraDocumento.h"

#include <QTabWidget>
#include <QVBoxLayout>

#include "core/ui/PaginaDocumento.h"
#include "editing/ui/DialoghiTronco.h"
#include "editing/ui/GasGrid.h"
#include "leaktest/ui/PaginaTenuta.h"
#include "schema/ui/SchemaPagina.h"

namespace fornax::ui {

FinestraDocumento::FinestraDocumento(Sessione& s, Messaggi& msg, QWidget* padre) : QWidget(padre) {
    setObjectName(QStringLiteral("FinestraDocumento"));
    auto* lay = new QVBoxLayout(this);
    lay->setContentsMargins(0, 0, 0, 0);
    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName(QStringLiteral("SSTab1"));
    SSTab1->setDocumentMode(true);
    lay->addWidget(SSTab1);

    griglia_ = new GasGrid(s, msg, SSTab1);
    SSTab1->addTab(griglia_, QStringLiteral("Tabella tronchi"));
    // The grid recalculates after each of its own commits; another page in view follows.
    connect(griglia_, &GasGrid::elaborato, this, [this] { AggiornaPaginaCorrente(); });
    // Tab 1: the drawn schema, an editor of the network as well.
    schema_ = new schema::ui::SchemaPagina(s, msg, SSTab1);
    AggiungiPagina(schema_, QStringLiteral("Schema"));
    // The schema's double clicks and consumer drops open the same dialogs as the grid.
    schema_->ApriParametriTronco = [this, &s, &msg](int tronco) { ApriPTronchi(this, s, msg, {tronco}); };
    schema_->ApriUtenza = [this, &s, &msg](int tronco) {
        const auto& richiesta = schema_->UltimaRichiestaUtenza();
        if (!richiesta.daDrop) {
            ApriDialogoUtenza(this, s, msg, tronco);
            return;
        }
        // A consumer just dropped: a cooker gets "Calcolo portata" in either kind of network.
        const bool cucina = richiesta.dialogo == schema::DialogoUtenza::Cportata;
        const auto esito = ChiediUtenza(this, s, tronco, cucina);
        if (esito) {
            PassoModifica passo(s.Storia, s.d, "utenza del tronco " + std::to_string(tronco));
            modifica::ConfermaUtenzaDrop(s.d, static_cast<int16_t>(tronco), esito->portata, esito->tipologia,
                                         esito->composizione.value_or(std::string()));
        }
    };
    connect(SSTab1, &QTabWidget::currentChanged, this, [this](int) { Elaborazione(); });
    AggiungiPagina(new PaginaTenuta(s, msg, SSTab1), PaginaTenuta::Titolo());  // tab 2, after the schema
}

void FinestraDocumento::AggiungiPagina(PaginaDocumento* pagina, const QString& titolo) {
    SSTab1->addTab(pagina, titolo);
    connect(pagina, &PaginaDocumento::richiestaElaborazione, this, [this] { Elaborazione(); });
}

PaginaDocumento* FinestraDocumento::PaginaCorrente() const {
    return qobject_cast<PaginaDocumento*>(SSTab1->currentWidget());
}

void FinestraDocumento::Elaborazione() { griglia_->Elaborazione(); }

void FinestraDocumento::AggiornaPaginaCorrente() {
    PaginaDocumento* p = PaginaCorrente();
    if (p != nullptr && p != griglia_) p->Aggiorna();
}

void FinestraDocumento::TerminaModifica() {
    if (PaginaDocumento* p = PaginaCorrente()) p->TerminaModifica();
}

}  // namespace fornax::ui
