#pragma once
// The tip of the day at start, and the menu entries of the housekeeping windows: archive copy,
// project copy, tips at start.

#include <QDialog>
#include <QObject>
#include <functional>
#include <string>

#include "housekeeping/Suggerimenti.h"

class QAction;
class QCheckBox;
class QLabel;
class QPushButton;
class QTextBrowser;

namespace fornax {
class Impostazioni;
class Messaggi;
}  // namespace fornax

namespace fornax::ui {

class frmHints : public QDialog {
    Q_OBJECT
public:
    // Shows the next tip at once; the settings are saved when the window closes.
    frmHints(Suggerimenti& s, const BloccoEditore& editore, Impostazioni& imp, QWidget* padre = nullptr);
    // False when there was no tip to show (the window is then not worth opening).
    bool HaSuggerimento() const { return haSuggerimento_; }

    QTextBrowser* txtHint;
    QPushButton* cmdNextHint;
    QCheckBox* ckDontShowAgain;
    QPushButton* cmdClose;

    void done(int r) override;

private:
    void Prossimo();
    Suggerimenti& s_;
    const BloccoEditore& editore_;
    Impostazioni& imp_;
    bool haSuggerimento_ = false;
};

// The text of a tip as the window shows it: HTML, with the line breaks of the tip.
QString TestoSuggerimento(const std::string& testo);

// The entries "Copia Archivi...", "Copia File di Progetto..." and "Visualizza suggerimenti" of the
// main frame, with what they open.
class ComandiServizio : public QObject {
    Q_OBJECT
public:
    // `cartellaLavoro` gives the work directory at the time of a copy.
    ComandiServizio(std::string cartellaProgramma, Impostazioni& imp, Messaggi& msg,
                    std::function<std::string()> cartellaLavoro, QWidget* padre);

    QAction* mnuArchiveCopy;
    QAction* mnuProjectFileCopy;
    QAction* mnuShowHints;

    const BloccoEditore& Editore() const { return editore_; }
    // The end of start-up: the tip of the day, when the user keeps the tips at start.
    void SuggerimentiAllAvvio();
    // Turns the tips at start on or off and saves that.
    void CambiaSuggerimenti();

private:
    void AggiornaSpunta();
    std::string programma_;
    Impostazioni& imp_;
    Messaggi& msg_;
    std::function<std::string()> lavoro_;
    QWidget* padre_;
    BloccoEditore editore_;
};

}  // namespace fornax::ui
