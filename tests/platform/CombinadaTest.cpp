// NetworkManager's and pppd's links as one source, with made-up sources.

#include "platform/networkmanager/EntradasCombinadas.h"
#include "platform/networkmanager/FuenteConexionesCombinada.h"

#include <gtest/gtest.h>

using namespace vorimesk;

namespace {

struct FuenteFija final : FuenteConexiones {
    LecturaConexion Leer() override {
        const bool activa =
            estado == LecturaConexion::kConectado || estado == LecturaConexion::kConectando;
        LecturaConexion l{activa ? 1 : 0, estado, entrada};
        l.Interfaz = interfaz;
        return l;
    }

    int estado = LecturaConexion::kNada;
    std::string entrada;
    std::string interfaz;
};

void Poner(FuenteFija& f, int estado, std::string entrada, std::string interfaz) {
    f.estado = estado;
    f.entrada = std::move(entrada);
    f.interfaz = std::move(interfaz);
}

struct ListaFija final : ListaEntradas {
    explicit ListaFija(std::vector<std::string> n) : nombres(std::move(n)) {}
    std::vector<std::string> Entradas() const override { return nombres; }
    std::vector<std::string> nombres;
};

class Combinada : public ::testing::Test {
protected:
    std::shared_ptr<FuenteFija> nm = std::make_shared<FuenteFija>();
    std::shared_ptr<FuenteFija> ppp = std::make_shared<FuenteFija>();
    FuenteConexionesCombinada fuente{nm, ppp};

    std::pair<int, std::string> Tick() {
        l = fuente.Leer();
        return {l.IntState, l.EntryName};
    }
    LecturaConexion l;
    using Visto = std::pair<int, std::string>;
};

TEST_F(Combinada, ElFinDeUnaLlamadaSeVeAunqueLaOtraFuenteYaTengaEnlace) {
    EXPECT_EQ(Tick(), (Visto{-1, ""}));
    Poner(*nm, 2, "Movistar 3G", "wwan0");
    EXPECT_EQ(Tick(), (Visto{2, "Movistar 3G"}));
    // A pppd peer comes up while the call goes on: the call keeps the lead.
    Poner(*ppp, 2, "casa", "ppp0");
    EXPECT_EQ(Tick(), (Visto{2, "Movistar 3G"}));
    EXPECT_EQ(l.Count, 2);
    nm->estado = 0;
    EXPECT_EQ(Tick(), (Visto{0, "Movistar 3G"}));
    EXPECT_EQ(Tick(), (Visto{2, "casa"}));
    EXPECT_EQ(l.Interfaz, "ppp0");
}

TEST_F(Combinada, ElPppdDeNetworkManagerNoEsOtraLlamada) {
    // Dialling: NetworkManager's pppd has no peer and no interface yet.
    Poner(*nm, 3, "Modem serie", "");
    Poner(*ppp, 3, "", "");
    EXPECT_EQ(Tick(), (Visto{3, "Modem serie"}));
    EXPECT_EQ(l.Count, 1);
    Poner(*nm, 2, "Modem serie", "ppp0");
    Poner(*ppp, 2, "ppp0", "ppp0");
    EXPECT_EQ(Tick(), (Visto{2, "Modem serie"}));
    EXPECT_EQ(l.Count, 1);
    // NetworkManager ends first; its pppd lingers a moment on ppp0.
    nm->estado = 0;
    EXPECT_EQ(Tick(), (Visto{0, "Modem serie"}));
    EXPECT_EQ(Tick(), (Visto{0, "Modem serie"}));
    ppp->estado = 0;
    EXPECT_EQ(Tick(), (Visto{0, "Modem serie"}));
}

TEST(EntradasCombinadas, CadaListaEnSuOrdenSinRepetir) {
    const EntradasCombinadas e(
        std::make_shared<ListaFija>(std::vector<std::string>{"Movil", "ADSL"}),
        std::make_shared<ListaFija>(std::vector<std::string>{"ADSL", "casa"}));
    EXPECT_EQ(e.Entradas(), (std::vector<std::string>{"Movil", "ADSL", "casa"}));
}

} // namespace
