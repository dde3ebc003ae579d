#pragma once
// A fresh folder per test, removed afterwards, with small file helpers. The
// folder exists from construction on, so fixture members can be built on it.

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <stdexcept>
#include <string>
#include <unistd.h>

namespace vorimesk::prueba {

class CarpetaTemporal : public ::testing::Test {
protected:
    CarpetaTemporal() {
        std::string plantilla =
            (std::filesystem::temp_directory_path() / "vorimesk-XXXXXX").string();
        if (::mkdtemp(plantilla.data()) == nullptr) {
            throw std::runtime_error("no se pudo crear la carpeta temporal");
        }
        dir = plantilla;
    }
    ~CarpetaTemporal() override {
        std::error_code ec;
        std::filesystem::permissions(dir, std::filesystem::perms::owner_all, ec);
        std::filesystem::remove_all(dir, ec);
    }
    // Writes the file, making its folders (fake system trees need them).
    static void Escribir(const std::filesystem::path& p, const std::string& bytes) {
        if (p.has_parent_path()) {
            std::filesystem::create_directories(p.parent_path());
        }
        std::ofstream(p, std::ios::binary) << bytes;
    }
    static std::string Leer(const std::filesystem::path& p) {
        std::ifstream f(p, std::ios::binary);
        return {std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>()};
    }
    static bool Existe(const std::filesystem::path& p) { return std::filesystem::exists(p); }

    std::filesystem::path dir;
};

} // namespace vorimesk::prueba
