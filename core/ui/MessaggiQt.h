#pragma once
// Messages of the logic shown as message boxes. The question about a name the archives lack
// is answered by the dialog the application installs ("Sostituzioni"); without one, no
// substitute is chosen.

#include <QPointer>
#include <QWidget>
#include <functional>

#include "core/Servizi.h"

namespace fornax::ui {

class MessaggiQt final : public Messaggi {
public:
    explicit MessaggiQt(QWidget* padre = nullptr) : padre_(padre) {}
    void ImpostaPadre(QWidget* padre) { padre_ = padre; }

    int Mostra(const std::string& testo, int flags = Box::OK, const std::string& titolo = "") override;
    int ScegliSostituto(const std::string& nome, int tipo, const std::vector<std::string>& elenco) override;

    using SceltaSostituto =
        std::function<int(QWidget* padre, const std::string& nome, int tipo, const std::vector<std::string>& elenco)>;
    void ImpostaSceltaSostituto(SceltaSostituto f) { scelta_ = std::move(f); }

private:
    QPointer<QWidget> padre_;
    SceltaSostituto scelta_;
};

}  // namespace fornax::ui
