// The play list in the main window: telling the view about a freshly built list and
// scrolling it, against a plain model that keeps one QString a row.
#include "core/lista.h"
#include "core/sistema.h"
#include "ui/modellolista.h"

#include <QApplication>
#include <QHeaderView>
#include <QScrollBar>
#include <QStringListModel>
#include <QTableView>

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <memory>
#include <random>

namespace {

// A list of n rows of two numbers (" 7  90"), as VISUALIZZA writes it.
void Riempi(zef::Sistema& s, int64_t n) {
    s.MSFlexGrid1.costruisci(n, 6, [](int64_t r, char* d) {
        const int a = 1 + static_cast<int>(r % 89);
        d[0] = ' ';
        d[1] = a < 10 ? static_cast<char>('0' + a) : static_cast<char>('0' + a / 10);
        d[2] = a < 10 ? ' ' : static_cast<char>('0' + a % 10);
        d[3] = ' ';
        d[4] = '9';
        d[5] = '0';
    });
}

QTableView* Vista(QAbstractItemModel* m) {
    auto* v = new QTableView;
    v->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    v->verticalHeader()->setDefaultSectionSize(18);
    v->verticalHeader()->hide();
    v->horizontalHeader()->hide();
    v->setModel(m);
    v->resize(300, 500);
    v->show();
    QApplication::processEvents();
    return v;
}

// Rows of the sistema announced to a shown view.
void BM_ListaVirtuale_Annuncio(benchmark::State& st) {
    zef::Sistema s;
    Riempi(s, st.range(0));
    for (auto _ : st) {
        st.PauseTiming();
        auto m = std::make_unique<zef::ui::ModelloLista>(s);
        std::unique_ptr<QTableView> v(Vista(m.get()));
        s.MSFlexGrid1.Clear();
        m->ricarica();
        Riempi(s, st.range(0));
        st.ResumeTiming();
        m->ricarica();
        v->viewport()->repaint();
    }
    st.counters["righe"] = static_cast<double>(st.range(0));
}

// The plain way: one QString a row in a QStringListModel, built and shown.
void BM_ListaSemplice_Annuncio(benchmark::State& st) {
    zef::Sistema s;
    Riempi(s, st.range(0));
    for (auto _ : st) {
        QStringList righe;
        righe.reserve(st.range(0));
        for (int64_t r = 0; r < st.range(0); ++r) {
            auto t = s.MSFlexGrid1.riga(r);
            righe << QString::fromLatin1(t.data(), static_cast<qsizetype>(t.size()));
        }
        QStringListModel m(righe);
        std::unique_ptr<QTableView> v(Vista(&m));
        v->viewport()->repaint();
        st.PauseTiming();
        v.reset();
        st.ResumeTiming();
    }
    st.counters["righe"] = static_cast<double>(st.range(0));
}

// A jump of the scroll bar to a random place and the repaint of the rows on show.
void BM_ListaVirtuale_Scorrimento(benchmark::State& st) {
    zef::Sistema s;
    Riempi(s, st.range(0));
    zef::ui::ModelloLista m(s);
    std::unique_ptr<QTableView> v(Vista(&m));
    std::mt19937 g(7);
    std::uniform_int_distribution<int> posto(0, v->verticalScrollBar()->maximum());
    for (auto _ : st) {
        v->verticalScrollBar()->setValue(posto(g));
        v->viewport()->repaint();
    }
    st.counters["righe"] = static_cast<double>(st.range(0));
}

}  // namespace

BENCHMARK(BM_ListaVirtuale_Annuncio)->Arg(3'838'380)->Arg(20'000'000)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_ListaSemplice_Annuncio)->Arg(3'838'380)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(BM_ListaVirtuale_Scorrimento)->Arg(20'000'000)->Unit(benchmark::kMicrosecond);

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
