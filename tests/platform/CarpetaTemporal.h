#pragma once
// A fresh folder per test, removed afterwards, with small helpers to lay out
// fake system trees in it.

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <string>

namespace vorimesk::prueba {

class CarpetaTemporal : public ::testing::Test {
protected:
    void SetUp() override {
        std::string plantilla =
            (std::filesystem::temp_directory_path() / "vorimesk-plataforma-XXXXXX").string();
        ASSERT_NE(::mkdtemp(plantilla.data()), nullptr);
        dir = plantilla;
    }
    void TearDown() override {
        std::error_code ec;
        std::filesystem::remove_all(dir, ec);
    }

    // Writes the file, making its folders.
    static void Escribir(const std::filesystem::path& ruta, const std::string& texto) {
        std::filesystem::create_directories(ruta.parent_path());
        std::ofstream(ruta, std::ios::binary) << texto;
    }
    static std::string Leer(const std::filesystem::path& ruta) {
        std::ifstream f(ruta, std::ios::binary);
        return {std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>()};
    }

    std::filesystem::path dir;
};

} // namespace vorimesk::prueba
