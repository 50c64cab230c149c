#pragma once
// What the widget tests share: a copy of the delivered archives in a throw-away folder (the
// dialogs write into it), loaded in the start-up order, with recording messages and settings
// kept in memory.

#include <QApplication>
#include <QTimer>
#include <functional>
#include <memory>
#include <string>

#include "archives/Archivi.h"
#include "core/Documento.h"
#include "core/ServiziProva.h"
#include "sessione/Sessione.h"
#include "tests/comune/CartellaProva.h"

namespace fornax::prova {

struct AmbienteUi {
    CartellaProva cartella{"ui"};
    Archivi a;
    ImpostazioniInMemoria imp;
    Sessione s{a, imp};
    Documento& d = s.d;
    MessaggiRegistrati msg;

    AmbienteUi() {
        cartella.CopiaDa(FORNAX_BUILD_DATA_DIR);
        AvanzamentoNullo av;
        CaricaArchivi(a, d, cartella.Percorso(), av, msg);
        s.mru.Setup("MRUFileList", 4);
        msg.mostrati.clear();
    }

    static std::string Esempio(const std::string& nome) {
        return std::string(FORNAX_SOURCE_DIR) + "/data/esempi/" + nome;
    }
    static std::string Accettazione(const std::string& nome) {
        return std::string(FORNAX_ACCETTAZIONE_DIR) + "/projects/" + nome;
    }
};

inline std::unique_ptr<AmbienteUi> NuovoAmbiente() { return std::make_unique<AmbienteUi>(); }

// Runs `azione` on the modal dialog that the next step opens, as soon as it is shown.
// Gives up after about two seconds, so that a dialog that never opens fails the test instead
// of hanging it.
inline void QuandoModale(std::function<void(QWidget*)> azione) {
    auto tentativo = std::make_shared<std::function<void(int)>>();
    std::weak_ptr<std::function<void(int)>> debole = tentativo;
    *tentativo = [azione, debole](int resto) {
        QWidget* w = QApplication::activeModalWidget();
        if (w != nullptr) {
            azione(w);
            return;
        }
        auto f = debole.lock();
        if (f && resto > 0) QTimer::singleShot(5, [f, resto] { (*f)(resto - 1); });
    };
    QTimer::singleShot(0, [tentativo] { (*tentativo)(400); });
}

}  // namespace fornax::prova
