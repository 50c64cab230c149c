#pragma once
// VList: pairs of an item (here a section index) and a single-precision key, kept in
// descending order of key. Equal keys keep their order of insertion, so the paths of equal
// length are taken in ascending order of section index.

#include <cstdint>
#include <vector>

namespace fornax {

class Messaggi;

class VList {
public:
    // `msg` receives "Sconfinamento lista" when a position past the end is asked for.
    explicit VList(Messaggi* msg = nullptr) : msg_(msg) {}

    int Count() const { return static_cast<int>(voci_.size()); }
    // Item and key at a 1-based position; 0 (after the message) past the end.
    int Item(int posizione) const;
    float Key(int posizione) const;
    // Takes out the first pair with that item; later pairs close up.
    void Remove(int item);
    // Descending order of key; a pair moves only past a strictly greater key.
    void SortLista();
    // Appends the pair and puts it in its place at once.
    void Add(int item, float key);
    void Clear() { voci_.clear(); }
    void ImpostaMessaggi(Messaggi* msg) { msg_ = msg; }

private:
    struct Voce {
        int item;
        float key;
    };
    bool Fuori(int posizione) const;

    std::vector<Voce> voci_;
    Messaggi* msg_;
};

}  // namespace fornax
