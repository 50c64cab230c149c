#pragma once
// "Copia Archivi" and "Copia File di Progetto": the folders of a copy, chosen or typed, and the
// copy itself, whose rules live in housekeeping/Copia.

#include <QDialog>
#include <functional>
#include <string>

#include "housekeeping/Copia.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace fornax {
class Messaggi;
}

namespace fornax::ui {

// A folder chosen through a file dialog: the dialog's title and filter; "" when cancelled.
using DialogoCartella = std::function<QString(const QString& titolo, const QString& filtro, const QString& da)>;

class frmCopyArchieves : public QDialog {
    Q_OBJECT
public:
    // `cartellaProgramma`: where the logs go and where the archives in use live.
    frmCopyArchieves(const std::string& cartellaProgramma, Messaggi& msg, QWidget* padre = nullptr);

    QLineEdit* txtCopyFrom;
    QLineEdit* txtCopyTo;
    QPushButton* cmdOpenCopyFromDlg;
    QPushButton* cmdOpenCopyToDlg;
    QPushButton* cmdCopy;
    QPushButton* cmdCancel;

    // The folder dialog, replaceable by the tests.
    DialogoCartella Sfoglia;
    // What the last copy did.
    const RiepilogoCopia& Riepilogo() const { return riepilogo_; }

private:
    void Copia();
    std::string programma_;
    Messaggi& msg_;
    RiepilogoCopia riepilogo_;
};

class frmCopyProjectFiles : public QDialog {
    Q_OBJECT
public:
    // `cartellaLavoro`: the work directory, whose "Archivio Lavori" receives the projects.
    frmCopyProjectFiles(const std::string& cartellaLavoro, const std::string& cartellaProgramma, Messaggi& msg,
                        QWidget* padre = nullptr);

    QLineEdit* txtCopyFrom;
    QPushButton* cmdOpenCopyFromDlg;
    QPushButton* cmdCopy;
    QPushButton* cmdCancel;

    DialogoCartella Sfoglia;
    const RiepilogoCopia& Riepilogo() const { return riepilogo_; }

private:
    void Copia();
    std::string lavoro_;
    std::string programma_;
    Messaggi& msg_;
    RiepilogoCopia riepilogo_;
};

// The platform's folder dialog: it lists the files of the filter, so the user sees what a folder
// holds, and it accepts a folder, also an empty one (a new machine's).
QString ScegliCartella(QWidget* padre, const QString& titolo, const QString& filtro, const QString& da);

}  // namespace fornax::ui
