#pragma once
// The start-up window with the version, the progress texts and the progress bar; the same
// window answers "Informazioni..." as a dialog.

#include <QDialog>

#include "core/Servizi.h"
#include "housekeeping/Suggerimenti.h"

class QLabel;
class QProgressBar;
class QPushButton;

namespace fornax::ui {

class frmSplash : public QDialog {
    Q_OBJECT
public:
    // `informazioni` true: the about dialog, with an OK button and no progress bar.
    explicit frmSplash(bool informazioni, QWidget* padre = nullptr);

    void WriteVersionInfo();
    void ShowWorking(const QString& testo);
    void ImpostaPasso(int passo);
    // The four lines of the firm that distributes the program.
    void MostraEditore(const BloccoEditore& b);

    QString Versione() const;

private:
    QLabel* lblVersione;
    QLabel* lblStato;
    QProgressBar* ProgressBar1;
    QLabel* lblEditore;
};

// Progress of the start-up on the splash: texts, bar steps, and the events let through.
class AvanzamentoSplash final : public Avanzamento {
public:
    explicit AvanzamentoSplash(frmSplash* s) : s_(s) {}
    void Testo(const std::string& testo) override;
    void Passo(int passo) override;
    void Respira() override;

private:
    frmSplash* s_;
};

// Progress of a long piece of work on the main window: the window keeps repainting.
class AvanzamentoAttesa final : public Avanzamento {
public:
    void Testo(const std::string&) override {}
    void Passo(int) override {}
    void Respira() override;

private:
    int conteggio_ = 0;
};

}  // namespace fornax::ui
