#include "AplicacionCli.h"

#include <iostream>

int main(int argc, char** argv) {
    vorimesk::cli::AplicacionCli aplicacion;
    vorimesk::cli::RegistrarOrdenes(aplicacion);
    return aplicacion.Ejecutar(argc, argv, std::cout, std::cerr);
}
