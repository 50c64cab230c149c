#pragma once
// A project loaded as the desktop opens it, ready for a report run: the archives of a copy of
// a program folder, the project read under the name the report is to print, the leak-test
// page filled.

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>

#include "archives/Archivi.h"
#include "core/FileTesto.h"
#include "core/ServiziProva.h"
#include "reports/Stampa.h"
#include "sessione/Sessione.h"
#include "tests/comune/CartellaProva.h"

namespace fornax::prova {

struct ProgettoAperto {
    CartellaProva programma{"relazione-programma"};
    CartellaProva uscita{"relazione-uscita"};
    Archivi a;
    ImpostazioniInMemoria imp;
    Sessione s{a, imp};
    Documento& d = s.d;
    MessaggiRegistrati msg;
    AvanzamentoNullo av;

    // `cartellaProgramma` is copied first, so that the firm's defaults file the leak-test page
    // creates never lands in the source tree. `nomeStampato` is the path the project is opened
    // under (the report prints it); the bytes come from `file`.
    bool Apri(const std::string& cartellaProgramma, const std::string& file, const std::string& nomeStampato) {
        programma.CopiaDa(cartellaProgramma);
        if (!CaricaArchivi(s, programma.Percorso(), av, msg, true)) return false;
        FileTesto f;
        if (!f.Apri(file)) return false;
        return ApriProgettoDa(s, f, nomeStampato, msg, av);
    }

    static OpzioniStampa Opzioni(const std::string& lettere) {
        OpzioniStampa o;
        o.selezione = ReportSelection::DaLettere(lettere);
        o.DataStampa = "01/02/2026";
        o.DittaRiga1 = "Studio Termotecnico Rossi";
        o.DittaRiga2 = "Via Roma 1, Milano";
        return o;
    }

    std::string Html(const OpzioniStampa& o, const std::string& nome = "relazione.html") {
        const EsitoStampa e = RelazioneSuFile(s, true, o, uscita.Percorso(nome), av, msg);
        EXPECT_TRUE(e.riuscita) << TestoErroreStampa("Stampa su file HTML.", e);
        return uscita.LeggiByte(nome);
    }
    std::string Txt(const OpzioniStampa& o, const std::string& nome = "relazione.txt") {
        const EsitoStampa e = RelazioneSuFile(s, false, o, uscita.Percorso(nome), av, msg);
        EXPECT_TRUE(e.riuscita) << TestoErroreStampa("Stampa su file TXT.", e);
        return uscita.LeggiByte(nome);
    }
};

// The first line where two outputs part, for a readable failure.
inline std::string PrimaDifferenza(const std::string& atteso, const std::string& scritto) {
    size_t riga = 1, inizio = 0;
    for (size_t i = 0; i < std::min(atteso.size(), scritto.size()); ++i) {
        if (atteso[i] != scritto[i]) {
            const size_t fa = atteso.find('\n', inizio), fs = scritto.find('\n', inizio);
            return "riga " + std::to_string(riga) + "\natteso:  " + atteso.substr(inizio, fa - inizio) +
                   "\nscritto: " + scritto.substr(inizio, fs - inizio);
        }
        if (atteso[i] == '\n') {
            ++riga;
            inizio = i + 1;
        }
    }
    return atteso.size() == scritto.size() ? ""
                                           : "lunghezze diverse: " + std::to_string(atteso.size()) + " / " +
                                                 std::to_string(scritto.size()) + " byte";
}

}  // namespace fornax::prova
