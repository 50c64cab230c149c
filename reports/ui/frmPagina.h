#pragma once
// "Proporzioni pagina": the share of the paper's width and height the printer report uses,
// 80 to 120 %, with a picture of the page in proportion. OK keeps both in the user's settings.

#include <QDialog>

#include "core/Servizi.h"
#include "reports/Stampante.h"

class QLineEdit;
class QPushButton;
class QFrame;
class QLabel;

namespace fornax::ui {

// The printable area kept in the settings; a missing or 0 value is 100, and is saved so.
ProporzioniPagina LeggiProporzioni(Impostazioni& imp);

class frmPagina final : public QDialog {
    Q_OBJECT
public:
    frmPagina(Impostazioni& imp, QWidget* padre = nullptr);

    int PercentoX() const { return x_; }
    int PercentoY() const { return y_; }
    // A value for a box, held between 80 and 120; the box shows it as "100%".
    void ImpostaW(int v);
    void ImpostaH(int v);

    QLineEdit* txtW = nullptr;
    QLineEdit* txtH = nullptr;
    QPushButton *cmdPlusW = nullptr, *cmdMinusW = nullptr, *cmdPlusH = nullptr, *cmdMinusH = nullptr;
    QFrame* picFull = nullptr;
    QFrame* picPage = nullptr;
    QLabel* lblNota = nullptr;
    QPushButton* Command1 = nullptr;  // OK
    QPushButton* Command2 = nullptr;  // Annulla

private:
    void Mostra();
    void Conferma();
    Impostazioni& imp_;
    int x_ = 100, y_ = 100;
};

}  // namespace fornax::ui
