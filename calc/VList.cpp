#include "calc/VList.h"

#include <algorithm>

#include "core/Servizi.h"

namespace fornax {

bool VList::Fuori(int posizione) const {
    if (posizione >= 1 && posizione <= Count()) return false;
    if (msg_ != nullptr) msg_->Mostra("Sconfinamento lista", Box::OK);
    return true;
}

int VList::Item(int posizione) const { return Fuori(posizione) ? 0 : voci_[static_cast<size_t>(posizione - 1)].item; }

float VList::Key(int posizione) const {
    return Fuori(posizione) ? 0.0f : voci_[static_cast<size_t>(posizione - 1)].key;
}

void VList::Remove(int item) {
    auto it = std::find_if(voci_.begin(), voci_.end(), [item](const Voce& v) { return v.item == item; });
    if (it != voci_.end()) voci_.erase(it);
}

void VList::SortLista() {
    // A stable sort on "strictly greater key first" is what a bubble sort swapping only
    // strictly smaller keys forward gives.
    std::stable_sort(voci_.begin(), voci_.end(), [](const Voce& x, const Voce& y) { return x.key > y.key; });
}

void VList::Add(int item, float key) {
    // The list is kept sorted, so the new pair only has to pass the keys strictly smaller
    // than its own, from the end: the same result as appending and sorting again.
    voci_.push_back({item, key});
    for (size_t i = voci_.size() - 1; i > 0 && voci_[i - 1].key < voci_[i].key; --i) {
        std::swap(voci_[i - 1], voci_[i]);
    }
}

}  // namespace fornax
