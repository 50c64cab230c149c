#pragma once
// Platform services the logic calls without knowing the window system.
// The desktop implements them with Qt (core/ui), the command line with standard streams,
// the tests with the recording doubles of ServiziProva.h.

#include <string>
#include <vector>

namespace fornax {

// Flags of a message box, as the product combines them.
namespace Box {
constexpr int OK = 0;
constexpr int OKCANCEL = 1;
constexpr int YESNOCANCEL = 3;
constexpr int YESNO = 4;
constexpr int CRITICAL = 16;
constexpr int QUESTION = 32;
constexpr int EXCLAMATION = 48;
constexpr int INFORMATION = 64;
}  // namespace Box

// Answers of a message box.
namespace Risposta {
constexpr int OK = 1;
constexpr int CANCEL = 2;
constexpr int YES = 6;
constexpr int NO = 7;
}  // namespace Risposta

class Messaggi {
public:
    virtual ~Messaggi() = default;
    // Shows a message; flags combine the buttons and the icon of Box. Returns a Risposta.
    virtual int Mostra(const std::string& testo, int flags = Box::OK, const std::string& titolo = "") = 0;
    // The substitution list: a project names `nome`, which the archive lacks. `tipo` is 1 for
    // materials, 2 for gases; `elenco` holds the names of the archive in table order.
    // Returns the 1-based position chosen, or 0 when the user gives no answer.
    virtual int ScegliSostituto(const std::string& nome, int tipo, const std::vector<std::string>& elenco) = 0;
};

// Per-user settings of the application "Fornax", by section and key.
class Impostazioni {
public:
    virtual ~Impostazioni() = default;
    virtual std::string Leggi(const std::string& sezione, const std::string& chiave,
                              const std::string& predefinito = "") const = 0;
    virtual void Scrivi(const std::string& sezione, const std::string& chiave, const std::string& valore) = 0;
};

// Splash and progress texts, progress-bar steps, and "let the interface breathe" in long loops.
class Avanzamento {
public:
    virtual ~Avanzamento() = default;
    virtual void Testo(const std::string& testo) = 0;
    virtual void Passo(int passo) = 0;
    virtual void Respira() = 0;
};

// An Avanzamento that shows nothing (command line, tests).
class AvanzamentoNullo final : public Avanzamento {
public:
    void Testo(const std::string&) override {}
    void Passo(int) override {}
    void Respira() override {}
};

}  // namespace fornax
