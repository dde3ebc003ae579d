#pragma once
// Shared by the GUI tests: a temporary data folder and a way to answer the
// message boxes a window opens while a test drives it.

#include <QString>
#include <filesystem>
#include <gtest/gtest.h>

namespace prueba {

class CarpetaUi : public ::testing::Test {
protected:
    CarpetaUi();
    ~CarpetaUi() override;
    std::filesystem::path dir;
};

// The next message box that opens is answered with the button whose text
// is `boton`; what it said ends up in `*texto` (text and details).
void Responder(const QString& boton, QString* texto = nullptr);

} // namespace prueba
