// fornax-cli copia-archivi, copia-progetti: the archive and project copy of the desktop, run
// headless so that an administrator can prepare a new machine from a script. A file present in
// both folders is answered by --si-tutti (replace it, merge the gas archive) or --no-tutti
// (leave it); with neither, the first such question stops the copy (exit status 1).
#include <iostream>
#include <string>
#include <vector>

#include "cli/Comandi.h"
#include "core/ImpostazioniFile.h"
#include "core/Servizi.h"
#include "housekeeping/Copia.h"
#include "sessione/Sessione.h"

namespace fornax::cli {

namespace {

enum class Risposte { Nessuna, SiTutti, NoTutti };

std::string Righe(std::string testo) {
    for (size_t p = testo.find("\r\n"); p != std::string::npos; p = testo.find("\r\n", p + 1)) testo.erase(p, 1);
    return testo;
}

// The notes of a run on standard error.
class MessaggiCopia final : public Messaggi {
public:
    int Mostra(const std::string& testo, int, const std::string&) override {
        std::cerr << Righe(testo) << "\n";
        return Risposta::OK;
    }
    int ScegliSostituto(const std::string&, int, const std::vector<std::string>&) override { return 0; }
};

// The overwrite question answered from the options; without one it is printed and the copy
// stops, as "Annulla" stops it on the desktop.
class DomandeCli final : public DomandeCopia {
public:
    explicit DomandeCli(Risposte r) : r_(r) {}
    int16_t Sovrascrivere(const std::string& domanda) override {
        if (r_ == Risposte::SiTutti) return RispostaCopia::SiTutti;
        if (r_ == Risposte::NoTutti) return RispostaCopia::No;
        std::cerr << "Attenzione: " << Righe(domanda) << "\n"
                  << "(rispondere con --si-tutti o --no-tutti; copia annullata)\n";
        return RispostaCopia::Annulla;
    }
    std::string NuovoNome(const std::string&) override { return {}; }

private:
    Risposte r_;
};

// --si-tutti / --no-tutti and the positional arguments; false on wrong usage.
bool Opzioni(const std::vector<std::string>& argomenti, const char* comando, size_t posizionali,
             std::vector<std::string>& cartelle, Risposte& r) {
    r = Risposte::Nessuna;
    for (const auto& a : argomenti) {
        if (a == "--si-tutti" || a == "--no-tutti") {
            const Risposte nuova = a == "--si-tutti" ? Risposte::SiTutti : Risposte::NoTutti;
            if (r != Risposte::Nessuna && r != nuova) {
                std::cerr << "fornax-cli " << comando << ": --si-tutti e --no-tutti si escludono\n";
                return false;
            }
            r = nuova;
        } else if (a.size() > 1 && a.rfind("--", 0) == 0) {
            std::cerr << "fornax-cli " << comando << ": opzione sconosciuta '" << a << "'\n";
            return false;
        } else {
            cartelle.push_back(a);
        }
    }
    if (cartelle.size() != posizionali) {
        std::cerr << "fornax-cli " << comando << ": indicare "
                  << (posizionali == 2 ? "la cartella di provenienza e quella di destinazione"
                                       : "la cartella di provenienza")
                  << " (vedere --help)\n";
        return false;
    }
    return true;
}

int Riepilogo(const RiepilogoCopia& r, const std::string& destinazione) {
    for (const auto& n : r.copiati) std::cout << "copiato\t" << n << "\n";
    for (const auto& n : r.uniti) std::cout << "unito\t" << n << "\n";
    for (const auto& n : r.lasciati) std::cout << "lasciato\t" << n << "\n";
    for (const auto& n : r.mancanti) std::cout << "mancante\t" << n << "\n";
    switch (r.esito) {
        case EsitoCopia::Completata:
            std::cout << "destinazione\t" << destinazione << "\n";
            return ESITO_OK;
        case EsitoCopia::Annullata:
            return ESITO_PROGETTO;
        case EsitoCopia::Errore:
            std::cerr << r.errore.numero << "   #   " << r.errore.descrizione << "\n";
            return ESITO_PROGETTO;
    }
    return ESITO_PROGETTO;
}

int CopiaArchiviCli(ContestoCli& ctx, const std::vector<std::string>& argomenti) {
    std::vector<std::string> cartelle;
    Risposte risposte;
    if (!Opzioni(argomenti, "copia-archivi", 2, cartelle, risposte)) return ESITO_USO;
    MessaggiCopia msg;
    if (const std::string m = ControllaCartelleArchivi(cartelle[0], cartelle[1]); !m.empty()) {
        msg.Mostra(m, Box::OK, "");
        return ESITO_PROGETTO;
    }
    DomandeCli domande(risposte);
    const RiepilogoCopia r = CopiaArchivi(cartelle[0], cartelle[1], ctx.cartellaDati, msg, domande);
    return Riepilogo(r, cartelle[1]);
}

int CopiaProgettiCli(ContestoCli& ctx, const std::vector<std::string>& argomenti) {
    std::vector<std::string> cartelle;
    Risposte risposte;
    if (!Opzioni(argomenti, "copia-progetti", 1, cartelle, risposte)) return ESITO_USO;
    // The work directory is the desktop's: the user's setting, else the program's folder's own.
    const ImpostazioniFile impostazioni;
    const std::string lavoro = CartellaLavoro(impostazioni, ctx.cartellaDati);
    MessaggiCopia msg;
    if (const std::string m = ControllaCartellaProgetti(cartelle[0], lavoro); !m.empty()) {
        msg.Mostra(m, Box::OK, "");
        return ESITO_PROGETTO;
    }
    DomandeCli domande(risposte);
    const RiepilogoCopia r = CopiaProgetti(cartelle[0], lavoro, ctx.cartellaDati, msg, domande);
    return Riepilogo(r, CartellaArchivioLavori(lavoro));
}

const bool registratoArchivi = RegistraComando(
    {"copia-archivi", "copia-archivi DA A [--si-tutti | --no-tutti]",
     "copia gli archivi tecnici (tubazioni, lunghezze equivalenti, gas, famiglie, PDC, tenuta) dalla cartella DA "
     "alla cartella A; i gas vengono uniti a quelli gia' presenti",
     CopiaArchiviCli});

const bool registratoProgetti = RegistraComando(
    {"copia-progetti", "copia-progetti DA [--si-tutti | --no-tutti]",
     "copia i progetti (.RTG) della cartella DA in \"Archivio Lavori\" della cartella di lavoro", CopiaProgettiCli});

}  // namespace

}  // namespace fornax::cli
