#pragma once
// The history of the user's edits: undo and redo of every named edit of the document.
//
// A step is opened before a named edit of Modifiche.h runs and closed after it (`PassoModifica`
// does both). The history keeps a copy of the document as it stood at the last step's end;
// closing a step compares the document with it and keeps, for each section record and for the
// project's parameters that differ, the version the document doesn't hold (before the step
// while it is done, after it once undone); undo and redo swap the two. An edit of one cell keeps
// the records it touched, a deletion that compacts the table keeps what moved: a step costs what
// it changed, never a copy of the whole table.
//
// A calculation is not a step. What a recalculation writes after an edit (flows, drops,
// diameters the sizing chose) joins the step before it when the next step opens or an undo
// runs, so an undo brings back the document exactly as the user saw it, results included, and
// the window recalculates as after any edit.
//
// The modified mark follows the history: a save records where the history stood; undoing or
// redoing back to that point clears the mark, anywhere else sets it.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "core/Documento.h"

namespace fornax {

class Cronologia {
public:
    static constexpr size_t LIMITE_PASSI = 128;

    explicit Cronologia(size_t limite = LIMITE_PASSI);
    ~Cronologia();
    Cronologia(const Cronologia&) = delete;
    Cronologia& operator=(const Cronologia&) = delete;

    // A new start: the document just opened, made or closed. Nothing to undo or redo; the
    // document counts as saved unless it is marked modified (a recovered copy is).
    void Svuota(const Documento& d);

    // A step around one named edit, `nome` for the menu ("modifica della cella Lunghezza del
    // tronco 4"). Steps nest: an edit made of other edits (a panel writing several rows) is one
    // step, named by the outermost. A step that changed nothing leaves no trace.
    void Apri(const Documento& d, std::string nome);
    void Chiudi(const Documento& d);
    bool InCorso() const { return profondita_ > 0; }

    // Undo and redo: the document as it was before (after) the step, and the modified mark as
    // the saved point says. False when there is nothing to undo (redo) or a step is open.
    bool Annulla(Documento& d);
    bool Ripristina(Documento& d);
    bool PuoAnnullare() const { return profondita_ == 0 && cima_ > 0; }
    bool PuoRipristinare() const { return profondita_ == 0 && cima_ < passi_.size(); }
    // Names of the step an undo (a redo) would take back (bring back); "" when none.
    std::string NomeAnnulla() const;
    std::string NomeRipristina() const;

    // The project was saved and is no longer marked modified: this point of the history is the
    // saved one.
    void Salvato(const Documento& d);

    // Counts every change of the history (a step, an undo, a redo, a new start): whoever keeps
    // a copy of the document (the recovery file) knows from it whether the copy is out of date.
    uint64_t Versione() const { return versione_; }
    // The most steps kept (at least 1); the oldest go first.
    void ImpostaLimite(size_t limite);
    size_t NumeroPassi() const { return passi_.size(); }
    size_t Posizione() const { return cima_; }
    // Bytes the steps keep (records and parameters), for the benchmarks.
    size_t Memoria() const;

    struct Passo;

private:
    // What changed since the copy was last brought up to date joins the last step done.
    void Allinea(const Documento& d);
    void Scambia(Documento& d, Passo& p);
    void MarcaModificato(Documento& d) const;

    size_t limite_;
    std::vector<std::unique_ptr<Passo>> passi_;
    size_t cima_ = 0;                   // steps done; passi_[cima_..] can be redone
    long salvato_ = 0;                  // the saved point, -1 when no point of the history is
    std::unique_ptr<Documento> copia_;  // the document at the last step's end
    int profondita_ = 0;
    std::string nome_;
    uint64_t versione_ = 0;
};

// Opens a step for its lifetime: `PassoModifica passo(s.Storia, s.d, "…");` before the named
// edit's call. Closes it however the block is left. A dialog that may run without a session
// (in its own tests) holds a pointer to the history; a null pointer records nothing.
class PassoModifica {
public:
    PassoModifica(Cronologia& c, const Documento& d, std::string nome) : PassoModifica(&c, d, std::move(nome)) {}
    PassoModifica(Cronologia* c, const Documento& d, std::string nome) : c_(c), d_(d) {
        if (c_) c_->Apri(d_, std::move(nome));
    }
    ~PassoModifica() {
        if (c_) c_->Chiudi(d_);
    }
    PassoModifica(const PassoModifica&) = delete;
    PassoModifica& operator=(const PassoModifica&) = delete;

private:
    Cronologia* c_;
    const Documento& d_;
};

}  // namespace fornax
