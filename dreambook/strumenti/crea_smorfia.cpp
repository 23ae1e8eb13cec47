// Build step: the dream book's text sources into smorfia.db.
//   crea-smorfia SOURCES_FOLDER OUT.db
#include "dreambook/libro.h"

#include <iostream>

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "uso: crea-smorfia CARTELLA_SORGENTI FILE.db\n";
        return 2;
    }
    try {
        zef::CostruisciLibro(argv[1], argv[2]);
    } catch (const std::exception& e) {
        std::cerr << "Errore: " << e.what() << "\n";
        return 1;
    }
    return 0;
}
