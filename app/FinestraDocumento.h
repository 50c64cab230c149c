#pragma once
// The document window: one tab per way of looking at the open project (the grid of sections,
// the drawn schema, the leak-test record). Elaborazione recalculates the network and shows it
// again on the page in view; a page that changed the document asks for one.

#include <QWidget>
#include <vector>

class QTabWidget;

namespace fornax {
class Messaggi;
struct Sessione;
}  // namespace fornax

namespace fornax::schema::ui {
class SchemaPagina;
}

namespace fornax::ui {

class GasGrid;
class PaginaDocumento;

class FinestraDocumento : public QWidget {
    Q_OBJECT
public:
    FinestraDocumento(Sessione& s, Messaggi& msg, QWidget* padre = nullptr);

    // Recalculates the network and shows the document on the page in view.
    void Elaborazione();
    // Commits what an open editor of the page in view holds.
    void TerminaModifica();
    // Adds a page after the ones already there (tab 0 is always the grid).
    void AggiungiPagina(PaginaDocumento* pagina, const QString& titolo);

    GasGrid* Griglia() const { return griglia_; }
    schema::ui::SchemaPagina* Schema() const { return schema_; }
    QTabWidget* Schede() const { return SSTab1; }
    PaginaDocumento* PaginaCorrente() const;

private:
    void AggiornaPaginaCorrente();

    GasGrid* griglia_ = nullptr;
    schema::ui::SchemaPagina* schema_ = nullptr;
    QTabWidget* SSTab1 = nullptr;
};

}  // namespace fornax::ui
