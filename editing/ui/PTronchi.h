#pragma once
// "Parametri Tronco": the modal panel that edits one section, or gives its values to a
// selection of sections: lengths, material, diameter and its lock, the fittings of the
// network's table, simultaneity. OK writes through modifica::ApplicaParametriTronco; the
// caller recalculates.

#include <QDialog>
#include <array>
#include <vector>

#include "editing/ParametriTronco.h"
#include "sessione/Sessione.h"

class QComboBox;
class QFrame;
class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;

namespace fornax {
class Messaggi;
}

namespace fornax::ui {

class PTronchi : public QDialog {
    Q_OBJECT
public:
    PTronchi(Sessione& s, Messaggi& msg, QWidget* padre = nullptr);

    // The entry points of the callers: SReteSync prepares the panel for the open network (its
    // fitting lines), TroncoSync loads a section into it.
    void SReteSync();
    void TroncoSync(int tronco);
    // Multi-row mode: OK writes the fields `campi` ticks into every section of `tronchi`.
    void ImpostaSelezione(const std::vector<int>& tronchi, const SelezioneCopia& campi);

    // The section in view.
    int Tronco() const { return tronco_; }
    // True after OK wrote the document.
    bool Fatto() const { return fatto_; }

    // The steps of the spins, as the arrow keys and the small buttons give them.
    void Spin4(int passo);
    void SpinButton1(int passo);
    void SpinLocal(int riga, int passo);
    // txtContemp losing the focus.
    void ContempUscita();
    // Command3: the list of sizes of the material chosen.
    void Command3Click();
    // Command1: OK.
    void Command1Click();

    // ---- Controls, named as the product names them ----
    QLineEdit* Text10 = nullptr;
    QLabel* Label6 = nullptr;  // the parent section
    QLabel* lblRiferimento = nullptr;
    QLineEdit* txtlen = nullptr;
    QLineEdit* Text3 = nullptr;
    QComboBox* cmbMateriali = nullptr;
    QLineEdit* txtDiametro = nullptr;
    QPushButton* Command3 = nullptr;
    QToolButton* SSRibbon1 = nullptr;
    std::array<QLineEdit*, 10> txtLocal{};  // line i (0-based) of the fittings
    std::array<QLabel*, 10> lblLocal{};
    std::array<QWidget*, 10> spnLocal{};
    QFrame* pnlContemp = nullptr;
    QLineEdit* txtContemp = nullptr;
    QWidget* SpinButton1Widget = nullptr;
    QPushButton* Command1 = nullptr;
    QPushButton* Command2 = nullptr;

protected:
    bool eventFilter(QObject* o, QEvent* e) override;

private:
    void CaricaTronco();
    void ColoreDiametro();
    ValoriPannello Valori() const;

    Sessione& s_;
    Messaggi& msg_;
    int tronco_ = 0;
    std::vector<RigaSpeciale> righe_;
    std::vector<int> selezione_;
    SelezioneCopia campi_;
    bool fatto_ = false;
};

}  // namespace fornax::ui
