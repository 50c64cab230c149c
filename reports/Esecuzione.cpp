#include "reports/Esecuzione.h"

#include <filesystem>

#include "calc/Calcolo.h"
#include "core/Cartelle.h"
#include "core/Servizi.h"

namespace fornax {

Esecuzione::Esecuzione(const ReportSelection& s, Avanzamento& av) : av_(av) {
    for (bool b :
         {s.Copertina, s.Tronchi, s.DiagrammaRete, s.PDCLocalizzate, s.Verifica, s.Utenze, s.Computo, s.TenutaImpianto})
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

void PercorriRelazione(Documento& d, const Archivi& a, const ReportSelection& s, Esecuzione& run, Impaginatore& w,
                       Messaggi& msg) {
    CalcolaRete(d, a, msg);
    w.Inizio();
    int scritte = 0;
    auto sezione = [&](int fase, const char* testo, const auto& scrivi) {
        run.Inizia(fase, testo);
        scrivi(scritte > 0);
        ++scritte;
        run.Avanza();
    };
    if (s.Copertina) sezione(Fase::COPERTINA, "Frontespizio", [&](bool) { w.Copertina(Copertina(d)); });
    if (s.Tronchi)
        sezione(Fase::TRONCHI, "Tabella dati tronchi",
                [&](bool dopo) { w.Tabelle(Fase::TRONCHI, {TabellaTronchi(d, a)}, dopo); });
    if (s.PDCLocalizzate)
        sezione(Fase::PERDITE, "Tabella PDC localizzate",
                [&](bool dopo) { w.Tabelle(Fase::PERDITE, TabellePerdite(d, a), dopo); });
    if (s.Verifica)
        sezione(Fase::PERCORSO, "Verifica percorso piu' sfavorito",
                [&](bool dopo) { w.Tabelle(Fase::PERCORSO, {TabellaPercorso(d, a)}, dopo); });
    if (s.Utenze)
        sezione(Fase::UTENZE, "Riepilogo utenze",
                [&](bool dopo) { w.Tabelle(Fase::UTENZE, {TabellaUtenze(d, a)}, dopo); });
    if (s.Computo) {
        run.Inizia(Fase::COMPUTO, "Calcolo totale computo ");
        const ComputoRelazione c = Computo(d, a);
        sezione(Fase::COMPUTO, "Tabella totale computo ", [&](bool dopo) { w.Computo(c, dopo); });
    }
    if (s.TenutaImpianto)
        sezione(Fase::TENUTA, "Verifica Tenuta impianto", [&](bool dopo) {
            AggiornaTenuta(d);
            w.Tenuta(TenutaRelazione(d.Tenuta, d.GasCorrente.Nome), dopo);
        });
    w.FineSezioni();
    if (s.DiagrammaRete) sezione(Fase::SCHEMA, "DiagrammaRete", [&](bool) { w.Schema(); });
}

void AggiornaTenuta(Documento& d) { d.Tenuta.FamigliaGas = d.GasCorrente.Famiglia; }

std::string FileSchema(const Documento& d, const std::string& percorsoUscita, bool pulito) {
    std::string nome = d.Riferimento;
    if (pulito)
        for (char& c : nome)
            if (c == '.' || c == '\\' || c == '/') c = '_';
    nome = Sinistra(nome, 70) + ".bmp";
    const std::string cartella = CartellaDi(percorsoUscita);
    return cartella.empty() ? nome : cartella + "/" + nome;
}

void CopiaLogo(const Archivi& a, const std::string& percorsoUscita) {
    namespace fs = std::filesystem;
    const fs::path origine = TrovaFile(a.Cartella, "logo.bmp");
    const std::string cartella = CartellaDi(percorsoUscita);
    const fs::path destinazione = fs::path(cartella.empty() ? "." : cartella) / "logo.bmp";
    std::error_code ec;
    if (fs::equivalent(origine, destinazione, ec)) return;  // the report is in the program's folder
    fs::copy_file(origine, destinazione, fs::copy_options::overwrite_existing, ec);
    if (ec) Fallisci(ec == std::errc::permission_denied ? CodiceErrore::AUTORIZZAZIONE : CodiceErrore::ACCESSO);
}

}  // namespace fornax
