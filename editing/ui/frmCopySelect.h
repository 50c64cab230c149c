#pragma once
// "Selezione copia multipla": before the section panel is applied to several sections, the
// user ticks the fields they receive. The boxes the network kind has no value for are disabled.

#include <QDialog>
#include <array>

#include "core/Documento.h"
#include "editing/ParametriTronco.h"

class QCheckBox;
class QPlainTextEdit;

namespace fornax::ui {

class frmCopySelect : public QDialog {
    Q_OBJECT
public:
    // The boxes are enabled by the kind of network of `d` when the window opens.
    explicit frmCopySelect(const Documento& d, QWidget* padre = nullptr);

    // The fields ticked (only enabled boxes count).
    SelezioneCopia GetSelection() const;

    QCheckBox* chkGroup0[4] = {};  // Diametro, Lunghezza equivalente aggiuntiva, contemporaneità, Lunghezza
    std::array<QCheckBox*, 8> chkGroup1{};
    QCheckBox* chkAllGroup1 = nullptr;

private:
    void TuttiGruppo1(bool spunta);
    void AggiornaMaestro();

    QPlainTextEdit* Text1 = nullptr;
    bool inAggiornamento_ = false;
};

}  // namespace fornax::ui
