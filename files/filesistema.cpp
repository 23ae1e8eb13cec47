#include "files/filesistema.h"

#include "core/errori.h"
#include "core/form2.h"
#include "core/giocate.h"
#include "core/sistema.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <memory>

namespace zef {

namespace {

ErroreEsecuzione ErroreFile(int err) {
    switch (err) {
        case ENOENT: return errori::fileNonTrovato();
        case EACCES:
        case EPERM:
        case EROFS: return {70, "Permesso negato"};
        case ENOSPC: return {61, "Disco pieno"};
        case EISDIR: return {75, "Errore di accesso al percorso/file"};
        default: return {75, "Errore di accesso al percorso/file"};
    }
}

bool SoloAscii(std::string_view t) {
    for (unsigned char c : t)
        if (c >= 0x80) return false;
    return true;
}

// Output in large blocks: no allocation per value.
class Scrittore {
public:
    explicit Scrittore(const std::string& percorso) {
        f_ = std::fopen(percorso.c_str(), "wb");
        if (!f_) throw ErroreFile(errno);
        buf_.reserve(Blocco + 64);
    }
    ~Scrittore() {
        if (f_) std::fclose(f_);
    }
    void intero(long long v) {
        char t[24];
        auto r = std::to_chars(t, t + sizeof t, v);
        buf_.append(t, r.ptr);
        fineRiga();
    }
    void testo(std::string_view utf8) {
        buf_ += '"';
        if (SoloAscii(utf8)) buf_.append(utf8);
        else buf_ += Utf8InCp1252(utf8);
        buf_ += '"';
        fineRiga();
    }
    void booleano(bool b) {
        buf_ += b ? "#TRUE#" : "#FALSE#";
        fineRiga();
    }
    void valuta(Currency c) {
        buf_ += c.testoPunto();
        fineRiga();
    }
    void chiudi() {
        svuota();
        if (std::fclose(f_) != 0) {
            f_ = nullptr;
            throw ErroreFile(errno);
        }
        f_ = nullptr;
    }

private:
    static constexpr size_t Blocco = 1 << 20;
    void fineRiga() {
        buf_ += "\r\n";
        if (buf_.size() >= Blocco) svuota();
    }
    void svuota() {
        if (!buf_.empty() && std::fwrite(buf_.data(), 1, buf_.size(), f_) != buf_.size()) throw ErroreFile(errno);
        buf_.clear();
    }
    FILE* f_ = nullptr;
    std::string buf_;
};

// Input of one value at a time, as the classic Input statement reads a field:
// blanks skipped, a quoted text up to the next quote, anything else up to a
// comma or the end of the line.
class Lettore {
public:
    explicit Lettore(const std::string& percorso) {
        fd_ = ::open(percorso.c_str(), O_RDONLY);
        if (fd_ < 0) throw ErroreFile(errno);
        struct stat st {};
        if (fstat(fd_, &st) != 0 || S_ISDIR(st.st_mode)) throw ErroreFile(S_ISDIR(st.st_mode) ? EISDIR : errno);
        lunghezza_ = static_cast<size_t>(st.st_size);
        if (lunghezza_) {
            void* p = mmap(nullptr, lunghezza_, PROT_READ, MAP_PRIVATE, fd_, 0);
            if (p == MAP_FAILED) throw ErroreFile(errno);
            madvise(p, lunghezza_, MADV_SEQUENTIAL);
            dati_ = static_cast<const char*>(p);
        }
    }
    ~Lettore() {
        if (dati_) munmap(const_cast<char*>(dati_), lunghezza_);
        if (fd_ >= 0) ::close(fd_);
    }
    size_t lunghezza() const { return lunghezza_; }
    size_t posizione() const { return pos_; }

    long long intero(long long minimo, long long massimo) {
        std::string_view c = campo();
        long long v = 0;
        if (!NumeroIntero(c, v)) throw errori::tipoNonCorrispondente();
        if (v < minimo || v > massimo) throw errori::overflow();
        return v;
    }
    bool booleano() {
        std::string_view c = campo();
        if (c == "#TRUE#") return true;
        if (c == "#FALSE#") return false;
        long long v = 0;
        if (NumeroIntero(c, v)) return v != 0;
        throw errori::tipoNonCorrispondente();
    }
    Currency valuta() {
        std::string_view c = campo();
        Currency v;
        if (!Currency::daTestoPunto(c, v)) throw errori::tipoNonCorrispondente();
        return v;
    }
    std::string testo() {
        std::string_view c = campo(true);
        return SoloAscii(c) ? std::string(c) : Cp1252InUtf8(c);
    }

private:
    static bool NumeroIntero(std::string_view c, long long& v) {
        if (c.empty()) {  // an empty field reads as zero
            v = 0;
            return true;
        }
        // A decimal value is rounded on its way into an integer.
        if (c.find_first_of(".eE") != std::string_view::npos) {
            Currency x;
            if (!Currency::daTestoPunto(c, x)) return false;
            v = ArrotondaBanker(x.inDouble());
            return true;
        }
        size_t i = c[0] == '+' ? 1 : 0;
        auto r = std::from_chars(c.data() + i, c.data() + c.size(), v);
        return r.ec == std::errc{} && r.ptr == c.data() + c.size();
    }

    std::string_view campo(bool comeTesto = false) {
        while (pos_ < lunghezza_ && (dati_[pos_] == ' ' || dati_[pos_] == '\t')) ++pos_;
        if (pos_ >= lunghezza_) throw errori::inputOltreFine();
        std::string_view v;
        if (dati_[pos_] == '"') {
            size_t inizio = ++pos_;
            while (pos_ < lunghezza_ && dati_[pos_] != '"') ++pos_;
            v = std::string_view(dati_ + inizio, pos_ - inizio);
            if (pos_ < lunghezza_) ++pos_;
            // whatever follows the closing quote up to the delimiter is passed over
            while (pos_ < lunghezza_ && dati_[pos_] != ',' && dati_[pos_] != '\r' && dati_[pos_] != '\n') ++pos_;
            if (!comeTesto) throw errori::tipoNonCorrispondente();
        } else {
            size_t inizio = pos_;
            while (pos_ < lunghezza_ && dati_[pos_] != ',' && dati_[pos_] != '\r' && dati_[pos_] != '\n') ++pos_;
            size_t fine = pos_;
            while (fine > inizio && (dati_[fine - 1] == ' ' || dati_[fine - 1] == '\t')) --fine;
            v = std::string_view(dati_ + inizio, fine - inizio);
        }
        // the delimiter: a comma, or the end of the line (CR, LF or both)
        if (pos_ < lunghezza_) {
            if (dati_[pos_] == ',') ++pos_;
            else if (dati_[pos_] == '\r') {
                ++pos_;
                if (pos_ < lunghezza_ && dati_[pos_] == '\n') ++pos_;
            } else if (dati_[pos_] == '\n') ++pos_;
        }
        return v;
    }

    int fd_ = -1;
    const char* dati_ = nullptr;
    size_t lunghezza_ = 0;
    size_t pos_ = 0;
};

void ScriviColonne(Scrittore& w, const Colonne& c, int64_t quante, int k) {
    if (k <= 0) return;
    for (int64_t col = 1; col <= quante; ++col) {
        const uint8_t* p = c.colonna(col);
        for (int i = 0; i < k; ++i) w.intero(p[i]);
    }
}

// The bar of the main window follows the position in 128-byte units; it is
// refreshed only when that value moves by a visible step.
class Barra {
public:
    Barra(Interfaccia& ui, const Lettore& r) : ui_(ui), r_(r), massimo_(static_cast<double>(r.lunghezza() / 128)) {
        ui_.barraPrincipale(0, massimo_, 0);
        passo_ = std::max<size_t>(128, r.lunghezza() / 200);
    }
    void aggiorna() {
        size_t p = r_.posizione();
        if (p < ultimo_ + passo_) return;
        ultimo_ = p;
        double v = std::max(0.0, static_cast<double>(p / 128) - 1);
        ui_.barraPrincipale(0, massimo_, std::min(v, massimo_));
    }

private:
    Interfaccia& ui_;
    const Lettore& r_;
    double massimo_;
    size_t passo_;
    size_t ultimo_ = 0;
};

void LeggiColonne(Lettore& r, Barra& barra, Colonne& c, long long quante, int k) {
    if (k <= 0) return;
    for (long long col = 1; col <= quante; ++col) {
        if (col > c.capacita()) throw errori::indiceFuoriIntervallo();
        uint8_t* p = c.colonna(col);
        for (int i = 0; i < k; ++i) p[i] = static_cast<uint8_t>(r.intero(0, 255));
        if ((col & 1023) == 0) barra.aggiorna();
    }
}

}  // namespace

void ScriviSistema(const Sistema& s, const std::string& percorso) {
    Scrittore w(percorso);
    for (int i = 0; i < 90; ++i) w.intero(s.pad[i] ? 1 : 0);
    w.intero(s.TipoGaranzia);
    for (const auto& p : s.pannelli) w.testo(p);
    const int k = s.SviluppoK;
    w.intero(k);
    w.intero(s.NumColonne);
    ScriviColonne(w, s.colonne, s.NumColonne, std::min(k, s.colonne.k()));
    w.intero(s.NumRidotte);
    ScriviColonne(w, s.ColonneRidotte, s.NumRidotte, std::min(k, s.ColonneRidotte.k()));
    const ListaGiocate& g = s.MSFlexGrid1;
    w.intero(g.Rows());
    for (int64_t r = 0; r < g.Rows(); ++r) w.testo(g.riga(r));
    for (int i = 0; i <= 10; ++i) w.booleano(s.form2.Option1[i]);
    for (int i = 1; i <= 4; ++i) w.intero(s.form2.Check[i]);
    for (int i = 1; i <= 4; ++i) w.testo(s.form2.testi[i]);
    w.testo(s.Command2);
    w.valuta(s.CostoColonna);
    w.booleano(s.GaranziaAttiva);
    w.intero(s.DistanzaMin);
    w.chiudi();
}

void LeggiSistema(Sistema& s, Interfaccia& ui, const std::string& percorso) {
    Lettore r(percorso);
    Barra barra(ui, r);
    int conta = 0;
    for (int i = 0; i < 90; ++i) {
        long long flag = r.intero(-32768, 32767);
        if (flag == 1) {
            s.pad[i] = true;
            s.Label2 = TestoSemplice(++conta);
            // kept as the program always had it: C(n, 6) of the count so far, whatever k
            double n = conta;
            s.NumCombinazioni = n * (n - 1) * (n - 2) * (n - 3) * (n - 4) * (n - 5) / 720;
        } else {
            s.pad[i] = false;
        }
    }
    barra.aggiorna();
    if (conta > 0) s.PronosticoDalPad();
    s.NumPronostico = static_cast<int16_t>(conta);

    s.TipoGaranzia = static_cast<int16_t>(r.intero(-32768, 32767));
    for (auto& p : s.pannelli) p = r.testo();

    long long k = r.intero(-32768, 32767);
    s.SviluppoK = static_cast<int16_t>(k);
    if (k < 0) throw errori::indiceFuoriIntervallo();
    if (k > KMax) throw errori::memoriaEsaurita();
    s.colonne.dimensiona(static_cast<int>(k));

    s.NumColonne = static_cast<int32_t>(r.intero(INT32_MIN, INT32_MAX));
    if (s.NumColonne > 0) s.PronosticoNonSviluppato = false;
    LeggiColonne(r, barra, s.colonne, s.NumColonne, static_cast<int>(k));

    s.NumRidotte = static_cast<int32_t>(r.intero(INT32_MIN, INT32_MAX));
    if (s.NumRidotte > 0) {
        if (s.NumRidotte > Colonne::CapacitaSviluppo) throw errori::memoriaEsaurita();
        s.ColonneRidotte.dimensiona(static_cast<int>(k), s.NumRidotte);
    }
    LeggiColonne(r, barra, s.ColonneRidotte, s.NumRidotte, static_cast<int>(k));

    long long righe = r.intero(INT32_MIN, INT32_MAX);
    for (long long i = 0; i < righe; ++i) {
        s.MSFlexGrid1.AddItem(r.testo());
        if ((i & 1023) == 0) barra.aggiorna();
    }

    // The play dialog: reading its controls loads it.
    Form2 f2(s, ui);
    f2.carica();
    for (int i = 0; i <= 10; ++i) {
        bool v = r.booleano();
        // options are set one by one: a True one turns the others off
        if (v) f2.clickOption1(i);
        else s.form2.Option1[i] = false;
    }
    for (int i = 1; i <= 4; ++i) {
        int v = static_cast<int>(r.intero(-32768, 32767));
        bool cambia = (v != 0) != (s.form2.Check[i] != 0);
        s.form2.Check[i] = v;
        if (cambia) s.form2.lblCosto = f2.CalcolaCosto().testoDueDecimali();  // the click event
    }
    for (int i = 1; i <= 4; ++i) {
        std::string t = r.testo();
        if (!t.empty()) s.form2.testi[i] = t;
    }
    s.Command2 = r.testo();
    s.CostoColonna = r.valuta();
    s.GaranziaAttiva = r.booleano();
    s.DistanzaMin = static_cast<int16_t>(r.intero(-32768, 32767));
}

void ChiediSalvataggio(Sistema& s, Interfaccia& ui) {
    if (ui.messaggio("Vuoi salvare il sistema ?", "ATTENZIONE", Icona::Esclamazione, Pulsanti::SiNo) == Risposta::Si)
        SalvaConNome(s, ui);
}

namespace {

void SalvaSu(Sistema& s, Interfaccia& ui, const std::string& nome) {
    ui.clessidra(true);
    try {
        ScriviSistema(s, nome);
    } catch (...) {
        ui.clessidra(false);
        throw;
    }
    s.titolo = titoli::Sistema(nome);
    s.SistemaSalvato = true;
    s.SalvaAbilitato = true;
    s.PercentualiValide = false;
    ui.clessidra(false);
}

void MostraErrore(Interfaccia& ui, const ErroreEsecuzione& e) {
    ui.messaggio("Si è verificato l'errore seguente: " + e.testo());
}

}  // namespace

void SalvaConNome(Sistema& s, Interfaccia& ui) {
    try {
        auto nome = ui.dialogoSalva(FiltroFileSistema);
        if (!nome) throw errori::annullaDialogo();
        s.FileName = *nome;
        if (nome->empty()) return;
        SalvaSu(s, ui, *nome);
    } catch (const ErroreEsecuzione& e) {
        ui.clessidra(false);
        if (e.numero != errori::AnnullaDialogo) MostraErrore(ui, e);
    }
}

void Salva(Sistema& s, Interfaccia& ui) {
    if (s.FileName.empty()) return;  // the toolbar button stays enabled without a name
    try {
        SalvaSu(s, ui, s.FileName);
    } catch (const ErroreEsecuzione& e) {
        ui.clessidra(false);
        MostraErrore(ui, e);
    }
}

void Apri(Sistema& s, Interfaccia& ui) {
    if (!s.SistemaSalvato) ChiediSalvataggio(s, ui);
    try {
        auto nome = ui.dialogoApri(FiltroFileSistema);
        if (!nome) throw errori::annullaDialogo();
        s.FileName = *nome;
        s.Pronostico.clear();
        s.PronosticoScalare = true;
        if (!nome->empty()) {
            ui.clessidra(true);
            s.MSFlexGrid1.Clear();
            s.Label2 = "0";
            LeggiSistema(s, ui, *nome);
            ImpostaListaCol(s, TestoSemplice(s.MSFlexGrid1.Rows()));
            // one below the levels of the reduction dialog's options, as it always was
            switch (s.TipoGaranzia) {
                case 4: s.form5.Option = {true, false, false, false}; break;
                case 3: s.form5.Option = {false, true, false, false}; break;
                case 2: s.form5.Option = {false, false, true, false}; break;
                case 1: s.form5.Option = {false, false, false, true}; break;
                default: break;
            }
            if (s.TipoGaranzia >= 1 && s.TipoGaranzia <= 4) s.form5.caricato = true;
            s.titolo = titoli::Sistema(*nome);
            s.SistemaSalvato = true;
            s.SalvaAbilitato = true;
            s.PercentualiValide = false;
            ui.clessidra(false);
        }
    } catch (const ErroreEsecuzione& e) {
        ui.clessidra(false);
        if (e.numero != errori::AnnullaDialogo) MostraErrore(ui, e);
    } catch (const std::bad_alloc&) {
        ui.clessidra(false);
        MostraErrore(ui, errori::memoriaEsaurita());
    }
    // whatever happened
    ui.barraPrincipale(0, 0, 0);
    s.NumeriColonnaMax = 8;
    if (Val(s.Label2) > 0) s.PronosticoDalPad();
}

}  // namespace zef
