#pragma once
// A page of the document window (the grid, the schema, the leak-test record). The window shows
// one page at a time; its Elaborazione recalculates the network and then asks the page in view
// to show the document again. A page never writes the document itself: its edits go through
// the named functions of editing/, after which it asks the window for an Elaborazione.

#include <QWidget>

namespace fornax::ui {

class PaginaDocumento : public QWidget {
    Q_OBJECT
public:
    using QWidget::QWidget;
    ~PaginaDocumento() override;

    // Shows the document as it stands after a recalculation. Called for the page in view only.
    virtual void Aggiorna() = 0;
    // Commits what an open editor of the page holds (before a command of the main frame).
    virtual void TerminaModifica() {}

signals:
    // The page changed the document: the window recalculates and shows it again.
    void richiestaElaborazione();
};

}  // namespace fornax::ui
