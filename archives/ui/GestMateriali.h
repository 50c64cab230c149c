#pragma once
// "Gestione tubazioni": one pipe material (.mat file) at a time, its roughness type, specific
// weight, description and table of sizes. The rules live in EditorMateriali; this window shows
// its work table in a grid with a text box laid over the cell being edited.

#include <QDialog>
#include <functional>

#include "archives/EditoriArchivi.h"

class QComboBox;
class QLineEdit;
class QRadioButton;
class QTableWidget;

namespace fornax {
class Messaggi;
}

namespace fornax::ui {

class GestMateriali : public QDialog {
    Q_OBJECT
public:
    GestMateriali(Archivi& a, Messaggi& msg, QWidget* padre = nullptr);

    // Asks about unsaved changes ("Salvare le modifiche?"): false when the user cancels.
    bool CheckBeforeChange();

    // The input box of "Nuovo" (title, prompt): the text typed, "" when cancelled.
    std::function<QString(const QString& titolo, const QString& domanda)> ChiediTesto;

    // True when a material was written while the window was open.
    bool Salvato() const { return editor_.Salvato(); }
    int IndiceMateriale() const { return editor_.Indice(); }

public slots:
    // "Annulla", Esc and the close box: asks about unsaved changes first.
    void reject() override;

signals:
    // A material was written: the document window refills its list of materials.
    void materialeSalvato();

protected:
    bool eventFilter(QObject* o, QEvent* e) override;

private:
    void CaricaLista();
    void MostraMateriale();
    void ScriviRiga(int r);
    void ScriviGriglia();
    void cmbMaterialiScelto(int indice);
    void CmdNuovo();
    void cmdCancella();
    void CmdSalva();
    // The overlay editor: opened on the current cell with a typed character (or the cell's
    // text), stored by Enter, dropped by Esc.
    void ApriEditor(const QString& tasto);
    void ConfermaEditor(bool avanza);
    void ChiudiEditor();

    EditorMateriali editor_;
    Archivi& a_;
    Messaggi& msg_;
    int rigaEdit_ = 0;
    int colonnaEdit_ = 0;
    bool inConferma_ = false;

    QComboBox* cmbMateriali;
    QRadioButton* Option3D1;
    QRadioButton* Option3D2;
    QRadioButton* Option3D3;
    QLineEdit* Text1;
    QLineEdit* Text2;
    QTableWidget* Grid;
    QLineEdit* txtEdit;
};

}  // namespace fornax::ui
