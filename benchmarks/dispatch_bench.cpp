// How long a session takes from a read to everything that it sets off, without a network and without a screen.
#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <cstring>
#include <vector>

#include "benchmarks/recorded_session.h"

namespace brontavia {
namespace {

using namespace Qt::StringLiterals;

void Read(benchmark::State& state, const QString& text) {
  Client client;
  for (auto _ : state) client.Connection.Deliver(text);
  state.SetBytesProcessed(state.iterations() * text.size());
}

// With a bar, so that every token is sought.
const QString kUnknown = u"Hola|¿qué tal?"_s;

BENCHMARK_CAPTURE(Read, Move, u"Jug|-1|4"_s);
BENCHMARK_CAPTURE(Read, Name, u"Nombre|Ana"_s);
BENCHMARK_CAPTURE(Read, NameAndMove, u"Nombre|AnaJug|-1|4"_s);
BENCHMARK_CAPTURE(Read, TextThatNobodyKnows, kUnknown);
const QString kMebibyte(1 << 20, u'x');
BENCHMARK_CAPTURE(Read, MebibyteThatNobodyKnows, kMebibyte);

// ---- What the reads are measured against ----

std::vector<QStringView> Tokens() {
  std::vector<QStringView> tokens{message::kAccepted.Token};
  for (const Message* message : kFormTER.Messages) tokens.push_back(message->Token);
  return tokens;
}

// The tokens of the window, each sought by the toolkit and nothing else.
void Search(benchmark::State& state, const QString& text) {
  const std::vector<QStringView> tokens = Tokens();
  for (auto _ : state) {
    for (const QStringView token : tokens) benchmark::DoNotOptimize(text.contains(token));
  }
}
BENCHMARK_CAPTURE(Search, TextThatNobodyKnows, kUnknown);

// The same in the same bytes, by the system's own function.
void SearchByMemmem(benchmark::State& state, const QString& text) {
  const std::vector<QStringView> tokens = Tokens();
  for (auto _ : state) {
    for (const QStringView token : tokens) {
      benchmark::DoNotOptimize(memmem(text.utf16(), static_cast<std::size_t>(text.size()) * sizeof(char16_t),
                                      token.utf16(), static_cast<std::size_t>(token.size()) * sizeof(char16_t)));
    }
  }
}
BENCHMARK_CAPTURE(SearchByMemmem, MebibyteThatNobodyKnows, kMebibyte);

}  // namespace
}  // namespace brontavia

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);  // boxes wait in its event loop
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
