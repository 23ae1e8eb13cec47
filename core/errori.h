// Run-time errors as the program's procedures raise them.
//
// Where a procedure has no error trap, the failure travels up to the event that
// started it; the window layer catches ErroreEsecuzione there and shows it in a
// run-time error box, and the program keeps running with its data intact.
#pragma once

#include <stdexcept>
#include <string>

namespace zef {

struct ErroreEsecuzione : std::runtime_error {
    int numero;
    ErroreEsecuzione(int n, const std::string& testo) : std::runtime_error(testo), numero(n) {}
    std::string testo() const { return what(); }
};

// The error numbers the program meets, with the texts the run time gives them.
namespace errori {
constexpr int Overflow = 6;
constexpr int UsoNonValidoNull = 94;
constexpr int NessunRecordCorrente = 3021;
constexpr int MemoriaEsaurita = 7;
constexpr int IndiceFuoriIntervallo = 9;
constexpr int TipoNonCorrispondente = 13;
constexpr int FileNonTrovato = 53;
constexpr int InputOltreFine = 62;
constexpr int ValoreProprietaNonValido = 380;
constexpr int AnnullaDialogo = 32755;

ErroreEsecuzione overflow();
ErroreEsecuzione indiceFuoriIntervallo();
ErroreEsecuzione memoriaEsaurita();
ErroreEsecuzione tipoNonCorrispondente();
ErroreEsecuzione fileNonTrovato();
ErroreEsecuzione inputOltreFine();
ErroreEsecuzione annullaDialogo();
ErroreEsecuzione usoNonValidoNull();
ErroreEsecuzione nessunRecordCorrente();
}  // namespace errori

}  // namespace zef
