#include "reports/Esecuzione.h"

#include <filesystem>
#include <fstream>

#include "core/Cartelle.h"
#include "core/Servizi.h"

namespace fornax {

Esecuzione::Esecuzione(const ReportSelection& s, Avanzamento& av) : av_(av) {
    for (bool b : {s.Copertina, s.Tronchi, s.DiagrammaRete, s.PDCLocalizzate, s.Verifica, s.Utenze, s.Computo,
                   s.TenutaImpianto})
        if (b) ++passi_;
}

void Esecuzione::Inizia(int f, const std::string& testo) {
    fase = f;
    av_.Testo(testo);
}

void Esecuzione::Avanza() {
    ++fatti_;
    av_.Passo(passi_ == 0 ? 0 : fatti_ * 100 / passi_);
}

void AggiornaTenuta(Documento& d) { d.Tenuta.FamigliaGas = d.GasCorrente.Famiglia; }

std::string Cartella(const std::string& percorso) {
    const size_t barra = percorso.find_last_of("/\\");
    return barra == std::string::npos ? std::string() : percorso.substr(0, barra);
}

std::string NomeFile(const std::string& percorso) {
    const size_t barra = percorso.find_last_of("/\\");
    return barra == std::string::npos ? percorso : percorso.substr(barra + 1);
}

std::string FileSchema(const Documento& d, const std::string& percorsoUscita, bool pulito) {
    std::string nome = d.Riferimento;
    if (pulito)
        for (char& c : nome)
            if (c == '.' || c == '\\' || c == '/') c = '_';
    nome = Sinistra(nome, 70) + ".bmp";
    const std::string cartella = Cartella(percorsoUscita);
    return cartella.empty() ? nome : cartella + "/" + nome;
}

void CopiaLogo(const Archivi& a, const std::string& percorsoUscita) {
    namespace fs = std::filesystem;
    const fs::path origine = TrovaFile(a.Cartella, "logo.bmp");
    const std::string cartella = Cartella(percorsoUscita);
    const fs::path destinazione = fs::path(cartella.empty() ? "." : cartella) / "logo.bmp";
    std::error_code ec;
    if (fs::equivalent(origine, destinazione, ec)) return;  // the report is in the program's folder
    fs::copy_file(origine, destinazione, fs::copy_options::overwrite_existing, ec);
    if (ec) Fallisci(ec == std::errc::permission_denied ? CodiceErrore::AUTORIZZAZIONE : CodiceErrore::ACCESSO);
}

}  // namespace fornax
