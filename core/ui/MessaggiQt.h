#pragma once
// Messages of the logic shown as message boxes, and the substitution list as the dialog
// "Sostituzioni".

#include <QPointer>
#include <QWidget>

#include "core/Servizi.h"

namespace fornax::ui {

class MessaggiQt final : public Messaggi {
public:
    explicit MessaggiQt(QWidget* padre = nullptr) : padre_(padre) {}
    void ImpostaPadre(QWidget* padre) { padre_ = padre; }

    int Mostra(const std::string& testo, int flags = Box::OK, const std::string& titolo = "") override;
    int ScegliSostituto(const std::string& nome, int tipo, const std::vector<std::string>& elenco) override;

private:
    QPointer<QWidget> padre_;
};

}  // namespace fornax::ui
