#pragma once
// "Tipo cancellazione": how the selected sections leave the tree. The choice stays in the
// dialog (TipoCancellazione, Fatto) for the caller.

#include <QDialog>

class QLabel;
class QPushButton;

namespace fornax::ui {

class frmDelete : public QDialog {
    Q_OBJECT
public:
    explicit frmDelete(QWidget* padre = nullptr);

    void HideUnlink();
    void ShowUnlink();

    int TipoCancellazione = 0;
    bool Fatto = false;

private:
    void Scegli(int tipo);

    QPushButton* cmdScollega;
    QPushButton* cmdElimina;
    QPushButton* cmdCancella;
    QPushButton* cmdAnnulla;
    QLabel* Label1;
};

}  // namespace fornax::ui
