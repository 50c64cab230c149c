#pragma once
// The consumer dialogs. "Calcolo portata" (frmCportata) gives an internal installation's
// consumer its flow from a power in W or kcal/h, from the flow itself, or from the typical
// cooking appliances ticked; "Portata utenza" (frmPortata) gives a pressure network's consumer
// a flow and a reference. Results stay in the dialog for the caller, which stores them through
// modifica::ApplicaUtenza.

#include <QDialog>
#include <array>
#include <cstdint>
#include <string>

#include "core/Documento.h"
#include "editing/Portata.h"

class QButtonGroup;
class QCheckBox;
class QGroupBox;
class QLineEdit;
class QPushButton;

namespace fornax::ui {

class frmCportata : public QDialog {
    Q_OBJECT
public:
    explicit frmCportata(const Documento& d, QWidget* padre = nullptr);

    // Loads the dialog from the record of `tronco` with the flow `portata`.
    void SetDati(int tronco, float portata);
    // Shows or hides the cooking appliances; the window closes up around them.
    void ShowUtenze(bool visibile);
    void ResetChk();
    std::string CodificaComposizione() const;
    void DecodificaComposizione(const std::string& testo);
    // Keeps W, kcal/h and Nm3/h in step from the value of `fonte` (Fonte::...).
    void Ricalcola(int fonte);
    // The two-way choice: 0 "Apparecchi di cottura", 1 "Caldaie e simili", as a click gives it.
    void SceltaGruppo(int scelta);
    // "Cucina completa".
    void Command3Click();

    // ---- State of the form ----
    bool Done = false;
    float Portata = 0;  // Nm3/h
    int16_t Tipologia = 0;
    std::string Composizione;
    int32_t Watt = 0;         // the ticked appliances, W
    bool InModifica = true;   // false while the form writes its own boxes
    bool Modificato = false;  // the user changed a value
    QString Riferimento() const;

    // ---- Controls ----
    QLineEdit* txtWatt = nullptr;
    QLineEdit* txtKcal = nullptr;
    QLineEdit* txtNMC = nullptr;
    QLineEdit* txtRif = nullptr;
    QPushButton* ribSelect[2] = {};
    std::array<QCheckBox*, NUM_APPARECCHI>
        chk{};  // chkAux, chkSemirapido, chkRapido1, chkRapido2, chkPescera, chkForno
    QPushButton* Command3 = nullptr;
    QGroupBox* pnlUtenze = nullptr;
    QGroupBox* pnlCaratteristiche = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* Command2 = nullptr;

private:
    void ClickApparecchio(size_t i, bool spuntato);
    void MostraScelta(int scelta);
    void Scrivi(QLineEdit* e, const QString& testo);

    const Documento& d_;
    double watt_ = 0;  // the values behind the boxes, unrounded
    double kcal_ = 0;
};

class frmPortata : public QDialog {
    Q_OBJECT
public:
    explicit frmPortata(const Documento& d, QWidget* padre = nullptr);

    void SetDati(int tronco, float portata);

    bool Done = false;
    float Portata = 0;  // Nm3/h
    QString Riferimento() const;

    QLineEdit* txtNMC = nullptr;
    QLineEdit* txtRif = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* Command2 = nullptr;

private:
    const Documento& d_;
};

}  // namespace fornax::ui
