// The printer as the listing and the slips see it: a face, lines of text, pages,
// and a current position that a text is printed at.
//
// The program prints only through this interface. ui/ draws on a Qt printer, a
// preview or a PDF; the command line and the tests record the operations
// (printing/registrazione.h). Texts are UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace zef {

// A face by the name the program asks for ("Arial", "Courier new", "wingdings"),
// its size in points and its weight.
struct Carattere {
    std::string nome;
    double punti = 10;
    bool grassetto = false;

    friend bool operator==(const Carattere&, const Carattere&) = default;
};

namespace caratteri {
inline constexpr const char* Arial = "Arial";
inline constexpr const char* CourierNew = "Courier New";
// The face of the marks: its letter "n" is a filled square.
inline constexpr const char* Wingdings = "wingdings";
inline constexpr const char* Segno = "n";
// Names compare without case, as the printer's faces do.
inline bool StessoNome(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i) {
        char x = a[i], y = b[i];
        if (x >= 'A' && x <= 'Z') x = static_cast<char>(x - 'A' + 'a');
        if (y >= 'A' && y <= 'Z') y = static_cast<char>(y - 'A' + 'a');
        if (x != y) return false;
    }
    return true;
}
inline bool Segni(std::string_view nome) { return StessoNome(nome, Wingdings); }
inline bool Fisso(std::string_view nome) { return StessoNome(nome, CourierNew); }
}  // namespace caratteri

// The mark as it lands on paper. The letter "n" of the mark face is a filled square
// standing on the baseline: with the text cell's top at the current position, the
// baseline lies 0.9 em below it and the square is 0.6 em a side, 0.08 em in from
// the left. Printer, preview and tests share these figures. Millimetres.
struct QuadratoSegno {
    double x, y, lato;
};
inline QuadratoSegno Quadrato(double x, double y, double punti) {
    const double em = punti * 25.4 / 72.0;
    return {x + 0.08 * em, y + 0.3 * em, 0.6 * em};
}

// Units of the current position: twips until the scale is set to millimetres.
enum class Scala { Twip, Millimetri };
inline constexpr double TwipPerMillimetro = 1440.0 / 25.4;

class Stampante {
public:
    virtual ~Stampante() = default;

    virtual void impostaCarattere(const Carattere& c) = 0;
    // From here on positions are in millimetres.
    virtual void scalaMillimetri() = 0;
    virtual void impostaX(double x) = 0;
    virtual void impostaY(double y) = 0;
    virtual double x() const = 0;
    virtual double y() const = 0;
    // Prints `testo` at the current position, then goes to the start of the next line.
    virtual void stampa(std::string_view testo) = 0;
    // An empty line.
    virtual void rigaVuota() = 0;
    virtual void nuovaPagina() = 0;
    // Ends the document: what was printed goes out; a later text starts another one.
    virtual void fineDocumento() = 0;
};

}  // namespace zef
