#include "core/errori.h"

namespace zef::errori {

ErroreEsecuzione overflow() { return {Overflow, "Overflow"}; }
ErroreEsecuzione indiceFuoriIntervallo() { return {IndiceFuoriIntervallo, "Indice non incluso nell'intervallo"}; }
ErroreEsecuzione memoriaEsaurita() { return {MemoriaEsaurita, "Memoria esaurita"}; }
ErroreEsecuzione tipoNonCorrispondente() { return {TipoNonCorrispondente, "Tipo non corrispondente"}; }
ErroreEsecuzione fileNonTrovato() { return {FileNonTrovato, "Impossibile trovare il file"}; }
ErroreEsecuzione inputOltreFine() { return {InputOltreFine, "Input oltre la fine del file"}; }
ErroreEsecuzione annullaDialogo() { return {AnnullaDialogo, "Operazione annullata"}; }
ErroreEsecuzione usoNonValidoNull() { return {UsoNonValidoNull, "Uso non valido di Null"}; }
ErroreEsecuzione nessunRecordCorrente() { return {NessunRecordCorrente, "Nessun record corrente."}; }

}  // namespace zef::errori
