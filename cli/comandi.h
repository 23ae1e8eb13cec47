// The subcommands of zefiranto-cli. Each source file of cli/ registers its own
// subcommands with a RegistraComando object; main() builds them all.
#pragma once

#include <CLI/CLI.hpp>

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

namespace zef::cli {

// Exit status of a subcommand: 0 success, 1 bad input or failure, others as documented.
using Esecuzione = std::function<int()>;

// Adds a subcommand to `app` and returns the function that runs it.
using Costruttore = std::function<Esecuzione(CLI::App& app)>;

struct RegistraComando {
    RegistraComando(const std::string& nome, Costruttore c);
};

struct VoceComando {
    std::string nome;
    Costruttore costruttore;
};
std::vector<VoceComando>& Comandi();

// Raised by a subcommand for bad input: the message goes to stderr, exit status 1.
struct InputNonValido : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Parses "3,7,12" (blanks allowed) into numbers; throws InputNonValido.
std::vector<int> ListaNumeri(const std::string& testo, const std::string& opzione);

}  // namespace zef::cli
