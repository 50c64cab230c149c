#include "editing/Cronologia.h"

#include <algorithm>
#include <bit>
#include <type_traits>
#include <utility>

namespace fornax {

namespace {

// Exact sameness: numbers bit for bit (a -0 is not a 0, a NaN is itself), everything else by ==.
template <class T>
bool U(const T& x, const T& y) {
    if constexpr (std::is_same_v<T, float>) {
        return std::bit_cast<uint32_t>(x) == std::bit_cast<uint32_t>(y);
    } else if constexpr (std::is_same_v<T, double>) {
        return std::bit_cast<uint64_t>(x) == std::bit_cast<uint64_t>(y);
    } else {
        return x == y;
    }
}

// Every field of the records, one by one. A field added to a record must be added here too:
// tests/editing/controlla-campi-cronologia fails when one is missing.
bool Uguali(const Tronco& x, const Tronco& y) {
    return U(x.ID_NAME, y.ID_NAME) && U(x.ID_NUM, y.ID_NUM) && U(x.ID_PREV, y.ID_PREV) && U(x.ID_LEFT, y.ID_LEFT) &&
           U(x.ID_RIGHT, y.ID_RIGHT) && U(x.Visitato, y.Visitato) && U(x.IndiceMateriale, y.IndiceMateriale) &&
           U(x.ID_MATERIALE, y.ID_MATERIALE) && U(x.ID_P_UTENZE, y.ID_P_UTENZE) && U(x.ID_P_TRONCO, y.ID_P_TRONCO) &&
           U(x.ID_LEN, y.ID_LEN) && U(x.ID_EQ_LEN, y.ID_EQ_LEN) && U(x.ID_NCURVE, y.ID_NCURVE) &&
           U(x.ID_NGOMITI, y.ID_NGOMITI) && U(x.ID_NRACCORDI, y.ID_NRACCORDI) && U(x.ID_NRUBINETTI, y.ID_NRUBINETTI) &&
           U(x.ID_SPC5, y.ID_SPC5) && U(x.ID_SPC6, y.ID_SPC6) && U(x.ID_SPC7, y.ID_SPC7) && U(x.ID_SPC8, y.ID_SPC8) &&
           U(x.ID_SPC9, y.ID_SPC9) && U(x.ID_SPC10, y.ID_SPC10) && U(x.ID_RACCORDO, y.ID_RACCORDO) &&
           U(x.ID_TIPORACCORDO, y.ID_TIPORACCORDO) && U(x.ID_TIPOUTENZA, y.ID_TIPOUTENZA) &&
           U(x.ID_NOMEUTENZA, y.ID_NOMEUTENZA) && U(x.ID_PDC_NOTA, y.ID_PDC_NOTA) &&
           U(x.ID_EQLENNOTA, y.ID_EQLENNOTA) && U(x.ID_DIAMETRO, y.ID_DIAMETRO) &&
           U(x.ID_DIAMCUSTOM, y.ID_DIAMCUSTOM) && U(x.ID_VELOCITA, y.ID_VELOCITA) &&
           U(x.ID_PDC_TRONCO, y.ID_PDC_TRONCO) && U(x.ID_PDC_PERCORSO, y.ID_PDC_PERCORSO) &&
           U(x.LenPercorso, y.LenPercorso) && U(x.ID_PESO, y.ID_PESO) && U(x.ID_RIF, y.ID_RIF) &&
           U(x.ID_POTENZA, y.ID_POTENZA) && U(x.ID_SCHEMA_SVOLTA, y.ID_SCHEMA_SVOLTA) &&
           U(x.SchemaDirezione, y.SchemaDirezione) && U(x.SchemaDisegnato, y.SchemaDisegnato) &&
           U(x.ID_SCHEMA_X, y.ID_SCHEMA_X) && U(x.ID_SCHEMA_Y, y.ID_SCHEMA_Y) && U(x.ID_SCHEMA_LEN, y.ID_SCHEMA_LEN) &&
           U(x.PressioneTesta, y.PressioneTesta) && U(x.ID_PFINALE, y.ID_PFINALE) && U(x.ID_CONTEMP, y.ID_CONTEMP) &&
           U(x.ID_SCOLLEGATO, y.ID_SCOLLEGATO) && U(x.ID_CANCELLATO, y.ID_CANCELLATO);
}

bool Uguali(const GasRecord& x, const GasRecord& y) {
    return U(x.Nome, y.Nome) && U(x.Densita, y.Densita) && U(x.Viscosita, y.Viscosita) && U(x.Pci, y.Pci) &&
           U(x.Pcs, y.Pcs) && U(x.NonCombustibile, y.NonCombustibile) && U(x.MassaVolumica, y.MassaVolumica) &&
           U(x.WobbeInf, y.WobbeInf) && U(x.WobbeSup, y.WobbeSup) && U(x.Famiglia, y.Famiglia) &&
           U(x.FamigliaErrata, y.FamigliaErrata) && U(x.Cancellato, y.Cancellato);
}

bool Uguali(const VerificaTenuta& x, const VerificaTenuta& y) {
    return U(x.RagSociale, y.RagSociale) && U(x.Indirizzo, y.Indirizzo) && U(x.Telefono, y.Telefono) &&
           U(x.NomeTecnico, y.NomeTecnico) && U(x.ProprietarioNome, y.ProprietarioNome) &&
           U(x.ProprietarioTel, y.ProprietarioTel) && U(x.ComuneInstallazione, y.ComuneInstallazione) &&
           U(x.Provincia, y.Provincia) && U(x.Cap, y.Cap) && U(x.Via, y.Via) && U(x.Numero, y.Numero) &&
           U(x.Scala, y.Scala) && U(x.ProprietarioNome2, y.ProprietarioNome2) &&
           U(x.ComuneResidenza, y.ComuneResidenza) && U(x.Via2, y.Via2) && U(x.NumCiv, y.NumCiv) &&
           U(x.Presente, y.Presente) && U(x.FamigliaGas, y.FamigliaGas) && U(x.CapacitaImpianto, y.CapacitaImpianto) &&
           U(x.CapacitaContatore, y.CapacitaContatore) && U(x.CapacitaTotale, y.CapacitaTotale) &&
           U(x.DataEsecuzione, y.DataEsecuzione) && U(x.OraEsecuzione, y.OraEsecuzione) &&
           U(x.CauseIntervento, y.CauseIntervento) && U(x.CausaAltro, y.CausaAltro) &&
           U(x.AppComplessivo, y.AppComplessivo) && U(x.AppRisc, y.AppRisc) && U(x.AppAcquaSan, y.AppAcquaSan) &&
           U(x.AppCombinati, y.AppCombinati) && U(x.AppCottura, y.AppCottura) && U(x.AppAltroNum, y.AppAltroNum) &&
           U(x.AppAltroDesc, y.AppAltroDesc) && U(x.MetodoProva, y.MetodoProva) && U(x.ContModello, y.ContModello) &&
           U(x.ContCalibro, y.ContCalibro) && U(x.ContMarca, y.ContMarca) && U(x.ContMatricola, y.ContMatricola) &&
           U(x.ContQn, y.ContQn) && U(x.ContPprova, y.ContPprova) && U(x.ContDispRil, y.ContDispRil) &&
           U(x.ContPRif, y.ContPRif) && U(x.ContDispRif, y.ContDispRif) && U(x.CdpStrumento, y.CdpStrumento) &&
           U(x.CdpMarca, y.CdpMarca) && U(x.CdpMatricola, y.CdpMatricola) && U(x.CdpPprova, y.CdpPprova) &&
           U(x.CdpCdp, y.CdpCdp) && U(x.CdpPrifer, y.CdpPrifer) && U(x.CdpCdpMax, y.CdpCdpMax) &&
           U(x.DispositivoIntercettazione, y.DispositivoIntercettazione) && U(x.EsitoProva, y.EsitoProva) &&
           U(x.Note, y.Note);
}

bool Uguali(const TipoSpeciale& x, const TipoSpeciale& y) {
    if (x.Nome != y.Nome) return false;
    for (int f = 0; f < 4; ++f)
        for (int c = 0; c < 5; ++c)
            if (!U(x.Lunghezza[f][c], y.Lunghezza[f][c])) return false;
    return true;
}

bool Uguali(const TabellaPdc& x, const TabellaPdc& y) {
    if (x.NomeFilePdc != y.NomeFilePdc || !U(x.SogliaPotenza, y.SogliaPotenza)) return false;
    for (int b = 0; b < 3; ++b)
        for (int f = 0; f < 4; ++f)
            if (!U(x.PdcMax[b][f], y.PdcMax[b][f])) return false;
    return true;
}

bool Uguali(const Sostituzioni& x, const Sostituzioni& y) {
    for (size_t k = 0; k < x.liste.size(); ++k) {
        const auto& a = x.liste[k];
        const auto& b = y.liste[k];
        if (a.size() != b.size()) return false;
        for (size_t i = 0; i < a.size(); ++i)
            if (a[i].nome != b[i].nome || a[i].indice != b[i].indice) return false;
    }
    return true;
}

}  // namespace

// The project's parameters and the tables that follow it: everything of the document but the
// section records, the file's name (a save under a new name is not undone) and the modified
// mark (which the history works out).
struct TestaPasso {
    int16_t NumTronchi = 0;
    int16_t MaterialeCorrente = 0;
    std::string Riferimento;
    std::string DescrizioneLavoro;
    std::string ArchivioDocumenti;
    int32_t Normativa = 0;
    int16_t ReteInPressione = 0;
    float VelocitaMassima = 0;
    double PressioneIniziale = 0;
    double PressioneFinale = 0;
    double DpMax = 0;
    int16_t OrientamentoSorgente = 0;
    GasRecord GasCorrente;
    float MaxPdcPercorso = 0;
    float MaxLenPercorso = 0;
    int16_t CaricamentoProgetto = 0;
    VerificaTenuta Tenuta;
    TabellaSpeciali Speciali{};
    TabellaPdc Pdc;
    Sostituzioni Equiv;

    static TestaPasso Di(const Documento& d) {
        TestaPasso t;
        t.NumTronchi = d.Principale.NumTronchi;
        t.MaterialeCorrente = d.Principale.MaterialeCorrente;
        t.Riferimento = d.Riferimento;
        t.DescrizioneLavoro = d.DescrizioneLavoro;
        t.ArchivioDocumenti = d.ArchivioDocumenti;
        t.Normativa = d.Normativa;
        t.ReteInPressione = d.ReteInPressione;
        t.VelocitaMassima = d.VelocitaMassima;
        t.PressioneIniziale = d.PressioneIniziale;
        t.PressioneFinale = d.PressioneFinale;
        t.DpMax = d.DpMax;
        t.OrientamentoSorgente = d.OrientamentoSorgente;
        t.GasCorrente = d.GasCorrente;
        t.MaxPdcPercorso = d.MaxPdcPercorso;
        t.MaxLenPercorso = d.MaxLenPercorso;
        t.CaricamentoProgetto = d.CaricamentoProgetto;
        t.Tenuta = d.Tenuta;
        t.Speciali = d.Speciali;
        t.Pdc = d.Pdc;
        t.Equiv = d.Equiv;
        return t;
    }

    void In(Documento& d) const {
        d.Principale.NumTronchi = NumTronchi;
        d.Principale.MaterialeCorrente = MaterialeCorrente;
        d.Riferimento = Riferimento;
        d.DescrizioneLavoro = DescrizioneLavoro;
        d.ArchivioDocumenti = ArchivioDocumenti;
        d.Normativa = Normativa;
        d.ReteInPressione = ReteInPressione;
        d.VelocitaMassima = VelocitaMassima;
        d.PressioneIniziale = PressioneIniziale;
        d.PressioneFinale = PressioneFinale;
        d.DpMax = DpMax;
        d.OrientamentoSorgente = OrientamentoSorgente;
        d.GasCorrente = GasCorrente;
        d.MaxPdcPercorso = MaxPdcPercorso;
        d.MaxLenPercorso = MaxLenPercorso;
        d.CaricamentoProgetto = CaricamentoProgetto;
        d.Tenuta = Tenuta;
        d.Speciali = Speciali;
        d.Pdc = Pdc;
        d.Equiv = Equiv;
    }
};

namespace {

bool UgualeTesta(const Documento& x, const Documento& y) {
    if (x.Principale.NumTronchi != y.Principale.NumTronchi ||
        x.Principale.MaterialeCorrente != y.Principale.MaterialeCorrente || x.Riferimento != y.Riferimento ||
        x.DescrizioneLavoro != y.DescrizioneLavoro || x.ArchivioDocumenti != y.ArchivioDocumenti ||
        x.Normativa != y.Normativa || x.ReteInPressione != y.ReteInPressione ||
        !U(x.VelocitaMassima, y.VelocitaMassima) || !U(x.PressioneIniziale, y.PressioneIniziale) ||
        !U(x.PressioneFinale, y.PressioneFinale) || !U(x.DpMax, y.DpMax) ||
        x.OrientamentoSorgente != y.OrientamentoSorgente || !Uguali(x.GasCorrente, y.GasCorrente) ||
        !U(x.MaxPdcPercorso, y.MaxPdcPercorso) || !U(x.MaxLenPercorso, y.MaxLenPercorso) ||
        x.CaricamentoProgetto != y.CaricamentoProgetto)
        return false;
    if (!Uguali(x.Tenuta, y.Tenuta) || !Uguali(x.Pdc, y.Pdc) || !Uguali(x.Equiv, y.Equiv)) return false;
    for (size_t k = 0; k < x.Speciali.size(); ++k)
        if (!Uguali(x.Speciali[k], y.Speciali[k])) return false;
    return true;
}

}  // namespace

// A step keeps, for each record and for the parameters it changed, the version that is not in
// the document: what was before while the step is done, what came after once it is undone. An
// undo or a redo swaps the two.
struct Cronologia::Passo {
    struct Riga {
        int chiave;  // the record's index
        Tronco altro;
    };
    std::string nome;
    std::vector<Riga> righe;  // ordered by chiave
    std::unique_ptr<TestaPasso> testa;

    bool Ha(int chiave) const {
        auto it =
            std::lower_bound(righe.begin(), righe.end(), chiave, [](const Riga& r, int k) { return r.chiave < k; });
        return it != righe.end() && it->chiave == chiave;
    }
    void Aggiungi(int chiave, const Tronco& t) {
        auto it =
            std::lower_bound(righe.begin(), righe.end(), chiave, [](const Riga& r, int k) { return r.chiave < k; });
        righe.insert(it, Riga{chiave, t});
    }
};

namespace {

constexpr int RECORD = MAX_TRONCHI + 1;

Tronco& Record(Documento& d, int chiave) { return d.Principale.Tronchi[static_cast<size_t>(chiave)]; }
const Tronco& Record(const Documento& d, int chiave) { return d.Principale.Tronchi[static_cast<size_t>(chiave)]; }

// The records of `d` that differ from `copia`, in order.
std::vector<int> Differenze(const Documento& copia, const Documento& d) {
    std::vector<int> diverse;
    for (int k = 0; k < RECORD; ++k)
        if (!Uguali(Record(copia, k), Record(d, k))) diverse.push_back(k);
    return diverse;
}

}  // namespace

Cronologia::Cronologia(size_t limite) : limite_(std::max<size_t>(limite, 1)), copia_(std::make_unique<Documento>()) {}

Cronologia::~Cronologia() = default;

void Cronologia::Svuota(const Documento& d) {
    passi_.clear();
    cima_ = 0;
    profondita_ = 0;
    *copia_ = d;
    salvato_ = d.ReteModificata == FALSO ? 0 : -1;
    ++versione_;
}

void Cronologia::Allinea(const Documento& d) {
    // What changed since the last step (the recalculation after it, the repairs of a save)
    // belongs to that step: its before-version is the copy's, unless the step has one already.
    Passo* ultimo = cima_ > 0 ? passi_[cima_ - 1].get() : nullptr;
    for (int k : Differenze(*copia_, d)) {
        if (ultimo && !ultimo->Ha(k)) ultimo->Aggiungi(k, Record(*copia_, k));
        Record(*copia_, k) = Record(d, k);
    }
    if (!UgualeTesta(*copia_, d)) {
        if (ultimo && !ultimo->testa) ultimo->testa = std::make_unique<TestaPasso>(TestaPasso::Di(*copia_));
        TestaPasso::Di(d).In(*copia_);
    }
    copia_->NomeFileProgetto = d.NomeFileProgetto;
    copia_->ReteModificata = d.ReteModificata;
}

void Cronologia::Apri(const Documento& d, std::string nome) {
    if (profondita_++ > 0) return;
    Allinea(d);
    nome_ = std::move(nome);
}

void Cronologia::Chiudi(const Documento& d) {
    if (profondita_ == 0 || --profondita_ > 0) return;
    auto p = std::make_unique<Passo>();
    p->nome = std::move(nome_);
    for (int k : Differenze(*copia_, d)) {
        p->righe.push_back(Passo::Riga{k, Record(*copia_, k)});
        Record(*copia_, k) = Record(d, k);
    }
    if (!UgualeTesta(*copia_, d)) {
        p->testa = std::make_unique<TestaPasso>(TestaPasso::Di(*copia_));
        TestaPasso::Di(d).In(*copia_);
    }
    copia_->NomeFileProgetto = d.NomeFileProgetto;
    copia_->ReteModificata = d.ReteModificata;
    if (p->righe.empty() && !p->testa) return;
    // A new step ends what could be redone; a saved point among those steps is out of reach.
    passi_.resize(cima_);
    if (salvato_ > static_cast<long>(cima_)) salvato_ = -1;
    passi_.push_back(std::move(p));
    ++cima_;
    if (passi_.size() > limite_) {
        passi_.erase(passi_.begin());
        --cima_;
        if (salvato_ >= 0) --salvato_;
    }
    ++versione_;
}

void Cronologia::Scambia(Documento& d, Passo& p) {
    for (Passo::Riga& r : p.righe) {
        std::swap(Record(d, r.chiave), r.altro);
        Record(*copia_, r.chiave) = Record(d, r.chiave);
    }
    if (p.testa) {
        TestaPasso ora = TestaPasso::Di(d);
        p.testa->In(d);
        p.testa->In(*copia_);
        *p.testa = std::move(ora);
    }
}

void Cronologia::MarcaModificato(Documento& d) const {
    d.ReteModificata = salvato_ == static_cast<long>(cima_) ? FALSO : VERO;
    copia_->ReteModificata = d.ReteModificata;
}

bool Cronologia::Annulla(Documento& d) {
    if (!PuoAnnullare()) return false;
    Allinea(d);
    Scambia(d, *passi_[cima_ - 1]);
    --cima_;
    MarcaModificato(d);
    ++versione_;
    return true;
}

bool Cronologia::Ripristina(Documento& d) {
    if (!PuoRipristinare()) return false;
    Allinea(d);
    Scambia(d, *passi_[cima_]);
    ++cima_;
    MarcaModificato(d);
    ++versione_;
    return true;
}

std::string Cronologia::NomeAnnulla() const { return PuoAnnullare() ? passi_[cima_ - 1]->nome : std::string(); }

std::string Cronologia::NomeRipristina() const { return PuoRipristinare() ? passi_[cima_]->nome : std::string(); }

void Cronologia::Salvato(const Documento& d) {
    if (profondita_ > 0) return;
    Allinea(d);
    salvato_ = d.ReteModificata == FALSO ? static_cast<long>(cima_) : salvato_;
    ++versione_;
}

void Cronologia::ImpostaLimite(size_t limite) {
    limite_ = std::max<size_t>(limite, 1);
    while (passi_.size() > limite_ && cima_ > 0) {
        passi_.erase(passi_.begin());
        --cima_;
        if (salvato_ >= 0) --salvato_;
    }
}

size_t Cronologia::Memoria() const {
    size_t n = 0;
    for (const auto& p : passi_) {
        n += sizeof(Passo) + p->righe.capacity() * sizeof(Passo::Riga);
        if (p->testa) n += sizeof(TestaPasso);
    }
    return n;
}

}  // namespace fornax
