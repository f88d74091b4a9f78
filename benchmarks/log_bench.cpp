// How long a line takes into a log that shows. Needs no display: QT_QPA_PLATFORM=offscreen.
#include <benchmark/benchmark.h>

#include <QApplication>

#include "ui/text_box.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

const QString kLine = u"Servidor ha movido de A3 a A4. Es su turno."_s;
constexpr int kFull = 5000;
constexpr int kNearlyEmpty = 20;  // a screenful: a log that scrolls, as the full one does

// The log has `lines` before and after: at its bound the oldest goes by itself, below it the log is emptied aside.
void AddLine(benchmark::State& state, int lines) {
  TextBox log(u"TBMensajes"_s, u"Mensajes"_s);
  log.resize(400, 200);
  log.show();
  const auto fill = [&] {
    log.SetText({});
    for (int line = 0; line < lines; ++line) log.AddLine(kLine);
  };
  fill();
  int added = 0;
  for (auto _ : state) {
    log.AddLine(kLine);
    QCoreApplication::processEvents();
    if (lines < kFull && ++added == lines) {
      state.PauseTiming();
      fill();
      added = 0;
      state.ResumeTiming();
    }
  }
}
BENCHMARK_CAPTURE(AddLine, IntoAnEmptyLog, kNearlyEmpty);
BENCHMARK_CAPTURE(AddLine, IntoAFullLog, kFull);

}  // namespace
}  // namespace brontavia

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
