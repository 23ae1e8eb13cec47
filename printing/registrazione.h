// A printer that keeps every operation instead of printing it.
//
// Tests read back the exact sequence of faces, texts and pages; the command line
// writes it as text or positions, or hands it to the PDF writer, which plays it
// back on a real printer (Riproduci). Header-only: the PDF writer, built apart,
// uses it as it stands.
#pragma once

#include "printing/stampante.h"

#include <string>
#include <vector>

namespace zef {

struct OperazioneStampa {
    enum class Tipo { Carattere, Scala, X, Y, Testo, RigaVuota, NuovaPagina, FineDocumento };
    Tipo tipo;
    Carattere carattere;  // Carattere: the new face; Testo: the face it was printed in
    std::string testo;    // Testo
    double x = 0, y = 0;  // X, Y: the position set; Testo: where it was printed, in the units in force

    // A mark: the letter of the mark face.
    bool segno() const {
        return tipo == Tipo::Testo && caratteri::Segni(carattere.nome) && testo == caratteri::Segno;
    }
};

class StampanteRegistrata : public Stampante {
public:
    std::vector<OperazioneStampa> operazioni;

    void impostaCarattere(const Carattere& c) override {
        carattere_ = c;
        aggiungi(OperazioneStampa::Tipo::Carattere);
    }
    void scalaMillimetri() override {
        // The position keeps its place on paper in the new units.
        if (scala_ == Scala::Twip) {
            x_ /= TwipPerMillimetro;
            y_ /= TwipPerMillimetro;
        }
        scala_ = Scala::Millimetri;
        aggiungi(OperazioneStampa::Tipo::Scala);
    }
    void impostaX(double v) override {
        x_ = v;
        aggiungi(OperazioneStampa::Tipo::X).x = v;
    }
    void impostaY(double v) override {
        y_ = v;
        aggiungi(OperazioneStampa::Tipo::Y).y = v;
    }
    double x() const override { return x_; }
    double y() const override { return y_; }
    void stampa(std::string_view testo) override {
        OperazioneStampa& o = aggiungi(OperazioneStampa::Tipo::Testo);
        o.testo = std::string(testo);
        o.x = x_;
        o.y = y_;
        aCapo();
    }
    void rigaVuota() override {
        OperazioneStampa& o = aggiungi(OperazioneStampa::Tipo::RigaVuota);
        o.x = x_;
        o.y = y_;
        aCapo();
    }
    void nuovaPagina() override {
        aggiungi(OperazioneStampa::Tipo::NuovaPagina);
        x_ = y_ = 0;
    }
    void fineDocumento() override {
        aggiungi(OperazioneStampa::Tipo::FineDocumento);
        x_ = y_ = 0;
    }

    Scala scala() const { return scala_; }
    const Carattere& carattere() const { return carattere_; }

private:
    OperazioneStampa& aggiungi(OperazioneStampa::Tipo t) {
        OperazioneStampa o{t, carattere_, {}, 0, 0};
        operazioni.push_back(std::move(o));
        return operazioni.back();
    }
    // Without the faces' metrics a line is taken as 1.2 times the size.
    void aCapo() {
        const double riga = carattere_.punti * 1.2 * 25.4 / 72.0;
        x_ = 0;
        y_ += scala_ == Scala::Millimetri ? riga : riga * TwipPerMillimetro;
    }

    Carattere carattere_{caratteri::Arial, 10, false};
    Scala scala_ = Scala::Twip;
    double x_ = 0, y_ = 0;
};

// Plays recorded operations back on another printer: lines flow by its own metrics,
// positions set are set again.
inline void Riproduci(const std::vector<OperazioneStampa>& ops, Stampante& st) {
    for (const OperazioneStampa& o : ops) {
        switch (o.tipo) {
            case OperazioneStampa::Tipo::Carattere: st.impostaCarattere(o.carattere); break;
            case OperazioneStampa::Tipo::Scala: st.scalaMillimetri(); break;
            case OperazioneStampa::Tipo::X: st.impostaX(o.x); break;
            case OperazioneStampa::Tipo::Y: st.impostaY(o.y); break;
            case OperazioneStampa::Tipo::Testo: st.stampa(o.testo); break;
            case OperazioneStampa::Tipo::RigaVuota: st.rigaVuota(); break;
            case OperazioneStampa::Tipo::NuovaPagina: st.nuovaPagina(); break;
            case OperazioneStampa::Tipo::FineDocumento: st.fineDocumento(); break;
        }
    }
}

}  // namespace zef
