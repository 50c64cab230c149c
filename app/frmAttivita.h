#pragma once
// "Avvio attivita'": the start of work. A new internal installation, a new pressure network,
// an existing project, one of the recent files, or the end of the program. The choice stays in
// the dialog for the main frame to carry out.

#include <QDialog>
#include <array>

class QCommandLinkButton;
class QPushButton;

namespace fornax {
class clsMRU;
}

namespace fornax::ui {

class frmAttivita : public QDialog {
    Q_OBJECT
public:
    enum class Scelta { Nessuna, NuovoInterno, NuovoPressione, Apri, Recente, Esci };

    frmAttivita(const clsMRU& mru, QWidget* padre = nullptr);

    Scelta scelta() const { return scelta_; }
    // The recent file chosen (its full path) when scelta() is Recente.
    QString FileRecente() const { return recente_; }

private:
    void Scegli(Scelta s);

    Scelta scelta_ = Scelta::Nessuna;
    QString recente_;
    QCommandLinkButton* cmdNewGAS;
    QCommandLinkButton* cmdNewMP;
    QCommandLinkButton* cmdApri;
    std::array<QPushButton*, 4> lblMRUFile{};
    QPushButton* cmdESCI;
};

}  // namespace fornax::ui
