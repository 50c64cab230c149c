#pragma once
// The leak-test page of the document window ("Verifica tenuta"): the record of a test under
// UNI 11137-1 laid out as the paper form an installer fills in, from the firm down to the
// verdict and the notes.
//
// The page shows what the rules of leaktest/ decided and never judges anything itself. What the
// user types reaches the record through the named edits of editing/ when a field is left, when
// Enter is pressed and at the start of every judgement, so no refresh ever drops a typed text.
// A judgement (TenutaImpiantoRefresh) runs when the window shows the page (Aggiorna), on the
// button "Ricalcola", on Enter in a numeric field, on leaving a numeric field that changed, and
// on each click on a method, a shut-off device or a verdict option.

#include <QString>
#include <array>

#include "core/ui/PaginaDocumento.h"
#include "leaktest/CampiTenuta.h"
#include "sessione/Sessione.h"

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QScrollArea;

namespace fornax {
class Messaggi;
}

namespace fornax::ui {

class PaginaTenuta : public PaginaDocumento {
    Q_OBJECT
public:
    // The caption of the page's tab.
    static QString Titolo() { return QStringLiteral("Verifica tenuta"); }

    // The page of the session's record. A project whose page the session hasn't filled yet (a
    // new one) has it filled now (TenutaImpiantoInit); an opened one is shown as opening left it.
    PaginaTenuta(Sessione& s, Messaggi& msg, QWidget* padre = nullptr);
    ~PaginaTenuta() override;

    // The window shows the page after a recalculation: the test is judged again.
    void Aggiorna() override { TenutaImpiantoRefresh(); }
    // Before a command of the main frame: what is typed goes into the record, judged.
    void TerminaModifica() override { TenutaImpiantoRefresh(); }

    // The whole judgement: what is typed into the record, the rules, the page shown again.
    void TenutaImpiantoRefresh();
    // Every field typed since the page last showed the record goes into it, through the named
    // edits. True when the record changed.
    bool TenutaImpiantoUpdateInternalData();

protected:
    // Leaving the page (another tab) keeps what was typed: it goes into the record.
    void hideEvent(QHideEvent* e) override;

private:
    QLineEdit* Campo(int campo, bool numerico = false);
    QLineEdit* Calcolato(int campo);
    QRadioButton* Opzione(const char* nome, const QString& testo);
    QWidget* CostruisciCorpo();
    void Mostra();
    void CampoLasciato(int campo);
    void InvioInCampoNumerico(int campo);
    bool Conferma(int campo);
    void DataScelta(const QString& data);

    Sessione& s_;
    Messaggi& msg_;
    std::array<QLineEdit*, NUM_CAMPI_TENUTA + 1> campi_{};
    std::array<bool, NUM_CAMPI_TENUTA + 1> digitato_{};
    std::array<QCheckBox*, NUM_CAUSE> cause_{};
    std::array<QRadioButton*, 4> famiglia_{};     // 1..3
    std::array<QRadioButton*, 3> metodo_{};       // 1 meter, 2 pressure drop
    std::array<QRadioButton*, 3> dispositivo_{};  // 1 tight, 2 not tight
    std::array<QRadioButton*, 4> esito_{};        // 1..3
    QLabel* descrizione_ = nullptr;
    QLabel* nomeGas_ = nullptr;
    QLabel* erroreContatore_ = nullptr;
    QLabel* erroreCdp_ = nullptr;
    QGroupBox* frameMetodologia_ = nullptr;
    QGroupBox* frameContatore_ = nullptr;
    QGroupBox* frameCdp_ = nullptr;
    QPushButton* ricalcola_ = nullptr;
    QScrollArea* scorrimento_ = nullptr;
    QWidget* corpo_ = nullptr;
};

}  // namespace fornax::ui
