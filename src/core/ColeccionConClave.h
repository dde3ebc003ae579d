#pragma once
// An insertion-ordered collection that owns its elements, each optionally
// reachable by a text key. Positions count from 1. An existing key on Add
// throws ErrorClaveDuplicada; an unknown key or position throws
// ErrorNoEncontrado. Elements keep their address while they are in it.

#include "Errores.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vorimesk {

template <typename T> class ColeccionConClave {
    struct Entrada {
        std::string clave;
        std::unique_ptr<T> elemento;
    };

public:
    T& Agregar(std::unique_ptr<T> elemento, std::string_view clave) {
        if (!clave.empty() && Buscar(clave) != entradas_.end()) {
            throw ErrorClaveDuplicada(std::string(clave));
        }
        entradas_.push_back({std::string(clave), std::move(elemento)});
        return *entradas_.back().elemento;
    }

    T& Item(int posicion) const { return *entradas_.at(Indice(posicion)).elemento; }
    T& Item(std::string_view clave) const { return *Existente(clave)->elemento; }

    void Remove(int posicion) { entradas_.erase(entradas_.begin() + Indice(posicion)); }
    void Remove(std::string_view clave) { entradas_.erase(Existente(clave)); }

    int Count() const { return static_cast<int>(entradas_.size()); }
    bool ExisteClave(std::string_view clave) const { return Buscar(clave) != entradas_.end(); }
    void Vaciar() { entradas_.clear(); }

    // Iteration in insertion order over the elements themselves.
    class Iterador {
    public:
        using Base = typename std::vector<Entrada>::const_iterator;
        explicit Iterador(Base b) : b_(b) {}
        T& operator*() const { return *b_->elemento; }
        T* operator->() const { return b_->elemento.get(); }
        Iterador& operator++() {
            ++b_;
            return *this;
        }
        bool operator==(const Iterador&) const = default;

    private:
        Base b_;
    };
    Iterador begin() const { return Iterador(entradas_.begin()); }
    Iterador end() const { return Iterador(entradas_.end()); }

private:
    std::size_t Indice(int posicion) const {
        if (posicion < 1 || posicion > Count()) {
            throw ErrorNoEncontrado("posicion " + std::to_string(posicion));
        }
        return static_cast<std::size_t>(posicion - 1);
    }
    auto Buscar(std::string_view clave) const {
        auto it = entradas_.begin();
        while (it != entradas_.end() && (clave.empty() || it->clave != clave)) {
            ++it;
        }
        return it;
    }
    auto Existente(std::string_view clave) const {
        auto it = Buscar(clave);
        if (it == entradas_.end()) {
            throw ErrorNoEncontrado("clave \"" + std::string(clave) + "\"");
        }
        return it;
    }
    auto Existente(std::string_view clave) {
        auto it = std::as_const(*this).Existente(clave);
        return entradas_.begin() + (it - entradas_.cbegin());
    }

    std::vector<Entrada> entradas_;
};

} // namespace vorimesk
