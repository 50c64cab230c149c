#include "reports/DispositivoRegistrato.h"

#include <stdexcept>

#include "reports/Relazione.h"

namespace fornax {

bool DispositivoRegistrato::ImpostaFont(const Carattere& c) {
    font_ = c;
    if (!fontDisponibili.count(c.nome)) {
        // The device keeps its own font, in the size and style asked for.
        font_.nome = fontDispositivo_.nome;
        return false;
    }
    fontDispositivo_ = c;
    return true;
}

double DispositivoRegistrato::LarghezzaTesto(std::string_view testo) const {
    return NumeroCaratteri(testo) * font_.dimensione * 20 * 0.55;
}

double DispositivoRegistrato::AltezzaTesto(std::string_view) const { return font_.dimensione * 20 * 1.15; }

void DispositivoRegistrato::Registra(Operazione op) {
    if (guastoDopo >= 0 && static_cast<int>(operazioni.size()) >= guastoDopo)
        throw std::runtime_error("guasto della stampante");
    if (pagina_ == 0) {
        pagina_ = 1;
        ++pagine;
    }
    op.pagina = pagina_;
    op.documento = documenti + 1;
    op.font = font_;
    operazioni.push_back(std::move(op));
}

void DispositivoRegistrato::Testo(double x, double y, std::string_view testo) {
    Operazione op;
    op.x1 = x;
    op.y1 = y;
    op.testo = std::string(testo);
    Registra(std::move(op));
}

void DispositivoRegistrato::Linea(double x1, double y1, double x2, double y2) {
    Operazione op;
    op.tipo = Operazione::Tipo::Linea;
    op.x1 = x1;
    op.y1 = y1;
    op.x2 = x2;
    op.y2 = y2;
    Registra(std::move(op));
}

schema::SchemaTarget& DispositivoRegistrato::SuperficieSchema() {
    Operazione op;
    op.tipo = Operazione::Tipo::Schema;
    op.x1 = static_cast<double>(schemi.size());
    op.x2 = Larghezza();
    op.y2 = Altezza();
    Registra(std::move(op));
    schemi.push_back(std::make_unique<schema::TargetRegistrato>(Larghezza(), Altezza()));
    return *schemi.back();
}

void DispositivoRegistrato::Immagine(double x, double y, double larghezza, double altezza, const std::string& file) {
    Operazione op;
    op.tipo = Operazione::Tipo::Immagine;
    op.x1 = x;
    op.y1 = y;
    op.x2 = x + larghezza;
    op.y2 = y + altezza;
    op.testo = file;
    Registra(std::move(op));
}

void DispositivoRegistrato::NuovaPagina() {
    if (pagina_ == 0) throw std::runtime_error("pagina nuova prima dell'inizio del documento");
    ++pagina_;
    ++pagine;
}

void DispositivoRegistrato::FineDocumento() {
    ++documenti;
    pagina_ = 0;
}

bool DispositivoRegistrato::ImpostaOrientamento(int o) {
    if (o == 2 && !landscapePossibile) return false;
    orientamento_ = o;
    orientamento = o;
    return true;
}

std::vector<DispositivoRegistrato::Operazione> DispositivoRegistrato::TestiPagina(int pagina, int documento) const {
    std::vector<Operazione> v;
    for (const Operazione& op : operazioni)
        if (op.tipo == Operazione::Tipo::Testo && op.pagina == pagina && op.documento == documento) v.push_back(op);
    return v;
}

std::vector<DispositivoRegistrato::Operazione> DispositivoRegistrato::LineePagina(int pagina, int documento) const {
    std::vector<Operazione> v;
    for (const Operazione& op : operazioni)
        if (op.tipo == Operazione::Tipo::Linea && op.pagina == pagina && op.documento == documento) v.push_back(op);
    return v;
}

const DispositivoRegistrato::Operazione* DispositivoRegistrato::Trova(const std::string& testo) const {
    for (const Operazione& op : operazioni)
        if (op.tipo == Operazione::Tipo::Testo && op.testo == testo) return &op;
    return nullptr;
}

}  // namespace fornax
