#pragma once
// The questions of a copy: "Attenzione" with its five answers when a file is already in the
// destination, and "Rinomina File" for the name of a copy kept beside it.

#include <QDialog>

#include "housekeeping/Copia.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace fornax {
class Messaggi;
}

namespace fornax::ui {

class frmCopyArchievesMessage : public QDialog {
    Q_OBJECT
public:
    explicit frmCopyArchievesMessage(const QString& domanda, QWidget* padre = nullptr);
    // The answer, a RispostaCopia; Annulla when the window was closed otherwise.
    int16_t Risposta() const { return risposta_; }

    QLabel* Label1;
    QPushButton* cmdNo;
    QPushButton* cmdOK;
    QPushButton* cmdAllOK;
    QPushButton* cmdRename;
    QPushButton* cmdCancel;

private:
    int16_t risposta_ = RispostaCopia::Annulla;
};

class frmRenameFile : public QDialog {
    Q_OBJECT
public:
    frmRenameFile(const QString& nomeAttuale, Messaggi& msg, QWidget* padre = nullptr);
    // The name typed, trimmed; "" when the dialog was cancelled.
    QString Nome() const { return nome_; }

    QLineEdit* txtFileName;
    QPushButton* cmdRename;
    QPushButton* cmdCancel;

private:
    void Rinomina();
    Messaggi& msg_;
    QString nome_;
};

// The questions of a copy asked with the two windows above.
class DomandeCopiaQt final : public DomandeCopia {
public:
    DomandeCopiaQt(Messaggi& msg, QWidget* padre) : msg_(msg), padre_(padre) {}
    int16_t Sovrascrivere(const std::string& domanda) override;
    std::string NuovoNome(const std::string& nomeAttuale) override;

private:
    Messaggi& msg_;
    QWidget* padre_;
};

}  // namespace fornax::ui
