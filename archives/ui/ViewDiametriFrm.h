#pragma once
// "Diametri Disponibili": the list of sizes of a material, "Auto" first. The choice stays in
// the dialog for the caller to read.

#include <QDialog>
#include <QString>

#include "archives/Archivi.h"

class QLabel;
class QListWidget;

namespace fornax::ui {

class ViewDiametriFrm : public QDialog {
    Q_OBJECT
public:
    explicit ViewDiametriFrm(QWidget* padre = nullptr);

    // Shows the material's name and fills the list.
    void SetMateriale(const Archivi& a, int indice);
    // The size chosen ("Auto" included); empty when the dialog was cancelled.
    QString Scelta() const { return scelta_; }

    // Opens the list modally for a material and returns the choice ("" for none).
    static QString Scegli(QWidget* padre, const Archivi& a, int materiale);

private:
    void Conferma();

    QLabel* Label1;
    QListWidget* List1;
    QString scelta_;
};

}  // namespace fornax::ui
