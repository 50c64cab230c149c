#pragma once
// The printer report written to a PDF file, without a window: the command line's
// "--format pdf" and the print dialog where no printer is installed. No Qt in this header, so
// that the command line stays free of it; a graphical application is made (offscreen) when
// the process has none.

#include <string>

#include "reports/Stampante.h"

namespace fornax {

// The paper of the PDF: A4 portrait unless told.
struct CartaPdf {
    int codice = 9;  // the platform's paper code (9 is A4)
    bool orizzontale = false;
};

// Makes the offscreen application a process without one needs for fonts, pictures and PDF.
void ApplicazioneGrafica();

EsitoStampante StampaPdf(Documento& d, Archivi& a, const OpzioniStampante& o, const std::string& percorso,
                         Avanzamento& av, Messaggi& msg, const CartaPdf& carta = {});

}  // namespace fornax
