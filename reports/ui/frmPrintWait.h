#pragma once
// The progress window of a print run: modeless, the section's text above a bar that advances
// between sections. It is the run's Avanzamento: each page check lets the window repaint.

#include <QDialog>

#include "core/Servizi.h"

class QLabel;
class QProgressBar;

namespace fornax::ui {

class frmPrintWait final : public QDialog, public Avanzamento {
    Q_OBJECT
public:
    explicit frmPrintWait(QWidget* padre = nullptr);

    void PrintMsg(const QString& testo);
    // current / total x 100; a total of 0 shows 0.
    void UpdateBar(int corrente, int totale);

    void Testo(const std::string& testo) override;
    void Passo(int passo) override { UpdateBar(passo, 100); }
    void Respira() override;

    QLabel* lblMsg = nullptr;
    QProgressBar* ProgressBar1 = nullptr;
};

}  // namespace fornax::ui
